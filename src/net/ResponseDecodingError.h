#pragma once

#include "core/MivoraError.h"

// An answer whose body is not the JSON object the client expects (an HTML error page, a cut-off body,
// bytes that are not UTF-8).
class ResponseDecodingError : public MivoraError {
public:
    ResponseDecodingError()
        : MivoraError(QStringLiteral("The data couldn't be read because it isn't in the correct format."))
    {}
};
