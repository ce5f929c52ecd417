#pragma once

#include "clipboard/ClipboardEntryListModel.h"
#include "clipboard/ClipboardHistoryItem.h"
#include "clipboard/ClipboardNoteTab.h"
#include "clipboard/ClipboardPanelSurface.h"
#include "core/Clock.h"
#include "core/UiLanguage.h"
#include "panels/LazyPanel.h"
#include "panels/SavedPanelSize.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <qcoro/qcorotask.h>

class ApplicationWorkspace;
class ClipboardHistoryService;
class ClipboardNotesService;
class DefaultsStore;
class FloatingPanelDismissMonitor;
class FocusService;
class InputEventMonitor;
class MivoraAppState;
class Pasteboard;
class TextExchange;

// The behaviour of the clipboard panel: the history and the note tabs behind one tab strip, the search,
// the selection, the note editor, and the paste back into the application the user was working in. The
// view only draws this state and forwards the user's gestures. GUI thread.
class ClipboardPanelController : public QObject {
    Q_OBJECT
public:
    struct Services {
        Clock& clock;
        DefaultsStore& defaults;
        ClipboardHistoryService& history;
        ClipboardNotesService& notes;
        Pasteboard& pasteboard;
        TextExchange& exchange;
        FocusService& focus;
        ApplicationWorkspace& workspace;
        // Both may be null: the panel is then dismissed only by its own controls.
        InputEventMonitor* localEvents = nullptr;
        InputEventMonitor* globalEvents = nullptr;
    };
    using SurfaceFactory = std::function<std::unique_ptr<ClipboardPanelSurface>(ClipboardPanelController&)>;
    enum class FocusTarget { search, noteEditor, tabName };

    static constexpr double minimumFontSize = 12;
    static constexpr double maximumFontSize = 28;
    static constexpr double defaultFontSize = 13;
    // From this content width on, a preview stands beside the list.
    static constexpr int sidePreviewFromWidth = 560;
    static constexpr Clock::Duration pasteDelay{120};
    static constexpr Clock::Duration noteCopySuppression{1200};
    static SavedPanelSize::Limits panelSizeLimits() { return {{340, 380}, {760, 860}, {380, 520}}; }
    static QString clipboardTabId() { return QStringLiteral("__clipboard__"); }
    static QString fontSizeKey() { return QStringLiteral("mivora.clipboardPanel.fontSize"); }
    // The preview's width beside the list for a content area this wide; 0 when there is no room for one.
    static int sidePreviewWidth(int contentWidth);

    ClipboardPanelController(Services services, SurfaceFactory makeSurface, QObject* parent = nullptr);
    ~ClipboardPanelController() override;

    // Follows the state's appearance, surface and language from now on and reports pastes there.
    void attach(MivoraAppState& appState);

    // Hides a shown panel, shows a hidden one.
    void toggle();
    // Remembers the application in front as the paste target, then shows the panel (near the mouse unless
    // it was up already) with the dismissal watching.
    void show();
    // The close button, Escape, an outside click: the panel goes, its state stays.
    void hide();
    bool isShown() const;
    const std::optional<QString>& pasteTarget() const { return m_pasteTarget; }
    // Hides the panel and, 0.12 s later, pastes text into the remembered application; the outcome goes to
    // the status overlay.
    void pasteFromHistory(const QString& text);
    // The size store the panel's window keeps its size in.
    std::unique_ptr<SavedPanelSize> makePanelSizeStore() const;

    UiLanguage language() const { return m_language; }
    QString text(const char* english, const char* russian) const
    {
        return localized(m_language, english, russian);
    }
    AppearanceMode appearance() const { return m_appearance; }
    SurfaceMode surface() const { return m_surfaceMode; }

    // The rows of the selected tab after the search, for the list view.
    ClipboardEntryListModel& entries() { return m_entries; }
    const ClipboardEntryListModel& entries() const { return m_entries; }
    QList<ClipboardHistoryItem> filteredHistoryItems() const;
    QList<ClipboardNoteItem> filteredNotes() const;
    bool isClipboardTabSelected() const { return m_selectedTabId == clipboardTabId(); }
    const QString& selectedTabId() const { return m_selectedTabId; }
    bool hasHistory() const;
    const QList<ClipboardNoteTab>& noteTabs() const;

