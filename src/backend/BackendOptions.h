#pragma once

#include "backend/AiEndpoint.h"
#include "backend/UpstreamChatClient.h"

#include <QHostAddress>
#include <QProcessEnvironment>
#include <QStringList>
#include <variant>

// How the backend is run: each option on the command line, or else in its environment variable.
struct BackendOptions {
    QHostAddress listenAddress{QHostAddress::LocalHost};
    quint16 port = 8787;
    QString releaseFile;
    UpstreamChatClient::Settings upstream;
    AiEndpoint::Settings ai;

    // The options, or the text to print and exit with: the help text, or what is wrong. isHelp tells which.
    struct Stop {
        QString text;
        bool isHelp = false;
    };
    static std::variant<BackendOptions, Stop> parse(const QStringList& arguments,
                                                    const QProcessEnvironment& environment);
};
