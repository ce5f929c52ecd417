#include "platform/x11/X11FloatingWindowTraits.h"

#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace {

struct FreeDeleter {
    void operator()(void* reply) const { std::free(reply); }
};

xcb_atom_t internAtom(xcb_connection_t* connection, std::string_view name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, FreeDeleter> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, uint16_t(name.size()), name.data()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_connection_t* qtConnection()
{
    const auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

} // namespace

void X11FloatingWindowTraits::applyFloatingTraits(quintptr nativeWindow)
{
    xcb_connection_t* connection = qtConnection();
    if (connection == nullptr || nativeWindow == 0) {
        return;
    }
    // Qt's own connection: it created the window, and these requests reach the server before Qt's map of
    // it. Qt merges the states it manages into what it finds on the window at that map, so ours stay.
    const auto window = xcb_window_t(nativeWindow);
    const std::array<xcb_atom_t, 4> states{
        internAtom(connection, "_NET_WM_STATE_STICKY"), internAtom(connection, "_NET_WM_STATE_SKIP_TASKBAR"),
        internAtom(connection, "_NET_WM_STATE_SKIP_PAGER"), internAtom(connection, "_NET_WM_STATE_ABOVE")};
    const uint32_t everyDesktop = 0xFFFFFFFF;
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, internAtom(connection, "_NET_WM_STATE"),
                        XCB_ATOM_ATOM, 32, uint32_t(states.size()), states.data());
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, internAtom(connection, "_NET_WM_DESKTOP"),
                        XCB_ATOM_CARDINAL, 32, 1, &everyDesktop);
    xcb_flush(connection);
}

void X11FloatingWindowTraits::activate(quintptr nativeWindow)
{
    xcb_connection_t* connection = qtConnection();
    if (connection == nullptr || nativeWindow == 0) {
        return;
    }
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = xcb_window_t(nativeWindow);
    message.type = internAtom(connection, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = 2; // source: a pager, acting for the user
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection, 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}
