#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>
#include <chrono>
#include <optional>

// The resident mivora process on the test's X server, with a private home: its configuration, data and
// runtime directories all live in one temporary directory, so it never sees the user's settings, and the
// automatic update check is off so it never goes to the network on its own. Killed when this object goes.
class ResidentAppProcess {
public:
    explicit ResidentAppProcess(QString program);
    ~ResidentAppProcess();
    ResidentAppProcess(const ResidentAppProcess&) = delete;
    ResidentAppProcess& operator=(const ResidentAppProcess&) = delete;

    // Stores one preference the way the app's own store does; before start().
    void setSetting(const QString& key, const QVariant& value);
    // The environment that points a process at the private directories.
    QProcessEnvironment environment() const;
    // Starts the resident app; true once the process runs.
    bool start();
    // Waits until the app says its hotkeys are registered; a press sent before that would reach the
    // focused window instead. False when it ended or took longer than the guard.
    bool waitForHotkeys(std::chrono::milliseconds guard = std::chrono::seconds(10));
    // Waits until the standard error holds the text.
    bool waitForStandardError(const QString& text,
                              std::chrono::milliseconds guard = std::chrono::seconds(10));
    QString standardError();
    QString standardOutput();
    // The private directory holding its home, configuration, data and runtime directories.
    QString directory() const { return m_home.path(); }
    // The bytes of the clipboard history's store file as the program last wrote it (empty before).
    QByteArray storedHistory() const;
    bool isRunning() const;
    qint64 processId() const { return m_process.processId(); }
    // The exit code once the process ended on its own; nullopt while it runs or when it crashed.
    std::optional<int> exitCode() const;
    // Asks the app to end with SIGTERM; its exit code, or nullopt when it crashed or did not end in time.
    std::optional<int> terminate(std::chrono::milliseconds guard = std::chrono::seconds(10));

private:
    QString m_program;
    QTemporaryDir m_home;
    QProcess m_process;
    QByteArray m_standardError;
    QByteArray m_standardOutput;
};
