#include "AtspiBusActivation.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace {

QDBusMessage propertyCall(const QString& method)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.freedesktop.DBus.Properties"), method);
    message << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled");
    return message;
}

} // namespace

std::optional<bool> AtspiBusActivation::isEnabled() const
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::nullopt;
    }
    const QDBusMessage reply =
        bus.call(propertyCall(QStringLiteral("Get")), QDBus::Block, int(m_callTimeout.count()));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return std::nullopt;
    }
    const QVariant value = reply.arguments().constFirst().value<QDBusVariant>().variant();
    if (value.typeId() != QMetaType::Bool) {
        return std::nullopt;
    }
    return value.toBool();
}

bool AtspiBusActivation::enable() const
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    QDBusMessage message = propertyCall(QStringLiteral("Set"));
    message << QVariant::fromValue(QDBusVariant(true));
    // The launcher starts the accessibility bus before it answers; nobody waits for that here.
    return bus.send(message);
}
