#include "shell/CommandLine.h"

#include <QIODevice>

CommandLine CommandLine::parse(const QStringList& arguments)
{
    CommandLine command;
    if (arguments.isEmpty()) {
        return command;
    }
    const QString& first = arguments.first();
    if (first == u"--help" || first == u"-h" || first == u"help") {
        command.mode = Mode::help;
        return command;
    }
    if (first != u"run") {
        command.mode = Mode::invalid;
        command.error = QStringLiteral("Unknown command: %1").arg(first);
        return command;
    }
    if (arguments.size() < 2 || arguments.size() > 3) {
        command.mode = Mode::invalid;
        command.error = QStringLiteral("Usage: mivora run ACTION [TEXT]");
        return command;
    }
    command.mode = Mode::run;
    command.action = arguments.at(1);
    if (arguments.size() == 3) {
        command.text = arguments.at(2);
    }
    return command;
}

QString CommandLine::usage()
{
    return QStringLiteral(
        "Usage:\n"
        "  mivora                    start the resident app (system tray, global hotkeys)\n"
        "  mivora run ACTION [TEXT]  run one action on TEXT (or on standard input) and print the result\n"
        "  mivora --help             show this help\n"
        "\n"
        "ACTION is one of: layout, translate, ai, a style id such as original, friendly, polite,\n"
        "professional, short, emoji, or style:<id> for a custom style. Actions run with your saved\n"
        "settings; the result goes to standard output, a failure to standard error with exit status 1.\n"
        "\n"
        "Examples:\n"
        "  mivora run layout ghbdtn          prints привет\n"
        "  echo 'i has a typo' | mivora run fix\n");
}

QString CommandLine::inputText(QIODevice& standardInput) const
{
    if (text) {
        return *text;
    }
    QString input = QString::fromUtf8(standardInput.readAll());
    if (input.endsWith(QLatin1Char('\n'))) {
        input.chop(1);
    }
    return input;
}
