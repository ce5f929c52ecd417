#pragma once

#include <QString>

// What the status display shows; equality compares the case and the text.
struct ActionStatus {
    enum class Kind { idle, running, done, failed };

    Kind kind = Kind::idle;
    QString text;

    static ActionStatus idle() { return {}; }
    static ActionStatus running(QString text) { return {Kind::running, std::move(text)}; }
    static ActionStatus done(QString text) { return {Kind::done, std::move(text)}; }
    static ActionStatus failed(QString text) { return {Kind::failed, std::move(text)}; }

    bool operator==(const ActionStatus&) const = default;
};
