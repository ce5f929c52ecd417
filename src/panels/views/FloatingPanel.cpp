#include "panels/views/FloatingPanel.h"

#include "panels/PanelPlacement.h"
#include "panels/SavedPanelSize.h"
#include "panels/views/ThemePainter.h"
#include "platform/FloatingWindowTraits.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

namespace {

Qt::WindowFlags flagsFor(FloatingPanel::Role role)
{
    const Qt::WindowFlags common = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    switch (role) {
    case FloatingPanel::Role::keyPanel:
        return Qt::Tool | common;
    case FloatingPanel::Role::nonActivatingPanel:
        return Qt::Tool | common | Qt::WindowDoesNotAcceptFocus;
    case FloatingPanel::Role::overlay:
        break;
    }
    // A tooltip window bypasses the window manager: never focused, above everything, on every desktop.
    return Qt::ToolTip | common | Qt::WindowDoesNotAcceptFocus;
}

} // namespace

FloatingPanel::FloatingPanel(Options options, FloatingWindowTraits* windowTraits, QWidget* parent)
    : QWidget(parent, flagsFor(options.role)), m_options(std::move(options)), m_windowTraits(windowTraits)
{
    setWindowTitle(m_options.title);
    setAttribute(Qt::WA_TranslucentBackground);
    if (m_options.role != Role::keyPanel) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setFocusPolicy(Qt::NoFocus);
    }
}

FloatingPanel::~FloatingPanel() = default;

void FloatingPanel::setLook(AppearanceMode appearance, SurfaceMode surface)
{
    if (appearance == m_appearance && surface == m_surface) {
        return;
    }
    m_appearance = appearance;
    m_surface = surface;
    updateMask();
    update();
}

void FloatingPanel::keepSizeIn(std::unique_ptr<SavedPanelSize> savedSize)
{
    m_savedSize = std::move(savedSize);
    if (!m_savedSize) {
        return;
    }
    const SavedPanelSize::Limits& limits = m_savedSize->limits();
    // The maximum only caps a restored size: the user may make the panel larger while it is shown.
    setMinimumSize(limits.minimum);
    resize(m_savedSize->load());
}

void FloatingPanel::showNearMouse()
{
    const QPoint mouse = QCursor::pos();
    const QScreen* screen = QGuiApplication::screenAt(mouse);
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    const QRect area = screen != nullptr ? screen->availableGeometry() : QRect(QPoint(), size());
    move(PanelPlacement::positionNearMouse(mouse, area, size()));
    show();
    raise();
    if (m_options.role == Role::keyPanel) {
        activateWindow();
        if (m_windowTraits != nullptr) {
            m_windowTraits->activate(winId());
        }
    }
}

void FloatingPanel::closeEvent(QCloseEvent* event)
{
    // The window manager's close only hides the panel, which keeps its native window and hints. The
    // program's own quit asks every shown window to close first, and a refusal would cancel the quit.
    event->setAccepted(!event->spontaneous());
    hide();
}

void FloatingPanel::showEvent(QShowEvent* event)
{
    // The window manager drops the hints when the window is withdrawn, so they go on again before each
    // map; the show event comes just before it, and winId() makes the native window on the first show.
    if (m_windowTraits != nullptr) {
        applyTraits();
        m_tellTraitsOnScreen = true;
    }
    QWidget::showEvent(event);
}

void FloatingPanel::applyTraits()
{
    if (m_options.role == Role::overlay) {
        m_windowTraits->applyOverlayTraits(winId());
    } else {
        m_windowTraits->applyFloatingTraits(winId());
    }
}

QColor FloatingPanel::ink() const
{
    // The tinted appearances are dark glass whatever the scheme; only the system one follows the palette.
    return m_appearance == AppearanceMode::system ? palette().color(QPalette::WindowText) : QColor(Qt::white);
}

bool FloatingPanel::event(QEvent* event)
{
    // The first paint after a show comes once the window manager has mapped the window.
    if (event->type() == QEvent::Paint && m_tellTraitsOnScreen) {
        m_tellTraitsOnScreen = false;
        applyTraits();
    }
    return QWidget::event(event);
}

void FloatingPanel::hideEvent(QHideEvent* event)
{
    if (m_savedSize) {
        m_savedSize->save(size());
    }
    QWidget::hideEvent(event);
}

void FloatingPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    ThemePainter::paintSheet(painter, rect(), m_options.cornerRadius, m_appearance, m_surface, palette());
}

void FloatingPanel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateMask();
}

void FloatingPanel::updateMask()
{
    if (m_surface != SurfaceMode::solid) {
        clearMask();
        return;
    }
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()), m_options.cornerRadius, m_options.cornerRadius);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}
