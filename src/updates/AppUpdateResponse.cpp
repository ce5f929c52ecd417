#include "updates/AppUpdateResponse.h"

#include "net/HttpExchange.h"
#include "net/StrictJson.h"

AppUpdateResponse AppUpdateResponse::decode(const QByteArray& body)
{
    using namespace StrictJson;
    const QJsonObject json = HttpExchange::decodeObject(body);
    AppUpdateResponse response;
    response.ok = optionalBool(json, QLatin1StringView("ok"));
    response.updateAvailable = optionalBool(json, QLatin1StringView("update_available"));
    response.forceUpdate = optionalBool(json, QLatin1StringView("force_update"));
    response.latestVersion = optionalString(json, QLatin1StringView("latest_version"));
    response.latestBuild = optionalInteger(json, QLatin1StringView("latest_build"));
    response.minSupportedBuild = optionalInteger(json, QLatin1StringView("min_supported_build"));
    response.downloadURL = optionalString(json, QLatin1StringView("download_url"));
    response.sha256 = optionalString(json, QLatin1StringView("sha256"));
    response.publishedAt = optionalString(json, QLatin1StringView("published_at"));
    response.title = LocalizedUpdateText::fromJson(json.value(QLatin1StringView("title")));
    response.message = LocalizedUpdateText::fromJson(json.value(QLatin1StringView("message")));
    response.releaseNotes = LocalizedUpdateText::fromJson(json.value(QLatin1StringView("release_notes")));
    response.error = optionalString(json, QLatin1StringView("error"));
    return response;
}
