#include "core/MivoraPromptLibrary.h"

#include "core/StyleReconciliation.h"

#include <QHash>

namespace {

PromptStyle builtIn(const char* id, const char* name, const char* hotkey, const char* prompt)
{
    return PromptStyle{QString::fromUtf8(id), QString::fromUtf8(name), QString::fromUtf8(prompt),
                       QString::fromUtf8(hotkey), true};
}

// Opening words of the prompts that earlier versions shipped. A saved built-in that still starts this way was
// never edited by the user, so it takes the current wording.
const QHash<QString, QString>& oldPromptMarkers()
{
    static const QHash<QString, QString> markers{
        {QStringLiteral("original"), QStringLiteral("Correct only clear mistakes")},
        {QStringLiteral("friendly"), QStringLiteral("Rewrite clearly in a warm, friendly")},
        {QStringLiteral("emoji"), QStringLiteral("Add context-appropriate emojis to the text")},
        {QStringLiteral("polite"), QStringLiteral("Rewrite clearly in a polite")},
        {QStringLiteral("professional"), QStringLiteral("Rewrite clearly in a professional business")},
        {QStringLiteral("short"), QStringLiteral("Rewrite briefly and clearly")},
        {QStringLiteral("detailed"), QStringLiteral("Rewrite clearly with useful detail")},
        {QStringLiteral("humor"), QStringLiteral("Rewrite clearly with light appropriate humor")},
        {QStringLiteral("flirt"), QStringLiteral("Rewrite clearly in a playful flirty")},
        {QStringLiteral("romantic"), QStringLiteral("Rewrite clearly in a warm romantic")},
        {QStringLiteral("sexy"), QStringLiteral("Rewrite clearly in a sensual confident")},
        {QStringLiteral("formal"), QStringLiteral("Rewrite clearly in a formal respectful")},
        {QStringLiteral("casual"), QStringLiteral("Rewrite clearly in a simple, relaxed")},
        {QStringLiteral("support"), QStringLiteral("Rewrite clearly in a supportive calm")},
        {QStringLiteral("expert"), QStringLiteral("Rewrite clearly like an expert")},
        {QStringLiteral("social"), QStringLiteral("Rewrite clearly for social media")},
    };
    return markers;
}

bool startsWithAny(const QString& text, std::initializer_list<const char*> prefixes)
{
    for (const char* prefix : prefixes) {
        if (text.startsWith(QLatin1String(prefix))) {
            return true;
        }
    }
    return false;
}

bool isOutdatedPrompt(const QString& id, const QString& prompt)
{
    const auto marker = oldPromptMarkers().constFind(id);
    if (marker != oldPromptMarkers().cend() && prompt.startsWith(*marker)) {
        return true;
    }
    // The fix and emoji prompts went through more wordings than the markers record.
    if (id == u"original") {
        return startsWithAny(prompt,
                             {"Strictly proofread", "Correct only clear mistakes",
                              "Proofread only. Fix clear", "Fix only obvious typos", "Fix obvious typos"});
    }
    if (id == u"emoji") {
        return startsWithAny(prompt, {"Add context-appropriate emojis", "Insert only fitting emojis into"}) ||
               prompt.contains(QLatin1String("Add fitting emojis")) ||
               prompt.contains(QLatin1String("Add appropriate emojis"));
    }
    return false;
}

PromptStyle mergeBuiltIn(const PromptStyle& builtIn, const PromptStyle& saved)
{
    using StyleReconciliation::nonEmptyOr;
    PromptStyle merged;
    merged.id = builtIn.id;
    // An outdated prompt takes the catalogue's name along with it: the old name belonged to the old wording.
    if (isOutdatedPrompt(builtIn.id, saved.prompt)) {
        merged.name = builtIn.name;
        merged.prompt = builtIn.prompt;
    } else {
        merged.name = nonEmptyOr(saved.name, builtIn.name);
        merged.prompt = nonEmptyOr(saved.prompt, builtIn.prompt);
    }
    // The emoji chord is pinned: older versions let it drift onto keys that other actions now own.
    merged.hotkey = builtIn.id == u"emoji" ? builtIn.hotkey : nonEmptyOr(saved.hotkey, builtIn.hotkey);
    merged.autoReplace = saved.autoReplace;
    return merged;
}

} // namespace

