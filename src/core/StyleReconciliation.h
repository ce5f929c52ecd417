#pragma once

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QtGlobal>

// The skeleton shared by both style families: every built-in comes out once, in catalogue order, merged with
// its saved counterpart if there is one; the user's own styles follow in saved order.
namespace StyleReconciliation {

inline const QString& nonEmptyOr(const QString& value, const QString& fallback)
{
    return value.isEmpty() ? fallback : value;
}

// merge: (const Style& builtIn, const Style& saved) -> Style.
template <typename Style, typename Merge>
QList<Style> reconcile(const QList<Style>& saved, const QList<Style>& builtIns,
                       const QSet<QString>& builtInIds, Merge merge)
{
    QHash<QString, const Style*> savedById;
    savedById.reserve(saved.size());
    for (const Style& style : saved) {
        // Two saved styles with one id can only come from a bug in whoever wrote the list; going on would
        // silently drop one of them on the next save.
        if (savedById.contains(style.id)) {
            qFatal("Duplicate values for key: '%s'", qUtf8Printable(style.id));
        }
        savedById.insert(style.id, &style);
    }

    QList<Style> result;
    result.reserve(builtIns.size() + saved.size());
    for (const Style& builtIn : builtIns) {
        const Style* match = savedById.value(builtIn.id);
        result.append(match ? merge(builtIn, *match) : builtIn);
    }
    for (const Style& style : saved) {
        if (!builtInIds.contains(style.id)) {
            result.append(style);
        }
    }
    return result;
}

template <typename Style> QSet<QString> idsOf(const QList<Style>& styles)
{
    QSet<QString> ids;
    for (const Style& style : styles) {
        ids.insert(style.id);
    }
    return ids;
}

} // namespace StyleReconciliation
