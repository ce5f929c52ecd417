#include "AppStateHarness.h"
#include "TestFieldProcess.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11ApplicationWorkspace.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "platform/x11/XdgApplicationCatalog.h"
#include "shell/settings/LayoutSettingsModel.h"
#include "shell/settings/views/ApplicationChooserDialog.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class AppLayoutRuleEndToEndTest : public AppStateHarness, public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(connection) << "needs an X server";
        ASSERT_TRUE(waitForWindowManager()) << "needs an EWMH window manager";
    }

    void writeEntry(const QString& file, const QByteArray& keys)
    {
        QFile entry(applications.filePath(file));
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        const QByteArray program =
            QFile::encodeName(QCoreApplication::applicationDirPath()) + "/mivora_test_textfield";
        entry.write("[Desktop Entry]\nType=Application\nExec=" + program + " --title Field\n" + keys);
    }

    // Picks the application in the chooser as the user would, and adds it.
    void addThroughChooser(const QString& name)
    {
        XdgApplicationCatalog catalog({applications.path()});
        ApplicationChooserDialog chooser(catalog, UiLanguage::en);
        chooser.show();
        ASSERT_TRUE(chooser.selectByName(name));
        chooser.accept();
        rules.addApplication(chooser.chosen());
    }

    QString frontIdentifier(qint32 processIdentifier)
    {
        std::optional<RunningApplication> front;
        spinUntil([&] {
            front = workspace.frontmostApplication();
            return front && front->processIdentifier == processIdentifier;
        });
        return front ? front->bundleIdentifier : QString();
    }

    X11DisplayConnection connection;
    EventLoopClock eventClock;
    X11EventPump pump{connection.get(), eventClock};
    X11ApplicationWorkspace workspace{pump};
    QTemporaryDir applications;
    LayoutSettingsModel rules{state, layout};
};

// A rule names the application by what the workspace reports for its windows, so it matches when it runs:
// the class its desktop entry declares, or the one its toolkit derives from the program's name.
TEST_F(AppLayoutRuleEndToEndTest, ARuleAddedThroughTheChooserNamesTheApplicationAsItsWindowsReportIt)
{
    writeEntry(QStringLiteral("declared.desktop"),
               "Name=Declared Field\nStartupWMClass=MivoraDeclaredField\n");
    writeEntry(QStringLiteral("derived.desktop"), "Name=Derived Field\n");
    sources.setCurrent(sources.addSource(FakeInputSourceProvider::layout("Russian", "ru", u"й")));

    addThroughChooser(QStringLiteral("Declared Field"));
    addThroughChooser(QStringLiteral("Derived Field"));
    const QList<AppLayoutRule> added = state.settings().appLayoutRules;
    ASSERT_EQ(added.size(), 2);
    EXPECT_TRUE(state.settings().appLayoutSwitchingEnabled);

    TestFieldProcess declared;
    ASSERT_TRUE(declared.start(QStringLiteral("MivoraDeclaredField"), QStringLiteral("Declared")));
    EXPECT_EQ(added[0].bundleIdentifier, frontIdentifier(declared.processIdentifier()));
    // A GTK-style class: the program's file name with a capital first letter.
    TestFieldProcess derived;
    ASSERT_TRUE(derived.start(QStringLiteral("Mivora_test_textfield"), QStringLiteral("Derived")));
    EXPECT_EQ(added[1].bundleIdentifier, frontIdentifier(derived.processIdentifier()));
    EXPECT_EQ(added[1].layoutName, QStringLiteral("Russian"));
}

} // namespace
