#include "net/DeploymentConfiguration.h"

#include "core/DefaultsStore.h"

namespace {

QString withoutTrailingSlashes(QString url)
{
    url = url.trimmed();
    while (url.endsWith(QLatin1Char('/'))) {
        url.chop(1);
    }
    return url;
}

QString storedOverride(const DefaultsStore& defaults, const char* key, const QString& builtIn)
{
    const QString stored = defaults.value(QString::fromLatin1(key)).toString();
    return stored.trimmed().isEmpty() ? builtIn : stored;
}

} // namespace

DeploymentConfiguration DeploymentConfiguration::builtIn()
{
    DeploymentConfiguration configuration;
    configuration.backendBaseUrl = withoutTrailingSlashes(QStringLiteral(MIVORA_BACKEND_BASE_URL));
    configuration.backendToken = QStringLiteral(MIVORA_BACKEND_TOKEN);
    configuration.updatesBaseUrl = withoutTrailingSlashes(QStringLiteral(MIVORA_UPDATES_BASE_URL));
    const QString version = QStringLiteral(MIVORA_VERSION);
    configuration.currentVersion = version.isEmpty() ? QStringLiteral("0.0.0") : version;
    configuration.currentBuild = parseBuildNumber(QStringLiteral(MIVORA_BUILD_NUMBER));
    return configuration;
}

DeploymentConfiguration DeploymentConfiguration::forUser(const DefaultsStore& defaults)
{
    DeploymentConfiguration configuration = builtIn();
    configuration.backendBaseUrl = withoutTrailingSlashes(
        storedOverride(defaults, "mivora.backend.baseURL", configuration.backendBaseUrl));
    configuration.backendToken = storedOverride(defaults, "mivora.backend.token", configuration.backendToken);
    configuration.updatesBaseUrl = withoutTrailingSlashes(
        storedOverride(defaults, "mivora.updates.baseURL", configuration.updatesBaseUrl));
    return configuration;
}

int DeploymentConfiguration::parseBuildNumber(const QString& text)
{
    // toInt accepts surrounding blanks, which a bundle-style build number does not.
    if (text.isEmpty() || text != text.trimmed()) {
        return 0;
    }
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    return ok ? value : 0;
}
