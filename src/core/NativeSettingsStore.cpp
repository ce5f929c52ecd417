#include "core/NativeSettingsStore.h"

#include "core/JsonCoding.h"
#include "core/LanguageList.h"

#include <QJsonObject>
#include <algorithm>
#include <cmath>

namespace {

namespace Key {
const QString theme = QStringLiteral("mivora.theme");
const QString surfaceMode = QStringLiteral("mivora.surfaceMode");
const QString menuScale = QStringLiteral("mivora.menuScale");
const QString targetLanguage = QStringLiteral("mivora.targetLanguage");
const QString translatePreviewTargetLanguage = QStringLiteral("mivora.translationPreviewTargetLanguage");
const QString uiLanguage = QStringLiteral("mivora.uiLanguage");
const QString selectedStyleId = QStringLiteral("mivora.selectedStyleId");
const QString promptStyles = QStringLiteral("mivora.promptStyles");
const QString aiReplyStyles = QStringLiteral("mivora.aiReplyStyles");
const QString quickMenuHotkey = QStringLiteral("mivora.quickMenuHotkey");
const QString assistantHotkey = QStringLiteral("mivora.assistantHotkey");
const QString clipboardHotkey = QStringLiteral("mivora.clipboardHotkey");
const QString layoutHotkey = QStringLiteral("mivora.layoutHotkey");
const QString translatePreviewHotkey = QStringLiteral("mivora.translatePreviewHotkey");
const QString layoutLatinSource = QStringLiteral("mivora.layoutLatinSource");
const QString layoutNativeSource = QStringLiteral("mivora.layoutNativeSource");
const QString layoutAutoSwitch = QStringLiteral("mivora.layoutAutoSwitch");
const QString appLayoutSwitchingEnabled = QStringLiteral("mivora.appLayoutSwitching.enabled");
const QString appLayoutRules = QStringLiteral("mivora.appLayoutSwitching.rules");
const QString windowTilingEnabled = QStringLiteral("mivora.windowTiling.enabled");
const QString windowTilingHotkeys = QStringLiteral("mivora.windowTiling.hotkeys");
const QString autoQuickMenuEnabled = QStringLiteral("mivora.autoQuickMenuEnabled");
const QString floatingButtonVisible = QStringLiteral("mivora.quickMenu.floatingButtonVisible");
const QString quickMenuSize = QStringLiteral("mivora.quickMenu.size");
const QString quickMenuOpenMode = QStringLiteral("mivora.quickMenu.openMode");
const QString quickMenuActions = QStringLiteral("mivora.quickMenu.actions");
const QString quickMenuOrder = QStringLiteral("mivora.quickMenu.order");
const QString clipboardHistoryEnabled = QStringLiteral("mivora.clipboardHistory.enabled");
const QString clipboardLimit = QStringLiteral("mivora.clipboardLimit");
const QString clipboardDays = QStringLiteral("mivora.clipboardDays");
const QString openMainWindowOnLaunch = QStringLiteral("mivora.openMainWindowOnLaunch");
const QString menuBarIconVisible = QStringLiteral("mivora.menuBarIconVisible");
const QString closeToMenuBar = QStringLiteral("mivora.closeToMenuBar");
const QString autoSelectAllBeforeAction = QStringLiteral("mivora.autoSelectAllBeforeAction");
const QString aiContextEnabled = QStringLiteral("mivora.aiContextEnabled");
const QString updateNotificationsEnabled = QStringLiteral("mivora.updates.notificationsEnabled");
const QString automaticUpdateChecksEnabled = QStringLiteral("mivora.updates.automaticChecksEnabled");
} // namespace Key

// Backing stores differ in what they hand back: an in-memory or native store keeps typed values, a text
// store returns "true" or "100". These readings accept both, the way the platform defaults store reads them.

bool isText(const QVariant& value)
{
    return value.typeId() == QMetaType::QString;
}

bool isData(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray;
}

// Leading blanks, a sign and zeros are skipped; then Y, y, T, t or a digit 1-9 means true.
bool boolFromText(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && text.at(i).isSpace()) {
        ++i;
    }
    if (i < text.size() && (text.at(i) == u'+' || text.at(i) == u'-')) {
        ++i;
    }
    while (i < text.size() && text.at(i) == u'0') {
        ++i;
    }
    if (i == text.size()) {
        return false;
    }
    const QChar c = text.at(i);
    return c == u'Y' || c == u'y' || c == u'T' || c == u't' || (c >= u'1' && c <= u'9');
}

