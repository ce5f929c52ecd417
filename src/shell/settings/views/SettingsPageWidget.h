#pragma once

#include "core/MivoraSettings.h"

#include <QVBoxLayout>
#include <QWidget>
#include <functional>

class MivoraAppState;
class QLabel;

// The base of every page of the settings window: a column of cards bound to the application state. A page
// re-reads its controls at every settings change (the interface language included), and its edits go
// through the state's one change hook; the re-reading itself never writes back.
class SettingsPageWidget : public QWidget {
    Q_OBJECT
public:
    explicit SettingsPageWidget(MivoraAppState& appState, QWidget* parent = nullptr);

protected:
    // Reads every control back from the state and titles it in the interface language.
    virtual void refresh() = 0;
    // Called once at the end of the derived constructor: the first refresh, then one at every change.
    void followState();
    // Applies change to a copy of the settings and assigns it once; ignored while refreshing.
    void edit(const std::function<void(MivoraSettings&)>& change);
    bool isRefreshing() const { return m_refreshing; }
    UiLanguage language() const;
    // The page's column; cards and rows stack in it, top to bottom.
    QVBoxLayout* column() const { return m_column; }
    // A bold heading of a section of the page.
    QLabel* addHeading();

    MivoraAppState& m_appState;

private:
    void refreshGuarded();

    QVBoxLayout* m_column = nullptr;
    bool m_refreshing = false;
};
