#include "system/AppLayoutSwitchService.h"

#include "core/MivoraAppState.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/InputSourceProvider.h"
#include "text/KeyboardLayoutError.h"
#include "text/KeyboardLayoutService.h"

#include <QDebug>
#include <algorithm>
#include <array>

namespace {
using std::chrono::milliseconds;
constexpr std::array<milliseconds, 3> reapplyDelays{milliseconds(150), milliseconds(400), milliseconds(800)};
constexpr milliseconds guardDuration{1500};
} // namespace

AppLayoutSwitchService::AppLayoutSwitchService(Services services) : m_services(services) {}

AppLayoutSwitchService::~AppLayoutSwitchService() = default;

void AppLayoutSwitchService::start(MivoraAppState& appState)
{
    m_appState = &appState;
    if (m_activationObserver) {
        return;
    }
    m_activationObserver = m_services.workspace.subscribeToActivations(
        [this](const RunningApplication& application) { handleActivation(application); });
    m_inputSourceObserver =
        m_services.inputSources.subscribeToSourceChanges([this] { handleInputSourceChange(); });
    if (const std::optional<RunningApplication> front = m_services.workspace.frontmostApplication()) {
        handleActivation(*front);
    }
}

bool AppLayoutSwitchService::applyRule(const RunningApplication& application)
{
    if (!m_appState || !m_appState->settings().appLayoutSwitchingEnabled ||
        application.bundleIdentifier.isEmpty()) {
        return false;
    }
    const QList<AppLayoutRule>& rules = m_appState->settings().appLayoutRules;
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const AppLayoutRule& candidate) {
        return candidate.isEnabled && candidate.bundleIdentifier == application.bundleIdentifier;
    });
    if (rule == rules.end()) {
        return false;
    }
    try {
        m_services.keyboardLayout.switchLayoutIfNeeded(rule->layoutName);
    } catch (const KeyboardLayoutError& error) {
        // The user is not told: the next activation tries again.
        qWarning().noquote() << QStringLiteral("MivoraAI app layout rule failed for ") +
                                    application.bundleIdentifier + QStringLiteral(": ") +
                                    error.errorDescription();
    }
    return true;
}

void AppLayoutSwitchService::handleActivation(const RunningApplication& application)
{
    m_pendingReapply.clear();
    m_guardedBundleIdentifier.reset();
    // An application without a rule leaves the layout as it is; nothing comes back from the previous one.
    if (!applyRule(application)) {
        return;
    }
    m_guardedBundleIdentifier = application.bundleIdentifier;
    m_guardUntil = m_services.clock.elapsed() + guardDuration;
    for (const milliseconds delay : reapplyDelays) {
        m_pendingReapply.push_back(
            m_services.clock.schedule(delay, [this, application] { reapplyIfStillFrontmost(application); }));
    }
}

void AppLayoutSwitchService::reapplyIfStillFrontmost(const RunningApplication& application)
{
    const std::optional<RunningApplication> front = m_services.workspace.frontmostApplication();
    if (front && front->processIdentifier == application.processIdentifier) {
        applyRule(*front);
    }
}

void AppLayoutSwitchService::handleInputSourceChange()
{
    // The guard is never cleared when it runs out; only the time makes it idle. A change by hand within
    // 1.5 s of the activation is undone on purpose, a later one stands.
    if (!m_guardedBundleIdentifier || m_services.clock.elapsed() >= m_guardUntil) {
        return;
    }
    const std::optional<RunningApplication> front = m_services.workspace.frontmostApplication();
    if (front && front->bundleIdentifier == *m_guardedBundleIdentifier) {
        applyRule(*front);
    }
}
