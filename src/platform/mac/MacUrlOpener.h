#pragma once

#include "platform/UrlOpener.h"

// Opens URLs with the handler the user chose in the system (NSWorkspace).
class MacUrlOpener : public UrlOpener {
public:
    bool openUrl(const QUrl& url) override;
};
