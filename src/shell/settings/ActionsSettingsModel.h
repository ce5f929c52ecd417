#pragma once

#include "core/QuickAction.h"

#include <QList>

class MivoraAppState;

// The Actions page: the quick actions that can be tried on the test text, and the trying.
class ActionsSettingsModel {
public:
    explicit ActionsSettingsModel(MivoraAppState& appState) : m_appState(appState) {}

    // The state's quick actions in order, without ai, clipboard and layout, which need another application.
    QList<QuickAction> runnableActions() const;
    // Applies the action to the test text, which the result replaces; nothing is pasted anywhere.
    void run(const QuickAction& action);

private:
    MivoraAppState& m_appState;
};
