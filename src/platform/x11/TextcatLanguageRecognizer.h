#pragma once

#include "platform/LanguageRecognizer.h"

#include <QString>
#include <memory>

// Language guesses from libexttextcat's n-gram fingerprints (the Debian package's database).
class TextcatLanguageRecognizer : public LanguageRecognizer {
public:
    // Blocking: reads the fingerprint database once. Without it every guess is empty.
    explicit TextcatLanguageRecognizer(
        const QString& databaseDirectory = QStringLiteral("/usr/share/libexttextcat/"));
    ~TextcatLanguageRecognizer() override;

    QString dominantLanguage(const QString& text) const override;

private:
    struct Handle;
    std::unique_ptr<Handle> m_handle;
};
