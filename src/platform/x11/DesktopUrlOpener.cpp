#include "platform/x11/DesktopUrlOpener.h"

#include <QDesktopServices>

bool DesktopUrlOpener::openUrl(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}
