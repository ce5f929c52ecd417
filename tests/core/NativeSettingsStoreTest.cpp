#include "core/NativeSettingsStore.h"

#include "MemoryDefaultsStore.h"
#include "core/QSettingsDefaultsStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class NativeSettingsStoreTest : public ::testing::Test {
protected:
    MivoraSettings loadWith(const QString& key, const QVariant& value)
    {
        m_defaults.setValue(key, value);
        return m_store.load();
    }

    static QByteArray json(const QJsonArray& array) { return QJsonDocument(array).toJson(); }
    static QByteArray json(const QJsonObject& object) { return QJsonDocument(object).toJson(); }

    MemoryDefaultsStore m_defaults;
    NativeSettingsStore m_store{m_defaults};
};

// A record that differs from the defaults in every field the store keeps.
MivoraSettings changedSettings()
{
    MivoraSettings s;
    s.appearanceMode = AppearanceMode::liquidNoir;
    s.surfaceMode = SurfaceMode::solid;
    s.menuScale = MenuScale::xlarge;
    s.targetLanguage = "Chinese (Traditional)";
    s.translatePreviewTargetLanguage = "Russian";
    s.uiLanguage = UiLanguage::ru;
    s.selectedStyleId = "custom-1";
    s.promptStyles[1].name = "Тепло";
    s.promptStyles.append(PromptStyle{"custom-1", "Pirate", "Arr.", "Alt+P", false});
    s.aiReplyStyles[0].hotkey = "Not assigned";
    s.aiReplyStyles.append(AIReplyStyle{"custom-reply-1", "Short+", "Two words.", "Alt+W"});
    s.quickMenuHotkey = "Control+Q";
    s.assistantHotkey = "Not assigned";
    s.clipboardHotkey = "Control+Shift+V";
    s.layoutHotkey = "Alt+L";
    s.translatePreviewHotkey = "Alt+Y";
    s.layoutLatinSource = "U.S.";
    s.layoutNativeSource = "Russian";
    s.layoutAutoSwitch = false;
    s.appLayoutSwitchingEnabled = true;
    s.appLayoutRules = {
        AppLayoutRule{QUuid::createUuid(), "org.example.Term", "Term", "/usr/bin/term", "ABC", false}};
    s.windowTilingEnabled = false;
    s.windowTilingHotkeys["full"] = "Control+Alt+F";
    s.quickMenuSize = MenuScale::large;
    s.quickMenuOpenMode = QuickMenuOpenMode::button;
    s.quickMenuActions = {"layout", "style:emoji"};
    s.quickMenuOrder = {"style:emoji", "ai", "ai"};
    s.clipboardHistoryEnabled = false;
    s.clipboardLimit = 7;
    s.clipboardDays = "30";
    s.openMainWindowOnLaunch = false;
    s.menuBarIconVisible = false;
    s.closeToMenuBar = false;
    s.autoSelectAllBeforeAction = false;
    s.aiContextEnabled = true;
    s.updateNotificationsEnabled = false;
    s.automaticUpdateChecksEnabled = false;
    return s;
}

TEST_F(NativeSettingsStoreTest, EmptyStoreGivesTheDefaultRecordAndASavedRecordComesBack)
{
    EXPECT_EQ(m_store.load(), MivoraSettings{});
    EXPECT_EQ(m_defaults.writeCount(), 0);
    const MivoraSettings saved = changedSettings();
    m_store.save(saved);
    EXPECT_EQ(m_store.load(), saved);
}

TEST_F(NativeSettingsStoreTest, SaveWritesEveryKeyWithItsStoredForm)
{
    m_store.save(MivoraSettings{});
    EXPECT_EQ(m_defaults.value("mivora.theme"), QVariant(QString("system")));
    EXPECT_EQ(m_defaults.value("mivora.clipboardLimit"), QVariant(100));
    EXPECT_EQ(m_defaults.value("mivora.layoutAutoSwitch"), QVariant(true));
    EXPECT_EQ(m_defaults.value("mivora.appLayoutSwitching.rules"), QVariant(QByteArray("[]")));
    const QVariant styles = m_defaults.value("mivora.promptStyles");
    ASSERT_EQ(styles.typeId(), QMetaType::QByteArray);
    EXPECT_EQ(QJsonDocument::fromJson(styles.toByteArray()).array().size(), 17);
}

