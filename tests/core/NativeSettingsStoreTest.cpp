#include "core/NativeSettingsStore.h"

#include "MemoryDefaultsStore.h"
#include "core/QSettingsDefaultsStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <algorithm>
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
    s.targetLanguage = QStringLiteral("Chinese (Traditional)");
    s.translatePreviewTargetLanguage = QStringLiteral("Russian");
    s.uiLanguage = UiLanguage::ru;
    s.selectedStyleId = QStringLiteral("custom-1");
    s.promptStyles[1].name = QStringLiteral("Тепло");
    s.promptStyles.append(PromptStyle{QStringLiteral("custom-1"), QStringLiteral("Pirate"),
                                      QStringLiteral("Arr."), QStringLiteral("Alt+P"), false});
    s.aiReplyStyles[0].hotkey = QStringLiteral("Not assigned");
    s.aiReplyStyles.append(AIReplyStyle{QStringLiteral("custom-reply-1"), QStringLiteral("Short+"),
                                        QStringLiteral("Two words."), QStringLiteral("Alt+W")});
    s.quickMenuHotkey = QStringLiteral("Control+Q");
    s.assistantHotkey = QStringLiteral("Not assigned");
    s.clipboardHotkey = QStringLiteral("Control+Shift+V");
    s.layoutHotkey = QStringLiteral("Alt+L");
    s.translatePreviewHotkey = QStringLiteral("Alt+Y");
    s.layoutLatinSource = QStringLiteral("U.S.");
    s.layoutNativeSource = QStringLiteral("Russian");
    s.layoutAutoSwitch = false;
    s.appLayoutSwitchingEnabled = true;
    s.appLayoutRules = {AppLayoutRule{QUuid::createUuid(), QStringLiteral("org.example.Term"),
                                      QStringLiteral("Term"), QStringLiteral("/usr/bin/term"),
                                      QStringLiteral("ABC"), false}};
    s.windowTilingEnabled = false;
    s.windowTilingHotkeys[QStringLiteral("full")] = QStringLiteral("Control+Alt+F");
    s.quickMenuSize = MenuScale::large;
    s.quickMenuOpenMode = QuickMenuOpenMode::button;
    s.quickMenuActions = {QStringLiteral("layout"), QStringLiteral("style:emoji")};
    s.quickMenuOrder = {QStringLiteral("style:emoji"), QStringLiteral("ai"), QStringLiteral("ai")};
    s.clipboardHistoryEnabled = false;
    s.clipboardLimit = 7;
    s.clipboardDays = QStringLiteral("30");
    s.openMainWindowOnLaunch = false;
    s.menuBarIconVisible = false;
    s.closeToMenuBar = false;
    s.autoSelectAllBeforeAction = false;
    s.aiContextEnabled = true;
    s.updateNotificationsEnabled = false;
    s.automaticUpdateChecksEnabled = false;
    return s;
}

TEST_F(NativeSettingsStoreTest, EmptyStoreGivesTheDefaultRecord)
{
    const MivoraSettings loaded = m_store.load();
    EXPECT_EQ(loaded, MivoraSettings{});
    EXPECT_EQ(loaded.promptStyles.size(), 17);
    EXPECT_EQ(loaded.quickMenuOrder.size(), 20);
    EXPECT_EQ(m_defaults.writeCount(), 0);
}

TEST_F(NativeSettingsStoreTest, SaveThenLoadGivesTheSameRecord)
{
    const MivoraSettings saved = changedSettings();
    m_store.save(saved);
    EXPECT_EQ(m_store.load(), saved);
}

