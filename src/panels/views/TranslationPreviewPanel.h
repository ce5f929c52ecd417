#pragma once

#include "panels/views/ResizableKeyPanel.h"

class FloatingPanelDismissMonitor;
class InputEventMonitor;
class QComboBox;
class QLabel;
class QProgressBar;
class QToolButton;
class QWidget;
class QtLocalInputMonitor;
class SelectablePreviewTextView;
class TranslationPreviewPanelController;

// The translation preview's window: header with the language and text size, the original and the
// translation side by side, and the clipboard, copy and insert buttons. Escape or a click elsewhere hides it.
class TranslationPreviewPanel : public ResizableKeyPanel {
    Q_OBJECT
public:
    // The controller and globalInput must outlive the panel; windowTraits may be null.
    TranslationPreviewPanel(TranslationPreviewPanelController& controller, FloatingWindowTraits* windowTraits,
                            InputEventMonitor& globalInput, QWidget* parent = nullptr);
    ~TranslationPreviewPanel() override;

    void present() override;

protected:
    // However the panel goes (Escape, a click elsewhere, a paste, the window manager's close), its monitors
    // go with it.
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeButtons();
    void refresh();

    TranslationPreviewPanelController& m_controller;
    std::unique_ptr<QtLocalInputMonitor> m_localInput;
    std::unique_ptr<FloatingPanelDismissMonitor> m_dismiss;

    QLabel* m_titleIcon = nullptr;
    QLabel* m_title = nullptr;
    QProgressBar* m_spinner = nullptr;
    QToolButton* m_sourceToggle = nullptr;
    QComboBox* m_language = nullptr;
    QWidget* m_fontControls = nullptr;
    QToolButton* m_smaller = nullptr;
    QToolButton* m_larger = nullptr;
    QWidget* m_sourcePane = nullptr;
    QLabel* m_sourceTitle = nullptr;
    SelectablePreviewTextView* m_source = nullptr;
    QLabel* m_resultTitle = nullptr;
    SelectablePreviewTextView* m_result = nullptr;
    QLabel* m_error = nullptr;
    QToolButton* m_fromClipboard = nullptr;
    QToolButton* m_copy = nullptr;
    QToolButton* m_insert = nullptr;
};
