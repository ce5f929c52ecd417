#include "shell/settings/views/SettingsPageFactory.h"

#include "shell/settings/SettingsPageServices.h"

QWidget* SettingsPageFactory::make(SettingsPage page, MivoraAppState& appState,
                                   const SettingsPageServices& services)
{
    (void)appState;
    (void)services;
    switch (page) {
    case SettingsPage::general:
        return nullptr;
    case SettingsPage::actions:
    case SettingsPage::styles:
    case SettingsPage::aiReply:
    case SettingsPage::quickMenu:
    case SettingsPage::shortcuts:
        return nullptr;
    // The clipboard, layout, permissions and updates pages.
    case SettingsPage::clipboard:
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
