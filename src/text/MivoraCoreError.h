#pragma once

#include "core/MivoraError.h"

// An action that the backend route does not serve; its proper home is elsewhere.
class MivoraCoreError : public MivoraError {
public:
    static MivoraCoreError actionNotPortedYet(const QString& what)
    {
        return MivoraCoreError(QStringLiteral("Native Swift action is not ported yet: ") + what);
    }

private:
    using MivoraError::MivoraError;
};
