#include "clipboard/ClipboardPanelController.h"

#include "clipboard/ClipboardHistoryService.h"
#include "clipboard/ClipboardNotesService.h"
#include "core/DefaultsStore.h"
#include "core/MivoraAppState.h"
#include "core/MivoraError.h"
#include "core/PasteboardTiming.h"
#include "core/TextExchange.h"
#include "exchange/FocusService.h"
#include "panels/FloatingPanelDismissMonitor.h"
#include "platform/ApplicationWorkspace.h"
#include "platform/Pasteboard.h"

#include <QHash>
#include <algorithm>

namespace {

// Case-insensitive by Unicode case folding, which covers the scripts the interface speaks.
bool matches(const QString& text, const QString& needle)
{
    return text.contains(needle, Qt::CaseInsensitive);
}

// Rows compare by identity and by the text they share with the stores, never by reading whole texts.
bool sameRows(const QList<ClipboardListEntry>& a, const QList<ClipboardListEntry>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.id == y.id && x.chars == y.chars && x.text.size() == y.text.size() &&
               (x.text.constData() == y.text.constData() || x.text == y.text);
    });
}

} // namespace

int ClipboardPanelController::sidePreviewWidth(int contentWidth)
{
    if (contentWidth < sidePreviewFromWidth) {
        return 0;
    }
    return std::max(int(contentWidth * 0.45), 240);
}

ClipboardPanelController::ClipboardPanelController(Services services, SurfaceFactory makeSurface,
                                                   QObject* parent)
    : QObject(parent), m_services(services),
      m_panel([this, makeSurface = std::move(makeSurface)] { return makeSurface(*this); })
{
    bool ok = false;
    const double stored = m_services.defaults.value(fontSizeKey()).toDouble(&ok);
    if (ok && stored >= minimumFontSize && stored <= maximumFontSize) {
        m_contentFontSize = stored;
    }
    connect(&m_services.history, &ClipboardHistoryService::itemsChanged, this,
            &ClipboardPanelController::historyChanged);
    connect(&m_services.notes, &ClipboardNotesService::tabsChanged, this,
            &ClipboardPanelController::tabsChanged);
    refreshEntries();
}

ClipboardPanelController::~ClipboardPanelController() = default;

void ClipboardPanelController::attach(MivoraAppState& appState)
{
    m_appState = &appState;
    connect(&appState, &MivoraAppState::settingsChanged, this, &ClipboardPanelController::syncAppearance);
    connect(&appState, &MivoraAppState::systemSurfaceModeChanged, this,
            &ClipboardPanelController::syncAppearance);
    syncAppearance();
}

void ClipboardPanelController::syncAppearance()
{
    if (!m_appState) {
        return;
    }
    const MivoraSettings& settings = m_appState->settings();
    const bool changed = m_language != settings.uiLanguage || m_appearance != settings.appearanceMode ||
                         m_surfaceMode != m_appState->systemSurfaceMode();
    m_language = settings.uiLanguage;
    m_appearance = settings.appearanceMode;
    m_surfaceMode = m_appState->systemSurfaceMode();
    if (ClipboardPanelSurface* panel = m_panel.ifMade()) {
        panel->setLook(m_appearance, m_surfaceMode);
    }
    if (changed) {
        emit stateChanged();
    }
}

// MARK: the window

void ClipboardPanelController::toggle()
{
    if (isShown()) {
        hide();
    } else {
        show();
    }
}

void ClipboardPanelController::show()
{
    // The panel doesn't take the application in front from the user until it appears, so that application
    // is still the one to paste back into.
    if (const std::optional<RunningApplication> front = m_services.workspace.frontmostApplication()) {
        m_services.focus.remember(*front);
    }
    m_pasteTarget = m_services.focus.rememberedBundleIdentifier();
    syncAppearance();

    const bool wasShown = isShown();
    ClipboardPanelSurface& panel = m_panel.get();
    panel.setLook(m_appearance, m_surfaceMode);
    if (!m_dismissMonitor && m_services.localEvents != nullptr && m_services.globalEvents != nullptr) {
        m_dismissMonitor = std::make_unique<FloatingPanelDismissMonitor>(
            *m_services.localEvents, *m_services.globalEvents,
            FloatingPanelDismissMonitor::Panel{panel.windowIdentity(), [this] { return isShown(); }},
            [this] { hide(); });
    }
    if (!m_selectedItemId && hasHistory()) {
        m_selectedItemId = m_services.history.items().constFirst().id;
    }
    tabsChanged();
    panel.present(!wasShown);
    if (m_dismissMonitor) {
        m_dismissMonitor->remove();
        m_dismissMonitor->install();
    }
    if (!m_isEditingNote && !m_renamingTabId) {
        emit focusRequested(FocusTarget::search);
    }
}

