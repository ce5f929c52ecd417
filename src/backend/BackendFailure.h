#pragma once

#include "core/MivoraError.h"

// A request the backend answers with an error: the HTTP status and the text the program shows the user.
class BackendFailure : public MivoraError {
public:
    BackendFailure(int status, QString description) : MivoraError(std::move(description)), m_status(status) {}

    int status() const { return m_status; }

private:
    int m_status;
};
