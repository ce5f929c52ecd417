#pragma once

#include "text/CharacterMap.h"
#include "text/KeyboardInputSource.h"
#include "text/KeyboardLayoutFixResult.h"
#include "text/KeyboardLayoutSuggestion.h"

#include <QList>
#include <QString>
#include <optional>
#include <utility>

class InputSourceProvider;
struct MivoraSettings;

// Repairs text typed in the wrong keyboard layout (Latin against Cyrillic) and owns every dealing with the
// platform's input sources: listing, loose lookup by name, switching and suggestions. Conversion maps come
// from the real layouts where the platform can translate keys, and from fixed tables otherwise.
// GUI thread only.
class KeyboardLayoutService {
public:
    explicit KeyboardLayoutService(InputSourceProvider& provider);

    // Never fails: every gap on the platform road leads to the fixed tables.
    KeyboardLayoutFixResult fix(const QString& text, const MivoraSettings& settings);
    // Throws KeyboardLayoutError when no source matches or the platform refuses three times in a row.
    void switchLayout(const QString& name);
    // As switchLayout, but does nothing when the matching source is already active.
    void switchLayoutIfNeeded(const QString& name);
    KeyboardLayoutSuggestion suggestion() const;
    std::optional<QString> currentLayoutName() const;

private:
    struct CachedMaps {
        QString latinId;
        QString nativeId;
        CharacterMap latinToNative;
        CharacterMap nativeToLatin;
    };

    // The maps between the two layouts, from the cache or built anew; null when the platform cannot give
    // them. A failed build leaves the cache as it was.
    const CachedMaps* keyboardMaps(const KeyboardInputSource& latin, const KeyboardInputSource& native);
    QList<KeyboardInputSource> inputSources() const;
    static std::optional<KeyboardInputSource> findSource(const QString& name,
                                                         const QList<KeyboardInputSource>& sources);
    std::optional<CharacterMap> makeKeyboardMap(const KeyboardInputSource& from,
                                                const KeyboardInputSource& to) const;
    std::optional<QString> translatedCharacter(const KeyboardInputSource& layout, int keyCode,
                                               bool shift) const;
    static KeyboardLayoutFixResult convert(const QString& text, const CharacterMap& latinToNative,
                                           const CharacterMap& nativeToLatin, const QString& latinLayout,
                                           const QString& nativeLayout);
    static CharacterMap makeMap(QStringView from, QStringView to);
    static std::pair<CharacterMap, CharacterMap> fallbackPair(const QString& nativeLayout);

    InputSourceProvider& m_provider;
    std::optional<CachedMaps> m_cachedMaps;
};
