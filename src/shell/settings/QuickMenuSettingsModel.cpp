#include "shell/settings/QuickMenuSettingsModel.h"

#include "core/MivoraAppState.h"

#include <algorithm>

namespace {

QStringList normalized(const QStringList& ids)
{
    QStringList result;
    result.reserve(ids.size());
    for (const QString& id : ids) {
        result.append(QuickAction::normalize(id));
    }
    return result;
}

} // namespace

QStringList QuickMenuSettingsModel::availableActionIds() const
{
    QStringList ids{QStringLiteral("ai"), QStringLiteral("translate")};
    for (const PromptStyle& style : m_appState.promptStyles()) {
        if (style.id != u"translate") {
            ids.append(QStringLiteral("style:") + style.id);
        }
    }
    ids << QStringLiteral("clipboard") << QStringLiteral("layout");
    return ids;
}

QStringList QuickMenuSettingsModel::orderedActions() const
{
    const QStringList available = availableActionIds();
    QStringList ordered;
    for (const QString& id : normalized(m_appState.settings().quickMenuOrder)) {
        if (available.contains(id) && !ordered.contains(id)) {
            ordered.append(id);
        }
    }
    for (const QString& id : available) {
        if (!ordered.contains(id)) {
            ordered.append(id);
        }
    }
    return ordered;
}

bool QuickMenuSettingsModel::isEnabled(const QString& id) const
{
    return normalized(m_appState.settings().quickMenuActions).contains(QuickAction::normalize(id));
}

QStringList QuickMenuSettingsModel::sortedBy(const QStringList& ids, const QStringList& order)
{
    QStringList sorted = ids;
    const auto position = [&order](const QString& id) {
        const qsizetype index = order.indexOf(id);
        return index < 0 ? order.size() : index;
    };
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](const QString& a, const QString& b) { return position(a) < position(b); });
    return sorted;
}

void QuickMenuSettingsModel::setAction(const QString& id, bool enabled)
{
    const QString action = QuickAction::normalize(id);
    QStringList actions = normalized(m_appState.settings().quickMenuActions);
    actions.removeAll(action);
    if (enabled) {
        actions.append(action);
    }
    MivoraSettings settings = m_appState.settings();
    settings.quickMenuActions = sortedBy(actions, orderedActions());
    m_appState.setSettings(std::move(settings));
}

void QuickMenuSettingsModel::moveAction(int index, int direction)
{
    QStringList order = orderedActions();
    const int target = index + direction;
    if (index < 0 || index >= order.size() || target < 0 || target >= order.size()) {
        return;
    }
    order.swapItemsAt(index, target);
    MivoraSettings settings = m_appState.settings();
    settings.quickMenuOrder = order;
    settings.quickMenuActions = sortedBy(normalized(settings.quickMenuActions), order);
    m_appState.setSettings(std::move(settings));
}