void ClipboardPanelController::hide()
{
    if (m_dismissMonitor) {
        m_dismissMonitor->remove();
    }
    if (ClipboardPanelSurface* panel = m_panel.ifMade()) {
        panel->orderOut();
    }
}

bool ClipboardPanelController::isShown() const
{
    const ClipboardPanelSurface* panel = m_panel.ifMade();
    return panel != nullptr && panel->isShown();
}

std::unique_ptr<SavedPanelSize> ClipboardPanelController::makePanelSizeStore() const
{
    return std::make_unique<SavedPanelSize>(m_services.defaults, QStringLiteral("mivora.clipboardPanel"),
                                            panelSizeLimits());
}

void ClipboardPanelController::pasteFromHistory(const QString& text)
{
    const std::optional<QString> target = m_pasteTarget;
    hide();
    paste(text, target);
}

QCoro::Task<> ClipboardPanelController::paste(QString text, std::optional<QString> target)
{
    const QPointer<ClipboardPanelController> self(this);
    // The panel's window has to be gone before the target takes the keyboard back.
    co_await m_services.clock.sleep(pasteDelay);
    if (!self) {
        co_return;
    }
    ActionStatus status;
    try {
        co_await m_services.exchange.pasteTransient(text, target, PasteboardTiming::standardTiming());
        status = ActionStatus::done(localized(m_language, "Pasted", "Вставлено"));
    } catch (const MivoraError& error) {
        status = ActionStatus::failed(error.errorDescription());
    }
    if (self && m_appState) {
        m_appState->publishStatus(status);
    }
}

// MARK: lists and selection

bool ClipboardPanelController::hasHistory() const
{
    return !m_services.history.items().isEmpty();
}

const QList<ClipboardNoteTab>& ClipboardPanelController::noteTabs() const
{
    return m_services.notes.tabs();
}

void ClipboardPanelController::historyChanged()
{
    const QList<ClipboardHistoryItem>& items = m_services.history.items();
    const bool stillThere =
        m_selectedItemId && std::any_of(items.begin(), items.end(), [this](const ClipboardHistoryItem& item) {
            return item.id == *m_selectedItemId;
        });
    if (items.isEmpty()) {
        m_selectedItemId.reset();
    } else if (!stillThere) {
        m_selectedItemId = items.constFirst().id;
    }
    if (isClipboardTabSelected()) {
        m_sourceChanged = true;
    }
    refreshEntries();
    emit selectionChanged();
    emit stateChanged();
}

void ClipboardPanelController::tabsChanged()
{
    if (!isClipboardTabSelected() && !tabExists(m_selectedTabId)) {
        const QList<ClipboardNoteTab>& tabs = m_services.notes.tabs();
        m_selectedTabId = tabs.isEmpty() ? clipboardTabId() : tabs.constFirst().id;
    }
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    const bool noteThere =
        tab && m_selectedNoteId &&
        std::any_of(tab->notes.begin(), tab->notes.end(),
                    [this](const ClipboardNoteItem& note) { return note.id == *m_selectedNoteId; });
    if (!noteThere) {
        m_selectedNoteId = firstNoteId(m_selectedTabId);
    }
    if (!isClipboardTabSelected()) {
        m_sourceChanged = true;
    }
    refreshEntries();
    emit selectionChanged();
    emit stateChanged();
}

