#include "core/MivoraPromptLibrary.h"

// Placeholder; filled in by the catalogue and settings-store work.
const QList<PromptStyle>& MivoraPromptLibrary::builtInStyles()
{
    static const QList<PromptStyle> styles;
    return styles;
}
const QSet<QString>& MivoraPromptLibrary::builtInStyleIds()
{
    static const QSet<QString> ids;
    return ids;
}
