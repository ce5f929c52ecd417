#pragma once

#include "EventLoopWait.h"

#include <QByteArray>
#include <QHash>
#include <QProcess>
#include <QString>
#include <optional>

// One instance of the test text field application, driven over its standard input and output. It is
// killed when this object goes.
class TestFieldProcess {
public:
    TestFieldProcess() = default;
    ~TestFieldProcess();
    TestFieldProcess(const TestFieldProcess&) = delete;
    TestFieldProcess& operator=(const TestFieldProcess&) = delete;

    // Starts it with this WM_CLASS class, window title and text; true once its window is shown and activated.
    bool start(const QString& windowClass, const QString& title, const QString& text = {},
               const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    qint32 processIdentifier() const;
    // Before start: the application also shows another window with this title, ahead of the field's.
    void addOtherWindow(const QString& title) { m_otherWindow = title; }
    // Before start: Control+C copies nothing, as in a terminal.
    void ignoreCopy() { m_ignoreCopy = true; }
    // Before start: the field sits last in one window with this many labels.
    void addCrowd(int labels) { m_crowd = labels; }
    // Before start: the window never gets narrower than this.
    void setMinimumWidth(int pixels) { m_minimumWidth = pixels; }

    // The field's text or selection, or nullopt when the application did not answer.
    std::optional<QString> text();
    std::optional<QString> selection();
    // The X window of the field, as a decimal number.
    std::optional<QString> window();
    bool setText(const QString& text);
    bool select(int start, int length);
    // Waits until the field has the keyboard focus, so synthetic keys reach it.
    bool waitForFocus();
    // Waits for the application to report a key press with Control (lines "key ctrl A", "key shift ctrl C")
    // and returns it without the "key " prefix.
    std::optional<QString> nextShortcut();
    // Waits for the next change of the field's text, as the application reports it unasked.
    std::optional<QString> nextTextChange();

private:
    void splitOutput();
    std::optional<QByteArray> nextLine(const QByteArray& prefix);
    // Sends a command and waits for its answer line ("text …" or "done").
    std::optional<QByteArray> command(const QByteArray& line);
    std::optional<QString> ask(const QByteArray& line);

    QProcess m_process;
    QString m_otherWindow;
    bool m_ignoreCopy = false;
    int m_crowd = 0;
    int m_minimumWidth = 0;
    QByteArray m_output;
    QList<QByteArray> m_lines;
    // Commands may nest: a condition polled inside the wait for another answer asks again. The application
    // answers in the order asked, so each command waits for the answer with its own number.
    quint64 m_commandsSent = 0;
    quint64 m_answersRead = 0;
    QHash<quint64, QByteArray> m_answers;
};
