#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

// The string id of a runnable action: "ai", "translate", "clipboard", "layout" or "style:<style id>".
struct QuickAction {
    QString id;

    QuickAction() = default;
    explicit QuickAction(QString actionId) : id(std::move(actionId)) {}
    bool operator==(const QuickAction&) const = default;

    // The normal form of an identifier; unknown ids survive trimmed and fail only when run.
    static QString normalize(const QString& raw);
    static const QList<QuickAction>& defaultActions();
    static QStringList defaultActionIds();

    std::optional<QString> styleId() const;
    // Fixed title, deliberately not localised.
    QString title() const;
    // The platform symbol of the action's icon.
    QString symbolName() const;
};

inline size_t qHash(const QuickAction& action, size_t seed = 0)
{
    return qHash(action.id, seed);
}
