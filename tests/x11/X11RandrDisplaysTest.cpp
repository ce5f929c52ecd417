#include "platform/x11/X11RandrDisplays.h"

#include "EventLoopWait.h"
#include "FakeSystemBell.h"
#include "MemoryDefaultsStore.h"
#include "core/EventLoopClock.h"
#include "platform/x11/X11DisplayConnection.h"
#include "platform/x11/X11EventPump.h"
#include "system/BuiltInDisplayService.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRect>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

// Last: Xlib defines macros (None, Bool) that clash with the names above.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>

using namespace std::chrono_literals;

namespace {

// An Xorg server of its own on the dummy video driver, whose outputs can be lit and switched off like real
// ones (Xvfb has a single fixed output). DUMMY0 plays the built-in panel, marked as such by its
// ConnectorType, DUMMY1 an external monitor right of it.
class X11RandrDisplaysTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (!QFile::exists(QStringLiteral("/usr/lib/xorg/modules/drivers/dummy_drv.so"))) {
            GTEST_SKIP() << "needs Xorg with the dummy video driver (xserver-xorg-video-dummy)";
        }
        QFile config(directory.filePath(QStringLiteral("xorg.conf")));
        ASSERT_TRUE(config.open(QIODevice::WriteOnly));
        config.write(
            "Section \"ServerFlags\"\n Option \"AutoAddDevices\" \"false\"\n"
            " Option \"AutoEnableDevices\" \"false\"\nEndSection\n"
            "Section \"Device\"\n Identifier \"dummy\"\n Driver \"dummy\"\n VideoRam 64000\nEndSection\n"
            "Section \"Monitor\"\n Identifier \"monitor\"\n HorizSync 5.0-1000.0\n"
            " VertRefresh 5.0-200.0\nEndSection\n"
            "Section \"Screen\"\n Identifier \"screen\"\n Device \"dummy\"\n Monitor \"monitor\"\n"
            " DefaultDepth 24\n SubSection \"Display\"\n  Depth 24\n"
            "  Virtual 4096 2048\n EndSubSection\nEndSection\n");
        config.close();
        // The server writes its display number to standard output once it accepts connections.
        server.start(QStringLiteral("Xorg"),
                     {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-config"),
                      config.fileName(), QStringLiteral("-noreset"), QStringLiteral("-nolisten"),
                      QStringLiteral("tcp"), QStringLiteral("-logfile"),
                      directory.filePath(QStringLiteral("xorg.log"))});
        QByteArray number;
        ASSERT_TRUE(spinUntil(
            [&] {
                number += server.readAllStandardOutput();
                return number.endsWith('\n') || server.state() == QProcess::NotRunning;
            },
            20s))
            << "Xorg did not announce a display";
        ASSERT_TRUE(number.endsWith('\n')) << server.readAllStandardError().toStdString();
        displayName = ":" + number.trimmed();
        connection = std::make_unique<X11DisplayConnection>(displayName);
        ASSERT_TRUE(*connection);
        pump = std::make_unique<X11EventPump>(connection->get(), clock);

        xrandr({"--output", "DUMMY0", "--mode", "1024x768", "--pos", "0x0"});
        xrandr({"--addmode", "DUMMY1", "800x600"});
        xrandr({"--output", "DUMMY1", "--mode", "800x600", "--right-of", "DUMMY0"});
        // The driver plugs an output in at its first mode; a query probes the connectors, as a hotplug would.
        xrandr({"--query"});
        Display* display = connection->get();
        const Atom panelAtom = XInternAtom(display, "Panel", False);
        XRRChangeOutputProperty(display, output("DUMMY0"), XInternAtom(display, "ConnectorType", False),
                                XA_ATOM, 32, PropModeReplace,
                                reinterpret_cast<const unsigned char*>(&panelAtom), 1);
        XSync(display, False);
    }
    void TearDown() override
    {
        pump.reset();
        connection.reset();
        if (server.state() != QProcess::NotRunning) {
            server.terminate();
            server.waitForFinished(5000);
        }
    }

    void xrandr(const QStringList& arguments)
    {
        ASSERT_TRUE(runTool(QStringLiteral("xrandr"), QStringList{"-display", displayName} + arguments))
            << arguments.join(' ').toStdString();
    }
    DisplayIdentifier output(const char* name)
    {
        Display* display = connection->get();
        XRRScreenResources* resources = XRRGetScreenResourcesCurrent(display, DefaultRootWindow(display));
        DisplayIdentifier found = 0;
        for (int i = 0; i < resources->noutput; ++i) {
            XRROutputInfo* info = XRRGetOutputInfo(display, resources, resources->outputs[i]);
            if (qstrcmp(info->name, name) == 0) {
                found = DisplayIdentifier(resources->outputs[i]);
            }
            XRRFreeOutputInfo(info);
        }
        XRRFreeScreenResources(resources);
        return found;
    }
    // Where the output shows, or an empty rectangle while it is off.
    QRect geometry(const char* name)
    {
        Display* display = connection->get();
        XRRScreenResources* resources = XRRGetScreenResourcesCurrent(display, DefaultRootWindow(display));
        XRROutputInfo* info = XRRGetOutputInfo(display, resources, output(name));
        QRect rect;
        if (info->crtc != None) {
            XRRCrtcInfo* crtc = XRRGetCrtcInfo(display, resources, info->crtc);
            rect = QRect(crtc->x, crtc->y, int(crtc->width), int(crtc->height));
            XRRFreeCrtcInfo(crtc);
        }
        XRRFreeOutputInfo(info);
        XRRFreeScreenResources(resources);
        return rect;
    }
    QSize screenSize()
    {
        Window root = None;
        int x = 0;
        int y = 0;
        unsigned int width = 0;
        unsigned int height = 0;
        unsigned int border = 0;
        unsigned int depth = 0;
        XGetGeometry(connection->get(), DefaultRootWindow(connection->get()), &root, &x, &y, &width, &height,
                     &border, &depth);
        return QSize(int(width), int(height));
    }

    QTemporaryDir directory;
    QProcess server;
    QByteArray displayName;
    EventLoopClock clock;
    std::unique_ptr<X11DisplayConnection> connection;
    std::unique_ptr<X11EventPump> pump;
    MemoryDefaultsStore defaults;
    FakeSystemBell bell;
};

