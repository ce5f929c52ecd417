#pragma once

#include "core/MivoraSettings.h"

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

    // offersBuiltInDisplay: whether the built-in display row belongs on the page; empty means never.
    ShortcutsSettingsModel(MivoraAppState& appState, std::function<bool()> offersBuiltInDisplay)
        : m_appState(appState), m_offersBuiltInDisplay(std::move(offersBuiltInDisplay))
    {}

    static std::span<const MainRow> mainRows();
    static RowText text(const MainRow& row, UiLanguage language);
    // The subtitle of a style's row: whether its result replaces the selection at once.
    static QString styleSubtitle(const PromptStyle& style, UiLanguage language);
    // The tiling ids shown, in page order; builtInDisplay only while it is offered.
    QStringList tilingIds() const;
    static RowText tilingText(const QString& tilingId, UiLanguage language);
    // The stored text of a tiling id; a missing entry reads as "Not assigned".
    QString tilingHotkey(const QString& tilingId) const;
    void setTilingHotkey(const QString& tilingId, const QString& hotkey);
    // Writes the hotkey of the style with that id through the style edit; unknown ids are ignored.
    void setStyleHotkey(const QString& styleId, const QString& hotkey);

private:
    MivoraAppState& m_appState;
    std::function<bool()> m_offersBuiltInDisplay;
};
