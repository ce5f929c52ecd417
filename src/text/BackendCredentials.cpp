#include "text/BackendCredentials.h"

#include "core/DefaultsStore.h"

#include <QUuid>

namespace {
const QString deviceIdKey = QStringLiteral("mivora.deviceID");
}

BackendCredentials::BackendCredentials(DefaultsStore& defaults, QString token)
    : m_defaults(defaults), m_token(std::move(token))
{}

QString BackendCredentials::deviceId()
{
    QString stored = m_defaults.value(deviceIdKey).toString();
    if (!stored.isEmpty()) {
        return stored;
    }
    QString made = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    m_defaults.setValue(deviceIdKey, made);
    return made;
}

QString BackendCredentials::authorizationValue() const
{
    return QStringLiteral("Bearer ") + m_token;
}
