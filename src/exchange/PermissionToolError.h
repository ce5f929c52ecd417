#pragma once

#include "core/MivoraError.h"

// The permission reset tool could not be started; carries the system's own text.
class PermissionToolError : public MivoraError {
public:
    using MivoraError::MivoraError;
};
