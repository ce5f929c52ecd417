#include "TestFieldProcess.h"

#include <QCoreApplication>

using namespace std::chrono_literals;

TestFieldProcess::~TestFieldProcess()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished(2000);
    }
}

bool TestFieldProcess::start(const QString& windowClass, const QString& title, const QString& text,
                             const QProcessEnvironment& environment)
{
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput,
                     [this] { m_output += m_process.readAllStandardOutput(); });
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::SeparateChannels);
    QStringList arguments{QStringLiteral("--class"), windowClass, QStringLiteral("--title"), title,
                          QStringLiteral("--text"),  text};
    if (!m_otherWindow.isEmpty()) {
        arguments << QStringLiteral("--other-window") << m_otherWindow;
    }
    if (m_ignoreCopy) {
        arguments << QStringLiteral("--ignore-copy");
    }
    if (m_minimumWidth > 0) {
        arguments << QStringLiteral("--min-width") << QString::number(m_minimumWidth);
    }
    if (m_crowd > 0) {
        arguments << QStringLiteral("--crowd") << QString::number(m_crowd);
    }
    m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/mivora_test_textfield"),
                    arguments);
    if (!nextLine("ready")) {
        return false;
    }
    // WORKAROUND: the window manager's focus stealing prevention may leave a new window in the background
    // after synthetic keys went to another window, so the window is activated as a user would.
    const std::optional<QString> shown =
        findWindow({QStringLiteral("--pid"), QString::number(processIdentifier())});
    return shown &&
           runTool(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), *shown}).has_value();
}

qint32 TestFieldProcess::processIdentifier() const
{
    return qint32(m_process.processId());
}

void TestFieldProcess::splitOutput()
{
    qsizetype end = 0;
    while ((end = m_output.indexOf('\n')) >= 0) {
        QByteArray line = m_output.left(end);
        m_output.remove(0, end + 1);
        if (line.startsWith("text ") || line == "done") {
            m_answers.insert(m_answersRead++,
                             line.startsWith("text ") ? line.mid(5).trimmed() : QByteArray());
        } else {
            m_lines.append(std::move(line));
        }
    }
}

std::optional<QByteArray> TestFieldProcess::nextLine(const QByteArray& prefix)
{
    // Lines of other kinds stay queued for their own readers.
    std::optional<QByteArray> found;
    spinUntil(
        [&] {
            splitOutput();
            for (qsizetype i = 0; i < m_lines.size(); ++i) {
                if (m_lines.at(i).startsWith(prefix)) {
                    found = m_lines.takeAt(i).mid(prefix.size()).trimmed();
                    return true;
                }
            }
            return m_process.state() == QProcess::NotRunning;
        },
        10s);
    return found;
}

std::optional<QByteArray> TestFieldProcess::command(const QByteArray& line)
{
    const quint64 number = m_commandsSent++;
    m_process.write(line + '\n');
    spinUntil(
        [&] {
            splitOutput();
            return m_answers.contains(number) || m_process.state() == QProcess::NotRunning;
        },
        10s);
    return m_answers.contains(number) ? std::optional(m_answers.take(number)) : std::nullopt;
}

std::optional<QString> TestFieldProcess::ask(const QByteArray& line)
{
    const std::optional<QByteArray> answer = command(line);
    return answer ? std::optional(QString::fromUtf8(QByteArray::fromBase64(*answer))) : std::nullopt;
}

std::optional<QString> TestFieldProcess::text()
{
    return ask("text");
}

std::optional<QString> TestFieldProcess::selection()
{
    return ask("selection");
}

std::optional<QString> TestFieldProcess::window()
{
    return ask("window");
}

bool TestFieldProcess::setText(const QString& text)
{
    return command("set " + text.toUtf8().toBase64()).has_value();
}

std::optional<QString> TestFieldProcess::nextShortcut()
{
    const std::optional<QByteArray> line = nextLine("key ");
    return line ? std::optional(QString::fromUtf8(*line)) : std::nullopt;
}

std::optional<QString> TestFieldProcess::nextTextChange()
{
    const std::optional<QByteArray> line = nextLine("changed ");
    return line ? std::optional(QString::fromUtf8(QByteArray::fromBase64(*line))) : std::nullopt;
}

bool TestFieldProcess::waitForFocus()
{
    return spinUntil([&] { return ask("focus") == QStringLiteral("yes"); }, 10s);
}

bool TestFieldProcess::select(int start, int length)
{
    return command("select " + QByteArray::number(start) + ' ' + QByteArray::number(length)).has_value();
}
