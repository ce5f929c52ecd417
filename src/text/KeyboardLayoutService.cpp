#include "text/KeyboardLayoutService.h"

#include "core/MivoraSettings.h"
#include "platform/InputSourceProvider.h"
#include "text/KeyboardLayoutError.h"

#include <initializer_list>

namespace {

const QString defaultLatinName = QStringLiteral("ABC");
const QString defaultNativeName = QStringLiteral("Русская — ПК");

// Key by key, the 34 keys from the one left of the digit 1 without Shift, then the same keys with Shift.
// The Ukrainian table's "'" under "`" and "/" under "~" are how that layout really behaves.
const QString latinTable =
    QStringLiteral("`qwertyuiop[]asdfghjkl;'zxcvbnm,./~QWERTYUIOP{}ASDFGHJKL:\"ZXCVBNM<>?");
const QString russianTable =
    QStringLiteral("ёйцукенгшщзхъфывапролджэячсмитьбю.ЁЙЦУКЕНГШЩЗХЪФЫВАПРОЛДЖЭЯЧСМИТЬБЮ,");
const QString ukrainianTable =
    QStringLiteral("'йцукенгшщзхїфівапролджєячсмитьбю./ЙЦУКЕНГШЩЗХЇФІВАПРОЛДЖЄЯЧСМИТЬБЮ,");

constexpr int keyCodeCount = 128;

QString normalizedName(const QString& name)
{
    return name.trimmed().toLower();
}

bool containsAny(const QString& haystack, std::initializer_list<QStringView> needles)
{
    for (const QStringView needle : needles) {
        if (haystack.contains(needle))
            return true;
    }
    return false;
}

std::optional<KeyboardInputSource> firstWhere(const QList<KeyboardInputSource>& sources, auto predicate)
{
    for (const KeyboardInputSource& source : sources) {
        if (predicate(source))
            return source;
    }
    return std::nullopt;
}

// Exactly one UTF-16 unit that is a character on its own; dead keys and multi-unit output do not qualify.
std::optional<QString> singleCharacter(const std::optional<QString>& output)
{
    if (!output || output->size() != 1 || output->front().isSurrogate())
        return std::nullopt;
    return output;
}

} // namespace

KeyboardLayoutService::KeyboardLayoutService(InputSourceProvider& provider) : m_provider(provider) {}

KeyboardLayoutFixResult KeyboardLayoutService::fix(const QString& text, const MivoraSettings& settings)
{
    const QString latinName =
        settings.layoutLatinSource.isEmpty() ? defaultLatinName : settings.layoutLatinSource;
    const QString nativeName =
        settings.layoutNativeSource.isEmpty() ? defaultNativeName : settings.layoutNativeSource;

    const QList<KeyboardInputSource> sources = inputSources();
    std::optional<KeyboardInputSource> latinSource = findSource(latinName, sources);
    if (!latinSource)
        latinSource = firstWhere(sources, [](const KeyboardInputSource& s) { return s.isLatin(); });
    std::optional<KeyboardInputSource> nativeSource = findSource(nativeName, sources);
    if (!nativeSource)
        nativeSource = firstWhere(sources, [](const KeyboardInputSource& s) { return !s.isLatin(); });

    if (latinSource && nativeSource) {
        if (const CachedMaps* maps = keyboardMaps(*latinSource, *nativeSource)) {
            KeyboardLayoutFixResult result = convert(text, maps->latinToNative, maps->nativeToLatin,
                                                     latinSource->name, nativeSource->name);
            if (result.text != text)
                return result;
        }
    }

    const auto [latinToNative, nativeToLatin] = fallbackPair(nativeName);
    return convert(text, latinToNative, nativeToLatin, latinName, nativeName);
}

