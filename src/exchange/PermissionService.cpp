#include "exchange/PermissionService.h"

#include "exchange/OwnApplication.h"
#include "exchange/PermissionToolError.h"
#include "platform/ProcessRunner.h"

#include <QStringDecoder>

namespace {
// Kept out of the coroutines: string literals inside a coroutine body trip up the compiler.
const QStringList& services()
{
    static const QStringList names{QStringLiteral("Accessibility"), QStringLiteral("ListenEvent")};
    return names;
}

QStringList tccutilArguments(const QString& service, const QString& bundleId)
{
    return {QStringLiteral("reset"), service, bundleId};
}

QString outcomeLine(const ProcessResult& result, const QString& service, const QString& bundleId)
{
    const QString subject = service + u' ' + bundleId;
    if (result.exitStatus == 0) {
        return QStringLiteral("reset ") + subject;
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString message = decoder.decode(result.standardError);
    if (decoder.hasError()) {
        message.clear();
    }
    return QStringLiteral("skip ") + subject + u' ' + message.trimmed();
}
} // namespace

QCoro::Task<QStringList> PermissionService::resetMivoraPermissions()
{
    QStringList lines;
    for (const QString& service : services()) {
        for (const QString& bundleId : OwnApplication::mivoraBundleIds()) {
            lines.append(co_await runTccutil(service, bundleId));
        }
    }
    co_return lines;
}

QCoro::Task<QString> PermissionService::runTccutil(QString service, QString bundleId)
{
    const ProcessResult result = co_await m_runner.run(toolPath(), tccutilArguments(service, bundleId));
    if (result.launchError) {
        throw PermissionToolError(*result.launchError);
    }
    co_return outcomeLine(result, service, bundleId);
}
