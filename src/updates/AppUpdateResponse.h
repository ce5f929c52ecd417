#pragma once

#include "updates/LocalizedUpdateText.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The update server's answer; every key may be missing.
struct AppUpdateResponse {
    std::optional<bool> ok;
    std::optional<bool> updateAvailable;
    std::optional<bool> forceUpdate;
    std::optional<QString> latestVersion;
    std::optional<qint64> latestBuild;
    std::optional<qint64> minSupportedBuild;
    std::optional<QString> downloadURL;
    std::optional<QString> sha256;
    std::optional<QString> publishedAt;
    std::optional<LocalizedUpdateText> title;
    std::optional<LocalizedUpdateText> message;
    std::optional<LocalizedUpdateText> releaseNotes;
    std::optional<QString> error;

    // Throws ResponseDecodingError when the body is not a JSON object or a key has the wrong type.
    static AppUpdateResponse decode(const QByteArray& body);
};