TEST_F(NativeSettingsStoreTest, SaveWritesEveryKeyWithItsStoredForm)
{
    m_store.save(MivoraSettings{});
    const QStringList keys = m_defaults.keys();
    EXPECT_EQ(keys.size(), 37);
    EXPECT_TRUE(std::all_of(keys.cbegin(), keys.cend(),
                            [](const QString& key) { return key.startsWith(u"mivora."); }));
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.theme")), QVariant(QStringLiteral("system")));
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.clipboardLimit")), QVariant(100));
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.layoutAutoSwitch")), QVariant(true));
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.appLayoutSwitching.rules")),
              QVariant(QByteArray("[]")));
    const QVariant styles = m_defaults.value(QStringLiteral("mivora.promptStyles"));
    ASSERT_EQ(styles.typeId(), QMetaType::QByteArray);
    EXPECT_EQ(QJsonDocument::fromJson(styles.toByteArray()).array().size(), 17);
}

TEST_F(NativeSettingsStoreTest, RetiredSwitchesAreAlwaysOff)
{
    MivoraSettings settings;
    settings.autoQuickMenuEnabled = true;
    settings.floatingButtonVisible = true;
    m_store.save(settings);
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.autoQuickMenuEnabled")), QVariant(false));

    m_defaults.setValue(QStringLiteral("mivora.quickMenu.floatingButtonVisible"), true);
    const MivoraSettings loaded = m_store.load();
    EXPECT_FALSE(loaded.autoQuickMenuEnabled);
    EXPECT_FALSE(loaded.floatingButtonVisible);
}

TEST_F(NativeSettingsStoreTest, ClipboardLimitIsClampedOnlyWhenStored)
{
    EXPECT_EQ(loadWith(QStringLiteral("mivora.clipboardLimit"), 0).clipboardLimit, 1);
    EXPECT_EQ(loadWith(QStringLiteral("mivora.clipboardLimit"), 5000).clipboardLimit, 1000);
    EXPECT_EQ(loadWith(QStringLiteral("mivora.clipboardLimit"), QStringLiteral("250")).clipboardLimit, 250);
    EXPECT_EQ(loadWith(QStringLiteral("mivora.clipboardLimit"), QStringLiteral("lots")).clipboardLimit, 1);
}

TEST_F(NativeSettingsStoreTest, EnumerationsFallBackByTheirOwnRules)
{
    const MivoraSettings unknown = [&] {
        m_defaults.setValue(QStringLiteral("mivora.theme"), QStringLiteral("liquid-gold"));
        m_defaults.setValue(QStringLiteral("mivora.menuScale"), QStringLiteral("huge"));
        m_defaults.setValue(QStringLiteral("mivora.surfaceMode"), QStringLiteral("SOLID"));
        m_defaults.setValue(QStringLiteral("mivora.uiLanguage"), QStringLiteral("de"));
        m_defaults.setValue(QStringLiteral("mivora.quickMenu.openMode"), QStringLiteral("hover"));
        m_defaults.setValue(QStringLiteral("mivora.quickMenu.size"), QStringLiteral("medium"));
        return m_store.load();
    }();
    EXPECT_EQ(unknown.appearanceMode, AppearanceMode::system);
    EXPECT_EQ(unknown.menuScale, MenuScale::tiny);
    EXPECT_EQ(unknown.surfaceMode, SurfaceMode::translucent);
    EXPECT_EQ(unknown.uiLanguage, UiLanguage::en);
    EXPECT_EQ(unknown.quickMenuOpenMode, QuickMenuOpenMode::input);
    EXPECT_EQ(unknown.quickMenuSize, MenuScale::medium);

    m_store.save(unknown);
    EXPECT_EQ(m_defaults.value(QStringLiteral("mivora.theme")), QVariant(QStringLiteral("system")));
}

