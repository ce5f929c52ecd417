#include "FakeApplicationWorkspace.h"

QList<RunningApplication> FakeApplicationWorkspace::runningApplications()
{
    QList<RunningApplication> result;
    for (RunningApplication application : m_applications) {
        application.isActive = m_front == application.processIdentifier;
        result.append(application);
    }
    return result;
}

std::optional<RunningApplication> FakeApplicationWorkspace::application(qint32 processIdentifier)
{
    for (const RunningApplication& application : runningApplications()) {
        if (application.processIdentifier == processIdentifier) {
            return application;
        }
    }
    return std::nullopt;
}

std::optional<RunningApplication> FakeApplicationWorkspace::application(const QString& bundleIdentifier)
{
    for (const RunningApplication& application : runningApplications()) {
        if (application.bundleIdentifier == bundleIdentifier) {
            return application;
        }
    }
    return std::nullopt;
}

std::optional<RunningApplication> FakeApplicationWorkspace::frontmostApplication()
{
    return m_front ? application(*m_front) : std::nullopt;
}

void FakeApplicationWorkspace::bringToFront(qint32 processIdentifier)
{
    m_front = processIdentifier;
    if (const std::optional<RunningApplication> front = application(processIdentifier)) {
        m_windowActivations.notify(*front);
        m_activations.notify(*front);
    }
}

bool FakeApplicationWorkspace::activate(qint32 processIdentifier, WindowIdentifier window)
{
    activations.append(processIdentifier);
    activatedWindows.append(window);
    if (!activationSucceeds || !application(processIdentifier)) {
        return false;
    }
    if (activationTakesEffect) {
        bringToFront(processIdentifier);
    }
    return true;
}
