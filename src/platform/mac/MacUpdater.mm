#include "platform/mac/MacUpdater.h"

#include <Sparkle/Sparkle.h>

struct MacUpdater::Impl {
    SPUStandardUpdaterController* controller = nil;
};

MacUpdater::MacUpdater() : m_impl(std::make_unique<Impl>())
{
    m_impl->controller = [[SPUStandardUpdaterController alloc] initWithStartingUpdater:YES
                                                                       updaterDelegate:nil
                                                                    userDriverDelegate:nil];
}

MacUpdater::~MacUpdater() = default;

bool MacUpdater::canCheckForUpdates() const
{
    return m_impl->controller.updater.canCheckForUpdates;
}

void MacUpdater::checkForUpdates()
{
    [m_impl->controller.updater checkForUpdates];
}