qint64 integerReading(const QVariant& value)
{
    bool ok = false;
    if (isText(value)) {
        const QString text = value.toString().trimmed();
        const qint64 whole = text.toLongLong(&ok);
        if (ok) {
            return whole;
        }
        // "nan" parses as a number but has no integer value; it reads as unreadable text does.
        const double real = text.toDouble(&ok);
        return ok && !std::isnan(real) ? static_cast<qint64>(std::clamp(real, -9.0e18, 9.0e18)) : 0;
    }
    const qint64 number = value.toLongLong(&ok);
    return ok ? number : 0;
}

class Reader {
public:
    explicit Reader(const DefaultsStore& defaults) : m_defaults(defaults) {}

    QString string(const QString& key, const QString& fallback) const
    {
        const QVariant value = m_defaults.value(key);
        if (!value.isValid() || isData(value) || !value.canConvert<QString>()) {
            return fallback;
        }
        const QString text = value.toString();
        return text.isEmpty() ? fallback : text;
    }

    bool boolean(const QString& key, bool fallback) const
    {
        if (!m_defaults.contains(key)) {
            return fallback;
        }
        const QVariant value = m_defaults.value(key);
        if (isText(value)) {
            return boolFromText(value.toString());
        }
        return value.toDouble() != 0.0;
    }

    int integer(const QString& key, int fallback, int lowest, int highest) const
    {
        if (!m_defaults.contains(key)) {
            return fallback;
        }
        return static_cast<int>(std::clamp<qint64>(integerReading(m_defaults.value(key)), lowest, highest));
    }

    template <typename E> E enumeration(const QString& key, E fallback) const
    {
        return enumFromRaw<E>(string(key, rawValue(fallback))).value_or(fallback);
    }

    // Only one case other than the default is honoured; any other word means the default.
    template <typename E> E eitherOr(const QString& key, E fallback, E other) const
    {
        return string(key, rawValue(fallback)) == rawValue(other) ? other : fallback;
    }

    QString language(const QString& key) const
    {
        const QString english = QStringLiteral("English");
        const QString name = string(key, english);
        return LanguageList::contains(name) ? name : english;
    }

    // "Auto" meant "detect the source" in older versions; detection is gone, so it maps to the fallback.
    QString inputSource(const QString& key, const QString& fallback) const
    {
        const QString name = string(key, fallback);
        return name == u"Auto" ? fallback : name;
    }

    // The JSON of a list: a data blob, or in older versions the same JSON stored as text.
    std::optional<QByteArray> jsonList(const QString& key) const
    {
        const QVariant value = m_defaults.value(key);
        if (isData(value)) {
            return value.toByteArray();
        }
        if (isText(value)) {
            return value.toString().toUtf8();
        }
        return std::nullopt;
    }

    std::optional<QByteArray> data(const QString& key) const
    {
        const QVariant value = m_defaults.value(key);
        return isData(value) ? std::optional(value.toByteArray()) : std::nullopt;
    }

    // A non-empty decoded list, else nothing: an empty or undecodable list counts as missing.
    template <typename T, typename Decoder>
    std::optional<QList<T>> nonEmptyList(const QString& key, Decoder decodeElement) const
    {
        const auto json = jsonList(key);
        if (!json) {
            return std::nullopt;
        }
        auto list = JsonCoding::decodeArray<T>(*json, decodeElement);
        if (!list || list->isEmpty()) {
            return std::nullopt;
        }
        return list;
    }

