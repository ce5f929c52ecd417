#pragma once

#include "core/SettingsEnums.h"

class MivoraAppState;
class QWidget;
struct SettingsPageServices;

// Builds the view of each page of the settings window.
class SettingsPageFactory {
public:
    // The page's view, owned by the caller; null for a page that is not built here (the window shows a
    // placeholder) and for the General page, which the shell builds itself.
    static QWidget* make(SettingsPage page, MivoraAppState& appState, const SettingsPageServices& services);
};
