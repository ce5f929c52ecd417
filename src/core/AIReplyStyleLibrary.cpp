#include "core/AIReplyStyleLibrary.h"

// Placeholder; filled in by the catalogue and settings-store work.
const QList<AIReplyStyle>& AIReplyStyleLibrary::builtInStyles()
{
    static const QList<AIReplyStyle> styles;
    return styles;
}
