#pragma once

#include "platform/UrlOpener.h"

// Opens URLs with the desktop's default handler.
class DesktopUrlOpener : public UrlOpener {
public:
    bool openUrl(const QUrl& url) override;
};