void KeyboardLayoutService::switchLayout(const QString& name)
{
    const std::optional<KeyboardInputSource> source = findSource(name, inputSources());
    if (!source)
        throw KeyboardLayoutError::layoutNotFound(name);
    // The platform sometimes refuses a switch while it is still settling the previous one; asking again
    // straight away is enough.
    std::int32_t status = 0;
    for (int attempt = 0; attempt < 3; ++attempt) {
        status = m_provider.selectSource(source->ref);
        if (status == 0)
            return;
    }
    throw KeyboardLayoutError::switchFailed(name, status);
}

void KeyboardLayoutService::switchLayoutIfNeeded(const QString& name)
{
    const std::optional<KeyboardInputSource> source = findSource(name, inputSources());
    if (!source)
        throw KeyboardLayoutError::layoutNotFound(name);
    const std::optional<PlatformInputSource> current = m_provider.currentSource();
    if (current && current->id && *current->id == source->id)
        return;
    switchLayout(name);
}

KeyboardLayoutSuggestion KeyboardLayoutService::suggestion() const
{
    const QList<KeyboardInputSource> sources = inputSources();
    KeyboardLayoutSuggestion result;
    for (const KeyboardInputSource& source : sources)
        result.availableNames.append(source.name);
    const auto latin = firstWhere(sources, [](const KeyboardInputSource& s) { return s.isLatin(); });
    const auto native = firstWhere(sources, [](const KeyboardInputSource& s) { return !s.isLatin(); });
    result.latinName = latin ? latin->name : defaultLatinName;
    result.nativeName = native ? native->name : defaultNativeName;
    if (result.availableNames.isEmpty()) {
        result.availableNames = {defaultLatinName, QStringLiteral("U.S."), defaultNativeName,
                                 QStringLiteral("Russian")};
    }
    return result;
}

std::optional<QString> KeyboardLayoutService::currentLayoutName() const
{
    const std::optional<PlatformInputSource> current = m_provider.currentSource();
    if (!current)
        return std::nullopt;
    return current->name;
}

const KeyboardLayoutService::CachedMaps*
KeyboardLayoutService::keyboardMaps(const KeyboardInputSource& latin, const KeyboardInputSource& native)
{
    if (m_cachedMaps && m_cachedMaps->latinId == latin.id && m_cachedMaps->nativeId == native.id)
        return &*m_cachedMaps;
    std::optional<CharacterMap> latinToNative = makeKeyboardMap(latin, native);
    if (!latinToNative)
        return nullptr;
    std::optional<CharacterMap> nativeToLatin = makeKeyboardMap(native, latin);
    if (!nativeToLatin)
        return nullptr;
    m_cachedMaps = CachedMaps{latin.id, native.id, std::move(*latinToNative), std::move(*nativeToLatin)};
    return &*m_cachedMaps;
}

QList<KeyboardInputSource> KeyboardLayoutService::inputSources() const
{
    QList<KeyboardInputSource> result;
    for (const PlatformInputSource& source : m_provider.inputSources()) {
        if (!source.name || !source.id || !source.type)
            continue;
        if (*source.type != PlatformInputSource::Type::keyboardLayout &&
            *source.type != PlatformInputSource::Type::keyboardInputMode)
            continue;
        result.append(KeyboardInputSource{source.ref, *source.id, *source.name, source.hasKeyLayoutData});
    }
    return result;
}

std::optional<KeyboardInputSource>
KeyboardLayoutService::findSource(const QString& name, const QList<KeyboardInputSource>& sources)
{
    const QString target = normalizedName(name);
    // All four tests on one source before the next: an early source that merely contains the target wins
    // over a later exact match.
    auto direct = firstWhere(sources, [&target](const KeyboardInputSource& s) {
        const QString sourceName = normalizedName(s.name);
        const QString sourceId = normalizedName(s.id);
        return sourceName == target || sourceId == target || sourceName.contains(target) ||
               sourceId.contains(target);
    });
    if (direct)
        return direct;

    const auto nameAndIdContain = [&sources](std::initializer_list<QStringView> needles) {
        return firstWhere(sources, [needles](const KeyboardInputSource& s) {
            return containsAny(normalizedName(s.name + QLatin1Char(' ') + s.id), needles);
        });
    };
    // The first alias group whose test holds decides, even when it finds nothing.
    if (containsAny(target, {u"рус", u"russian", u"ru"}))
        return nameAndIdContain({u"рус", u"russian", u".ru", u"russian-pc"});
    if (containsAny(target, {u"укра", u"ukrain", u"ua"}))
        return nameAndIdContain({u"укра", u"ukrain", u".ua"});
    if (containsAny(target, {u"abc", u"latin", u"u.s", u"us"}))
        return firstWhere(sources, [](const KeyboardInputSource& s) { return s.isLatin(); });
    return std::nullopt;
}

