#include "panels/views/QuickActionPanel.h"

#include "core/MivoraAppState.h"
#include "panels/QuickPanelController.h"
#include "panels/SavedPanelSize.h"
#include "panels/views/QuickActionRow.h"
#include "panels/views/SymbolIcons.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWindow>

namespace {
constexpr qreal cornerRadius = 22;
constexpr int headerIconSide = 18;
} // namespace

QuickActionPanel::QuickActionPanel(QuickPanelController& controller, FloatingWindowTraits* windowTraits,
                                   QWidget* parent)
    : FloatingPanel({QStringLiteral("MivoraAI"), Role::nonActivatingPanel, cornerRadius}, windowTraits,
                    parent),
      m_controller(controller), m_appState(controller.appState())
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    keepSizeIn(controller.makeSavedPanelSize(screen ? std::optional(screen->availableGeometry().height())
                                                    : std::nullopt));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 14, 12, 12);
    layout->setSpacing(10);
    auto* header = new QHBoxLayout;
    header->setContentsMargins(10, 0, 10, 0);
    header->setSpacing(8);
    auto* icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("headerIcon"));
    auto* title = new QLabel(QStringLiteral("MivoraAI"), this);
    QFont headline = title->font();
    headline.setWeight(QFont::DemiBold);
    headline.setPointSizeF(headline.pointSizeF() + 2);
    title->setFont(headline);
    header->addWidget(icon);
    header->addWidget(title, 1);
    layout->addLayout(header);

    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The rows lie on the panel's own sheet.
    scroll->setStyleSheet(
        QStringLiteral("QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }"));
    auto* list = new QWidget;
    m_rows = new QVBoxLayout(list);
    m_rows->setContentsMargins(0, 0, 0, 0);
    scroll->setWidget(list);
    layout->addWidget(scroll, 1);

    if (m_appState) {
        connect(m_appState, &MivoraAppState::settingsChanged, this, &QuickActionPanel::rebuildRows);
        connect(m_appState, &MivoraAppState::systemSurfaceModeChanged, this, &QuickActionPanel::rebuildRows);
    }
    rebuildRows();
}

void QuickActionPanel::rebuildRows()
{
    if (!m_appState) {
        return;
    }
    setLook(m_appState->settings().appearanceMode, m_appState->systemSurfaceMode());
    const QColor color = ink();
    auto* icon = findChild<QLabel*>(QStringLiteral("headerIcon"));
    icon->setPixmap(SymbolIcons::icon(QStringLiteral("bolt.fill"), color, headerIconSide)
                        .pixmap(headerIconSide, headerIconSide));
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setStyleSheet(QStringLiteral("color: %1;").arg(color.name()));
    }

    // A row may be mid-signal (its language menu changed the settings): the old ones go a turn later.
    while (QLayoutItem* item = m_rows->takeAt(0)) {
        if (QWidget* row = item->widget()) {
            row->hide();
            row->deleteLater();
        }
        delete item;
    }
    const QuickPanelController::Metrics& metrics =
        QuickPanelController::metrics(m_appState->settings().quickMenuSize);
    m_rows->setSpacing(metrics.rowSpacing);
    for (const QuickAction& action : m_appState->quickActions()) {
        m_rows->addWidget(new QuickActionRow(m_controller, *m_appState, action, metrics, color));
    }
    m_rows->addStretch();
}

void QuickActionPanel::orderFront(bool placeNearMouse)
{
    if (placeNearMouse) {
        showNearMouse();
        return;
    }
    show();
    raise();
}

void QuickActionPanel::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && windowHandle() != nullptr) {
        windowHandle()->startSystemMove();
        return;
    }
    FloatingPanel::mousePressEvent(event);
}
