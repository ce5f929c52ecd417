// Feeds X11SelectionData the property reads a hostile or broken selection owner could cause, 32-bit items
// widened to the longs Xlib hands out.
#include "platform/x11/X11SelectionData.h"

#include <QSet>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

constexpr Atom incrAtom = 0x1d3;
constexpr Atom textAtom = 0x1e7;

// Takes the input from its front, little-endian, with zeros once it runs out, so seeds are easy to write.
class Input {
public:
    Input(const uint8_t* data, size_t size) : m_data(data), m_left(size) {}
    bool empty() const { return m_left == 0; }
    uint64_t take(size_t bytes)
    {
        uint64_t value = 0;
        for (size_t i = 0; i < bytes; ++i) {
            value |= uint64_t(next()) << (8 * i);
        }
        return value;
    }
    uint8_t next()
    {
        if (m_left == 0) {
            return 0;
        }
        --m_left;
        return *m_data++;
    }

private:
    const uint8_t* m_data;
    size_t m_left;
};

void check(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

} // namespace

// Input: the size limit (2 bytes), then reads. A read is a header byte (bit 0: of type INCR; bits 1-2: format
// 8, 16, 32, or one given in the next byte; bit 3: more of the property after it; bit 4: 32-bit items given
// in 4 bytes, else as whole 8-byte longs; bits 6 and 7 together: the read fails), the item count (2 bytes, at
// most 512) and the items.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input(data, size);
    const auto maxBytes = qsizetype(input.take(2));
    X11SelectionData answer(incrAtom, maxBytes);
    using State = X11SelectionData::State;
    while (!input.empty() &&
           (answer.state() == State::awaitingAnswer || answer.state() == State::awaitingPiece)) {
        const uint8_t header = input.next();
        if ((header & 0xc0) == 0xc0) {
            answer.fail();
            break;
        }
        const Atom type = (header & 1) != 0 ? incrAtom : textAtom;
        static constexpr int formats[] = {8, 16, 32, 0};
        int format = formats[(header >> 1) & 3];
        if (format == 0) {
            format = int8_t(input.next());
        }
        const bool more = (header & 8) != 0;
        const unsigned long count = input.take(2) % 513;
        // Room for count items of any format, as Xlib would have allocated for the one it reports.
        std::vector<long> storage(count + 1);
        auto* bytes = reinterpret_cast<unsigned char*>(storage.data());
        if (format == 32) {
            for (unsigned long i = 0; i < count; ++i) {
                // Xlib may fill the upper half of each long; only the lower 32 bits are the item.
                storage[i] = (header & 0x10) != 0 ? long(int32_t(input.take(4))) : long(input.take(8));
            }
        } else {
            const size_t length = format == 16 ? count * 2 : count;
            for (size_t i = 0; i < length; ++i) {
                bytes[i] = input.next();
            }
        }
        const long offsetBefore = answer.readOffset();
        const bool wasOpen = !answer.propertyDone();
        answer.addRead(type, format, bytes, count, more);
        check(answer.bytes().size() <= maxBytes);
        check(answer.readOffset() >= 0);
        // A read that leaves the property open must move the next one on, or the adapter would loop forever.
        if (answer.state() != State::failed && !answer.propertyDone()) {
            check(answer.readOffset() > (wasOpen ? offsetBefore : 0));
        }
    }
    const QList<quint32> items = answer.distinctItems();
    check(items.isEmpty() || answer.state() == State::complete);
    check(qsizetype(items.size()) <= answer.bytes().size() / 4);
    QSet<quint32> seen;
    for (const quint32 item : items) {
        check(item != 0 && !seen.contains(item));
        seen.insert(item);
    }
    return 0;
}
