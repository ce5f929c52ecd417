#pragma once

#include <QString>
#include <QStringList>
#include <optional>

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
};
