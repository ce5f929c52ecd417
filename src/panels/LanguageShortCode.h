#pragma once

#include <QString>

namespace LanguageShortCode {
// The two capital letters shown for a target-language name: "ZH" for both Chinese scripts, "TL" for
// Filipino, else the ISO 639-1 code whose English name matches regardless of case, else the name's own
// first two letters.
QString of(const QString& languageName);
} // namespace LanguageShortCode