const QList<PromptStyle>& MivoraPromptLibrary::builtInStyles()
{
    static const QList<PromptStyle> styles{
        builtIn(
            "original", "Fix", "Alt+1",
            "You are Mivora Proofreader.\n\nCorrect only spelling, grammar, punctuation, capitalization, and "
            "spacing.\n\nDo not change meaning, context, word order, style, tone, slang, profanity, emojis, "
            "links, names, numbers, or formatting.\n\nReturn only the corrected text."),
        builtIn(
            "friendly", "Дружелюбно", "Alt+2",
            "Do a real friendly rewrite, not proofreading. Fix mistakes, keep the meaning, change wording "
            "noticeably, add warmth and 2-4 fitting emojis."),
        builtIn(
            "emoji", "Смайлики", "Alt+E",
            "You are Mivora Proofreader.\n\nCorrect only spelling, grammar, punctuation, capitalization, and "
            "spacing.\n\nDo not change meaning, context, word order, style, tone, slang, profanity, emojis, "
            "links, names, numbers, or formatting.\n\nYou must add at least one relevant emoji based on the "
            "context and meaning of the text.\n\nReturn only the corrected text."),
        builtIn("polite", "Polite", "Alt+3",
                "Do a real polite rewrite, not proofreading. Fix mistakes, keep the meaning, make it softer, "
                "respectful, and clearly reworded. Add 1-2 subtle emojis if suitable."),
        builtIn("professional", "Профессионально", "Alt+4",
                "Do a real professional rewrite, not proofreading. Fix mistakes, keep the meaning, make it "
                "polished, "
                "confident, concise, and respectful. No emojis."),
        builtIn("short", "Кратко", "Not assigned",
                "Rewrite much shorter and clearer. Fix mistakes, keep the core meaning, remove filler, "
                "repetition, "
                "and weak wording. No emojis."),
        builtIn("detailed", "Подробно", "Not assigned",
                "Expand into a clearer fuller message. Fix mistakes, keep the meaning, add helpful natural "
                "detail "
                "without inventing facts."),
        builtIn("humor", "С юмором", "Not assigned",
                "Do a real humorous rewrite, not proofreading. Fix mistakes, keep the meaning, make it "
                "light, witty, "
                "natural, and playful."),
        builtIn(
            "flirt", "Флирт", "Not assigned",
            "Do a real flirty rewrite, not proofreading. Fix mistakes, keep the meaning, make it playful, "
            "charming, warm, and a little teasing. Not explicit."),
        builtIn(
            "romantic", "Романтично", "Not assigned",
            "Do a real romantic rewrite, not proofreading. Fix mistakes, keep the meaning, make it tender, "
            "affectionate, emotionally warm, and natural."),
        builtIn(
            "sexy", "Сексуально", "Not assigned",
            "Do a real sensual rewrite, not proofreading. Fix mistakes, keep the meaning, make it confident, "
            "attractive, suggestive, and tasteful. Do not be explicit."),
        builtIn(
            "formal", "Официально", "Not assigned",
            "Do a real formal rewrite, not proofreading. Fix mistakes, keep the meaning, make it official, "
            "precise, respectful, and polished."),
        builtIn(
            "casual", "Неформально", "Alt+5",
            "Do a real casual rewrite, not proofreading. Fix mistakes, keep the meaning, make it relaxed, "
            "simple, conversational, and easy to send. Add emojis only if suitable."),
        builtIn(
            "support", "Поддержка", "Not assigned",
            "Do a real supportive rewrite, not proofreading. Fix mistakes, keep the meaning, make it calm, "
            "empathetic, reassuring, and human."),
        builtIn(
            "expert", "Эксперт", "Not assigned",
            "Do a real expert rewrite, not proofreading. Fix mistakes, keep the meaning, make it confident, "
            "precise, structured, and authoritative."),
        builtIn("social", "Social Media", "Alt+6",
                "Do a real social media rewrite, not proofreading. Fix mistakes, keep the meaning, make it "
                "catchy, "
                "emotional, modern, and engaging. Add 4-8 suitable emojis."),
        builtIn(
            "translate", "Перевод", "Alt+T",
            "Переведи текст на выбранный язык. Сохрани смысл, тон и форматирование. Верни только перевод."),
    };
    return styles;
}

const QSet<QString>& MivoraPromptLibrary::builtInStyleIds()
{
    static const QSet<QString> ids = StyleReconciliation::idsOf(builtInStyles());
    return ids;
}

QList<PromptStyle> MivoraPromptLibrary::mergeSavedStyles(const QList<PromptStyle>& saved)
{
    return StyleReconciliation::reconcile(saved, builtInStyles(), builtInStyleIds(), mergeBuiltIn);
}

std::optional<PromptStyle> MivoraPromptLibrary::style(const QString& id, const QList<PromptStyle>& styles)
{
    for (const QList<PromptStyle>* list : {&styles, &builtInStyles()}) {
        for (const PromptStyle& candidate : *list) {
            if (candidate.id == id) {
                return candidate;
            }
        }
    }
    return std::nullopt;
}

BackendAction MivoraPromptLibrary::backendAction(const QuickAction& action, const PromptStyle& style)
{
    if (action.styleId() == u"translate" || style.id == u"translate") {
        return BackendAction::translate;
    }
    if (style.id == u"emoji") {
        return BackendAction::emoji;
    }
    if (style.id == u"original") {
        return BackendAction::fix;
    }
    return BackendAction::improve;
}