void ClipboardPanelController::refreshEntries()
{
    const QString needle = m_searchText.trimmed();
    const bool narrowing = !m_sourceChanged && m_lastNeedleTabId == m_selectedTabId &&
                           !m_lastNeedle.isEmpty() && needle.contains(m_lastNeedle, Qt::CaseInsensitive);
    QList<ClipboardListEntry> rows;
    if (narrowing) {
        for (const ClipboardListEntry& entry : std::as_const(m_lastMatches)) {
            if (matches(entry.text, needle)) {
                rows.append(entry);
            }
        }
    } else if (isClipboardTabSelected()) {
        for (const ClipboardHistoryItem& item : m_services.history.items()) {
            if (needle.isEmpty() || matches(item.text, needle)) {
                rows.append({item.id, item.text, item.chars});
            }
        }
    } else if (const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId)) {
        for (const ClipboardNoteItem& note : tab->notes) {
            if (needle.isEmpty() || matches(note.text, needle)) {
                rows.append({note.id, note.text, ClipboardHistoryItem::characterCount(note.text)});
            }
        }
    }
    m_sourceChanged = false;
    m_lastNeedle = needle;
    m_lastNeedleTabId = m_selectedTabId;
    m_lastMatches = rows;
    if (!sameRows(rows, m_entries.entries())) {
        m_entries.setEntries(std::move(rows));
    }
    syncSelectionToModel();
}

std::optional<QString> ClipboardPanelController::effectiveSelectedId() const
{
    if (isClipboardTabSelected()) {
        const std::optional<ClipboardHistoryItem> item = selectedItem();
        return item ? std::optional(item->id) : std::nullopt;
    }
    const std::optional<ClipboardNoteItem> note = selectedNote();
    return note ? std::optional(note->id) : std::nullopt;
}

void ClipboardPanelController::syncSelectionToModel()
{
    m_entries.setSelectedId(effectiveSelectedId());
}

QList<ClipboardHistoryItem> ClipboardPanelController::filteredHistoryItems() const
{
    if (!isClipboardTabSelected()) {
        return {};
    }
    QSet<QString> ids;
    for (const ClipboardListEntry& entry : m_entries.entries()) {
        ids.insert(entry.id);
    }
    QList<ClipboardHistoryItem> items;
    for (const ClipboardHistoryItem& item : m_services.history.items()) {
        if (ids.contains(item.id)) {
            items.append(item);
        }
    }
    return items;
}

QList<ClipboardNoteItem> ClipboardPanelController::filteredNotes() const
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    if (!tab) {
        return {};
    }
    QList<ClipboardNoteItem> notes;
    for (const ClipboardNoteItem& note : tab->notes) {
        if (m_entries.rowOf(note.id) >= 0) {
            notes.append(note);
        }
    }
    return notes;
}

std::optional<ClipboardHistoryItem> ClipboardPanelController::selectedItem() const
{
    const QList<ClipboardHistoryItem>& items = m_services.history.items();
    if (m_selectedItemId) {
        for (const ClipboardHistoryItem& item : items) {
            if (item.id == *m_selectedItemId) {
                return item;
            }
        }
    }
    return items.isEmpty() ? std::nullopt : std::optional(items.constFirst());
}

std::optional<ClipboardNoteItem> ClipboardPanelController::selectedNote() const
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    if (!tab || tab->notes.isEmpty()) {
        return std::nullopt;
    }
    if (m_selectedNoteId) {
        for (const ClipboardNoteItem& note : tab->notes) {
            if (note.id == *m_selectedNoteId) {
                return note;
            }
        }
    }
    return tab->notes.constFirst();
}

void ClipboardPanelController::selectEntry(const QString& id)
{
    std::optional<QString>& selected = isClipboardTabSelected() ? m_selectedItemId : m_selectedNoteId;
    if (selected == id) {
        return;
    }
    selected = id;
    syncSelectionToModel();
    emit selectionChanged();
}

void ClipboardPanelController::moveSelection(int delta)
{
    const QList<ClipboardListEntry>& rows = m_entries.entries();
    if (rows.isEmpty()) {
        return;
    }
    const std::optional<QString> selected = effectiveSelectedId();
    const int row = selected ? m_entries.rowOf(*selected) : -1;
    const int next = row < 0 ? 0 : std::clamp(row + delta, 0, int(rows.size()) - 1);
    selectEntry(rows.at(next).id);
}

void ClipboardPanelController::pasteSelectedEntry()
{
    const QList<ClipboardListEntry>& rows = m_entries.entries();
    if (rows.isEmpty()) {
        return;
    }
    const std::optional<QString> selected = effectiveSelectedId();
    const int row = selected ? m_entries.rowOf(*selected) : -1;
    pasteFromHistory(rows.at(std::max(row, 0)).text);
}

void ClipboardPanelController::pasteEntry(const QString& id)
{
    const int row = m_entries.rowOf(id);
    if (row >= 0) {
        pasteFromHistory(m_entries.entries().at(row).text);
    }
}

