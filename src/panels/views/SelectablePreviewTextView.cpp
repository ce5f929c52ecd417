#include "panels/views/SelectablePreviewTextView.h"

#include <QTextCursor>
#include <algorithm>

SelectablePreviewTextView::SelectablePreviewTextView(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setAttribute(Qt::WA_TranslucentBackground);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(10);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void SelectablePreviewTextView::present(const QString& text, const QString& placeholder, double fontSize)
{
    if (placeholderText() != placeholder) {
        setPlaceholderText(placeholder);
    }
    if (font().pointSizeF() != fontSize) {
        QFont resized = font();
        resized.setPointSizeF(fontSize);
        setFont(resized);
    }
    if (toPlainText() == text) {
        return;
    }
    const QTextCursor before = textCursor();
    setPlainText(text);
    const int length = int(text.size());
    QTextCursor restored(document());
    restored.setPosition(std::min(before.anchor(), length));
    restored.setPosition(std::min(before.position(), length), QTextCursor::KeepAnchor);
    setTextCursor(restored);
}
