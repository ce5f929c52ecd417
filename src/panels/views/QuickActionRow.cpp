#include "panels/views/QuickActionRow.h"

#include "core/LanguageList.h"
#include "core/MivoraAppState.h"
#include "panels/views/SymbolIcons.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

namespace {
constexpr int iconColumn = 20;
constexpr int iconSide = 18;
constexpr int languageMenuMaxWidth = 120;
constexpr int titleGap = 10;
} // namespace

QuickActionRow::QuickActionRow(QuickPanelController& controller, MivoraAppState& appState, QuickAction action,
                               const QuickPanelController::Metrics& metrics, QColor ink, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_action(std::move(action)),
      m_title(appState.title(m_action)), m_metrics(metrics), m_ink(ink)
{
    setObjectName(QStringLiteral("quickAction:") + m_action.id);
    setAccessibleName(m_title);
    setFixedHeight(m_metrics.rowHeight - m_metrics.rowSpacing);
    setAttribute(Qt::WA_Hover);
    if (m_action.id == u"translate") {
        addLanguageMenu(appState.settings().targetLanguage);
    }
    connect(&controller, &QuickPanelController::hoveredActionIDChanged, this, qOverload<>(&QWidget::update));
}

void QuickActionRow::addLanguageMenu(const QString& current)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, m_metrics.languageMenuTrailingPadding, 0);
    layout->addStretch();
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("targetLanguageMenu"));
    button->setAutoRaise(true);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIcon(SymbolIcons::icon(QStringLiteral("chevron.up.chevron.down"), m_ink, 10));
    button->setLayoutDirection(Qt::RightToLeft);
    button->setMaximumWidth(languageMenuMaxWidth);
    QFont caption = font();
    caption.setPointSizeF(std::max(8.0, m_metrics.rowFont - 3.0));
    button->setFont(caption);
    button->setText(QFontMetrics(caption).elidedText(current, Qt::ElideRight, languageMenuMaxWidth - 28));
    button->setStyleSheet(QStringLiteral("QToolButton { color: %1; border: none; } "
                                         "QToolButton::menu-indicator { image: none; }")
                              .arg(m_ink.name()));

    auto* menu = new QMenu(button);
    auto* group = new QActionGroup(menu);
    for (const QString& name : LanguageList::names()) {
        QAction* entry = menu->addAction(name);
        entry->setCheckable(true);
        entry->setChecked(name == current);
        group->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, name] { m_controller.chooseTargetLanguage(name); });
    }
    button->setMenu(menu);
    layout->addWidget(button);
}

void QuickActionRow::enterEvent(QEnterEvent*)
{
    m_controller.setHoveredActionID(m_action.id);
}

void QuickActionRow::leaveEvent(QEvent*)
{
    if (m_controller.hoveredActionID() == m_action.id) {
        m_controller.setHoveredActionID(std::nullopt);
    }
}

void QuickActionRow::mousePressEvent(QMouseEvent* event)
{
    // Taken here, so the press does not reach the panel's background and start a move instead of a click.
    event->accept();
}

void QuickActionRow::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        m_controller.choose(m_action);
    }
}

void QuickActionRow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_controller.hoveredActionID() == m_action.id) {
        QColor highlight = m_ink;
        highlight.setAlphaF(0.14f);
        painter.setPen(Qt::NoPen);
        painter.setBrush(highlight);
        painter.drawRoundedRect(QRectF(rect()), 10, 10);
    }
    const int left = m_metrics.horizontalPadding;
    const QRect icon(left, (height() - iconSide) / 2, iconColumn, iconSide);
    SymbolIcons::icon(m_action.symbolName(), m_ink, iconSide).paint(&painter, icon);

    QFont font = this->font();
    font.setPointSize(m_metrics.rowFont);
    font.setWeight(QFont::Medium);
    painter.setFont(font);
    painter.setPen(m_ink);
    const int textLeft = left + iconColumn + titleGap;
    const QRect text(textLeft, 0, width() - textLeft - m_metrics.horizontalPadding, height());
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(m_title, Qt::ElideRight, text.width()));
}
