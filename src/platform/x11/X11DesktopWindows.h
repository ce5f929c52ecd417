#pragma once

#include "platform/DesktopWindows.h"
#include "platform/x11/X11EventPump.h"

#include <QHash>
#include <QSet>

// The windows of an EWMH desktop. Frames are the outer frames the user sees: the client's geometry plus the
// window manager's _NET_FRAME_EXTENTS, less the invisible margins (_GTK_FRAME_EXTENTS) of windows that draw
// their own decorations. Screens are the RandR monitors with their struts taken off. Moves go through the
// window manager (_NET_MOVERESIZE_WINDOW), whose answer is awaited on the event pump. Without a server
// everything is empty. GUI thread only.
class X11DesktopWindows : public DesktopWindows {
public:
    // Works on the pump's connection; the pump must outlive this object.
    explicit X11DesktopWindows(X11EventPump& pump);
    X11DesktopWindows(const X11DesktopWindows&) = delete;
    X11DesktopWindows& operator=(const X11DesktopWindows&) = delete;

    WindowId focusedWindow() override;
    std::optional<WindowState> state(WindowId window) override;
    std::optional<QRect> frame(WindowId window) override;
    QList<Screen> screens() override;
    QList<StackedWindow> windowsFrontToBack() override;
    QList<WindowId> windowsOfProcess(qint32 processIdentifier) override;
    void setPosition(WindowId window, QPoint topLeft) override;
    void setSize(WindowId window, QSize size) override;
    QCoro::Task<std::optional<QRect>> settledFrame(WindowId window, QRect expected) override;

private:
    struct Margins {
        long left = 0;
        long right = 0;
        long top = 0;
        long bottom = 0;
    };

    unsigned long atom(const char* name);
    QList<unsigned long> cardinals(unsigned long window, const char* property, unsigned long type);
    QList<unsigned long> clients(const char* listProperty);
    Margins margins(unsigned long window, const char* property);
    QSet<unsigned long> wmState(unsigned long window);
    void prepareMove(unsigned long window);
    void moveResize(unsigned long window, long flags, long x, long y, long width, long height);
    QRect visibleArea(const QRect& monitor, const QList<unsigned long>& clientWindows, QSize rootSize);

    X11EventPump& m_pump;
    Display* m_display;
    unsigned long m_root = 0;
    QHash<QByteArray, unsigned long> m_atoms;
    // Windows whose configure notices this connection already asked for.
    QSet<unsigned long> m_watched;
};
