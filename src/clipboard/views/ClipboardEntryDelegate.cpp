#include "clipboard/views/ClipboardEntryDelegate.h"

#include "clipboard/ClipboardEntryListModel.h"
#include "panels/views/SymbolIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>
#include <cmath>

namespace {

constexpr int padding = 8;
constexpr int buttonSide = 22;
constexpr int buttonGap = 2;

} // namespace

QFont ClipboardEntryDelegate::textFont(const QFont& base) const
{
    QFont font = base;
    font.setPixelSize(int(std::lround(m_fontSize)));
    return font;
}

QFont ClipboardEntryDelegate::captionFont(const QFont& base) const
{
    QFont font = base;
    font.setPixelSize(std::max(10, int(std::lround(m_fontSize)) - 2));
    return font;
}

int ClipboardEntryDelegate::textWidth(int rowWidth) const
{
    const int buttons = int(m_buttons.size()) * (buttonSide + buttonGap);
    return std::max(40, rowWidth - 2 * padding - buttons - 6);
}

QRect ClipboardEntryDelegate::buttonRect(const QRect& rowRect, int button) const
{
    const int count = int(m_buttons.size());
    const int left = rowRect.right() - padding - count * (buttonSide + buttonGap) + buttonGap;
    return {left + button * (buttonSide + buttonGap), rowRect.top() + padding - 2, buttonSide, buttonSide};
}

int ClipboardEntryDelegate::buttonAt(const QRect& rowRect, QPoint pos) const
{
    for (int button = 0; button < m_buttons.size(); ++button) {
        if (buttonRect(rowRect, button).contains(pos)) {
            return button;
        }
    }
    return -1;
}

QSize ClipboardEntryDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QFontMetricsF text(textFont(option.font));
    const QFontMetricsF caption(captionFont(option.font));
    const qreal width = textWidth(m_width);
    int lines = 0;
    for (const QString& line : index.data(Qt::DisplayRole).toString().split(u'\n')) {
        lines += std::max(1, int(std::ceil(text.horizontalAdvance(line) / width)));
        if (lines >= ClipboardEntryListModel::rowLines) {
            lines = ClipboardEntryListModel::rowLines;
            break;
        }
    }
    const int height = int(std::ceil(lines * text.lineSpacing() + 4 + caption.height())) + 2 * padding;
    return {m_width, std::max(height, buttonSide + 2 * padding)};
}

void ClipboardEntryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect row = option.rect.adjusted(2, 2, -2, -2);
    const QPalette& palette = option.palette;
    if (index.data(ClipboardEntryListModel::selectedRole).toBool()) {
        QColor highlight = palette.color(QPalette::Highlight);
        highlight.setAlphaF(0.28f);
        QPainterPath shape;
        shape.addRoundedRect(QRectF(row), 8, 8);
        painter->fillPath(shape, highlight);
    }

    const QFont font = textFont(option.font);
    const QFontMetricsF metrics(font);
    const qreal width = textWidth(row.width() + 4);
    QString text = index.data(Qt::DisplayRole).toString();
    text.replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(text, font);
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    qreal y = 0;
    for (int line = 0; line < ClipboardEntryListModel::rowLines; ++line) {
        QTextLine next = layout.createLine();
        if (!next.isValid()) {
            break;
        }
        next.setLineWidth(width);
        next.setPosition(QPointF(0, y));
        y += next.height();
    }
    layout.endLayout();

    const QPointF origin(row.left() + padding, row.top() + padding);
    const int lineCount = layout.lineCount();
    const QTextLine last = lineCount > 0 ? layout.lineAt(lineCount - 1) : QTextLine();
    const bool cut = last.isValid() && (last.textStart() + last.textLength() < text.size() ||
                                        index.data(ClipboardEntryListModel::charsRole).toInt() > text.size());
    painter->setPen(palette.color(QPalette::Text));
    for (int line = 0; line < lineCount; ++line) {
        const QTextLine each = layout.lineAt(line);
        if (line == lineCount - 1 && cut) {
            // The last line shows that more follows.
            const QString rest = text.mid(each.textStart()).section(QChar::LineSeparator, 0, 0);
            painter->setFont(font);
            painter->drawText(QPointF(origin.x(), origin.y() + each.y() + metrics.ascent()),
                              metrics.elidedText(rest + QStringLiteral("…"), Qt::ElideRight, width));
        } else {
            each.draw(painter, origin);
        }
    }

    const QFont caption = captionFont(option.font);
    QColor grey = palette.color(QPalette::Text);
    grey.setAlphaF(0.55f);
    painter->setFont(caption);
    painter->setPen(grey);
    const int chars = index.data(ClipboardEntryListModel::charsRole).toInt();
    const QString count = QString::number(chars) + (m_language == UiLanguage::ru ? QStringLiteral(" симв.")
                                                                                 : QStringLiteral(" chars"));
    painter->drawText(QPointF(origin.x(), origin.y() + y + 4 + QFontMetricsF(caption).ascent()), count);

    for (int button = 0; button < m_buttons.size(); ++button) {
        const Button& spec = m_buttons.at(button);
        const QColor ink = spec.destructive ? QColor(220, 60, 50) : palette.color(QPalette::ButtonText);
        QIcon(SymbolIcons::drawn(spec.symbol, ink, 16))
            .paint(painter, buttonRect(option.rect.adjusted(2, 2, -2, -2), button).adjusted(3, 3, -3, -3));
    }
    painter->restore();
}