TEST_F(NativeSettingsStoreTest, StringsFallBackWhenEmptyOrOutOfRange)
{
    EXPECT_EQ(loadWith(QStringLiteral("mivora.targetLanguage"), QStringLiteral("Klingon")).targetLanguage,
              u"English");
    EXPECT_EQ(loadWith(QStringLiteral("mivora.translationPreviewTargetLanguage"), QStringLiteral("Odia"))
                  .translatePreviewTargetLanguage,
              u"Odia");
    EXPECT_EQ(
        loadWith(QStringLiteral("mivora.layoutNativeSource"), QStringLiteral("Auto")).layoutNativeSource,
        QStringLiteral("Русская — ПК"));
    EXPECT_EQ(loadWith(QStringLiteral("mivora.layoutLatinSource"), QStringLiteral("Auto")).layoutLatinSource,
              u"ABC");
    EXPECT_EQ(loadWith(QStringLiteral("mivora.quickMenuHotkey"), QString()).quickMenuHotkey, u"Alt+Q");
    EXPECT_EQ(loadWith(QStringLiteral("mivora.selectedStyleId"), QString()).selectedStyleId, u"original");
    EXPECT_EQ(loadWith(QStringLiteral("mivora.layoutHotkey"), QByteArray("Alt+Z")).layoutHotkey, u"Alt+A");
}

TEST_F(NativeSettingsStoreTest, StoredBooleansWinOverFallbacks)
{
    EXPECT_FALSE(loadWith(QStringLiteral("mivora.menuBarIconVisible"), false).menuBarIconVisible);
    EXPECT_FALSE(loadWith(QStringLiteral("mivora.closeToMenuBar"), 0).closeToMenuBar);
    EXPECT_TRUE(loadWith(QStringLiteral("mivora.aiContextEnabled"), QStringLiteral("YES")).aiContextEnabled);
    EXPECT_FALSE(loadWith(QStringLiteral("mivora.layoutAutoSwitch"), QStringLiteral("no")).layoutAutoSwitch);
    EXPECT_FALSE(loadWith(QStringLiteral("mivora.windowTiling.enabled"), QString()).windowTilingEnabled);
}

TEST_F(NativeSettingsStoreTest, QuickMenuListsAreNormalisedAndGainTheEmojiStyle)
{
    const QByteArray oldList = json(QJsonArray{QStringLiteral("fix"), QStringLiteral("layout")});
    EXPECT_EQ(
        loadWith(QStringLiteral("mivora.quickMenu.actions"), QString::fromUtf8(oldList)).quickMenuActions,
        (QStringList{QStringLiteral("style:original"), QStringLiteral("layout"),
                     QStringLiteral("style:emoji")}));

    const QByteArray withPolite =
        json(QJsonArray{QStringLiteral("ai"), QStringLiteral("friendly"), QStringLiteral("style:polite"),
                        QStringLiteral("bogus"), QStringLiteral("ai")});
    EXPECT_EQ(
        loadWith(QStringLiteral("mivora.quickMenu.order"), withPolite).quickMenuOrder,
        (QStringList{QStringLiteral("ai"), QStringLiteral("style:friendly"), QStringLiteral("style:emoji"),
                     QStringLiteral("style:polite"), QStringLiteral("bogus"), QStringLiteral("ai")}));
}

TEST_F(NativeSettingsStoreTest, EmptyOrBrokenQuickMenuListGivesTheDefaults)
{
    EXPECT_EQ(loadWith(QStringLiteral("mivora.quickMenu.order"), QByteArray("[]")).quickMenuOrder,
              QuickAction::defaultActionIds());
    EXPECT_EQ(
        loadWith(QStringLiteral("mivora.quickMenu.actions"), QByteArray("[\"ai\", 3]")).quickMenuActions,
        QuickAction::defaultActionIds());
}

TEST_F(NativeSettingsStoreTest, TilingHotkeysMergeOverDefaultsAndMigrateHalves)
{
    const QJsonObject stored{{QStringLiteral("leftHalf"), QStringLiteral("Control+Alt+Left")},
                             {QStringLiteral("rightHalf"), QStringLiteral("Control+Alt+Right")},
                             {QStringLiteral("full"), QStringLiteral("Not assigned")},
                             {QStringLiteral("experimental"), QStringLiteral("Alt+X")}};
    const auto hotkeys =
        loadWith(QStringLiteral("mivora.windowTiling.hotkeys"), json(stored)).windowTilingHotkeys;
    EXPECT_EQ(hotkeys.value(QStringLiteral("topLeft")), u"Control+Alt+U");
    EXPECT_EQ(hotkeys.value(QStringLiteral("leftHalf")), u"Control+Alt+Shift+Left");
    EXPECT_EQ(hotkeys.value(QStringLiteral("rightHalf")), u"Control+Alt+Shift+Right");
    EXPECT_EQ(hotkeys.value(QStringLiteral("full")), u"Not assigned");
    EXPECT_EQ(hotkeys.value(QStringLiteral("experimental")), u"Alt+X");
    EXPECT_EQ(hotkeys.size(), 15);
}

