#include "AppStateHarness.h"
#include "hotkeys/views/HotkeyRecorderField.h"
#include "shell/settings/views/LayoutSettingsView.h"
#include "shell/settings/views/QuickMenuSettingsView.h"
#include "shell/settings/views/StyleEditorCard.h"
#include "shell/settings/views/StylesSettingsView.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

class SettingsPagesWidgetTest : public AppStateHarness, public ::testing::Test {};

TEST_F(SettingsPagesWidgetTest, TheLayoutPickersShowStoredNamesWithoutRewritingThemAndARuleEditSavesOnce)
{
    sources.addSource(FakeInputSourceProvider::layout("English (US)", "us", u"q"));
    sources.addSource(FakeInputSourceProvider::layout("Ukrainian", "ua", u"й"));
    const AppLayoutRule rule{QUuid::createUuid(), "Editor", "Editor", "/a/editor.desktop", "Greek", true};
    configure([&](MivoraSettings& s) {
        s.layoutLatinSource = QStringLiteral("Dvorak");
        s.appLayoutRules = {rule};
    });
    const MivoraSettings stored = state.settings();
    int saves = 0;
    QObject::connect(&state, &MivoraAppState::settingsChanged, [&] { ++saves; });

    // Filling the pickers as the page appears, and again in another language, writes nothing.
    LayoutSettingsView page(state, layout, nullptr, nullptr);
    page.show();
    QApplication::processEvents();
    const QList<QComboBox*> pickers = page.findChildren<QComboBox*>();
    ASSERT_EQ(pickers.size(), 3);
    EXPECT_EQ(pickers[0]->currentText(), QStringLiteral("Dvorak"));
    EXPECT_EQ(pickers[0]->count(), 3);
    EXPECT_EQ(saves, 0);
    configure([](MivoraSettings& s) { s.uiLanguage = UiLanguage::ru; });
    EXPECT_EQ(saves, 1);
    EXPECT_EQ(state.settings().layoutLatinSource, stored.layoutLatinSource);
    EXPECT_EQ(state.settings().appLayoutRules, stored.appLayoutRules);

    // The rule's own picker: one pick, one save, the rule row made again with the new name.
    QComboBox* rulePicker = page.findChildren<QComboBox*>()[2];
    EXPECT_EQ(rulePicker->currentText(), QStringLiteral("Greek"));
    rulePicker->setCurrentText(QStringLiteral("Ukrainian"));
    EXPECT_EQ(saves, 2);
    ASSERT_EQ(state.settings().appLayoutRules.size(), 1);
    EXPECT_EQ(state.settings().appLayoutRules[0].layoutName, QStringLiteral("Ukrainian"));
    QApplication::processEvents();
    EXPECT_EQ(page.findChildren<QComboBox*>()[2]->currentText(), QStringLiteral("Ukrainian"));
}

TEST_F(SettingsPagesWidgetTest, TypingInAStyleCardSavesOncePerKeystrokeAndKeepsTheCard)
{
    StylesSettingsView page(state, nullptr);
    page.show();
    const auto cards = page.findChildren<StyleEditorCard*>();
    ASSERT_EQ(cards.size(), 17);
    auto* name = cards[1]->findChild<QLineEdit*>();
    auto* prompt = cards[1]->findChild<QPlainTextEdit*>();
    name->setFocus();
    name->end(false);
    const int saves = defaults.writeCount();
    QSignalSpy changes(&state, &MivoraAppState::settingsChanged);
    QTest::keyClicks(name, "ab");
    EXPECT_EQ(changes.size(), 2);
    EXPECT_GT(defaults.writeCount(), saves);
    EXPECT_TRUE(state.promptStyles()[1].name.endsWith("ab"));
    // The refresh after each save reuses the card: the text and its cursor stay where the user left them.
    EXPECT_EQ(page.findChildren<StyleEditorCard*>()[1], cards[1]);
    EXPECT_EQ(name->cursorPosition(), name->text().size());

    prompt->setFocus();
    QTest::keyClicks(prompt, "xyz");
    EXPECT_EQ(changes.size(), 5);
    EXPECT_TRUE(state.promptStyles()[1].prompt.contains("xyz"));

    // A built-in style's delete does nothing; a custom one goes with its card.
    cards[1]->findChild<QToolButton*>()->click();
    EXPECT_EQ(state.promptStyles().size(), 17);
    state.addPromptStyle();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(page.findChildren<StyleEditorCard*>().size(), 18);
    page.findChildren<StyleEditorCard*>().last()->findChild<QToolButton*>()->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(page.findChildren<StyleEditorCard*>().size(), 17);
}

TEST_F(SettingsPagesWidgetTest, QuickMenuArrowsMoveRowsAndTheRecorderWritesTheHotkey)
{
    QuickMenuSettingsView page(state, nullptr);
    page.show();
    const QStringList before = state.settings().quickMenuOrder;
    QList<QToolButton*> arrows = page.findChildren<QToolButton*>();
    // The second row's up arrow, clicked as a user would; the rows are made again behind it.
    QTest::mouseClick(arrows[2], Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(state.settings().quickMenuOrder.mid(0, 2), (QStringList{before[1], before[0]}));

    auto* recorder = page.findChild<HotkeyRecorderField*>();
    recorder->click();
    QTest::keyClick(recorder, Qt::Key_M, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(state.settings().quickMenuHotkey, "Alt+Shift+M");
}

} // namespace