TEST_F(NativeSettingsStoreTest, RetiredSwitchesAreAlwaysOff)
{
    MivoraSettings settings;
    settings.autoQuickMenuEnabled = true;
    settings.floatingButtonVisible = true;
    m_store.save(settings);
    EXPECT_EQ(m_defaults.value("mivora.autoQuickMenuEnabled"), QVariant(false));

    m_defaults.setValue("mivora.quickMenu.floatingButtonVisible", true);
    const MivoraSettings loaded = m_store.load();
    EXPECT_FALSE(loaded.autoQuickMenuEnabled);
    EXPECT_FALSE(loaded.floatingButtonVisible);
}

TEST_F(NativeSettingsStoreTest, ClipboardLimitIsClampedAndStoredBooleansWin)
{
    EXPECT_EQ(loadWith("mivora.clipboardLimit", 0).clipboardLimit, 1);
    EXPECT_EQ(loadWith("mivora.clipboardLimit", 5000).clipboardLimit, 1000);
    EXPECT_EQ(loadWith("mivora.clipboardLimit", "250").clipboardLimit, 250);
    EXPECT_EQ(loadWith("mivora.clipboardLimit", "lots").clipboardLimit, 1);
    EXPECT_EQ(loadWith("mivora.clipboardLimit", "nan").clipboardLimit, 1);
    EXPECT_EQ(loadWith("mivora.clipboardLimit", "-inf").clipboardLimit, 1);
    // Stored booleans win over the fallbacks, whatever their spelling.
    EXPECT_FALSE(loadWith("mivora.menuBarIconVisible", false).menuBarIconVisible);
    EXPECT_FALSE(loadWith("mivora.closeToMenuBar", 0).closeToMenuBar);
    EXPECT_TRUE(loadWith("mivora.aiContextEnabled", "YES").aiContextEnabled);
    EXPECT_FALSE(loadWith("mivora.layoutAutoSwitch", "no").layoutAutoSwitch);
    EXPECT_FALSE(loadWith("mivora.windowTiling.enabled", QString()).windowTilingEnabled);
}

TEST_F(NativeSettingsStoreTest, EnumerationsFallBackByTheirOwnRules)
{
    m_defaults.setValue("mivora.theme", "liquid-gold");
    m_defaults.setValue("mivora.menuScale", "huge");
    m_defaults.setValue("mivora.surfaceMode", "SOLID");
    m_defaults.setValue("mivora.uiLanguage", "de");
    m_defaults.setValue("mivora.quickMenu.openMode", "hover");
    m_defaults.setValue("mivora.quickMenu.size", "medium");
    const MivoraSettings unknown = m_store.load();
    EXPECT_EQ(unknown.appearanceMode, AppearanceMode::system);
    EXPECT_EQ(unknown.menuScale, MenuScale::tiny);
    EXPECT_EQ(unknown.surfaceMode, SurfaceMode::translucent);
    EXPECT_EQ(unknown.uiLanguage, UiLanguage::en);
    EXPECT_EQ(unknown.quickMenuOpenMode, QuickMenuOpenMode::input);
    EXPECT_EQ(unknown.quickMenuSize, MenuScale::medium);

    m_store.save(unknown);
    EXPECT_EQ(m_defaults.value("mivora.theme"), QVariant(QString("system")));
}

TEST_F(NativeSettingsStoreTest, StringsFallBackWhenEmptyOrOutOfRange)
{
    EXPECT_EQ(loadWith("mivora.targetLanguage", "Klingon").targetLanguage, u"English");
    EXPECT_EQ(loadWith("mivora.translationPreviewTargetLanguage", "Odia").translatePreviewTargetLanguage,
              u"Odia");
    EXPECT_EQ(loadWith("mivora.layoutNativeSource", "Auto").layoutNativeSource, "Русская — ПК");
    EXPECT_EQ(loadWith("mivora.layoutLatinSource", "Auto").layoutLatinSource, u"ABC");
    EXPECT_EQ(loadWith("mivora.quickMenuHotkey", QString()).quickMenuHotkey, u"Alt+Q");
    EXPECT_EQ(loadWith("mivora.selectedStyleId", QString()).selectedStyleId, u"original");
    EXPECT_EQ(loadWith("mivora.layoutHotkey", QByteArray("Alt+Z")).layoutHotkey, u"Alt+A");
}