TEST_F(NativeSettingsStoreTest, TilingHotkeysAreReadFromDataOnly)
{
    const QByteArray stored = json(QJsonObject{{QStringLiteral("full"), QStringLiteral("Alt+F")}});
    EXPECT_EQ(loadWith(QStringLiteral("mivora.windowTiling.hotkeys"), QString::fromUtf8(stored))
                  .windowTilingHotkeys,
              WindowTilingHotkeys::defaults());
    EXPECT_EQ(loadWith(QStringLiteral("mivora.windowTiling.hotkeys"), QByteArray("{\"full\": 1}"))
                  .windowTilingHotkeys,
              WindowTilingHotkeys::defaults());
}

TEST_F(NativeSettingsStoreTest, StylesAreMergedWithTheCatalogueOnLoad)
{
    const QByteArray stored =
        json(QJsonArray{PromptStyle{QStringLiteral("custom-1"), QStringLiteral("Mine"),
                                    QStringLiteral("Rhyme."), QString(), true}
                            .toJson(),
                        PromptStyle{QStringLiteral("emoji"), QStringLiteral("Emoji"),
                                    QStringLiteral("Add fitting emojis"), QStringLiteral("Alt+9"), true}
                            .toJson()});
    const auto styles =
        loadWith(QStringLiteral("mivora.promptStyles"), QString::fromUtf8(stored)).promptStyles;
    ASSERT_EQ(styles.size(), 18);
    EXPECT_EQ(styles[2], MivoraPromptLibrary::builtInStyles()[2]);
    EXPECT_EQ(styles[17].id, u"custom-1");
}

TEST_F(NativeSettingsStoreTest, OneBrokenStyleLosesTheWholeList)
{
    QJsonObject noAutoReplace = MivoraPromptLibrary::builtInStyles()[0].toJson();
    noAutoReplace.remove(QStringLiteral("autoReplace"));
    const QJsonObject custom =
        PromptStyle{QStringLiteral("custom-1"), QStringLiteral("Mine"), QString(), QString(), true}.toJson();
    EXPECT_EQ(
        loadWith(QStringLiteral("mivora.promptStyles"), json(QJsonArray{custom, noAutoReplace})).promptStyles,
        MivoraPromptLibrary::builtInStyles());
    EXPECT_EQ(loadWith(QStringLiteral("mivora.aiReplyStyles"), QByteArray("not json")).aiReplyStyles,
              AIReplyStyleLibrary::builtInStyles());
}

TEST_F(NativeSettingsStoreTest, BrokenLayoutRulesGiveAnEmptyList)
{
    EXPECT_TRUE(loadWith(QStringLiteral("mivora.appLayoutSwitching.rules"), QByteArray("[{\"id\": 1}]"))
                    .appLayoutRules.isEmpty());
}

TEST(NativeSettingsStoreOnDisk, TextBackedStoreRoundTripsTheRecord)
{
    // An INI file gives back "false" and "7" as text, and data blobs as bytes.
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("settings.ini"));
    const MivoraSettings saved = changedSettings();
    {
        QSettingsDefaultsStore defaults(path, nullptr);
        NativeSettingsStore(defaults).save(saved);
    }
    QSettingsDefaultsStore defaults(path, nullptr);
    EXPECT_EQ(NativeSettingsStore(defaults).load(), saved);
}

} // namespace
