#pragma once

#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;

// Writes a new note or edits one: Return saves (Shift+Return starts a new line), Escape cancels.
class ClipboardNoteEditor : public QWidget {
    Q_OBJECT
public:
    explicit ClipboardNoteEditor(QWidget* parent = nullptr);

    void setTexts(const QString& heading, const QString& cancel, const QString& save);
    // Replaces the text only when it differs, so the cursor stays while the user types.
    void setDraft(const QString& draft, bool canSave, double fontSize);
    void focusText();

signals:
    void draftEdited(const QString& draft);
    void saveRequested();
    void cancelRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* m_heading;
    QPlainTextEdit* m_text;
    QPushButton* m_cancel;
    QPushButton* m_save;
};
