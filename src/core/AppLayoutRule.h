#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>
#include <optional>

// Which keyboard layout an application gets when it comes to the front.
struct AppLayoutRule {
    QUuid id;
    QString bundleIdentifier;
    QString appName;
    QString appPath;
    QString layoutName;
    bool isEnabled = true;

    bool operator==(const AppLayoutRule&) const = default;

    // A JSON array of objects with exactly the six keys; the id in the standard UUID text form.
    static QByteArray encodeList(const QList<AppLayoutRule>& rules);
    // Any element missing a key or of the wrong type fails the whole array: nullopt.
    static std::optional<QList<AppLayoutRule>> decodeList(const QByteArray& json);
};
