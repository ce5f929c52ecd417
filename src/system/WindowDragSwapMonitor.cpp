#include "system/WindowDragSwapMonitor.h"

#include "core/DefaultsStore.h"

#include <QtGlobal>

namespace {
const QString enabledKey = QStringLiteral("mivora.windowTiling.enabled");
// A window whose origin moved less than this was clicked or resized by its right or bottom edge, not dragged.
constexpr int dragThreshold = 10;
} // namespace

WindowDragSwapMonitor::WindowDragSwapMonitor(InputEventMonitor& globalInput, const DefaultsStore& defaults,
                                             WindowTilingService& tiling)
    : m_globalInput(globalInput), m_defaults(defaults), m_tiling(tiling)
{}

void WindowDragSwapMonitor::start()
{
    if (m_started) {
        return;
    }
    m_started = true;
    using Kind = MonitoredInputEvent::Kind;
    m_monitor = m_globalInput.addMonitor(
        Kind::leftMouseDown | Kind::leftMouseUp,
        [this](const MonitoredInputEvent& event) { handle(event.kind, event.optionHeld, event.pointer); });
}

void WindowDragSwapMonitor::handle(MonitoredInputEvent::Kind kind, bool option, QPoint point)
{
    // Read straight from the store at each press: a stored false turns the feature off (a text store gives
    // it back as the text "false"); anything else, absence included, leaves it on.
    const QVariant enabled = m_defaults.value(enabledKey);
    const bool storedFalse = enabled.typeId() == QMetaType::Bool
                                 ? !enabled.toBool()
                                 : enabled.typeId() == QMetaType::QString && enabled.toString() == u"false";
    if (storedFalse) {
        m_dragStart.reset();
        return;
    }
    if (kind == MonitoredInputEvent::Kind::leftMouseDown) {
        m_dragStart.reset();
        if (option) {
            if (const auto under = m_tiling.windowAt(point)) {
                m_dragStart = DragStart{under->window, under->frame};
            }
        }
        return;
    }
    if (kind != MonitoredInputEvent::Kind::leftMouseUp) {
        return;
    }
    const std::optional<DragStart> start = m_dragStart;
    m_dragStart.reset();
    if (!option || !start) {
        return;
    }
    const QRect now = m_tiling.axFrame(start->window);
    if (qAbs(now.x() - start->frame.x()) > dragThreshold ||
        qAbs(now.y() - start->frame.y()) > dragThreshold) {
        m_tiling.swapDraggedWindow(start->window, start->frame, point);
    }
}
