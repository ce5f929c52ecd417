#include "text/MivoraCore.h"

MivoraCore::MivoraCore(QNetworkAccessManager& network, DefaultsStore& defaults,
                       const LanguageRecognizer& languageRecognizer,
                       const DeploymentConfiguration& configuration)
    : m_actions(std::make_unique<BackendClient>(network,
                                                BackendCredentials(defaults, configuration.backendToken),
                                                configuration.backendBaseUrl, languageRecognizer))
{}