    QStringList stringArray(const QString& key, const QStringList& fallback) const
    {
        const auto decodeString = [](const QJsonValue& element) -> std::optional<QString> {
            return element.isString() ? std::optional(element.toString()) : std::nullopt;
        };
        return nonEmptyList<QString>(key, decodeString).value_or(fallback);
    }

    QList<PromptStyle> promptStyles() const
    {
        const auto saved = nonEmptyList<PromptStyle>(Key::promptStyles, PromptStyle::fromJson);
        return saved ? MivoraPromptLibrary::mergeSavedStyles(*saved) : MivoraPromptLibrary::builtInStyles();
    }

    QList<AIReplyStyle> aiReplyStyles() const
    {
        const auto saved = nonEmptyList<AIReplyStyle>(Key::aiReplyStyles, AIReplyStyle::fromJson);
        return saved ? AIReplyStyleLibrary::restoredStyles(*saved) : AIReplyStyleLibrary::builtInStyles();
    }

    QList<AppLayoutRule> appLayoutRules() const
    {
        const auto json = data(Key::appLayoutRules);
        return json ? AppLayoutRule::decodeList(*json).value_or(QList<AppLayoutRule>{})
                    : QList<AppLayoutRule>{};
    }

    WindowTilingHotkeyMap windowTilingHotkeys() const
    {
        WindowTilingHotkeyMap hotkeys = WindowTilingHotkeys::defaults();
        if (const auto saved = decodeStringMap(data(Key::windowTilingHotkeys))) {
            for (auto it = saved->cbegin(); it != saved->cend(); ++it) {
                hotkeys.insert(it.key(), it.value());
            }
        }
        // These two chords moved to swapLeft and swapRight; a half bound to them would shadow the swap.
        migrateChord(hotkeys, QStringLiteral("leftHalf"), QStringLiteral("Control+Alt+Left"));
        migrateChord(hotkeys, QStringLiteral("rightHalf"), QStringLiteral("Control+Alt+Right"));
        return hotkeys;
    }

    QStringList quickMenuList(const QString& key) const
    {
        return restoredQuickMenuList(stringArray(key, QuickAction::defaultActionIds()));
    }

private:
    static std::optional<WindowTilingHotkeyMap> decodeStringMap(const std::optional<QByteArray>& json)
    {
        if (!json) {
            return std::nullopt;
        }
        QJsonParseError error{};
        const QJsonDocument document = QJsonDocument::fromJson(*json, &error);
        if (error.error != QJsonParseError::NoError || !document.isObject()) {
            return std::nullopt;
        }
        const QJsonObject object = document.object();
        WindowTilingHotkeyMap map;
        for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
            if (!it.value().isString()) {
                return std::nullopt;
            }
            map.insert(it.key(), it.value().toString());
        }
        return map;
    }

    static void migrateChord(WindowTilingHotkeyMap& hotkeys, const QString& id, const QString& oldChord)
    {
        if (hotkeys.value(id) == oldChord) {
            hotkeys.insert(id, WindowTilingHotkeys::defaults().value(id));
        }
    }

    // Old ids are brought to their normal form, and lists from before the emoji style get it before "polite".
    // Unknown ids and duplicates stay: the quick menu skips what it can't run.
    static QStringList restoredQuickMenuList(const QStringList& list)
    {
        QStringList ids;
        ids.reserve(list.size() + 1);
        for (const QString& id : list) {
            ids.append(QuickAction::normalize(id));
        }
        const QString emoji = QStringLiteral("style:emoji");
        if (!ids.contains(emoji)) {
            const qsizetype polite = ids.indexOf(QStringLiteral("style:polite"));
            ids.insert(polite < 0 ? ids.size() : polite, emoji);
        }
        return ids;
    }

    const DefaultsStore& m_defaults;
};

QByteArray encodeStringMap(const WindowTilingHotkeyMap& map)
{
    QJsonObject object;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        object.insert(it.key(), it.value());
    }
    return JsonCoding::compact(object);
}

} // namespace

