// What a client sends to the backend before the HTTP server reads it, in the pieces the network delivers.
// Input: two bytes giving the sizes the rest is cut into, alternately (1 to 256 bytes), then the bytes.
#include "backend/RequestFraming.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2) {
        return 0;
    }
    const qsizetype sizes[] = {qsizetype(data[0]) + 1, qsizetype(data[1]) + 1};
    const QByteArrayView stream(data + 2, qsizetype(size - 2));
    RequestFraming framing(1024, 4096);
    bool refused = false;
    qsizetype offset = 0;
    for (int piece = 0; offset < stream.size(); ++piece) {
        const QByteArrayView chunk = stream.sliced(offset, qMin(sizes[piece % 2], stream.size() - offset));
        offset += chunk.size();
        const RequestFraming::Step step = framing.take(chunk);
        // A connection is refused once, and stays refused.
        if ((refused && (step.refusal || step.enteredPhase)) ||
            (step.refusal.has_value() != (framing.refused() && !refused))) {
            std::abort();
        }
        if (step.refusal && (step.refusal->statusLine.isEmpty() || step.refusal->text.isEmpty())) {
            std::abort();
        }
        refused = framing.refused();
    }
    return 0;
}
