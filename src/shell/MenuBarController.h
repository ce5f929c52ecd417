#pragma once

#include "core/SettingsEnums.h"
#include "shell/BuiltInDisplayMenuState.h"
#include "shell/MenuEntry.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>

class MivoraAppState;
class TraySurface;

// Owns the tray entry: the always-present way back to the program when its window is hidden. The menu is
// built anew at every settings change and every change of the built-in display's state. Its labels are
// English, except the display item, which follows the interface language. GUI thread.
class MenuBarController : public QObject {
    Q_OBJECT
public:
    // What the menu's rows do; any may be empty while the part it opens is not there yet.
    struct Actions {
        std::function<void()> showMainWindow;
        std::function<void()> toggleQuickPanel;
        std::function<void()> toggleClipboardPanel;
        std::function<void()> showTranslationPreview;
        std::function<void()> refreshPermissions;
        std::function<void()> quit;
        // Turns the built-in display off, or on again while it is off.
        std::function<void()> toggleBuiltInDisplay;
        // The display's state now; empty, or answering nullopt, where no display can be switched.
        std::function<std::optional<BuiltInDisplayMenuState>()> builtInDisplay;
    };
    using SurfaceFactory = std::function<std::unique_ptr<TraySurface>()>;

    MenuBarController(SurfaceFactory makeSurface, Actions actions, QObject* parent = nullptr);
    ~MenuBarController() override;

    // Shows or hides the entry as the settings say and follows every later change of them.
    void attach(MivoraAppState& appState);
    // Call when the built-in display's state changed: the menu is rebuilt.
    void displayStateChanged();
    bool hasStatusItem() const { return m_surface != nullptr; }

    MenuModel makeMenu();

private:
    void refresh(bool isVisible);
    void openPage(SettingsPage page);
    std::function<void()> guarded(const std::function<void()>& action) const;

    SurfaceFactory m_makeSurface;
    Actions m_actions;
    QPointer<MivoraAppState> m_appState;
    std::unique_ptr<TraySurface> m_surface;
};
