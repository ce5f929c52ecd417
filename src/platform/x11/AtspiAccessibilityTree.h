#pragma once

#include "AtspiBusActivation.h"
#include "platform/AccessibilityTree.h"

#include <chrono>
#include <memory>

class AtspiFocusTracker;

// Other applications' trees through AT-SPI 2 on the accessibility bus, with AT-SPI roles and states shown
// under the attribute names the exchange asks for ("AXRole" gives "AXTextField", "AXTextArea",
// "AXWebArea"...). Every D-Bus call is bounded by callTimeout. Where no accessibility bus answers at
// construction, every read is empty and every write refused. The focused element comes from the
// applications' focus events, else from their own search (the Collection interface), and only as a last
// resort from a bounded walk. Setting "AXManualAccessibility" to true on any element turns the desktop's
// accessibility on (AtspiBusActivation), so applications started from then on expose their trees. GUI
// thread only.
class AtspiAccessibilityTree : public AccessibilityTree {
public:
    static constexpr std::chrono::milliseconds defaultCallTimeout{500};

    // Connects to the accessibility bus of the session (AT-SPI keeps one connection per process).
    explicit AtspiAccessibilityTree(std::chrono::milliseconds callTimeout = defaultCallTimeout);
    // Shuts AT-SPI down again when this tree was what started it. Elements it handed out must be gone by
    // then.
    ~AtspiAccessibilityTree() override;
    AtspiAccessibilityTree(const AtspiAccessibilityTree&) = delete;
    AtspiAccessibilityTree& operator=(const AtspiAccessibilityTree&) = delete;

    bool isAvailable() const { return m_available; }

    AccessibilityElement applicationElement(qint32 processIdentifier) override;
    std::optional<AccessibilityValue> attribute(const AccessibilityElement& element,
                                                const QString& name) override;
    QStringList attributeNames(const AccessibilityElement& element) override;
    std::optional<bool> isAttributeSettable(const AccessibilityElement& element,
                                            const QString& name) override;
    bool setAttribute(const AccessibilityElement& element, const QString& name,
                      const AccessibilityValue& value) override;
    QStringList actionNames(const AccessibilityElement& element) override;
    bool performAction(const AccessibilityElement& element, const QString& name) override;
    // The application's own search (the Collection interface of GTK, Chromium, Firefox); empty where the
    // toolkit has none (Qt), so callers walk the children.
    QList<AccessibilityElement> searchTextFields(const AccessibilityElement& element, int limit) override;
    bool isSameElement(const AccessibilityElement& first, const AccessibilityElement& second) override;

    // Where neither focus events nor the application's own search tell the focused element, the walk reaches
    // at most this many elements (each element checked and each child listed counts), for at most this long.
    static constexpr int focusSearchLimit = 500;
    static constexpr std::chrono::milliseconds focusSearchBudget{250};

private:
    bool enableAccessibility();

    AtspiBusActivation m_activation;
    std::unique_ptr<AtspiFocusTracker> m_focusTracker;
    bool m_accessibilityEnabled = false;
    bool m_available = false;
    // Whether this tree's start was the one that set the library up (another part of the process may have).
    bool m_startedLibrary = false;
};
