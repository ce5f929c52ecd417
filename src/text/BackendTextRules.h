#pragma once

#include "core/AIReplyStyle.h"
#include "core/PromptStyle.h"

#include <QString>
#include <QStringList>

// Text rules of the AI backend client. Lengths and offsets count user-perceived characters.

// Cuts text into pieces of at most maxChars characters, preferring paragraph, line and sentence breaks.
// A text within the limit comes back alone and untouched; the pieces are trimmed and never empty.
QStringList splitTextForBackend(const QString& text, int maxChars);

// The form in which a translation is compared with its source to see whether anything was translated.
QString normalizeTranslationCompare(const QString& text);

// The backend's style word for a rewrite style; a custom style goes by its trimmed name.
QString serverWritingStyle(const PromptStyle& style);

// The instruction sent with a reply: empty for a built-in style whose prompt the user left alone.
QString replyUserInstruction(const AIReplyStyle& style);

// Lower-case words separated by single blanks, punctuation dropped.
QString plainForReplyCompare(const QString& text);

// Whether a chat reply merely echoes the message or the instructions instead of answering. A message with
// an empty plain form (only emoji or punctuation) is never echoed: only the rules on the reply alone apply.
bool looksLikeBadReply(const QString& reply, const QString& source);
