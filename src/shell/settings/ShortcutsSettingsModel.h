#pragma once

#include "core/MivoraSettings.h"
#include "platform/DisplayControl.h"

#include <QStringList>
#include <functional>
#include <span>

class MivoraAppState;

// The Shortcuts page: what each hotkey row is called and where its text is stored.
class ShortcutsSettingsModel {
public:
    struct RowText {
        QString title;
        QString subtitle;
    };
    // One of the five rows of the program's own panels and the layout fix.
    struct MainRow {
        const char* title[2];
        const char* subtitle[2];
        QString MivoraSettings::*hotkey;
    };

    // What the tiling rows offer and say differs by platform; the defaults are macOS's.
    struct Platform {
        // Whether the built-in display row belongs on the page; empty means never.
        std::function<bool()> offersBuiltInDisplay;
        // The name of the computer's own panel, as the tray item calls it.
        DisplayControl::PanelName panelName = DisplayControl::PanelName::macBookDisplay;
        // The key held for the drag swap, by its name on this platform.
        QString optionKey = QStringLiteral("Option");
        // Whether the half-screen hotkeys take the browser's tab out into a window of its own here.
        bool popsOutBrowserTabs = true;
    };

    ShortcutsSettingsModel(MivoraAppState& appState, Platform platform)
        : m_appState(appState), m_platform(std::move(platform))
    {}

    static std::span<const MainRow> mainRows();
    static RowText text(const MainRow& row, UiLanguage language);
    // The subtitle of a style's row: whether its result replaces the selection at once.
    static QString styleSubtitle(const PromptStyle& style, UiLanguage language);
    // The tiling ids shown, in page order; builtInDisplay only while it is offered.
    QStringList tilingIds() const;
    RowText tilingText(const QString& tilingId, UiLanguage language) const;
    // The stored text of a tiling id; a missing entry reads as "Not assigned".
    QString tilingHotkey(const QString& tilingId) const;
    void setTilingHotkey(const QString& tilingId, const QString& hotkey);
    // Writes the hotkey of the style with that id through the style edit; unknown ids are ignored.
    void setStyleHotkey(const QString& styleId, const QString& hotkey);

private:
    MivoraAppState& m_appState;
    Platform m_platform;
};
