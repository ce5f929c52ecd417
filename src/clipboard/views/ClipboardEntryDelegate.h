#pragma once

#include "core/UiLanguage.h"

#include <QStyledItemDelegate>

// Paints one row of the clipboard panel: up to four lines of the entry's text, its character count and a
// row of symbol buttons. Rows are measured without laying their text out, so a long list lays out fast.
class ClipboardEntryDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    struct Button {
        QString symbol;
        QString help;
        bool destructive = false;
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void setButtons(QList<Button> buttons) { m_buttons = std::move(buttons); }
    void setFontSize(double pixels) { m_fontSize = pixels; }
    void setLanguage(UiLanguage language) { m_language = language; }
    // The width rows are laid out in; the list sets it as it resizes.
    void setAvailableWidth(int width) { m_width = width; }
    int availableWidth() const { return m_width; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The button under pos in a row drawn in rowRect, or -1.
    int buttonAt(const QRect& rowRect, QPoint pos) const;
    QString helpOf(int button) const
    {
        return button >= 0 && button < m_buttons.size() ? m_buttons.at(button).help : QString();
    }

private:
    QRect buttonRect(const QRect& rowRect, int button) const;
    QFont textFont(const QFont& base) const;
    QFont captionFont(const QFont& base) const;
    int textWidth(int rowWidth) const;

    QList<Button> m_buttons;
    double m_fontSize = 13;
    UiLanguage m_language = UiLanguage::en;
    int m_width = 300;
};
