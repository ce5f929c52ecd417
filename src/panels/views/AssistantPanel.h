#pragma once

#include "panels/views/ResizableKeyPanel.h"

#include <QList>
#include <QUuid>

class AssistantComposerTextView;
class AssistantPanelController;
class QLabel;
class QListWidget;
class QScrollArea;
class QToolButton;
class QVBoxLayout;
class QWidget;

// The assistant's window: header, transcript, error line, and either the composer (chat) or the reply
// actions with their language list. Everything it shows comes from the controller.
class AssistantPanel : public ResizableKeyPanel {
    Q_OBJECT
public:
    // The controller must outlive the panel; windowTraits may be null.
    AssistantPanel(AssistantPanelController& controller, FloatingWindowTraits* windowTraits,
                   QWidget* parent = nullptr);

    bool isLanguageListVisible() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeHeader();
    QWidget* makeComposer();
    QWidget* makeReplyActions();
    void makeLanguageList();
    void refresh();
    void rebuildTranscript();
    void setLanguageListVisible(bool visible);
    void placeLanguageList();
    void scrollToBottomLater();

    AssistantPanelController& m_controller;

    QLabel* m_headerIcon = nullptr;
    QLabel* m_title = nullptr;
    QToolButton* m_newChat = nullptr;
    QToolButton* m_styleMenu = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_transcript = nullptr;
    QVBoxLayout* m_transcriptLayout = nullptr;
    QLabel* m_placeholder = nullptr;
    QLabel* m_error = nullptr;
    QWidget* m_composer = nullptr;
    QToolButton* m_contextToggle = nullptr;
    QLabel* m_contextChars = nullptr;
    QToolButton* m_pasteResult = nullptr;
    AssistantComposerTextView* m_editor = nullptr;
    QToolButton* m_send = nullptr;
    QWidget* m_replyActions = nullptr;
    QToolButton* m_regenerate = nullptr;
    QToolButton* m_emojis = nullptr;
    QToolButton* m_language = nullptr;
    QToolButton* m_translate = nullptr;
    QToolButton* m_copy = nullptr;
    QToolButton* m_paste = nullptr;
    QListWidget* m_languageList = nullptr;

    // What the transcript shows now, to rebuild it only when it changed.
    QList<QUuid> m_shownTurns;
    std::optional<QUuid> m_shownCopied;
    bool m_shownRunning = false;
};
