#include "panels/views/StatusHUDPanel.h"

#include "panels/PanelPlacement.h"
#include "panels/views/SymbolIcons.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace {

constexpr QSize overlaySize(260, 72);
constexpr int horizontalPadding = 16;
constexpr int spacing = 10;
constexpr int iconSize = 18;
constexpr qreal textPointSize = 14;
constexpr qreal cornerRadius = 16;
constexpr qreal smallestScale = 0.82;

QColor toneColor(StatusHUDContent::Tone tone)
{
    switch (tone) {
    case StatusHUDContent::Tone::blue:
        return QColor(10, 132, 255);
    case StatusHUDContent::Tone::green:
        return QColor(48, 209, 88);
    case StatusHUDContent::Tone::orange:
        return QColor(255, 159, 10);
    case StatusHUDContent::Tone::secondary:
        break;
    }
    return {};
}

} // namespace

StatusHUDPanel::StatusHUDPanel(FloatingWindowTraits* windowTraits, QWidget* parent)
    : FloatingPanel({QStringLiteral("MivoraAI status"), Role::overlay, cornerRadius}, windowTraits, parent)
{
    setFixedSize(overlaySize);
}

std::pair<qreal, bool> StatusHUDPanel::fittedTextSize(qreal naturalWidth, qreal availableWidth,
                                                      qreal pointSize)
{
    if (naturalWidth <= availableWidth || naturalWidth <= 0) {
        return {pointSize, false};
    }
    const qreal scale = std::max(smallestScale, availableWidth / naturalWidth);
    return {pointSize * scale, naturalWidth * scale > availableWidth};
}

void StatusHUDPanel::present(const StatusHUDContent& content, AppearanceMode appearance, SurfaceMode surface)
{
    m_content = content;
    setLook(appearance, surface);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect();
    move(PanelPlacement::statusOverlayPosition(area, size()));
    update();
    if (!isVisible()) {
        show();
    }
    raise();
}

QRect StatusHUDPanel::textRect() const
{
    const int left = horizontalPadding + iconSize + spacing;
    return QRect(left, 0, width() - left - horizontalPadding, height());
}

void StatusHUDPanel::paintEvent(QPaintEvent* event)
{
    FloatingPanel::paintEvent(event);
    QPainter painter(this);

    const QColor ink = FloatingPanel::ink();
    QColor tone = toneColor(m_content.tone);
    if (m_content.tone == StatusHUDContent::Tone::secondary) {
        tone = ink;
        tone.setAlphaF(0.6f);
    }
    const QRectF icon(horizontalPadding, (height() - iconSize) / 2.0, iconSize, iconSize);
    SymbolIcons::paint(painter, icon, m_content.symbolName, tone);

    QFont font = this->font();
    font.setPointSizeF(textPointSize);
    font.setWeight(QFont::DemiBold);
    const QRect area = textRect();
    const qreal natural = QFontMetricsF(font).horizontalAdvance(m_content.text);
    const auto [pointSize, cut] = fittedTextSize(natural, area.width(), textPointSize);
    font.setPointSizeF(pointSize);
    const QFontMetricsF metrics(font);
    const QString shown =
        cut ? metrics.elidedText(m_content.text, Qt::ElideRight, area.width()) : m_content.text;
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
}
