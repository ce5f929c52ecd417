#pragma once

#include "MemoryDefaultsStore.h"

#include <QByteArray>

// A defaults store whose stored values come from a fuzz input, in every shape a backing store hands back.
// The input is a run of entries: a type byte, the key up to "\n", a two-byte little-endian payload length and
// the payload (cut short where the input ends). Type byte modulo 8 (the digits "0"-"7" in hand-made seeds):
// 0 string, 1 data blob, 2 boolean (first payload byte odd), 3 integer, 4 double (both parsed from the
// payload text), 5 string list and 6 variant list (payload lines), 7 date-time (ISO 8601 payload). A later
// entry for the same key wins; writes by the code under test land in memory as usual.
class FuzzedDefaultsStore : public MemoryDefaultsStore {
    Q_OBJECT
public:
    explicit FuzzedDefaultsStore(const QByteArray& input);
};
