#include "panels/QuickPanelController.h"

#include "core/MivoraAppState.h"
#include "exchange/FocusService.h"
#include "exchange/QuietSelectionReader.h"
#include "hotkeys/HotkeyPanelTargets.h"
#include "platform/ApplicationWorkspace.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<QuickPanelController::Metrics, 5> metricsByScale{{
    {300, 44, 96, 13, 7, 10, 8, 16},
    {320, 48, 110, 14, 8, 11, 9, 17},
    {340, 54, 124, 15, 9, 13, 11, 19},
    {370, 60, 140, 16, 10, 15, 13, 21},
    {410, 66, 156, 17, 11, 17, 15, 23},
}};

} // namespace

QuickPanelController::QuickPanelController(Services services, SurfaceFactory makeSurface, QObject* parent)
    : QObject(parent), m_services(services),
      m_surface([this, make = std::move(makeSurface)] { return make(*this); })
{}

QuickPanelController::~QuickPanelController() = default;

const QuickPanelController::Metrics& QuickPanelController::metrics(MenuScale scale)
{
    return metricsByScale.at(std::size_t(scale));
}

int QuickPanelController::heightLimit(std::optional<int> visibleHeight)
{
    const int limit = visibleHeight ? std::max(*visibleHeight - 160, 420) : 740;
    return std::min(limit, 620);
}

QSize QuickPanelController::preferredPanelSize(qsizetype actionCount, MenuScale scale,
                                               std::optional<int> visibleHeight)
{
    const Metrics& m = metrics(scale);
    const int count = int(std::max<qsizetype>(actionCount, 4));
    return {m.width, std::min(heightLimit(visibleHeight), m.baseHeight + count * m.rowHeight)};
}

std::unique_ptr<SavedPanelSize>
QuickPanelController::makeSavedPanelSize(std::optional<int> visibleHeight) const
{
    const qsizetype count = m_appState ? m_appState->quickActions().size() : 0;
    const MenuScale scale = m_appState ? m_appState->settings().quickMenuSize : MenuScale::tiny;
    const int limit = heightLimit(visibleHeight);
    // Unlike the other panels, this one never stores a height beyond the limit of the screen it was made on.
    return std::make_unique<SavedPanelSize>(
        m_services.defaults, QStringLiteral("mivora.quickPanel"),
        SavedPanelSize::Limits{minPanelSize, QSize(maxSavedWidth, std::max(limit, minPanelSize.height())),
                               preferredPanelSize(count, scale, visibleHeight)},
        SavedPanelSize::SavedHeight::cappedAtMaximum);
}

void QuickPanelController::rememberFrontmost()
{
    if (const auto front = m_services.workspace.frontmostApplication()) {
        m_services.focus.remember(*front);
    }
}

void QuickPanelController::show(MivoraAppState& appState)
{
    m_appState = &appState;
    rememberFrontmost();
    const bool wasVisible = isVisible();
    QuickPanelSurface& surface = m_surface.get();
    if (!m_dismissMonitor) {
        m_dismissMonitor = std::make_unique<FloatingPanelDismissMonitor>(
            m_services.localInput, m_services.globalInput,
            FloatingPanelDismissMonitor::Panel{surface.windowIdentity(), [this] { return isVisible(); }},
            [this] { hide(); });
    }
    m_dismissMonitor->install();
    surface.orderFront(!wasVisible);
}

void QuickPanelController::toggle(MivoraAppState& appState)
{
    if (isVisible()) {
        hide();
    } else {
        show(appState);
    }
}

void QuickPanelController::hide()
{
    if (m_dismissMonitor) {
        m_dismissMonitor->remove();
    }
    if (QuickPanelSurface* surface = m_surface.ifMade()) {
        surface->orderOut();
    }
}

bool QuickPanelController::isVisible() const
{
    const QuickPanelSurface* surface = m_surface.ifMade();
    return surface != nullptr && surface->isShown();
}

void QuickPanelController::setHoveredActionID(std::optional<QString> id)
{
    if (id == m_hoveredActionID) {
        return;
    }
    m_hoveredActionID = std::move(id);
    emit hoveredActionIDChanged();
}

void QuickPanelController::choose(const QuickAction& action)
{
    hide();
    if (!m_appState) {
        return;
    }
    if (action.id == u"ai") {
        openAssistant();
    } else if (action.id == u"clipboard") {
        m_services.panels.showClipboardPanel();
    } else {
        m_appState->run(action, true, false);
    }
}

void QuickPanelController::chooseTargetLanguage(const QString& language)
{
    if (!m_appState) {
        return;
    }
    MivoraSettings settings = m_appState->settings();
    settings.targetLanguage = language;
    m_appState->setSettings(settings);
    choose(QuickAction(QStringLiteral("translate")));
}

QCoro::Task<> QuickPanelController::openAssistant()
{
    rememberFrontmost();
    QPointer<QuickPanelController> self(this);
    const QString context = co_await m_services.reader.selectedText();
    if (self) {
        m_services.panels.showAssistant(context);
    }
}
