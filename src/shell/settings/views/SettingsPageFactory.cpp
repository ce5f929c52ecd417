#include "shell/settings/views/SettingsPageFactory.h"

#include "net/DeploymentConfiguration.h"
#include "shell/settings/SettingsPageServices.h"
#include "shell/settings/views/AIReplySettingsView.h"
#include "shell/settings/views/ActionsSettingsView.h"
#include "shell/settings/views/ClipboardSettingsView.h"
#include "shell/settings/views/LayoutSettingsView.h"
#include "shell/settings/views/PermissionsSettingsView.h"
#include "shell/settings/views/PlatformKeyNames.h"
#include "shell/settings/views/QuickMenuSettingsView.h"
#include "shell/settings/views/ShortcutsSettingsView.h"
#include "shell/settings/views/StylesSettingsView.h"
#include "shell/settings/views/UpdatesSettingsView.h"

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
        return new ShortcutsSettingsView(appState, services.hotkeys,
                                         {services.offersBuiltInDisplay, services.panelName,
                                          PlatformKeyNames::current().option, services.popsOutBrowserTabs});
    // General is the shell's own page, made by the main window.
    case SettingsPage::general:
        return nullptr;
    // The pages below need their service; without it the window shows the placeholder.
    case SettingsPage::clipboard:
        return services.clipboardHistory ? new ClipboardSettingsView(appState, *services.clipboardHistory)
                                         : nullptr;
    case SettingsPage::layout:
        return services.keyboardLayout ? new LayoutSettingsView(appState, *services.keyboardLayout,
                                                                services.applications, services.hotkeys)
                                       : nullptr;
    case SettingsPage::permissions:
        return services.permissions ? new PermissionsSettingsView(appState, *services.permissions) : nullptr;
    case SettingsPage::updates:
        return services.updates ? new UpdatesSettingsView(appState, *services.updates,
                                                          DeploymentConfiguration::builtIn().currentVersion)
                                : nullptr;
    }
    return nullptr;
}
