#pragma once

#include "core/UiLanguage.h"
#include "updates/AppUpdateResponse.h"

#include <QDateTime>
#include <QUrl>
#include <optional>

// What the rest of the program knows about the latest update check. Not persisted.
struct AppUpdateSnapshot {
    std::optional<QDateTime> checkedAt;
    bool updateAvailable = false;
    bool forceUpdate = false;
    std::optional<QString> latestVersion;
    std::optional<qint64> latestBuild;
    std::optional<QUrl> downloadURL;
    std::optional<QString> sha256;
    std::optional<QString> publishedAt;
    std::optional<QString> title;
    std::optional<QString> message;
    std::optional<QString> releaseNotes;

    bool operator==(const AppUpdateSnapshot&) const = default;

    // Fills in what the server left out by comparing its builds with the running one.
    static AppUpdateSnapshot from(const AppUpdateResponse& response, UiLanguage language, int currentBuild,
                                  const QDateTime& checkedAt);
};
