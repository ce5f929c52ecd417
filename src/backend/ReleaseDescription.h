#pragma once

#include <QJsonObject>
#include <QString>

// "GET /macos/app/version": the published release, read from a JSON file the operator edits, compared with
// the build that asks.
//
// The file holds "latest_version", "latest_build", "min_supported_build", "download_url", "sha256",
// "published_at", and "title", "message" and "release_notes", each {"en": …, "ru": …} or a plain string.
class ReleaseDescription {
public:
    struct Answer {
        int status = 200;
        QJsonObject body;
    };

    explicit ReleaseDescription(QString filePath);

    // Reads the file anew on every call, so a new release needs no restart. currentBuild is the raw
    // "current_build" query value.
    Answer answer(const QString& currentBuild) const;

private:
    QString m_filePath;
};