MivoraSettings NativeSettingsStore::load() const
{
    const Reader read(m_defaults);
    MivoraSettings s;
    s.appearanceMode = read.enumeration(Key::theme, AppearanceMode::system);
    s.surfaceMode = read.eitherOr(Key::surfaceMode, SurfaceMode::translucent, SurfaceMode::solid);
    s.menuScale = read.enumeration(Key::menuScale, MenuScale::tiny);
    s.targetLanguage = read.language(Key::targetLanguage);
    s.translatePreviewTargetLanguage = read.language(Key::translatePreviewTargetLanguage);
    s.uiLanguage = read.eitherOr(Key::uiLanguage, UiLanguage::en, UiLanguage::ru);
    s.selectedStyleId = read.string(Key::selectedStyleId, s.selectedStyleId);
    s.promptStyles = read.promptStyles();
    s.aiReplyStyles = read.aiReplyStyles();
    s.quickMenuHotkey = read.string(Key::quickMenuHotkey, s.quickMenuHotkey);
    s.assistantHotkey = read.string(Key::assistantHotkey, s.assistantHotkey);
    s.clipboardHotkey = read.string(Key::clipboardHotkey, s.clipboardHotkey);
    s.layoutHotkey = read.string(Key::layoutHotkey, s.layoutHotkey);
    s.translatePreviewHotkey = read.string(Key::translatePreviewHotkey, s.translatePreviewHotkey);
    s.layoutLatinSource = read.inputSource(Key::layoutLatinSource, s.layoutLatinSource);
    s.layoutNativeSource = read.inputSource(Key::layoutNativeSource, s.layoutNativeSource);
    s.layoutAutoSwitch = read.boolean(Key::layoutAutoSwitch, s.layoutAutoSwitch);
    s.appLayoutSwitchingEnabled = read.boolean(Key::appLayoutSwitchingEnabled, s.appLayoutSwitchingEnabled);
    s.appLayoutRules = read.appLayoutRules();
    s.windowTilingEnabled = read.boolean(Key::windowTilingEnabled, s.windowTilingEnabled);
    s.windowTilingHotkeys = read.windowTilingHotkeys();
    // Both features are retired; whatever an older version stored is ignored.
    s.autoQuickMenuEnabled = false;
    s.floatingButtonVisible = false;
    s.quickMenuSize = read.enumeration(Key::quickMenuSize, MenuScale::tiny);
    s.quickMenuOpenMode =
        read.eitherOr(Key::quickMenuOpenMode, QuickMenuOpenMode::input, QuickMenuOpenMode::button);
    s.quickMenuActions = read.quickMenuList(Key::quickMenuActions);
    s.quickMenuOrder = read.quickMenuList(Key::quickMenuOrder);
    s.clipboardHistoryEnabled = read.boolean(Key::clipboardHistoryEnabled, s.clipboardHistoryEnabled);
    s.clipboardLimit = read.integer(Key::clipboardLimit, s.clipboardLimit, 1, 1000);
    s.clipboardDays = read.string(Key::clipboardDays, s.clipboardDays);
    s.openMainWindowOnLaunch = read.boolean(Key::openMainWindowOnLaunch, s.openMainWindowOnLaunch);
    s.menuBarIconVisible = read.boolean(Key::menuBarIconVisible, s.menuBarIconVisible);
    s.closeToMenuBar = read.boolean(Key::closeToMenuBar, s.closeToMenuBar);
    s.autoSelectAllBeforeAction = read.boolean(Key::autoSelectAllBeforeAction, s.autoSelectAllBeforeAction);
    s.aiContextEnabled = read.boolean(Key::aiContextEnabled, s.aiContextEnabled);
    s.updateNotificationsEnabled =
        read.boolean(Key::updateNotificationsEnabled, s.updateNotificationsEnabled);
    s.automaticUpdateChecksEnabled =
        read.boolean(Key::automaticUpdateChecksEnabled, s.automaticUpdateChecksEnabled);
    return s;
}

