#include "platform/x11/X11PrimarySelection.h"

#include "platform/x11/X11ErrorTrap.h"
#include "platform/x11/X11Pasteboard.h"

#include <X11/Xlib.h>
#include <X11/extensions/XRes.h>

X11PrimarySelection::X11PrimarySelection(Display* display, X11Pasteboard& pasteboard)
    : m_display(display), m_pasteboard(pasteboard)
{
    int eventBase = 0;
    int errorBase = 0;
    int major = 0;
    int minor = 0;
    // Client ids, and with them process ids, came with version 1.2 of the extension.
    m_hasClientIds = m_display != nullptr && XResQueryExtension(m_display, &eventBase, &errorBase) &&
                     XResQueryVersion(m_display, &major, &minor) && (major > 1 || (major == 1 && minor >= 2));
}

std::optional<qint32> X11PrimarySelection::processOfWindow(unsigned long window) const
{
    if (!m_hasClientIds || window == 0) {
        return std::nullopt;
    }
    XResClientIdSpec spec{window, XRES_CLIENT_ID_PID_MASK};
    long count = 0;
    XResClientIdValue* values = nullptr;
    X11ErrorTrap trap(m_display);
    if (XResQueryClientIds(m_display, 1, &spec, &count, &values) != Success || trap.sync() != 0) {
        return std::nullopt;
    }
    std::optional<qint32> result;
    for (long i = 0; i < count && !result; ++i) {
        if (XResGetClientIdType(&values[i]) == XRES_CLIENT_ID_PID) {
            const pid_t pid = XResGetClientPid(&values[i]);
            if (pid > 0) {
                result = qint32(pid);
            }
        }
    }
    XResClientIdsDestroy(count, values);
    return result;
}

QCoro::Task<std::optional<QString>> X11PrimarySelection::selectedText(qint32 ownerProcessIdentifier)
{
    if (processOfWindow(m_pasteboard.primaryOwner()) != ownerProcessIdentifier) {
        co_return std::nullopt;
    }
    std::optional<QString> text = co_await m_pasteboard.primaryString();
    if (!text || text->isEmpty()) {
        co_return std::nullopt;
    }
    co_return text;
}
