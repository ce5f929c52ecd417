#pragma once

#include "platform/BrowserTabRemote.h"

// Drives the browser through its scripting dictionary (Apple events, which need the user's Automation grant)
// and starts its app windows through the system's open tool.
class MacBrowserTabRemote : public BrowserTabRemote {
public:
    QString applicationIdentifier() override;
    std::optional<QString> activeTabUrl() override;
    void closeActiveTab() override;
    void openAppWindow(const QString& url) override;
};
