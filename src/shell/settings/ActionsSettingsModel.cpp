#include "shell/settings/ActionsSettingsModel.h"

#include "core/MivoraAppState.h"

QList<QuickAction> ActionsSettingsModel::runnableActions() const
{
    QList<QuickAction> actions;
    for (const QuickAction& action : m_appState.quickActions()) {
        if (action.id != u"ai" && action.id != u"clipboard" && action.id != u"layout") {
            actions.append(action);
        }
    }
    return actions;
}

void ActionsSettingsModel::run(const QuickAction& action)
{
    m_appState.run(action, false, true);
}
