#pragma once

#include <QUrl>

// Hands a URL to the desktop: the browser for web addresses.
class UrlOpener {
public:
    virtual ~UrlOpener() = default;

    // GUI thread; returns at once after handing the URL over. False when nothing could take it.
    virtual bool openUrl(const QUrl& url) = 0;
};