    // Selection. The item with the selected id, else the first of the history.
    std::optional<ClipboardHistoryItem> selectedItem() const;
    // The note of the selected tab with the selected id, else the tab's first.
    std::optional<ClipboardNoteItem> selectedNote() const;
    const std::optional<QString>& selectedItemId() const { return m_selectedItemId; }
    const std::optional<QString>& selectedNoteId() const { return m_selectedNoteId; }
    // A click or hover on a row of the present list.
    void selectEntry(const QString& id);
    // Up and down through the filtered list; from the top when the selection is not in it.
    void moveSelection(int delta);
    // Return in the search field: pastes the selected row of the filtered list, if any.
    void pasteSelectedEntry();
    // A double click or the paste button of a row.
    void pasteEntry(const QString& id);
    void deleteEntry(const QString& id);

    // Search and the two-step delete of what it found.
    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text);
    void clearSearch();
    bool canDeleteFound() const;
    bool isDeleteFoundArmed() const { return m_confirmDeleteFound; }
    // First press arms, the second deletes everything found.
    void pressDeleteFound();
    void deleteFiltered();
    void clearHistory();

    double contentFontSize() const { return m_contentFontSize; }
    // Clamped to 12…28 and stored when it changes.
    void setContentFontSize(double size);

    // Tabs.
    void selectTab(const QString& id);
    void addTabAndStartRename();
    void startRenameTab();
    const std::optional<QString>& renamingTabId() const { return m_renamingTabId; }
    const QString& tabTitleDraft() const { return m_tabTitleDraft; }
    void setTabTitleDraft(const QString& title) { m_tabTitleDraft = title; }
    void finishRenameTab();
    void deleteCurrentTab();
    QString selectedTabTitle() const;

    // Notes.
    void startNewNote();
    void startEditNote(const QString& noteId);
    bool isEditingNote() const { return m_isEditingNote; }
    const std::optional<QString>& editingNoteId() const { return m_editingNoteId; }
    const QString& noteDraft() const { return m_noteDraft; }
    void setNoteDraft(const QString& text);
    bool canSaveNoteDraft() const { return !m_noteDraft.trimmed().isEmpty(); }
    void saveNoteDraft();
    void cancelNoteEditing();
    void deleteNote(const QString& noteId);
    // Puts the note on the clipboard without it entering the history.
    void copyNote(const QString& noteId);
    // "To note": the history item becomes a note of the first tab, and the panel moves there.
    void saveClipboardItemAsNote(const QString& itemId);

signals:
    // Tabs, search, arming, editor, renaming, font, language or look changed.
    void stateChanged();
    void selectionChanged();
    // One event-loop turn after a rename or a new note starts, and at each show.
    void focusRequested(ClipboardPanelController::FocusTarget target);

private:
    void historyChanged();
    void tabsChanged();
    void refreshEntries();
    void syncSelectionToModel();
    // The selected row of the present tab after the fallbacks.
    std::optional<QString> effectiveSelectedId() const;
    void syncAppearance();
    void leaveEditing();
    void requestFocus(FocusTarget target);
    QString newTabTitle(bool numberedWhenAnyTabExists) const;
    std::optional<QString> firstNoteId(const QString& tabId) const;
    bool tabExists(const QString& id) const;
    QCoro::Task<> paste(QString text, std::optional<QString> target);

    Services m_services;
    // Before the panel, which shows it: the panel's list goes first.
    ClipboardEntryListModel m_entries;
    LazyPanel<ClipboardPanelSurface> m_panel;
    std::unique_ptr<FloatingPanelDismissMonitor> m_dismissMonitor;
    QPointer<MivoraAppState> m_appState;
    UiLanguage m_language = UiLanguage::en;
    AppearanceMode m_appearance = AppearanceMode::system;
    SurfaceMode m_surfaceMode = SurfaceMode::translucent;
    std::optional<QString> m_pasteTarget;

    // The last search and the ids it matched, so typing on narrows the previous result instead of reading
    // every text again.
    QString m_lastNeedle;
    QString m_lastNeedleTabId;
    QList<ClipboardListEntry> m_lastMatches;
    bool m_sourceChanged = true;

    std::optional<QString> m_selectedItemId;
    QString m_selectedTabId = clipboardTabId();
    std::optional<QString> m_selectedNoteId;
    QString m_searchText;
    bool m_confirmDeleteFound = false;
    bool m_isEditingNote = false;
    std::optional<QString> m_editingNoteId;
    QString m_noteDraft;
    std::optional<QString> m_renamingTabId;
    QString m_tabTitleDraft;
    double m_contentFontSize = defaultFontSize;
    ClockTimer m_focusTimer;
};
