#include "AppStateHarness.h"
#include "platform/ApplicationCatalog.h"
#include "shell/settings/views/LayoutSettingsPage.h"

#include <QApplication>
#include <QComboBox>
#include <gtest/gtest.h>

namespace {

class FixedCatalog : public ApplicationCatalog {
public:
    QList<InstalledApplication> installedApplications() override { return applications; }
    std::optional<InstalledApplication> application(const QString& path) override
    {
        for (const InstalledApplication& each : applications) {
            if (each.path == path) {
                return each;
            }
        }
        return std::nullopt;
    }
    QList<InstalledApplication> applications;
};

class SettingsPagesWidgetTest : public AppStateHarness, public ::testing::Test {
protected:
    FixedCatalog catalog;
};

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
    LayoutSettingsPage page(state, layout, &catalog, nullptr);
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

} // namespace
