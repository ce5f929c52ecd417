#include "shell/settings/views/SettingsPageFactory.h"

#include "shell/settings/SettingsPageServices.h"
#include "shell/settings/views/AIReplySettingsView.h"
#include "shell/settings/views/ActionsSettingsView.h"
#include "shell/settings/views/QuickMenuSettingsView.h"
#include "shell/settings/views/ShortcutsSettingsView.h"
#include "shell/settings/views/StylesSettingsView.h"

QWidget* SettingsPageFactory::make(SettingsPage page, MivoraAppState& appState,
                                   const SettingsPageServices& services)
{
    switch (page) {
    case SettingsPage::actions:
        return new ActionsSettingsView(appState);
    case SettingsPage::styles:
        return new StylesSettingsView(appState, services.hotkeys);
    case SettingsPage::aiReply:
        return new AIReplySettingsView(appState, services.hotkeys);
    case SettingsPage::quickMenu:
        return new QuickMenuSettingsView(appState, services.hotkeys);
    case SettingsPage::shortcuts:
        return new ShortcutsSettingsView(appState, services.hotkeys, services.offersBuiltInDisplay);
    // General is the shell's own; the rest are not built yet and the window shows a placeholder.
    case SettingsPage::general:
    case SettingsPage::clipboard:
    case SettingsPage::layout:
    case SettingsPage::permissions:
    case SettingsPage::updates:
        return nullptr;
    }
    return nullptr;
}
