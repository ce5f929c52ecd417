#pragma once

#include "platform/DisplayControl.h"

#include <memory>

// The displays as CoreGraphics lists them, switched on and off through the private CGSConfigureDisplayEnabled
// found at run time; without it nothing can be switched. Changes arrive through the reconfiguration callback
// and are handed to the GUI thread.
class MacDisplayControl : public DisplayControl {
public:
    MacDisplayControl();
    ~MacDisplayControl() override;
    MacDisplayControl(const MacDisplayControl&) = delete;
    MacDisplayControl& operator=(const MacDisplayControl&) = delete;

    QList<DisplayIdentifier> activeDisplays() override;
    bool isBuiltIn(DisplayIdentifier display) override;
    bool isOnline(DisplayIdentifier display) override;
    bool isAsleep(DisplayIdentifier display) override;
    bool isInMirrorSet(DisplayIdentifier display) override;
    bool canSwitchDisplays() override { return m_configureEnabled != nullptr; }
    std::optional<DisplaySwitchFailure> setDisplayEnabled(DisplayIdentifier display, bool enabled) override;
    QList<DisplayIdentifier> switchedOffBuiltInDisplays() override;
    PanelName panelName() const override { return PanelName::macBookDisplay; }
    ListenerSubscription subscribeToChanges(ChangeHandler handler) override;

    // The private call's shape: (configuration, display, enabled) to a CGError status.
    using ConfigureEnabled = std::int32_t (*)(void* configuration, DisplayIdentifier display, bool enabled);

private:
    ConfigureEnabled m_configureEnabled = nullptr;
    // Shared with the changes already queued for the GUI thread, which may arrive after this object is gone.
    std::shared_ptr<ListenerList<const DisplayChange&>> m_changes;
    // What the system passes back to the callback, until the callback is removed again.
    std::unique_ptr<std::weak_ptr<ListenerList<const DisplayChange&>>> m_callbackTarget;
};
