#include "core/QuickAction.h"

#include "core/MivoraPromptLibrary.h"

namespace {
const QString stylePrefix = QStringLiteral("style:");
} // namespace

QString QuickAction::normalize(const QString& raw)
{
    QString text = raw.trimmed();
    if (text.startsWith(stylePrefix)) {
        return text;
    }
    if (text == u"ai" || text == u"translate" || text == u"clipboard" || text == u"layout") {
        return text;
    }
    if (text == u"fix" || text == u"original") {
        return QStringLiteral("style:original");
    }
    if (MivoraPromptLibrary::builtInStyleIds().contains(text)) {
        return stylePrefix + text;
    }
    return text;
}

QStringList QuickAction::defaultActionIds()
{
    static const QStringList ids = [] {
        const QStringList raw{
            QStringLiteral("ai"),
            QStringLiteral("translate"),
            QStringLiteral("style:original"),
            QStringLiteral("style:friendly"),
            QStringLiteral("style:emoji"),
            QStringLiteral("style:polite"),
            QStringLiteral("style:professional"),
            QStringLiteral("style:short"),
            QStringLiteral("style:detailed"),
            QStringLiteral("style:humor"),
            QStringLiteral("style:flirt"),
            QStringLiteral("style:romantic"),
            QStringLiteral("style:sexy"),
            QStringLiteral("style:formal"),
            QStringLiteral("style:casual"),
            QStringLiteral("style:support"),
            QStringLiteral("style:expert"),
            QStringLiteral("style:social"),
            QStringLiteral("clipboard"),
            QStringLiteral("layout"),
        };
        QStringList normal;
        for (const auto& id : raw) {
            normal.append(normalize(id));
        }
        return normal;
    }();
    return ids;
}

const QList<QuickAction>& QuickAction::defaultActions()
{
    static const QList<QuickAction> actions = [] {
        QList<QuickAction> list;
        for (const auto& id : defaultActionIds()) {
            list.append(QuickAction(id));
        }
        return list;
    }();
    return actions;
}

std::optional<QString> QuickAction::styleId() const
{
    if (id == u"translate") {
        return id;
    }
    if (id.startsWith(stylePrefix)) {
        return id.mid(stylePrefix.size());
    }
    return std::nullopt;
}

QString QuickAction::title() const
{
    if (id == u"ai") {
        return QStringLiteral("AI помощник");
    }
    if (id == u"translate") {
        return QStringLiteral("Перевод");
    }
    if (id == u"clipboard") {
        return QStringLiteral("Буфер");
    }
    if (id == u"layout") {
        return QStringLiteral("Раскладка");
    }
    if (const auto style = styleId()) {
        if (*style == u"original") {
            return QStringLiteral("Исправить");
        }
        for (const auto& builtIn : MivoraPromptLibrary::builtInStyles()) {
            if (builtIn.id == *style) {
                return builtIn.name;
            }
        }
    }
    return QStringLiteral("Действие");
}

QString QuickAction::symbolName() const
{
    static const QHash<QString, QString> symbols{
        {QStringLiteral("ai"), QStringLiteral("bubble.left.and.bubble.right")},
        {QStringLiteral("casual"), QStringLiteral("bubble.left.and.bubble.right")},
        {QStringLiteral("translate"), QStringLiteral("translate")},
        {QStringLiteral("original"), QStringLiteral("wand.and.sparkles")},
        {QStringLiteral("friendly"), QStringLiteral("face.smiling")},
        {QStringLiteral("professional"), QStringLiteral("briefcase")},
        {QStringLiteral("short"), QStringLiteral("bolt")},
        {QStringLiteral("detailed"), QStringLiteral("text.document")},
        {QStringLiteral("humor"), QStringLiteral("theatermasks")},
        {QStringLiteral("flirt"), QStringLiteral("heart.circle")},
        {QStringLiteral("romantic"), QStringLiteral("heart")},
        {QStringLiteral("sexy"), QStringLiteral("flame")},
        {QStringLiteral("formal"), QStringLiteral("building.columns")},
        {QStringLiteral("support"), QStringLiteral("hands.sparkles")},
        {QStringLiteral("expert"), QStringLiteral("graduationcap")},
        {QStringLiteral("social"), QStringLiteral("megaphone")},
        {QStringLiteral("clipboard"), QStringLiteral("clipboard")},
        {QStringLiteral("layout"), QStringLiteral("keyboard")},
    };
    // The style id decides first, so "style:translate" and "translate" share an icon.
    const QString key = styleId().value_or(id);
    return symbols.value(key, QStringLiteral("sparkles"));
}
