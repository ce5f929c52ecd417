#pragma once

#include "net/DeploymentConfiguration.h"
#include "text/NativeActionService.h"

class DefaultsStore;
class LanguageRecognizer;
class QNetworkAccessManager;

// What the action runner reaches the AI backend through. Made once by the application; its client shares
// the application's network access manager with the panels' clients.
class MivoraCore {
public:
    // All services must outlive the core. The backend's address and token come from configuration.
    MivoraCore(QNetworkAccessManager& network, DefaultsStore& defaults,
               const LanguageRecognizer& languageRecognizer, const DeploymentConfiguration& configuration);

    NativeActionService& actions() { return m_actions; }

private:
    NativeActionService m_actions;
};