void NativeSettingsStore::save(const MivoraSettings& s)
{
    const auto setJSON = [this](const QString& key, const QByteArray& json) {
        m_defaults.setValue(key, json);
    };
    const auto stringList = [](const QStringList& list) {
        return JsonCoding::encodeArray(list, [](const QString& id) { return QJsonValue(id); });
    };

    m_defaults.setValue(Key::theme, rawValue(s.appearanceMode));
    m_defaults.setValue(Key::surfaceMode, rawValue(s.surfaceMode));
    m_defaults.setValue(Key::menuScale, rawValue(s.menuScale));
    m_defaults.setValue(Key::targetLanguage, s.targetLanguage);
    m_defaults.setValue(Key::translatePreviewTargetLanguage, s.translatePreviewTargetLanguage);
    m_defaults.setValue(Key::uiLanguage, rawValue(s.uiLanguage));
    m_defaults.setValue(Key::selectedStyleId, s.selectedStyleId);
    setJSON(Key::promptStyles, JsonCoding::encodeArray(s.promptStyles, &PromptStyle::toJson));
    setJSON(Key::aiReplyStyles, JsonCoding::encodeArray(s.aiReplyStyles, &AIReplyStyle::toJson));
    m_defaults.setValue(Key::quickMenuHotkey, s.quickMenuHotkey);
    m_defaults.setValue(Key::assistantHotkey, s.assistantHotkey);
    m_defaults.setValue(Key::clipboardHotkey, s.clipboardHotkey);
    m_defaults.setValue(Key::layoutHotkey, s.layoutHotkey);
    m_defaults.setValue(Key::translatePreviewHotkey, s.translatePreviewHotkey);
    m_defaults.setValue(Key::layoutLatinSource, s.layoutLatinSource);
    m_defaults.setValue(Key::layoutNativeSource, s.layoutNativeSource);
    m_defaults.setValue(Key::layoutAutoSwitch, s.layoutAutoSwitch);
    m_defaults.setValue(Key::appLayoutSwitchingEnabled, s.appLayoutSwitchingEnabled);
    setJSON(Key::appLayoutRules, AppLayoutRule::encodeList(s.appLayoutRules));
    m_defaults.setValue(Key::windowTilingEnabled, s.windowTilingEnabled);
    setJSON(Key::windowTilingHotkeys, encodeStringMap(s.windowTilingHotkeys));
    m_defaults.setValue(Key::autoQuickMenuEnabled, false);
    m_defaults.setValue(Key::floatingButtonVisible, false);
    m_defaults.setValue(Key::quickMenuSize, rawValue(s.quickMenuSize));
    m_defaults.setValue(Key::quickMenuOpenMode, rawValue(s.quickMenuOpenMode));
    setJSON(Key::quickMenuActions, stringList(s.quickMenuActions));
    setJSON(Key::quickMenuOrder, stringList(s.quickMenuOrder));
    m_defaults.setValue(Key::clipboardHistoryEnabled, s.clipboardHistoryEnabled);
    m_defaults.setValue(Key::clipboardLimit, s.clipboardLimit);
    m_defaults.setValue(Key::clipboardDays, s.clipboardDays);
    m_defaults.setValue(Key::openMainWindowOnLaunch, s.openMainWindowOnLaunch);
    m_defaults.setValue(Key::menuBarIconVisible, s.menuBarIconVisible);
    m_defaults.setValue(Key::closeToMenuBar, s.closeToMenuBar);
    m_defaults.setValue(Key::autoSelectAllBeforeAction, s.autoSelectAllBeforeAction);
    m_defaults.setValue(Key::aiContextEnabled, s.aiContextEnabled);
    m_defaults.setValue(Key::updateNotificationsEnabled, s.updateNotificationsEnabled);
    m_defaults.setValue(Key::automaticUpdateChecksEnabled, s.automaticUpdateChecksEnabled);
}