void ClipboardPanelController::deleteEntry(const QString& id)
{
    if (isClipboardTabSelected()) {
        m_services.history.removeItem(id);
    } else {
        deleteNote(id);
    }
}

// MARK: search

void ClipboardPanelController::setSearchText(const QString& text)
{
    if (text == m_searchText) {
        return;
    }
    m_searchText = text;
    m_confirmDeleteFound = false;
    refreshEntries();
    emit stateChanged();
}

void ClipboardPanelController::clearSearch()
{
    m_confirmDeleteFound = false;
    setSearchText(QString());
    emit stateChanged();
}

bool ClipboardPanelController::canDeleteFound() const
{
    return !m_searchText.isEmpty() && m_entries.rowCount() > 0;
}

void ClipboardPanelController::pressDeleteFound()
{
    if (!m_confirmDeleteFound) {
        m_confirmDeleteFound = true;
        emit stateChanged();
        return;
    }
    deleteFiltered();
}

void ClipboardPanelController::deleteFiltered()
{
    const QList<ClipboardListEntry> rows = m_entries.entries();
    if (!rows.isEmpty() && isClipboardTabSelected()) {
        QSet<QString> ids;
        for (const ClipboardListEntry& row : rows) {
            ids.insert(row.id);
        }
        m_services.history.removeItems(ids);
    } else {
        const QString tabId = m_selectedTabId;
        for (const ClipboardListEntry& row : rows) {
            m_services.notes.deleteNote(tabId, row.id);
        }
    }
    clearSearch();
}

void ClipboardPanelController::clearHistory()
{
    m_services.history.clearHistory();
}

void ClipboardPanelController::setContentFontSize(double size)
{
    const double clamped = std::clamp(size, minimumFontSize, maximumFontSize);
    if (clamped == m_contentFontSize) {
        return;
    }
    m_contentFontSize = clamped;
    m_services.defaults.setValue(fontSizeKey(), clamped);
    emit stateChanged();
}

// MARK: tabs

bool ClipboardPanelController::tabExists(const QString& id) const
{
    return m_services.notes.tab(id).has_value();
}

std::optional<QString> ClipboardPanelController::firstNoteId(const QString& tabId) const
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(tabId);
    if (!tab || tab->notes.isEmpty()) {
        return std::nullopt;
    }
    return tab->notes.constFirst().id;
}

QString ClipboardPanelController::newTabTitle(bool numberedWhenAnyTabExists) const
{
    const QString base = localized(m_language, "Notes", "Заметки");
    const QList<ClipboardNoteTab>& tabs = m_services.notes.tabs();
    const bool taken = numberedWhenAnyTabExists
                           ? !tabs.isEmpty()
                           : std::any_of(tabs.begin(), tabs.end(),
                                         [&base](const ClipboardNoteTab& tab) { return tab.title == base; });
    return taken ? base + u' ' + QString::number(tabs.size() + 1) : base;
}

QString ClipboardPanelController::selectedTabTitle() const
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    return tab ? tab->title : localized(m_language, "Clipboard", "Буфер");
}

void ClipboardPanelController::leaveEditing()
{
    m_isEditingNote = false;
    m_editingNoteId.reset();
    m_noteDraft.clear();
}

void ClipboardPanelController::selectTab(const QString& id)
{
    m_selectedTabId = id;
    leaveEditing();
    m_selectedNoteId = firstNoteId(id);
    refreshEntries();
    emit selectionChanged();
    emit stateChanged();
}

void ClipboardPanelController::addTabAndStartRename()
{
    const ClipboardNoteTab tab = m_services.notes.addTab(newTabTitle(false));
    m_renamingTabId = tab.id;
    m_tabTitleDraft = tab.title;
    selectTab(tab.id);
    requestFocus(FocusTarget::tabName);
}

void ClipboardPanelController::startRenameTab()
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    if (!tab) {
        return;
    }
    m_renamingTabId = tab->id;
    m_tabTitleDraft = tab->title;
    emit stateChanged();
    requestFocus(FocusTarget::tabName);
}

void ClipboardPanelController::finishRenameTab()
{
    if (!m_renamingTabId) {
        return;
    }
    const QString id = *m_renamingTabId;
    const QString title = m_tabTitleDraft;
    m_renamingTabId.reset();
    m_tabTitleDraft.clear();
    m_services.notes.renameTab(id, title);
    emit stateChanged();
}

