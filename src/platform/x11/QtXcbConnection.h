#pragma once

#include <QGuiApplication>
#include <xcb/xcb.h>

// Qt's own connection to the X server; null without a GUI application on the xcb platform.
inline xcb_connection_t* qtXcbConnection()
{
    const auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}
