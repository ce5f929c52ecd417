#include "platform/x11/TextcatLanguageRecognizer.h"

#include <QDir>
#include <QRegularExpression>
#include <textcat.h>

struct TextcatLanguageRecognizer::Handle {
    explicit Handle(void* classifier) : classifier(classifier) {}
    ~Handle() { textcat_Done(classifier); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    void* classifier;
};

TextcatLanguageRecognizer::TextcatLanguageRecognizer(const QString& databaseDirectory)
{
    const QString directory = QDir(databaseDirectory).absolutePath() + QLatin1Char('/');
    const QByteArray configuration = QFile::encodeName(directory + QStringLiteral("fpdb.conf"));
    const QByteArray prefix = QFile::encodeName(directory);
    if (void* classifier = special_textcat_Init(configuration.constData(), prefix.constData())) {
        m_handle = std::make_unique<Handle>(classifier);
    }
}

TextcatLanguageRecognizer::~TextcatLanguageRecognizer() = default;

QString TextcatLanguageRecognizer::dominantLanguage(const QString& text) const
{
    if (!m_handle || text.trimmed().isEmpty()) {
        return {};
    }
    const QByteArray utf8 = text.toUtf8();
    const char* verdict = textcat_Classify(m_handle->classifier, utf8.constData(), utf8.size());
    if (verdict == nullptr) {
        return {};
    }
    // The verdict lists candidates best first, as "[ru--utf8][uk--utf8]"; "SHORT" and "UNKNOWN" name none.
    static const QRegularExpression firstCandidate(QStringLiteral("^\\[([a-z]{2})[-\\]]"));
    const QRegularExpressionMatch match = firstCandidate.match(QString::fromUtf8(verdict));
    return match.hasMatch() ? match.captured(1) : QString();
}
