#include "UserClipboard.h"

#include "EventLoopWait.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace std::chrono_literals;

namespace {

const QByteArray userContent = "user clipboard \xE2\x9C\x93";

} // namespace

void fillUserClipboard()
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(userContent));
}

bool waitForUserClipboard()
{
    return spinUntil([] { return clipboardBytes() == userContent; }, 10s);
}
