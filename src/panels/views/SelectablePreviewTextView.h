#pragma once

#include <QPlainTextEdit>

// Read-only, selectable plain text with a placeholder while it is empty. Showing the same text again keeps
// the user's selection.
class SelectablePreviewTextView : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit SelectablePreviewTextView(QWidget* parent = nullptr);

    void present(const QString& text, const QString& placeholder, double fontSize);
};
