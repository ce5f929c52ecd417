#pragma once

#include "clipboard/ClipboardPanelController.h"
#include "clipboard/ClipboardPanelSurface.h"
#include "panels/views/FloatingPanel.h"

class ClipboardEntryList;
class ClipboardNoteEditor;
class ClipboardSidePreview;
class ClipboardWindowDragHandle;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QStackedWidget;
class QToolButton;

// The clipboard panel's window: header, tab strip, note toolbar, search, and the list with its preview or
// the note editor. It draws the controller's state and forwards every gesture to it; nothing is decided
// here. GUI thread.
class ClipboardHistoryPanel : public FloatingPanel, public ClipboardPanelSurface {
    Q_OBJECT
public:
    ClipboardHistoryPanel(ClipboardPanelController& controller, FloatingWindowTraits* windowTraits);
    ~ClipboardHistoryPanel() override;

    void present(bool placeNearMouse) override;
    void orderOut() override;
    bool isShown() const override;
    const void* windowIdentity() const override;
    void setLook(AppearanceMode appearance, SurfaceMode surface) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildHeader(QHBoxLayout* header);
    void buildToolbar(QHBoxLayout* toolbar);
    void buildSearch(QHBoxLayout* search);
    void refresh();
    void refreshTabs();
    void refreshSelection();
    void placePreview();
    void applyFocus(ClipboardPanelController::FocusTarget target);
    void rowButton(const QString& id, int button);
    void previewAction(int action);
    QString charsText(int chars) const;

    ClipboardPanelController& m_controller;
    ClipboardWindowDragHandle* m_dragHandle = nullptr;
    QToolButton* m_smaller = nullptr;
    QToolButton* m_larger = nullptr;
    QToolButton* m_clearHistory = nullptr;
    QToolButton* m_close = nullptr;
    QWidget* m_tabStrip = nullptr;
    QHBoxLayout* m_tabs = nullptr;
    QStringList m_shownTabs;
    QLabel* m_tabName = nullptr;
    QLineEdit* m_tabNameField = nullptr;
    QToolButton* m_saveName = nullptr;
    QToolButton* m_rename = nullptr;
    QToolButton* m_deleteTab = nullptr;
    QToolButton* m_addNote = nullptr;
    QLineEdit* m_search = nullptr;
    QToolButton* m_clearSearch = nullptr;
    QToolButton* m_deleteFound = nullptr;
    QStackedWidget* m_content = nullptr;
    QLabel* m_empty = nullptr;
    QWidget* m_listPage = nullptr;
    ClipboardEntryList* m_list = nullptr;
    ClipboardSidePreview* m_preview = nullptr;
    ClipboardNoteEditor* m_editor = nullptr;
    double m_shownFontSize = 0;
    bool m_shownClipboardRows = false;
};
