#include "shell/MenuBarController.h"

#include "core/MivoraAppState.h"
#include "core/UiLanguage.h"
#include "shell/TraySurface.h"

MenuBarController::MenuBarController(SurfaceFactory makeSurface, Actions actions, QObject* parent)
    : QObject(parent), m_makeSurface(std::move(makeSurface)), m_actions(std::move(actions))
{}

MenuBarController::~MenuBarController() = default;

void MenuBarController::attach(MivoraAppState& appState)
{
    m_appState = &appState;
    refresh(appState.settings().menuBarIconVisible);
    connect(&appState, &MivoraAppState::settingsChanged, this, [this] {
        if (m_appState) {
            refresh(m_appState->settings().menuBarIconVisible);
        }
    });
}

void MenuBarController::displayStateChanged()
{
    if (m_appState) {
        refresh(m_appState->settings().menuBarIconVisible);
    }
}

void MenuBarController::refresh(bool isVisible)
{
    if (!isVisible) {
        m_surface.reset();
        return;
    }
    if (!m_surface) {
        m_surface = m_makeSurface();
    }
    m_surface->setMenu(makeMenu());
}

std::function<void()> MenuBarController::guarded(const std::function<void()>& action) const
{
    // A row of a stale menu does nothing once the controller is gone.
    QPointer<const MenuBarController> self(this);
    return [self, action] {
        if (self && action) {
            action();
        }
    };
}

void MenuBarController::openPage(SettingsPage page)
{
    if (m_appState) {
        m_appState->setSelectedSettingsPage(page);
    }
    if (m_actions.showMainWindow) {
        m_actions.showMainWindow();
    }
}

MenuModel MenuBarController::makeMenu()
{
    MenuModel menu{
        MenuEntry::item(QStringLiteral("Open MivoraAI"), guarded(m_actions.showMainWindow)),
        MenuEntry::item(QStringLiteral("Quick Menu"), guarded(m_actions.toggleQuickPanel)),
        MenuEntry::item(QStringLiteral("Clipboard History"), guarded(m_actions.toggleClipboardPanel)),
        MenuEntry::item(QStringLiteral("Translation Preview"), guarded(m_actions.showTranslationPreview)),
    };

    const std::optional<BuiltInDisplayMenuState> display =
        m_actions.builtInDisplay ? m_actions.builtInDisplay() : std::nullopt;
    if (display && (display->isSwitchedOff || display->hasActiveBuiltIn)) {
        const UiLanguage language = m_appState ? m_appState->settings().uiLanguage : UiLanguage::en;
        const QString title =
            display->panelName == DisplayControl::PanelName::macBookDisplay
                ? localized(language, "Turn Off MacBook Display", "Выключить экран MacBook")
                : localized(language, "Turn Off Built-in Display", "Выключить встроенный экран");
        MenuEntry item = MenuEntry::item(title, guarded(m_actions.toggleBuiltInDisplay));
        item.checked = display->isSwitchedOff;
        // A display this program switched off can always be switched back on; the last screen never goes.
        item.enabled = display->isSwitchedOff || (display->hasActiveBuiltIn && display->canSwitchOff);
        menu << MenuEntry::separator() << item;
    }

    menu << MenuEntry::separator()
         << MenuEntry::item(QStringLiteral("Permissions"),
                            guarded([this] { openPage(SettingsPage::permissions); }))
         << MenuEntry::item(QStringLiteral("Refresh Permissions"), guarded(m_actions.refreshPermissions))
         << MenuEntry::separator()
         << MenuEntry::item(QStringLiteral("Quit MivoraAI"), guarded(m_actions.quit));
    return menu;
}
