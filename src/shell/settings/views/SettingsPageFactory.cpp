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
    case SettingsPage::general:
        return nullptr;
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
    // The clipboard, layout, permissions and updates pages.
    case SettingsPage::clipboard:
        (void)services;
        return nullptr;
    case SettingsPage::layout:
        return nullptr;
    case SettingsPage::permissions:
        return nullptr;
    case SettingsPage::updates:
        return nullptr;
    }
    return nullptr;
}
