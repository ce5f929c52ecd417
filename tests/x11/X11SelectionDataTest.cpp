#include "platform/x11/X11SelectionData.h"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr Atom incr = 0x51;
constexpr Atom text = 0x52;
using State = X11SelectionData::State;

void addBytes(X11SelectionData& answer, const QByteArray& bytes, bool more = false, int format = 8)
{
    answer.addRead(text, format, bytes.constData(), bytes.size() / (format == 16 ? 2 : 1), more);
}

void addLongs(X11SelectionData& answer, Atom type, const std::vector<long>& items)
{
    answer.addRead(type, 32, items.data(), items.size(), false);
}

} // namespace

TEST(X11SelectionDataTest, IncrementalPiecesJoinUntilTheEmptyOne)
{
    X11SelectionData answer(incr, 1024);
    addLongs(answer, incr, {9});
    EXPECT_EQ(answer.state(), State::awaitingPiece);
    addBytes(answer, "abcd", true); // a piece read in two parts
    EXPECT_EQ(answer.readOffset(), 1);
    addBytes(answer, "ef");
    addBytes(answer, "ghi");
    addBytes(answer, "");
    EXPECT_EQ(answer.state(), State::complete);
    EXPECT_EQ(answer.bytes(), "abcdefghi");
}

TEST(X11SelectionDataTest, TargetListIsPackedFromLongsWithoutRepeatsOrNone)
{
    X11SelectionData answer(incr, 1024);
    // Xlib may leave the upper half of a long set; the atom is the lower 32 bits.
    addLongs(answer, text, {0x1234, long(0xffffffff00000005UL), 0, 0x1234});
    EXPECT_EQ(answer.bytes().size(), 16);
    EXPECT_EQ(answer.distinctItems(), (QList<quint32>{0x1234, 5}));
}

TEST(X11SelectionDataTest, BrokenAnswersFailInsteadOfLoopingOrGrowing)
{
    const std::vector<std::pair<const char*, std::function<void(X11SelectionData&)>>> cases{
        {"more to come after nothing", [](auto& a) { addBytes(a, "", true); }},
        {"more to come mid-unit", [](auto& a) { addBytes(a, "abc", true); }},
        {"a format no server uses", [](auto& a) { addBytes(a, "abc", false, 7); }},
        {"larger than the limit", [](auto& a) { addBytes(a, QByteArray(17, 'x')); }},
        {"pieces beyond the limit",
         [](auto& a) {
             addLongs(a, incr, {1});
             addBytes(a, QByteArray(12, 'x'));
             addBytes(a, QByteArray(12, 'y'));
         }},
        {"pieces of two formats",
         [](auto& a) {
             addLongs(a, incr, {1});
             addBytes(a, "ab");
             addBytes(a, "cd", false, 16);
         }},
    };
    for (const auto& [name, feed] : cases) {
        X11SelectionData answer(incr, 16);
        feed(answer);
        EXPECT_EQ(answer.state(), State::failed) << name;
        EXPECT_TRUE(answer.bytes().isEmpty()) << name;
    }
}
