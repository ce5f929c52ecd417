#include "platform/mac/MacLanguageRecognizer.h"

#include "platform/mac/MacStringBridge.h"

#include <NaturalLanguage/NaturalLanguage.h>

QString MacLanguageRecognizer::dominantLanguage(const QString& text) const
{
    // Any thread may ask, and a thread Qt started has no autorelease pool of its own.
    @autoreleasepool {
        // A recogniser keeps what it was given, so each guess takes a fresh one.
        NLLanguageRecognizer* recognizer = [[NLLanguageRecognizer alloc] init];
        [recognizer processString:toNSString(text)];
        NLLanguage language = recognizer.dominantLanguage;
        // The undetermined code means no language fits.
        if (language == nil || [language isEqualToString:NLLanguageUndetermined]) {
            return {};
        }
        return toQString(language);
    }
}
