#pragma once

#include "platform/UrlOpener.h"

#include <QList>

// Records the URLs it is given and answers a scripted success.
class FakeUrlOpener : public UrlOpener {
public:
    bool openUrl(const QUrl& url) override
    {
        opened.append(url);
        return succeeds;
    }

    bool succeeds = true;
    QList<QUrl> opened;
};
