#include "platform/mac/MacDisplayControl.h"

#include <CoreGraphics/CoreGraphics.h>
#include <dispatch/dispatch.h>
#include <dlfcn.h>
#include <vector>

namespace {

using Changes = ListenerList<const DisplayChange&>;

void reconfigured(CGDirectDisplayID display, CGDisplayChangeSummaryFlags flags, void* userInfo)
{
    const DisplayChange change{display, (flags & (kCGDisplayRemoveFlag | kCGDisplayDisabledFlag)) != 0,
                               (flags & (kCGDisplayAddFlag | kCGDisplayEnabledFlag)) != 0,
                               (flags & kCGDisplayBeginConfigurationFlag) != 0};
    const std::weak_ptr<Changes> changes = *static_cast<std::weak_ptr<Changes>*>(userInfo);
    // The system may call at any time; the listeners live on the GUI thread.
    dispatch_async(dispatch_get_main_queue(), ^{
      if (const std::shared_ptr<Changes> listeners = changes.lock()) {
          listeners->notify(change);
      }
    });
}

QList<DisplayIdentifier> displayList(CGError (*list)(uint32_t, CGDirectDisplayID*, uint32_t*))
{
    uint32_t count = 0;
    if (list(0, nullptr, &count) != kCGErrorSuccess || count == 0) {
        return {};
    }
    std::vector<CGDirectDisplayID> displays(count);
    if (list(count, displays.data(), &count) != kCGErrorSuccess) {
        return {};
    }
    return QList<DisplayIdentifier>(displays.begin(), displays.begin() + count);
}

} // namespace

MacDisplayControl::MacDisplayControl()
    // WORKAROUND: switching a display off has no public call; the private one is looked up by name so that
    // a system without it only loses the feature.
    : m_configureEnabled(
          reinterpret_cast<ConfigureEnabled>(dlsym(RTLD_DEFAULT, "CGSConfigureDisplayEnabled"))),
      m_changes(std::make_shared<Changes>()),
      m_callbackTarget(std::make_unique<std::weak_ptr<Changes>>(m_changes))
{
    CGDisplayRegisterReconfigurationCallback(reconfigured, m_callbackTarget.get());
}

MacDisplayControl::~MacDisplayControl()
{
    CGDisplayRemoveReconfigurationCallback(reconfigured, m_callbackTarget.get());
}

QList<DisplayIdentifier> MacDisplayControl::activeDisplays()
{
    return displayList(CGGetActiveDisplayList);
}

bool MacDisplayControl::isBuiltIn(DisplayIdentifier display)
{
    return CGDisplayIsBuiltin(display);
}

bool MacDisplayControl::isOnline(DisplayIdentifier display)
{
    return CGDisplayIsOnline(display);
}

bool MacDisplayControl::isAsleep(DisplayIdentifier display)
{
    return CGDisplayIsAsleep(display);
}

bool MacDisplayControl::isInMirrorSet(DisplayIdentifier display)
{
    return CGDisplayIsInMirrorSet(display);
}

std::optional<DisplaySwitchFailure> MacDisplayControl::setDisplayEnabled(DisplayIdentifier display,
                                                                         bool enabled)
{
    using Stage = DisplaySwitchFailure::Stage;
    if (m_configureEnabled == nullptr) {
        return DisplaySwitchFailure{Stage::configure, kCGErrorFailure};
    }
    CGDisplayConfigRef configuration = nullptr;
    if (const CGError status = CGBeginDisplayConfiguration(&configuration); status != kCGErrorSuccess) {
        return DisplaySwitchFailure{Stage::begin, status};
    }
    if (configuration == nullptr) {
        return DisplaySwitchFailure{Stage::begin, kCGErrorFailure};
    }
    if (const std::int32_t status = m_configureEnabled(configuration, display, enabled);
        status != kCGErrorSuccess) {
        CGCancelDisplayConfiguration(configuration);
        return DisplaySwitchFailure{Stage::configure, status};
    }
    if (const CGError status = CGCompleteDisplayConfiguration(configuration, kCGConfigureForSession);
        status != kCGErrorSuccess) {
        return DisplaySwitchFailure{Stage::complete, status};
    }
    return std::nullopt;
}

QList<DisplayIdentifier> MacDisplayControl::switchedOffBuiltInDisplays()
{
    const QList<DisplayIdentifier> active = activeDisplays();
    QList<DisplayIdentifier> result;
    for (const DisplayIdentifier display : displayList(CGGetOnlineDisplayList)) {
        // A display asleep is off by the system's doing, not switched off.
        if (!active.contains(display) && CGDisplayIsBuiltin(display) && !CGDisplayIsAsleep(display)) {
            result.append(display);
        }
    }
    return result;
}

ListenerSubscription MacDisplayControl::subscribeToChanges(ChangeHandler handler)
{
    return m_changes->subscribe(std::move(handler));
}
