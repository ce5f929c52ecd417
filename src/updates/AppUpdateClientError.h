#pragma once

#include "core/MivoraError.h"

// A failed update check, with the text the user sees.
class AppUpdateClientError : public MivoraError {
public:
    static AppUpdateClientError invalidURL()
    {
        return AppUpdateClientError(QStringLiteral("Update URL is invalid."));
    }
    static AppUpdateClientError server(QString text) { return AppUpdateClientError(std::move(text)); }

private:
    using MivoraError::MivoraError;
};
