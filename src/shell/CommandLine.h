#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QIODevice;

// What the command line asks of the process.
struct CommandLine {
    enum class Mode { resident, run, help, invalid };

    Mode mode = Mode::resident;
    QString action;
    // Absent: read the text from standard input.
    std::optional<QString> text;
    QString error;

    // arguments without the program name.
    static CommandLine parse(const QStringList& arguments);
    static QString usage();

    // The text to run on: the argument, or else all of standardInput without the one trailing newline that
    // a shell pipe adds. standardInput is not read at all when the text is an argument.
    QString inputText(QIODevice& standardInput) const;
};
