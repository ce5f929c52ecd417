#include "updates/AppUpdateSnapshot.h"

namespace {

std::optional<QString> localizedValue(const std::optional<LocalizedUpdateText>& text, UiLanguage language)
{
    return text ? text->value(language) : std::nullopt;
}

std::optional<QUrl> parsedUrl(const std::optional<QString>& text)
{
    if (!text) {
        return std::nullopt;
    }
    const QUrl url(*text, QUrl::StrictMode);
    if (!url.isValid() || url.isRelative()) {
        return std::nullopt;
    }
    return url;
}

} // namespace

AppUpdateSnapshot AppUpdateSnapshot::from(const AppUpdateResponse& response, UiLanguage language,
                                          int currentBuild, const QDateTime& checkedAt)
{
    AppUpdateSnapshot snapshot;
    snapshot.checkedAt = checkedAt;
    snapshot.updateAvailable = response.updateAvailable.value_or(response.latestBuild.has_value() &&
                                                                 *response.latestBuild > currentBuild);
    snapshot.forceUpdate = response.forceUpdate.value_or(response.minSupportedBuild.has_value() &&
                                                         currentBuild < *response.minSupportedBuild);
    snapshot.latestVersion = response.latestVersion;
    snapshot.latestBuild = response.latestBuild;
    snapshot.downloadURL = parsedUrl(response.downloadURL);
    snapshot.sha256 = response.sha256;
    snapshot.publishedAt = response.publishedAt;
    snapshot.title = localizedValue(response.title, language);
    snapshot.message = localizedValue(response.message, language);
    snapshot.releaseNotes = localizedValue(response.releaseNotes, language);
    return snapshot;
}
