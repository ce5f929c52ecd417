#pragma once

#include "platform/Updater.h"

#include <memory>

// The bundled Sparkle framework's standard updater, started at construction; its feed and signature settings
// come from the bundle's Info.plist. Built only when the framework is found.
class MacUpdater : public Updater {
public:
    MacUpdater();
    ~MacUpdater() override;

    bool canCheckForUpdates() const override;
    void checkForUpdates() override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};
