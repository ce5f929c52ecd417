#include "AppBesideField.h"

#include "DesktopTools.h"
#include "EventLoopWait.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

using namespace std::chrono_literals;

AppBesideField::AppBesideField(const QString& program) : m_app(program) {}

void AppBesideField::answerEveryRequestWith(const QString& result)
{
    m_backend = std::make_unique<ScriptedHttpServer>();
    m_backend->enqueue(ScriptedHttpServer::Reply::json(
        200, QJsonDocument(QJsonObject{{QStringLiteral("result"), result}}).toJson(QJsonDocument::Compact)));
    m_app.setSetting(QStringLiteral("mivora.backend.baseURL"), m_backend->baseUrl());
    m_app.setSetting(QStringLiteral("mivora.backend.token"), QStringLiteral("bench"));
}

bool AppBesideField::start(const QString& fieldClass, const QString& fieldTitle)
{
    if (!desktopReady(m_keyboard.display())) {
        return false;
    }
    if (!m_app.start() || !m_app.waitForHotkeys() || !m_field.start(fieldClass, fieldTitle) ||
        !m_field.waitForFocus()) {
        QTextStream(stderr) << "could not start the app and the field\n" << m_app.standardError();
        return false;
    }
    return true;
}

bool AppBesideField::selectFromKeyboard(const QString& text)
{
    if (!m_field.setText(text)) {
        return false;
    }
    m_keyboard.type({QStringLiteral("End")});
    m_keyboard.type({QStringLiteral("Shift_L"), QStringLiteral("Home")});
    return spinUntil([&] { return m_field.selection() == text; }, 10s);
}

bool AppBesideField::selectInField(const QString& text)
{
    return m_field.setText(text) && m_field.select(0, int(text.size())) &&
           spinUntil([&] { return m_field.selection() == text; }, 10s);
}