void ClipboardPanelController::deleteCurrentTab()
{
    if (isClipboardTabSelected()) {
        return;
    }
    m_services.notes.deleteTab(m_selectedTabId);
    const QList<ClipboardNoteTab>& tabs = m_services.notes.tabs();
    selectTab(tabs.isEmpty() ? clipboardTabId() : tabs.constFirst().id);
}

// MARK: notes

void ClipboardPanelController::startNewNote()
{
    if (isClipboardTabSelected()) {
        selectTab(m_services.notes.addTab(newTabTitle(true)).id);
    }
    m_editingNoteId.reset();
    m_noteDraft.clear();
    m_isEditingNote = true;
    emit stateChanged();
    requestFocus(FocusTarget::noteEditor);
}

void ClipboardPanelController::startEditNote(const QString& noteId)
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    if (!tab) {
        return;
    }
    for (const ClipboardNoteItem& note : tab->notes) {
        if (note.id == noteId) {
            m_selectedNoteId = note.id;
            m_editingNoteId = note.id;
            m_noteDraft = note.text;
            m_isEditingNote = true;
            syncSelectionToModel();
            emit selectionChanged();
            emit stateChanged();
            requestFocus(FocusTarget::noteEditor);
            return;
        }
    }
}

void ClipboardPanelController::setNoteDraft(const QString& text)
{
    const bool couldSave = canSaveNoteDraft();
    m_noteDraft = text;
    if (couldSave != canSaveNoteDraft()) {
        emit stateChanged();
    }
}

void ClipboardPanelController::saveNoteDraft()
{
    if (isClipboardTabSelected() || !canSaveNoteDraft()) {
        return;
    }
    if (m_editingNoteId) {
        const QString id = *m_editingNoteId;
        m_services.notes.updateNote(m_selectedTabId, id, m_noteDraft);
        m_selectedNoteId = id;
    } else if (const std::optional<ClipboardNoteItem> note =
                   m_services.notes.addNote(m_selectedTabId, m_noteDraft)) {
        m_selectedNoteId = note->id;
    }
    cancelNoteEditing();
    syncSelectionToModel();
    emit selectionChanged();
}

void ClipboardPanelController::cancelNoteEditing()
{
    leaveEditing();
    emit stateChanged();
}

void ClipboardPanelController::deleteNote(const QString& noteId)
{
    if (isClipboardTabSelected()) {
        return;
    }
    m_services.notes.deleteNote(m_selectedTabId, noteId);
    if (m_editingNoteId == noteId) {
        cancelNoteEditing();
    }
}

void ClipboardPanelController::copyNote(const QString& noteId)
{
    const std::optional<ClipboardNoteTab> tab = m_services.notes.tab(m_selectedTabId);
    if (!tab) {
        return;
    }
    for (const ClipboardNoteItem& note : tab->notes) {
        if (note.id == noteId) {
            // The user's own note is not clipboard history.
            m_services.history.suppressCapture(noteCopySuppression);
            m_services.pasteboard.clear();
            m_services.pasteboard.writeString(note.text);
            m_services.history.finishTransientPasteboardUse();
            return;
        }
    }
}

void ClipboardPanelController::saveClipboardItemAsNote(const QString& itemId)
{
    const QList<ClipboardHistoryItem>& items = m_services.history.items();
    const auto item = std::find_if(items.begin(), items.end(),
                                   [&itemId](const ClipboardHistoryItem& each) { return each.id == itemId; });
    if (item == items.end()) {
        return;
    }
    const QString text = item->text;
    const QList<ClipboardNoteTab>& tabs = m_services.notes.tabs();
    const QString target = tabs.isEmpty()
                               ? m_services.notes.addTab(localized(m_language, "Notes", "Заметки")).id
                               : tabs.constFirst().id;
    if (const std::optional<ClipboardNoteItem> note = m_services.notes.addNote(target, text)) {
        selectTab(target);
        m_selectedNoteId = note->id;
        syncSelectionToModel();
        emit selectionChanged();
    }
}

void ClipboardPanelController::requestFocus(FocusTarget target)
{
    // One turn later: the field the focus goes to appears with this very change.
    m_focusTimer =
        m_services.clock.schedule(Clock::Duration(0), [this, target] { emit focusRequested(target); });
}
