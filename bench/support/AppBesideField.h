#pragma once

#include "ResidentAppProcess.h"
#include "ScriptedHttpServer.h"
#include "TestFieldProcess.h"
#include "X11TestClient.h"

#include <QString>
#include <memory>

// The real resident app on the test's X server beside a text field of another process that has the focus,
// and a second client of the server to type with, as a person at the keyboard. Both processes go with this
// object.
class AppBesideField {
public:
    explicit AppBesideField(const QString& program);

    // The app, to be given its preferences before start().
    ResidentAppProcess& app() { return m_app; }
    TestFieldProcess& field() { return m_field; }
    X11TestClient& keyboard() { return m_keyboard; }
    // Before start: points the app at a loopback backend of this object's own that answers every request at
    // once with this result.
    void answerEveryRequestWith(const QString& result);
    // The loopback backend; only after answerEveryRequestWith().
    const ScriptedHttpServer& backend() const { return *m_backend; }

    // Waits for the window manager, then starts the app until its hotkeys are live and the field with this
    // class and title until it has the focus; says what failed on the standard error.
    bool start(const QString& fieldClass = QStringLiteral("MivoraBenchField"),
               const QString& fieldTitle = QStringLiteral("Bench field"));
    // Puts the text in the field and selects it from the keyboard (End, then Shift+Home), so the field owns
    // PRIMARY; true once the field reports the text selected.
    bool selectFromKeyboard(const QString& text);
    // Puts the text in the field and has the field select it itself, which leaves PRIMARY alone; true once
    // the field reports the text selected.
    bool selectInField(const QString& text);

private:
    X11TestClient m_keyboard;
    ResidentAppProcess m_app;
    TestFieldProcess m_field;
    std::unique_ptr<ScriptedHttpServer> m_backend;
};