std::optional<CharacterMap> KeyboardLayoutService::makeKeyboardMap(const KeyboardInputSource& from,
                                                                   const KeyboardInputSource& to) const
{
    if (!from.hasKeyLayoutData || !to.hasKeyLayoutData)
        return std::nullopt;
    CharacterMap map;
    for (int keyCode = 0; keyCode < keyCodeCount; ++keyCode) {
        for (const bool shift : {false, true}) {
            const std::optional<QString> fromCharacter = translatedCharacter(from, keyCode, shift);
            if (!fromCharacter)
                continue;
            const std::optional<QString> toCharacter = translatedCharacter(to, keyCode, shift);
            if (!toCharacter || *toCharacter == *fromCharacter)
                continue;
            map.insert(*fromCharacter, *toCharacter);
        }
    }
    if (map.isEmpty())
        return std::nullopt;
    return map;
}

std::optional<QString> KeyboardLayoutService::translatedCharacter(const KeyboardInputSource& layout,
                                                                  int keyCode, bool shift) const
{
    return singleCharacter(m_provider.translateKey(layout.ref, keyCode, shift));
}

KeyboardLayoutFixResult KeyboardLayoutService::convert(const QString& text, const CharacterMap& latinToNative,
                                                       const CharacterMap& nativeToLatin,
                                                       const QString& latinLayout,
                                                       const QString& nativeLayout)
{
    // One decision for the whole text, never per word; a character that is a key of both maps counts twice.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype latinHits = 0;
    qsizetype nativeHits = 0;
    forEachCharacter(text, finder, [&](QStringView character) {
        const CharacterMap::Key key(character);
        latinHits += latinToNative.find(key) ? 1 : 0;
        nativeHits += nativeToLatin.find(key) ? 1 : 0;
    });

    const bool toLatin = latinHits < nativeHits;
    const CharacterMap& map = toLatin ? nativeToLatin : latinToNative;
    QString converted;
    converted.reserve(text.size());
    forEachCharacter(text, finder, [&](QStringView character) {
        const QString* replacement = map.find(CharacterMap::Key(character));
        if (replacement)
            converted.append(*replacement);
        else if (character.size() == 1)
            converted.append(character.front());
        else
            converted.append(character);
    });
    return KeyboardLayoutFixResult{converted, toLatin, toLatin ? latinLayout : nativeLayout};
}

CharacterMap KeyboardLayoutService::makeMap(QStringView from, QStringView to)
{
    QList<QStringView> targets;
    forEachCharacter(to, [&targets](QStringView character) { targets.append(character); });
    CharacterMap map;
    qsizetype position = 0;
    forEachCharacter(from, [&](QStringView character) {
        map.insert(character, position < targets.size() ? targets[position] : character);
        ++position;
    });
    return map;
}

std::pair<CharacterMap, CharacterMap> KeyboardLayoutService::fallbackPair(const QString& nativeLayout)
{
    const QString name = normalizedName(nativeLayout);
    const QString& nativeTable = containsAny(name, {u"ukrain", u"укра"}) ? ukrainianTable : russianTable;
    return {makeMap(latinTable, nativeTable), makeMap(nativeTable, latinTable)};
}
