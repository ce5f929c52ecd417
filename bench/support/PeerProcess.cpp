#include "PeerProcess.h"

#include <QTextStream>

PeerProcess::PeerProcess(const QString& program) : m_program(program), m_home(program)
{
    m_process.setProcessEnvironment(m_home.environment());
}

PeerProcess::~PeerProcess()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.terminate();
        m_process.waitForFinished(10000);
    }
}

bool PeerProcess::start()
{
    m_process.start(m_program, {});
    if (!m_process.waitForStarted()) {
        QTextStream(stdout) << m_program << " did not start (apt-get install " << m_program << ")\n";
        return false;
    }
    return true;
}

bool PeerProcess::command(const QStringList& arguments, std::chrono::milliseconds guard)
{
    QProcess command;
    command.setProcessEnvironment(m_home.environment());
    command.start(m_program, arguments);
    return command.waitForFinished(int(guard.count())) && command.exitCode() == 0;
}
