#pragma once

#include "core/MivoraAppState.h"
#include "core/QuickAction.h"
#include "core/SettingsEnums.h"
#include "panels/FloatingPanelDismissMonitor.h"
#include "panels/LazyPanel.h"
#include "panels/QuickPanelSurface.h"
#include "panels/SavedPanelSize.h"

#include <QObject>
#include <QPointer>
#include <QSize>
#include <functional>
#include <memory>
#include <optional>
#include <qcoro/qcorotask.h>

class ApplicationWorkspace;
class DefaultsStore;
class FocusService;
class HotkeyPanelTargets;
class InputEventMonitor;
class QuietSelectionReader;

// The small floating menu of actions: it opens near the pointer over the application the user works in,
// leaves that application the keyboard (and so its selection), and one click hides it and runs the action
// on that selection. Made at launch; its window is made on the first show and only hidden after. GUI thread.
class QuickPanelController : public QObject {
    Q_OBJECT
public:
    struct Services {
        ApplicationWorkspace& workspace;
        FocusService& focus;
        QuietSelectionReader& reader;
        // The assistant and clipboard panels the "ai" and "clipboard" rows open.
        HotkeyPanelTargets& panels;
        InputEventMonitor& localInput;
        InputEventMonitor& globalInput;
        DefaultsStore& defaults;
    };
    // The measures of one size of the menu: the preferred panel and its rows.
    struct Metrics {
        int width;
        int rowHeight;
        int baseHeight;
        int rowFont;
        int rowSpacing;
        int horizontalPadding;
        int verticalPadding;
        int languageMenuTrailingPadding;
    };
    using SurfaceFactory = std::function<std::unique_ptr<QuickPanelSurface>(QuickPanelController&)>;

    static constexpr QSize minPanelSize{300, 260};
    static constexpr int maxSavedWidth = 560;

    // Every service must outlive the controller.
    QuickPanelController(Services services, SurfaceFactory makeSurface, QObject* parent = nullptr);
    ~QuickPanelController() override;

    // Remembers the application in front as the target and shows the panel without taking the focus; a
    // panel already shown stays in place.
    void show(MivoraAppState& appState);
    // Hides a shown panel, shows a hidden one.
    void toggle(MivoraAppState& appState);
    // Stops watching for dismissal and orders the panel out.
    void hide();
    bool isVisible() const;
    // The state of the last show; null before it or once the state is gone.
    MivoraAppState* appState() const { return m_appState; }

    const std::optional<QString>& hoveredActionID() const { return m_hoveredActionID; }
    void setHoveredActionID(std::optional<QString> id);

    // Hides the panel and runs the action on the remembered target.
    void choose(const QuickAction& action);
    // Saves the language as the translation target, hides the panel and translates at once.
    void chooseTargetLanguage(const QString& language);

    static const Metrics& metrics(MenuScale scale);
    // The tallest the panel may be on a main screen of that visible height (none: no screen).
    static int heightLimit(std::optional<int> visibleHeight);
    // Room for every action, and for at least four, within the height limit.
    static QSize preferredPanelSize(qsizetype actionCount, MenuScale scale, std::optional<int> visibleHeight);
    // The saved size under "mivora.quickPanel", with the preferred size as its fallback; it stores at most
    // the height limit.
    std::unique_ptr<SavedPanelSize> makeSavedPanelSize(std::optional<int> visibleHeight) const;

signals:
    void hoveredActionIDChanged();

private:
    void rememberFrontmost();
    QCoro::Task<> openAssistant();

    Services m_services;
    LazyPanel<QuickPanelSurface> m_surface;
    std::unique_ptr<FloatingPanelDismissMonitor> m_dismissMonitor;
    QPointer<MivoraAppState> m_appState;
    std::optional<QString> m_hoveredActionID;
};
