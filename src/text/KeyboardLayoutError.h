#pragma once

#include "core/MivoraError.h"

#include <QString>
#include <cstdint>

// Failure to find or activate a keyboard input source.
class KeyboardLayoutError : public MivoraError {
public:
    enum class Kind { layoutNotFound, switchFailed };

    static KeyboardLayoutError layoutNotFound(const QString& name)
    {
        return KeyboardLayoutError(Kind::layoutNotFound, name, 0,
                                   QStringLiteral("Keyboard layout not found: ") + name);
    }

    static KeyboardLayoutError switchFailed(const QString& name, std::int32_t status)
    {
        return KeyboardLayoutError(Kind::switchFailed, name, status,
                                   QStringLiteral("Could not switch keyboard layout to ") + name +
                                       QStringLiteral(": ") + QString::number(status));
    }

    Kind kind() const { return m_kind; }
    const QString& name() const { return m_name; }
    // The platform's status of the last attempt; 0 for layoutNotFound.
    std::int32_t status() const { return m_status; }

private:
    KeyboardLayoutError(Kind kind, QString name, std::int32_t status, QString description)
        : MivoraError(std::move(description)), m_kind(kind), m_name(std::move(name)), m_status(status)
    {}

    Kind m_kind;
    QString m_name;
    std::int32_t m_status;
};
