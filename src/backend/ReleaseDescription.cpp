#include "backend/ReleaseDescription.h"

#include <QFile>
#include <QJsonDocument>

namespace {

ReleaseDescription::Answer failure(int status, const QString& text)
{
    return {status, QJsonObject{{"ok", false}, {"error", text}}};
}

std::optional<qint64> wholeNumber(const QJsonValue& value)
{
    if (!value.isDouble() || value.toDouble() != double(value.toInteger())) {
        return std::nullopt;
    }
    return value.toInteger();
}

} // namespace

ReleaseDescription::ReleaseDescription(QString filePath) : m_filePath(std::move(filePath)) {}

ReleaseDescription::Answer ReleaseDescription::answer(const QString& currentBuild) const
{
    bool parsed = false;
    const qint64 build = currentBuild.toLongLong(&parsed);
    if (!parsed) {
        return failure(400, QStringLiteral("\"current_build\" must be a whole number."));
    }
    QFile file(m_filePath);
    if (m_filePath.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return failure(503, QStringLiteral("This server has no release description."));
    }
    const QJsonObject release = QJsonDocument::fromJson(file.read(qint64(1024) * 1024)).object();
    const std::optional<qint64> latest = wholeNumber(release.value(QLatin1StringView("latest_build")));
    if (!latest) {
        return failure(503, QStringLiteral("This server's release description is unreadable."));
    }
    const std::optional<qint64> minimum =
        wholeNumber(release.value(QLatin1StringView("min_supported_build")));

    QJsonObject body{{"ok", true},
                     {"update_available", build < *latest},
                     {"force_update", minimum.has_value() && build < *minimum},
                     {"latest_build", *latest}};
    if (minimum) {
        body.insert(QStringLiteral("min_supported_build"), *minimum);
    }
    for (const char* key : {"latest_version", "download_url", "sha256", "published_at"}) {
        const QJsonValue value = release.value(QLatin1StringView(key));
        if (value.isString()) {
            body.insert(QLatin1StringView(key), value);
        }
    }
    for (const char* key : {"title", "message", "release_notes"}) {
        const QJsonValue value = release.value(QLatin1StringView(key));
        if (value.isString() || value.isObject()) {
            body.insert(QLatin1StringView(key), value);
        }
    }
    return {200, body};
}
