#pragma once

#include "platform/Updater.h"

// A platform updater that only counts the checks it is asked for.
class FakeUpdater : public Updater {
public:
    bool canCheckForUpdates() const override { return canCheck; }
    void checkForUpdates() override { ++checks; }

    bool canCheck = true;
    int checks = 0;
};
