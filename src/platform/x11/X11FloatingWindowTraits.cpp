#include "platform/x11/X11FloatingWindowTraits.h"

#include "platform/x11/QtXcbConnection.h"

#include <QGuiApplication>
#include <algorithm>
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

// A message to the window manager about one of our windows, as EWMH asks for a mapped window.
void sendToWindowManager(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t type,
                         const std::array<uint32_t, 5>& data)
{
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(connection, 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
}

} // namespace

void X11FloatingWindowTraits::applyFloatingTraits(quintptr nativeWindow)
{
    xcb_connection_t* connection = qtXcbConnection();
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
    const xcb_atom_t desktop = internAtom(connection, "_NET_WM_DESKTOP");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, desktop, XCB_ATOM_CARDINAL, 32, 1,
                        &everyDesktop);
    // WORKAROUND: a window shown again right after it was hidden may be mapped before a busy window manager
    // has finished forgetting it, and forgetting erases these properties; once the window is viewable the
    // window manager is asked by message as well, which it takes at any time.
    const std::unique_ptr<xcb_get_window_attributes_reply_t, FreeDeleter> attributes(
        xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window), nullptr));
    if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
        const xcb_atom_t state = internAtom(connection, "_NET_WM_STATE");
        const uint32_t add = 1;
        const uint32_t fromApplication = 1;
        sendToWindowManager(connection, window, state, {add, states[0], states[1], fromApplication, 0});
        sendToWindowManager(connection, window, state, {add, states[2], states[3], fromApplication, 0});
        sendToWindowManager(connection, window, desktop, {everyDesktop, fromApplication, 0, 0, 0});
    }
    xcb_flush(connection);
}

void X11FloatingWindowTraits::activate(quintptr nativeWindow)
{
    xcb_connection_t* connection = qtXcbConnection();
    if (connection == nullptr || nativeWindow == 0) {
        return;
    }
    const uint32_t fromPager = 2; // acting for the user
    sendToWindowManager(connection, xcb_window_t(nativeWindow), internAtom(connection, "_NET_ACTIVE_WINDOW"),
                        {fromPager, XCB_CURRENT_TIME, 0, 0, 0});
    xcb_flush(connection);
}
