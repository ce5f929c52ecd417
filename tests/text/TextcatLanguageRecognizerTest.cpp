#include "platform/x11/TextcatLanguageRecognizer.h"

#include <gtest/gtest.h>

TEST(TextcatLanguageRecognizer, NamesTheLanguageOfOrdinarySentences)
{
    const TextcatLanguageRecognizer recognizer;
    EXPECT_EQ(
        recognizer.dominantLanguage(QStringLiteral("Привет! Как прошла встреча с клиентом? Мы договорились "
                                                   "о новых сроках поставки оборудования.")),
        QStringLiteral("ru"));
    EXPECT_EQ(
        recognizer.dominantLanguage(QStringLiteral("Hello! How did the meeting with the client go? We agreed "
                                                   "on new delivery dates for the equipment.")),
        QStringLiteral("en"));
    EXPECT_EQ(recognizer.dominantLanguage(QStringLiteral("  ")), QString());
}

TEST(TextcatLanguageRecognizer, WithoutItsDatabaseItNamesNothing)
{
    const TextcatLanguageRecognizer recognizer(QStringLiteral("/nonexistent/textcat/"));
    EXPECT_EQ(recognizer.dominantLanguage(QStringLiteral("Hello, how are you doing today, my friend?")),
              QString());
}
