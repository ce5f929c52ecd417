#pragma once

#include <QPlainTextEdit>
#include <functional>

// The assistant's request editor: plain text, where Enter sends and Shift+Enter or Alt+Enter break the line.
class AssistantComposerTextView : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit AssistantComposerTextView(QWidget* parent = nullptr);

    // Runs on Enter without Shift or Alt, after the text has been reported.
    std::function<void()> onSubmit;
    // Shows the text unless it already is what the editor holds, so the cursor stays put while typing.
    void setTextIfDifferent(const QString& text);
    void setPlaceholder(const QString& text) { setPlaceholderText(text); }

    // Whether Enter with these modifiers sends rather than breaks the line.
    static bool submits(Qt::KeyboardModifiers modifiers);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
