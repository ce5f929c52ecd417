#include "backend/RequestFraming.h"

#include <gtest/gtest.h>

TEST(RequestFramingTest, AnAbsurdContentLengthIsRefusedAndCountedWithoutOverflow)
{
    for (const QByteArray length : {"9223372036854775807", "9223372036854775000", "4097"}) {
        RequestFraming framing(1024, 4096);
        const RequestFraming::Step step =
            framing.take("POST /macos/ai HTTP/1.1\r\nContent-Length: " + length + "\r\n\r\n{\"a\":1}");
        ASSERT_TRUE(step.refusal) << length.constData();
        EXPECT_EQ(step.refusal->statusLine, "413 Payload Too Large");
        // The rest of the declared body is still drained, however much it claims to be.
        EXPECT_FALSE(framing.refusedRequestOver()) << length.constData();
        framing.take(QByteArray(4096, 'x'));
        EXPECT_EQ(framing.refusedRequestOver(), length == "4097") << length.constData();
    }
}
