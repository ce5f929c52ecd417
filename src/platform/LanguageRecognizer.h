#pragma once

#include <QString>

// Guesses the language a text is written in.
class LanguageRecognizer {
public:
    virtual ~LanguageRecognizer() = default;

    // Blocking but quick (a statistical guess, no I/O after construction); any thread. The ISO 639-1 code
    // of the dominant language ("en", "ru"), or empty when the text is too short or no language fits.
    virtual QString dominantLanguage(const QString& text) const = 0;
};
