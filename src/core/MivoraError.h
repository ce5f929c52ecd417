#pragma once

#include <QString>
#include <exception>

// Base of every error that reaches the user as a failed status or inline panel text. Subclasses carry the
// exact description the user sees.
class MivoraError : public std::exception {
public:
    explicit MivoraError(QString description)
        : m_description(std::move(description)), m_utf8(m_description.toUtf8())
    {}

    const QString& errorDescription() const noexcept { return m_description; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_description;
    QByteArray m_utf8;
};
