#pragma once

#include "platform/LanguageRecognizer.h"

// Answers one fixed language code and remembers what it was asked about.
class FakeLanguageRecognizer : public LanguageRecognizer {
public:
    QString dominantLanguage(const QString& text) const override
    {
        lastText = text;
        return language;
    }

    QString language;
    mutable QString lastText;
};
