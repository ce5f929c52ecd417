#pragma once

#include "core/AppLayoutRule.h"
#include "platform/ApplicationCatalog.h"

#include <QObject>
#include <QStringList>
#include <optional>

class KeyboardLayoutService;
class MivoraAppState;

// The Layout page: the Latin and local layouts with their detection, the layout fix's switch and hotkey,
// and the per-application layout rules. The layout names the pickers offer are the page's own; everything
// else lives in the settings. GUI thread.
class LayoutSettingsModel : public QObject {
    Q_OBJECT
public:
    LayoutSettingsModel(MivoraAppState& state, KeyboardLayoutService& layouts, QObject* parent = nullptr);

    // What the pickers offer; empty until loadLayoutNames or detect.
    const QStringList& layoutNames() const { return m_layoutNames; }
    // A picker's choices: the layout names, and the current value too when it is not among them, so that
    // showing a stored name never changes it.
    QStringList choicesShowing(const QString& current) const;
    // Takes the platform's layout names for the pickers, as the page appears.
    void loadLayoutNames();
    // Takes the platform's suggestion: its names for the pickers, then its Latin and its local layout as two
    // assignments.
    void detect();

    void setLatinSource(const QString& name);
    void setNativeSource(const QString& name);
    void setAutoSwitch(bool enabled);
    void setHotkey(const QString& hotkey);
    void setAppSwitchingEnabled(bool enabled);

    void setRuleLayout(const QUuid& ruleId, const QString& layoutName);
    void setRuleEnabled(const QUuid& ruleId, bool enabled);
    void removeRule(const QUuid& ruleId);
    // A rule giving the chosen application the present layout, replacing its rule in place or appended, and
    // per-application layouts switched on. Nothing happens without a choice or without an identifier.
    void addApplication(const std::optional<InstalledApplication>& chosen);

signals:
    void layoutNamesChanged();

private:
    template <typename Change> void editRule(const QUuid& ruleId, Change change);

    MivoraAppState& m_state;
    KeyboardLayoutService& m_layouts;
    QStringList m_layoutNames;
};
