#pragma once

#include "platform/LanguageRecognizer.h"

// Language guesses from the system's natural-language recogniser.
class MacLanguageRecognizer : public LanguageRecognizer {
public:
    QString dominantLanguage(const QString& text) const override;
};