TEST_F(NativeSettingsStoreTest, QuickMenuListsAreNormalisedAndGainTheEmojiStyle)
{
    const QByteArray oldList = json(QJsonArray{"fix", "layout"});
    EXPECT_EQ(loadWith("mivora.quickMenu.actions", QString::fromUtf8(oldList)).quickMenuActions,
              (QStringList{"style:original", "layout", "style:emoji"}));

    const QByteArray withPolite = json(QJsonArray{"ai", "friendly", "style:polite", "bogus", "ai"});
    EXPECT_EQ(loadWith("mivora.quickMenu.order", withPolite).quickMenuOrder,
              (QStringList{"ai", "style:friendly", "style:emoji", "style:polite", "bogus", "ai"}));
}

TEST_F(NativeSettingsStoreTest, TilingHotkeysMergeOverDefaultsAndMigrateHalves)
{
    const QJsonObject stored{{"leftHalf", "Control+Alt+Left"},
                             {"rightHalf", "Control+Alt+Right"},
                             {"full", "Not assigned"},
                             {"experimental", "Alt+X"}};
    const auto hotkeys = loadWith("mivora.windowTiling.hotkeys", json(stored)).windowTilingHotkeys;
    EXPECT_EQ(hotkeys.value("topLeft"), u"Control+Alt+U");
    EXPECT_EQ(hotkeys.value("leftHalf"), u"Control+Alt+Shift+Left");
    EXPECT_EQ(hotkeys.value("rightHalf"), u"Control+Alt+Shift+Right");
    EXPECT_EQ(hotkeys.value("full"), u"Not assigned");
    EXPECT_EQ(hotkeys.value("experimental"), u"Alt+X");
    EXPECT_EQ(hotkeys.size(), 15);

    // Only data is read: the same JSON stored as text, or a value that is no string, gives the defaults.
    const QByteArray asText = json(QJsonObject{{"full", "Alt+F"}});
    EXPECT_EQ(loadWith("mivora.windowTiling.hotkeys", QString::fromUtf8(asText)).windowTilingHotkeys,
              WindowTilingHotkeys::defaults());
    EXPECT_EQ(loadWith("mivora.windowTiling.hotkeys", QByteArray("{\"full\": 1}")).windowTilingHotkeys,
              WindowTilingHotkeys::defaults());
}

TEST_F(NativeSettingsStoreTest, StylesAreMergedWithTheCatalogueOnLoad)
{
    const QByteArray stored =
        json(QJsonArray{PromptStyle{"custom-1", "Mine", "Rhyme.", QString(), true}.toJson(),
                        PromptStyle{"emoji", "Emoji", "Add fitting emojis", "Alt+9", true}.toJson()});
    const auto styles = loadWith("mivora.promptStyles", QString::fromUtf8(stored)).promptStyles;
    ASSERT_EQ(styles.size(), 18);
    EXPECT_EQ(styles[2], MivoraPromptLibrary::builtInStyles()[2]);
    EXPECT_EQ(styles[17].id, u"custom-1");
}

TEST_F(NativeSettingsStoreTest, EmptyListsAndOneBrokenEntryGiveTheFallbackList)
{
    EXPECT_EQ(loadWith("mivora.quickMenu.order", QByteArray("[]")).quickMenuOrder,
              QuickAction::defaultActionIds());
    EXPECT_EQ(loadWith("mivora.quickMenu.actions", QByteArray("[\"ai\", 3]")).quickMenuActions,
              QuickAction::defaultActionIds());
    EXPECT_TRUE(
        loadWith("mivora.appLayoutSwitching.rules", QByteArray("[{\"id\": 1}]")).appLayoutRules.isEmpty());
    QJsonObject noAutoReplace = MivoraPromptLibrary::builtInStyles()[0].toJson();
    noAutoReplace.remove("autoReplace");
    const QJsonObject custom = PromptStyle{"custom-1", "Mine", QString(), QString(), true}.toJson();
    EXPECT_EQ(loadWith("mivora.promptStyles", json(QJsonArray{custom, noAutoReplace})).promptStyles,
              MivoraPromptLibrary::builtInStyles());
    EXPECT_EQ(loadWith("mivora.aiReplyStyles", QByteArray("not json")).aiReplyStyles,
              AIReplyStyleLibrary::builtInStyles());
}

TEST(NativeSettingsStoreOnDisk, TextBackedStoreRoundTripsTheRecord)
{
    // An INI file gives back "false" and "7" as text, and data blobs as bytes.
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath("settings.ini");
    const MivoraSettings saved = changedSettings();
    {
        QSettingsDefaultsStore defaults(path, nullptr);
        NativeSettingsStore(defaults).save(saved);
    }
    QSettingsDefaultsStore defaults(path, nullptr);
    EXPECT_EQ(NativeSettingsStore(defaults).load(), saved);
}

} // namespace
