// The AI backend's answer as the client decodes it. Input: the HTTP status on the first line (anything but a
// number reads as 0, no status), the body after it.
#include "core/MivoraError.h"
#include "text/BackendClient.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), qsizetype(size));
    const qsizetype lineEnd = input.indexOf('\n');
    const int status = input.left(lineEnd).toInt();
    const QByteArray body = lineEnd < 0 ? QByteArray() : input.mid(lineEnd + 1);
    try {
        const QString result = BackendClient::resultOf(HttpExchange::Response{status, body});
        // Only a success status gives a result, and never an empty or untrimmed one.
        if (status < 200 || status > 299 || result.isEmpty() || result != result.trimmed()) {
            std::abort();
        }
    } catch (const MivoraError&) {
        // Every refusal is one of the errors the user is shown; a server's empty "error" stays empty.
    }
    return 0;
}
