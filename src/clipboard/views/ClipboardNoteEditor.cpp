#include "clipboard/views/ClipboardNoteEditor.h"

#include "panels/views/SymbolIcons.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>

ClipboardNoteEditor::ClipboardNoteEditor(QWidget* parent)
    : QWidget(parent), m_heading(new QLabel(this)), m_text(new QPlainTextEdit(this)),
      m_cancel(new QPushButton(this)), m_save(new QPushButton(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    layout->addWidget(m_heading);
    layout->addWidget(m_text, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cancel);
    buttons->addWidget(m_save);
    layout->addLayout(buttons);
    m_save->setIcon(
        QIcon(SymbolIcons::drawn(QStringLiteral("checkmark"), palette().color(QPalette::ButtonText), 16)));
    m_cancel->setFocusPolicy(Qt::NoFocus);
    m_save->setFocusPolicy(Qt::NoFocus);
    m_text->installEventFilter(this);
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] { emit draftEdited(m_text->toPlainText()); });
    connect(m_cancel, &QPushButton::clicked, this, &ClipboardNoteEditor::cancelRequested);
    connect(m_save, &QPushButton::clicked, this, &ClipboardNoteEditor::saveRequested);
}

void ClipboardNoteEditor::setTexts(const QString& heading, const QString& cancel, const QString& save)
{
    m_heading->setText(heading);
    m_cancel->setText(cancel);
    m_save->setText(save);
}

void ClipboardNoteEditor::setDraft(const QString& draft, bool canSave, double fontSize)
{
    QFont font = m_text->font();
    if (font.pixelSize() != int(std::lround(fontSize))) {
        font.setPixelSize(int(std::lround(fontSize)));
        m_text->setFont(font);
    }
    if (m_text->toPlainText() != draft) {
        const QSignalBlocker quiet(m_text);
        m_text->setPlainText(draft);
        m_text->moveCursor(QTextCursor::End);
    }
    m_save->setEnabled(canSave);
}

void ClipboardNoteEditor::focusText()
{
    m_text->setFocus(Qt::OtherFocusReason);
}

bool ClipboardNoteEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_text && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape) {
            emit cancelRequested();
            return true;
        }
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            !key->modifiers().testFlag(Qt::ShiftModifier)) {
            emit saveRequested();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
