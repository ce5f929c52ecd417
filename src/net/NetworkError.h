#pragma once

#include "core/MivoraError.h"

// A request that did not come back as an HTTP answer: refused connection, unknown host, time-out, abort.
// The description is the network layer's own text.
class NetworkError : public MivoraError {
public:
    using MivoraError::MivoraError;
};