TEST_F(X11RandrDisplaysTest, ReadsThePanelTheExternalDisplayAndMirroring)
{
    X11RandrDisplays displays(*pump);
    const DisplayIdentifier panel = output("DUMMY0");
    const DisplayIdentifier external = output("DUMMY1");
    EXPECT_TRUE(displays.canSwitchDisplays());
    EXPECT_EQ(displays.activeDisplays(), (QList<DisplayIdentifier>{panel, external}));
    EXPECT_TRUE(displays.isBuiltIn(panel));
    EXPECT_FALSE(displays.isBuiltIn(external));
    EXPECT_TRUE(displays.isOnline(external));
    EXPECT_FALSE(displays.isOnline(output("DUMMY2")));
    EXPECT_FALSE(displays.isAsleep(external));
    EXPECT_FALSE(displays.isInMirrorSet(panel));

    xrandr({"--output", "DUMMY1", "--mode", "1024x768", "--same-as", "DUMMY0"});
    EXPECT_TRUE(displays.isInMirrorSet(panel));
}

// Drivers that set no ConnectorType leave the name as the only sign of a panel.
TEST(X11RandrPanelConnectorTest, TheConnectorTypeDecidesAndWithoutItTheName)
{
    struct Case {
        std::optional<QByteArray> type;
        const char* name;
        bool panel;
    };
    for (const Case& c : std::vector<Case>{{"Panel", "DUMMY0", true},
                                           {"DisplayPort", "eDP-1", false},
                                           {std::nullopt, "eDP-1", true},
                                           {std::nullopt, "LVDS1", true},
                                           {std::nullopt, "DSI-1", true},
                                           {std::nullopt, "DP-1", false},
                                           {std::nullopt, "HDMI-A-1", false}}) {
        EXPECT_EQ(X11RandrDisplays::isPanelConnector(c.type, c.name), c.panel) << c.name;
    }
}

// Off: the panel's CRTC is free, the external display moves to the origin and the screen shrinks to it.
// Switching the external display off as well brings the panel back through RandR's notice, where it was.
TEST_F(X11RandrDisplaysTest, ThePanelGoesOffAndComesBackWhenTheLastExternalDisplayGoes)
{
    X11RandrDisplays displays(*pump);
    BuiltInDisplayService service(displays, defaults, clock, bell);
    service.restoreAfterPreviousLaunch();
    service.disableBuiltIn();
    ASSERT_EQ(bell.rings, 0);
    EXPECT_EQ(service.disabledDisplayID(), output("DUMMY0"));
    EXPECT_TRUE(geometry("DUMMY0").isEmpty());
    EXPECT_EQ(geometry("DUMMY1"), QRect(0, 0, 800, 600));
    EXPECT_EQ(screenSize(), QSize(800, 600));

    QElapsedTimer since;
    since.start();
    xrandr({"--output", "DUMMY1", "--off"});
    ASSERT_TRUE(spinUntil([&] { return !service.disabledDisplayID(); }, 5s));
    EXPECT_LT(since.elapsed(), 1500) << "the notice, not the 2 s watchdog, brought it back";
    EXPECT_EQ(geometry("DUMMY0"), QRect(0, 0, 1024, 768));
    EXPECT_FALSE(defaults.contains(BuiltInDisplayService::disabledDisplayKey));

    service.disableBuiltIn();
    EXPECT_EQ(bell.rings, 1) << "the last screen never goes";
}

// Output ids need not survive a restart of the server: a key naming no output still brings back the
// panel that is off, with its preferred mode right of the external display.
TEST_F(X11RandrDisplaysTest, AtTheNextLaunchAPanelThatIsOffComesBackEvenUnderAStaleId)
{
    {
        X11RandrDisplays displays(*pump);
        BuiltInDisplayService crashed(displays, defaults, clock, bell);
        crashed.disableBuiltIn();
        ASSERT_TRUE(geometry("DUMMY0").isEmpty());
    }
    defaults.setValue(BuiltInDisplayService::disabledDisplayKey, 0x1234567);
    X11RandrDisplays displays(*pump);
    BuiltInDisplayService launched(displays, defaults, clock, bell);
    launched.restoreAfterPreviousLaunch();
    EXPECT_EQ(geometry("DUMMY1"), QRect(0, 0, 800, 600));
    EXPECT_FALSE(geometry("DUMMY0").isEmpty());
    EXPECT_EQ(geometry("DUMMY0").left(), 800);
    EXPECT_FALSE(defaults.contains(BuiltInDisplayService::disabledDisplayKey));
}

} // namespace
