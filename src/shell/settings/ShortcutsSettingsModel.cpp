#include "shell/settings/ShortcutsSettingsModel.h"

#include "core/MivoraAppState.h"
#include "hotkeys/ParsedHotkey.h"

namespace {

struct TilingText {
    const char* id;
    const char* title[2];
    // Null for the plain "Active window".
    const char* subtitle[2];
};

constexpr const char* activeWindow[2] = {"Active window", "Активное окно"};
constexpr const char* halfNote[2] = {
    "Active window. In Chrome the tab opens as a separate window without the address bar",
    "Активное окно. В Chrome вкладка открывается отдельным окном без адресной строки"};
// %1 is the name of the key held.
constexpr const char* swapNote[2] = {
    "Active window trades places with its neighbour. Or drag a window onto another with %1 held",
    "Активное окно меняется местами с соседним. Или перетащите окно на другое с зажатым %1"};
// Off a Mac the panel has no brand.
constexpr const char* builtInDisplayTitle[2] = {"Built-in display on/off", "Встроенный экран вкл/выкл"};

const TilingText tilingTexts[] = {
    {"tileAll",
     {"Arrange windows", "Разложить окна"},
     {"Up to 4 recent windows of the current screen", "До 4 последних окон текущего экрана"}},
    {"topLeft", {"Top left", "Левая верхняя четверть"}, {}},
    {"topRight", {"Top right", "Правая верхняя четверть"}, {}},
    {"bottomLeft", {"Bottom left", "Левая нижняя четверть"}, {}},
    {"bottomRight", {"Bottom right", "Правая нижняя четверть"}, {}},
    {"leftHalf", {"Left half", "Левая половина"}, {halfNote[0], halfNote[1]}},
    {"rightHalf", {"Right half", "Правая половина"}, {halfNote[0], halfNote[1]}},
    {"swapLeft", {"Swap with window on the left", "Обмен с окном слева"}, {swapNote[0], swapNote[1]}},
    {"swapRight", {"Swap with window on the right", "Обмен с окном справа"}, {swapNote[0], swapNote[1]}},
    {"swapUp", {"Swap with window above", "Обмен с окном сверху"}, {swapNote[0], swapNote[1]}},
    {"swapDown", {"Swap with window below", "Обмен с окном снизу"}, {swapNote[0], swapNote[1]}},
    {"full", {"Fill screen", "На весь экран"}, {}},
    {"fill", {"Fill", "Заполнить"}, {}},
    {"builtInDisplay",
     {"MacBook display on/off", "Экран MacBook вкл/выкл"},
     {"Turns off the built-in screen while an external monitor is connected",
      "Выключает встроенный экран, пока подключён внешний монитор"}},
};

} // namespace

std::span<const ShortcutsSettingsModel::MainRow> ShortcutsSettingsModel::mainRows()
{
    static const MainRow rows[] = {
        {{"Quick menu", "Быстрое меню"},
         {"Open quick actions", "Открыть быстрые действия"},
         &MivoraSettings::quickMenuHotkey},
        {{"AI assistant", "AI помощник"},
         {"Open AI chat with selected text", "Открыть AI-чат с выделенным текстом"},
         &MivoraSettings::assistantHotkey},
        {{"Clipboard history", "История буфера"},
         {"Open clipboard window", "Открыть окно буфера"},
         &MivoraSettings::clipboardHotkey},
        {{"Translate preview", "Предпросмотр перевода"},
         {"Open translation window", "Открыть окно перевода"},
         &MivoraSettings::translatePreviewHotkey},
        {{"Fix layout", "Исправить раскладку"},
         {"Convert typed text layout", "Преобразовать текст из неверной раскладки"},
         &MivoraSettings::layoutHotkey},
    };
    return rows;
}

ShortcutsSettingsModel::RowText ShortcutsSettingsModel::text(const MainRow& row, UiLanguage language)
{
    return {localized(language, row.title[0], row.title[1]),
            localized(language, row.subtitle[0], row.subtitle[1])};
}

QString ShortcutsSettingsModel::styleSubtitle(const PromptStyle& style, UiLanguage language)
{
    return style.autoReplace ? localized(language, "Auto replace", "Автозамена")
                             : localized(language, "Manual review", "Ручная проверка");
}

QStringList ShortcutsSettingsModel::tilingIds() const
{
    const bool display = m_platform.offersBuiltInDisplay && m_platform.offersBuiltInDisplay();
    QStringList ids;
    for (const TilingText& row : tilingTexts) {
        if (display || qstrcmp(row.id, "builtInDisplay") != 0) {
            ids.append(QString::fromLatin1(row.id));
        }
    }
    return ids;
}

ShortcutsSettingsModel::RowText ShortcutsSettingsModel::tilingText(const QString& tilingId,
                                                                   UiLanguage language) const
{
    for (const TilingText& row : tilingTexts) {
        if (tilingId != QLatin1String(row.id)) {
            continue;
        }
        const bool branded = m_platform.panelName == DisplayControl::PanelName::macBookDisplay;
        const char* const* title =
            tilingId == u"builtInDisplay" && !branded ? builtInDisplayTitle : row.title;
        const char* const* subtitle = row.subtitle[0] ? row.subtitle : activeWindow;
        if (subtitle[0] == halfNote[0] && !m_platform.popsOutBrowserTabs) {
            subtitle = activeWindow;
        }
        QString subtitleText = localized(language, subtitle[0], subtitle[1]);
        if (subtitle[0] == swapNote[0]) {
            subtitleText = subtitleText.arg(m_platform.optionKey);
        }
        return {localized(language, title[0], title[1]), subtitleText};
    }
    return {tilingId, localized(language, activeWindow[0], activeWindow[1])};
}

QString ShortcutsSettingsModel::tilingHotkey(const QString& tilingId) const
{
    return m_appState.settings().windowTilingHotkeys.value(tilingId, ParsedHotkey::notAssigned());
}

void ShortcutsSettingsModel::setTilingHotkey(const QString& tilingId, const QString& hotkey)
{
    MivoraSettings settings = m_appState.settings();
    settings.windowTilingHotkeys.insert(tilingId, hotkey);
    m_appState.setSettings(std::move(settings));
}

void ShortcutsSettingsModel::setStyleHotkey(const QString& styleId, const QString& hotkey)
{
    for (PromptStyle style : m_appState.promptStyles()) {
        if (style.id == styleId) {
            style.hotkey = hotkey;
            m_appState.updatePromptStyle(style);
            return;
        }
    }
}
