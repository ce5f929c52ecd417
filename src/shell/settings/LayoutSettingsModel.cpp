#include "shell/settings/LayoutSettingsModel.h"

#include "core/MivoraAppState.h"
#include "shell/settings/SettingsEdit.h"
#include "text/KeyboardLayoutService.h"

#include <algorithm>

LayoutSettingsModel::LayoutSettingsModel(MivoraAppState& state, KeyboardLayoutService& layouts,
                                         QObject* parent)
    : QObject(parent), m_state(state), m_layouts(layouts)
{}

QStringList LayoutSettingsModel::choicesShowing(const QString& current) const
{
    QStringList choices = m_layoutNames;
    if (!current.isEmpty() && !choices.contains(current)) {
        choices.prepend(current);
    }
    return choices;
}

void LayoutSettingsModel::loadLayoutNames()
{
    m_layoutNames = m_layouts.suggestion().availableNames;
    emit layoutNamesChanged();
}

void LayoutSettingsModel::detect()
{
    const KeyboardLayoutSuggestion suggestion = m_layouts.suggestion();
    m_layoutNames = suggestion.availableNames;
    emit layoutNamesChanged();
    setLatinSource(suggestion.latinName);
    setNativeSource(suggestion.nativeName);
}

void LayoutSettingsModel::setLatinSource(const QString& name)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.layoutLatinSource = name; });
}

void LayoutSettingsModel::setNativeSource(const QString& name)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.layoutNativeSource = name; });
}

void LayoutSettingsModel::setAutoSwitch(bool enabled)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.layoutAutoSwitch = enabled; });
}

void LayoutSettingsModel::setHotkey(const QString& hotkey)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.layoutHotkey = hotkey; });
}

void LayoutSettingsModel::setAppSwitchingEnabled(bool enabled)
{
    editSettings(m_state, [&](MivoraSettings& settings) { settings.appLayoutSwitchingEnabled = enabled; });
}

template <typename Change> void LayoutSettingsModel::editRule(const QUuid& ruleId, Change change)
{
    MivoraSettings settings = m_state.settings();
    QList<AppLayoutRule>& rules = settings.appLayoutRules;
    const auto rule = std::find_if(rules.begin(), rules.end(),
                                   [&](const AppLayoutRule& each) { return each.id == ruleId; });
    if (rule == rules.end()) {
        return;
    }
    change(rules, rule);
    m_state.setSettings(std::move(settings));
}

void LayoutSettingsModel::setRuleLayout(const QUuid& ruleId, const QString& layoutName)
{
    editRule(ruleId, [&](QList<AppLayoutRule>&, auto rule) { rule->layoutName = layoutName; });
}

void LayoutSettingsModel::setRuleEnabled(const QUuid& ruleId, bool enabled)
{
    editRule(ruleId, [&](QList<AppLayoutRule>&, auto rule) { rule->isEnabled = enabled; });
}

void LayoutSettingsModel::removeRule(const QUuid& ruleId)
{
    editRule(ruleId, [](QList<AppLayoutRule>& rules, auto rule) { rules.erase(rule); });
}

void LayoutSettingsModel::addApplication(const std::optional<InstalledApplication>& chosen)
{
    if (!chosen || chosen->identifier.isEmpty()) {
        return;
    }
    AppLayoutRule rule;
    rule.id = QUuid::createUuid();
    rule.bundleIdentifier = chosen->identifier;
    rule.appName = chosen->name;
    rule.appPath = chosen->path;
    // Without a readable present layout the Latin one stands in, so the rule never names nothing.
    rule.layoutName = m_layouts.currentLayoutName().value_or(m_state.settings().layoutLatinSource);
    rule.isEnabled = true;
    editSettings(m_state, [&](MivoraSettings& settings) {
        QList<AppLayoutRule>& rules = settings.appLayoutRules;
        const auto existing = std::find_if(rules.begin(), rules.end(), [&](const AppLayoutRule& each) {
            return each.bundleIdentifier == rule.bundleIdentifier;
        });
        if (existing != rules.end()) {
            *existing = rule;
        } else {
            rules.append(rule);
        }
        settings.appLayoutSwitchingEnabled = true;
    });
}
