#pragma once

#include <QStringList>
#include <QtGlobal>

// Collects every message Qt's logging prints (qWarning and the like) for as long as it lives. One at a time.
class CapturedLog {
public:
    CapturedLog() : m_previous(qInstallMessageHandler(&CapturedLog::collect)) { current() = this; }
    ~CapturedLog()
    {
        qInstallMessageHandler(m_previous);
        current() = nullptr;
    }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    QStringList lines;

private:
    static CapturedLog*& current()
    {
        static CapturedLog* log = nullptr;
        return log;
    }
    static void collect(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        current()->lines.append(message);
    }

    QtMessageHandler m_previous;
};
