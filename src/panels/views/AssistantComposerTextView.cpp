#include "panels/views/AssistantComposerTextView.h"

#include <QKeyEvent>

AssistantComposerTextView::AssistantComposerTextView(QWidget* parent) : QPlainTextEdit(parent)
{
    setUndoRedoEnabled(true);
    setTabChangesFocus(true);
    QFont font = this->font();
    font.setPointSize(11);
    font.setWeight(QFont::Medium);
    setFont(font);
    setMinimumHeight(34);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(6);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

bool AssistantComposerTextView::submits(Qt::KeyboardModifiers modifiers)
{
    return !(modifiers & (Qt::ShiftModifier | Qt::AltModifier));
}

void AssistantComposerTextView::setTextIfDifferent(const QString& text)
{
    if (toPlainText() != text) {
        setPlainText(text);
        moveCursor(QTextCursor::End);
    }
}

void AssistantComposerTextView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    if (!submits(event->modifiers())) {
        // A line break whichever of the two is held; Qt would turn Shift+Enter into a line separator.
        insertPlainText(QStringLiteral("\n"));
        return;
    }
    if (onSubmit) {
        onSubmit();
    }
}
