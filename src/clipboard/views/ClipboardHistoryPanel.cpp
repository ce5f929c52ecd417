#include "clipboard/views/ClipboardHistoryPanel.h"

#include "clipboard/views/ClipboardEntryDelegate.h"
#include "clipboard/views/ClipboardEntryList.h"
#include "clipboard/views/ClipboardNoteEditor.h"
#include "clipboard/views/ClipboardSidePreview.h"
#include "clipboard/views/ClipboardSymbols.h"
#include "clipboard/views/ClipboardWindowDragHandle.h"
#include "panels/views/SymbolIcons.h"
#include "platform/FloatingWindowTraits.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

enum Page { emptyPage, listPage, editorPage };

} // namespace

ClipboardHistoryPanel::ClipboardHistoryPanel(ClipboardPanelController& controller,
                                             FloatingWindowTraits* windowTraits)
    : FloatingPanel({QStringLiteral("Clipboard"), Role::keyPanel, 16}, windowTraits), m_controller(controller)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(8);

    auto* header = new QHBoxLayout;
    buildHeader(header);
    layout->addLayout(header);

    auto* strip = new QScrollArea(this);
    strip->setFrameShape(QFrame::NoFrame);
    strip->setWidgetResizable(true);
    strip->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    strip->setFixedHeight(40);
    // A click on a tab would otherwise give the strip the keyboard, and typing would no longer search.
    strip->setFocusPolicy(Qt::NoFocus);
    strip->setStyleSheet(
        QStringLiteral("QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }"));
    m_tabStrip = new QWidget(strip);
    m_tabs = new QHBoxLayout(m_tabStrip);
    m_tabs->setContentsMargins(0, 0, 0, 0);
    m_tabs->setSpacing(4);
    strip->setWidget(m_tabStrip);
    layout->addWidget(strip);

    auto* toolbar = new QHBoxLayout;
    buildToolbar(toolbar);
    layout->addLayout(toolbar);

    auto* search = new QHBoxLayout;
    buildSearch(search);
    layout->addLayout(search);

    m_content = new QStackedWidget(this);
    m_empty = new QLabel(m_content);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_listPage = new QWidget(m_content);
    auto* listLayout = new QHBoxLayout(m_listPage);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->setSpacing(0);
    m_list = new ClipboardEntryList(m_listPage);
    m_list->setModel(&m_controller.entries());
    m_preview = new ClipboardSidePreview(m_listPage);
    listLayout->addWidget(m_list, 1);
    listLayout->addWidget(m_preview);
    m_listPage->installEventFilter(this);
    m_editor = new ClipboardNoteEditor(m_content);
    m_content->insertWidget(emptyPage, m_empty);
    m_content->insertWidget(listPage, m_listPage);
    m_content->insertWidget(editorPage, m_editor);
    layout->addWidget(m_content, 1);

    connect(m_list, &ClipboardEntryList::entrySelected, &m_controller,
            &ClipboardPanelController::selectEntry);
    connect(m_list, &ClipboardEntryList::entryActivated, &m_controller,
            &ClipboardPanelController::pasteEntry);
    connect(m_list, &ClipboardEntryList::buttonClicked, this, &ClipboardHistoryPanel::rowButton);
    connect(m_preview, &ClipboardSidePreview::actionTriggered, this, &ClipboardHistoryPanel::previewAction);
    connect(m_editor, &ClipboardNoteEditor::draftEdited, &m_controller,
            &ClipboardPanelController::setNoteDraft);
    connect(m_editor, &ClipboardNoteEditor::saveRequested, &m_controller,
            &ClipboardPanelController::saveNoteDraft);
    connect(m_editor, &ClipboardNoteEditor::cancelRequested, &m_controller,
            &ClipboardPanelController::cancelNoteEditing);
    connect(&m_controller, &ClipboardPanelController::stateChanged, this, &ClipboardHistoryPanel::refresh);
    connect(&m_controller, &ClipboardPanelController::selectionChanged, this,
            &ClipboardHistoryPanel::refreshSelection);
    connect(&m_controller, &ClipboardPanelController::focusRequested, this,
            &ClipboardHistoryPanel::applyFocus);

    keepSizeIn(m_controller.makePanelSizeStore());
    FloatingPanel::setLook(m_controller.appearance(), m_controller.surface());
    refresh();
}

ClipboardHistoryPanel::~ClipboardHistoryPanel() = default;

void ClipboardHistoryPanel::buildHeader(QHBoxLayout* header)
{
    m_dragHandle = new ClipboardWindowDragHandle(this);
    header->addWidget(m_dragHandle, 1);
    m_smaller = ClipboardSymbols::button(QStringLiteral("minus"), this);
    m_larger = ClipboardSymbols::button(QStringLiteral("plus"), this);
    m_smaller->setText(QStringLiteral("A−"));
    m_larger->setText(QStringLiteral("A+"));
    for (QToolButton* button : {m_smaller, m_larger}) {
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        header->addWidget(button);
    }
    m_clearHistory = ClipboardSymbols::button(QStringLiteral("trash"), this);
    m_close = ClipboardSymbols::button(QStringLiteral("xmark"), this);
    header->addWidget(m_clearHistory);
    header->addWidget(m_close);
    connect(m_smaller, &QToolButton::clicked, this,
            [this] { m_controller.setContentFontSize(m_controller.contentFontSize() - 1); });
    connect(m_larger, &QToolButton::clicked, this,
            [this] { m_controller.setContentFontSize(m_controller.contentFontSize() + 1); });
    connect(m_clearHistory, &QToolButton::clicked, &m_controller, &ClipboardPanelController::clearHistory);
    connect(m_close, &QToolButton::clicked, &m_controller, &ClipboardPanelController::hide);
}

void ClipboardHistoryPanel::buildToolbar(QHBoxLayout* toolbar)
{
    m_tabName = new QLabel(this);
    QFont bold = m_tabName->font();
    bold.setBold(true);
    m_tabName->setFont(bold);
    m_tabNameField = new QLineEdit(this);
    m_tabNameField->setMaxLength(64);
    m_saveName = ClipboardSymbols::button(QStringLiteral("checkmark"), this);
    m_rename = ClipboardSymbols::button(QStringLiteral("pencil"), this);
    m_deleteTab = ClipboardSymbols::button(QStringLiteral("trash"), this);
    ClipboardSymbols::setSymbol(m_deleteTab, QStringLiteral("trash"), true);
    m_addNote = ClipboardSymbols::button(QStringLiteral("plus"), this);
    m_addNote->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolbar->addWidget(m_tabName);
    toolbar->addWidget(m_tabNameField, 1);
    toolbar->addWidget(m_saveName);
    toolbar->addWidget(m_rename);
    toolbar->addWidget(m_deleteTab);
    toolbar->addStretch();
    toolbar->addWidget(m_addNote);
    connect(m_tabNameField, &QLineEdit::textEdited, &m_controller,
            &ClipboardPanelController::setTabTitleDraft);
    connect(m_tabNameField, &QLineEdit::returnPressed, &m_controller,
            &ClipboardPanelController::finishRenameTab);
    connect(m_saveName, &QToolButton::clicked, &m_controller, &ClipboardPanelController::finishRenameTab);
    connect(m_rename, &QToolButton::clicked, &m_controller, &ClipboardPanelController::startRenameTab);
    connect(m_deleteTab, &QToolButton::clicked, &m_controller, &ClipboardPanelController::deleteCurrentTab);
    connect(m_addNote, &QToolButton::clicked, &m_controller, &ClipboardPanelController::startNewNote);
}

void ClipboardHistoryPanel::buildSearch(QHBoxLayout* search)
{
    auto* glass = new QLabel(this);
    glass->setPixmap(QIcon(SymbolIcons::drawn(QStringLiteral("magnifyingglass"),
                                              palette().color(QPalette::WindowText), 16))
                         .pixmap(16, 16));
    m_search = new QLineEdit(this);
    m_search->installEventFilter(this);
    m_clearSearch = ClipboardSymbols::button(QStringLiteral("xmark.circle.fill"), this);
    m_deleteFound = ClipboardSymbols::button(QStringLiteral("trash"), this);
    search->addWidget(glass);
    search->addWidget(m_search, 1);
    search->addWidget(m_clearSearch);
    search->addWidget(m_deleteFound);
    connect(m_search, &QLineEdit::textEdited, &m_controller, &ClipboardPanelController::setSearchText);
    connect(m_clearSearch, &QToolButton::clicked, &m_controller, &ClipboardPanelController::clearSearch);
    connect(m_deleteFound, &QToolButton::clicked, &m_controller, &ClipboardPanelController::pressDeleteFound);
}

void ClipboardHistoryPanel::present(bool placeNearMouse)
{
    if (placeNearMouse) {
        showNearMouse();
        return;
    }
    show();
    raise();
    activateWindow();
}

void ClipboardHistoryPanel::orderOut()
{
    hide();
}

bool ClipboardHistoryPanel::isShown() const
{
    return isVisible();
}

const void* ClipboardHistoryPanel::windowIdentity() const
{
    return static_cast<const QWidget*>(this);
}

void ClipboardHistoryPanel::setLook(AppearanceMode appearance, SurfaceMode surface)
{
    FloatingPanel::setLook(appearance, surface);
}

QString ClipboardHistoryPanel::charsText(int chars) const
{
    return QString::number(chars) + m_controller.text(" chars", " симв.");
}

void ClipboardHistoryPanel::refresh()
{
    const ClipboardPanelController& c = m_controller;
    const bool clipboardTab = c.isClipboardTabSelected();
    m_dragHandle->setTitle(c.text("Clipboard", "Буфер"));
    setWindowTitle(c.text("Clipboard", "Буфер"));
    const QString textSize = c.text("Text size", "Размер текста");
    m_smaller->setToolTip(textSize + QStringLiteral(": ") + c.text("Decrease text", "Уменьшить текст"));
    m_larger->setToolTip(textSize + QStringLiteral(": ") + c.text("Increase text", "Увеличить текст"));
    m_clearHistory->setVisible(clipboardTab);
    m_clearHistory->setEnabled(c.hasHistory());
    ClipboardSymbols::setSymbol(m_clearHistory, QStringLiteral("trash"), c.hasHistory());
    m_clearHistory->setToolTip(c.text("Clear clipboard history", "Очистить историю буфера"));
    m_close->setToolTip(c.text("Close", "Закрыть"));

    refreshTabs();
    const bool renaming = !clipboardTab && c.renamingTabId() == c.selectedTabId();
    m_tabName->setVisible(!clipboardTab && !renaming);
    m_tabName->setText(c.selectedTabTitle());
    m_tabNameField->setVisible(renaming);
    m_saveName->setVisible(renaming);
    if (renaming && m_tabNameField->text() != c.tabTitleDraft()) {
        m_tabNameField->setText(c.tabTitleDraft());
    }
    m_tabNameField->setPlaceholderText(c.text("Tab name", "Название вкладки"));
    m_saveName->setToolTip(c.text("Save name", "Сохранить название"));
    m_rename->setVisible(!clipboardTab);
    m_rename->setToolTip(c.text("Rename tab", "Переименовать вкладку"));
    m_deleteTab->setVisible(!clipboardTab);
    m_deleteTab->setToolTip(c.text("Delete tab", "Удалить вкладку"));
    m_addNote->setText(c.text("Add note", "Добавить заметку"));
    m_addNote->setToolTip(m_addNote->text());

    m_search->setPlaceholderText(c.text("Search", "Поиск"));
    if (m_search->text() != c.searchText()) {
        m_search->setText(c.searchText());
    }
    m_clearSearch->setVisible(!c.searchText().isEmpty());
    m_clearSearch->setToolTip(c.text("Clear search", "Очистить поиск"));
    m_deleteFound->setVisible(c.canDeleteFound());
    if (c.isDeleteFoundArmed()) {
        m_deleteFound->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        m_deleteFound->setText(c.text("Delete", "Удалить") + u' ' + QString::number(c.entries().rowCount()));
        m_deleteFound->setToolTip(
            c.text("Tap again to delete all found", "Нажми ещё раз — удалить всё найденное"));
    } else {
        m_deleteFound->setToolButtonStyle(Qt::ToolButtonIconOnly);
        m_deleteFound->setToolTip(c.text("Delete all found", "Удалить всё найденное"));
    }
    ClipboardSymbols::setSymbol(m_deleteFound, QStringLiteral("trash"), c.isDeleteFoundArmed());

    ClipboardEntryDelegate& rows = m_list->delegate();
    rows.setLanguage(c.language());
    if (clipboardTab) {
        rows.setButtons({{QStringLiteral("arrow.turn.down.left"), c.text("Paste", "Вставить")},
                         {QStringLiteral("trash"), c.text("Delete", "Удалить"), true}});
        m_preview->setFrame(c.text("Preview", "Просмотр"),
                            {{QStringLiteral("arrow.turn.down.left"), c.text("Paste", "Вставить")},
                             {QStringLiteral("plus.square.on.square"), c.text("To note", "В заметку")},
                             {QStringLiteral("trash"), c.text("Delete", "Удалить"), true}},
                            c.text("Select a clipboard item.", "Выберите элемент буфера."));
    } else {
        rows.setButtons({{QStringLiteral("arrow.turn.down.left"), c.text("Paste", "Вставить")},
                         {QStringLiteral("doc.on.doc"), c.text("Copy", "Скопировать")},
                         {QStringLiteral("pencil"), c.text("Edit", "Редактировать")},
                         {QStringLiteral("trash"), c.text("Delete", "Удалить"), true}});
        m_preview->setFrame(c.text("Note", "Заметка"),
                            {{QStringLiteral("arrow.turn.down.left"), c.text("Paste", "Вставить")},
                             {QStringLiteral("doc.on.doc"), c.text("Copy", "Скопировать")},
                             {QStringLiteral("pencil"), c.text("Edit", "Править")},
                             {QStringLiteral("trash"), c.text("Delete", "Удалить"), true}},
                            c.text("Select a note.", "Выберите заметку."));
    }
    if (c.contentFontSize() != m_shownFontSize || clipboardTab != m_shownClipboardRows) {
        m_shownFontSize = c.contentFontSize();
        m_shownClipboardRows = clipboardTab;
        rows.setFontSize(m_shownFontSize);
        m_list->doItemsLayout();
    }
    m_list->viewport()->update();

    const bool searching = !c.searchText().trimmed().isEmpty();
    if (!clipboardTab && c.isEditingNote()) {
        m_editor->setTexts(c.editingNoteId() ? c.text("Edit note", "Правка заметки")
                                             : c.text("New note", "Новая заметка"),
                           c.text("Cancel", "Отмена"), c.text("Save", "Сохранить"));
        m_editor->setDraft(c.noteDraft(), c.canSaveNoteDraft(), c.contentFontSize());
        m_content->setCurrentIndex(editorPage);
    } else if (c.entries().rowCount() == 0) {
        m_empty->setText(searching ? c.text("Nothing found.", "Ничего не найдено.")
                         : clipboardTab ? c.text("Clipboard history is empty.", "История буфера пуста.")
                                        : c.text("No notes yet.", "Заметок пока нет."));
        m_content->setCurrentIndex(emptyPage);
    } else {
        m_content->setCurrentIndex(listPage);
    }
    // A closed editor or name field leaves the keyboard to the search.
    if (isActiveWindow() && (focusWidget() == nullptr || !focusWidget()->isVisible())) {
        m_search->setFocus(Qt::OtherFocusReason);
    }
    refreshSelection();
}

void ClipboardHistoryPanel::refreshTabs()
{
    const ClipboardPanelController& c = m_controller;
    QStringList wanted{c.selectedTabId(), c.text("Clipboard", "Буфер")};
    const QList<ClipboardNoteTab>& tabs = c.noteTabs();
    for (const ClipboardNoteTab& tab : tabs) {
        wanted << tab.id << tab.title;
    }
    if (wanted == m_shownTabs) {
        return;
    }
    m_shownTabs = wanted;
    while (QLayoutItem* item = m_tabs->takeAt(0)) {
        // Later: the button may be the one whose click is being handled.
        if (QWidget* widget = item->widget()) {
            widget->hide();
            widget->deleteLater();
        }
        delete item;
    }
    const auto addTab = [this](const QString& id, const QString& title, const QString& symbol) {
        QToolButton* button = ClipboardSymbols::button(symbol, m_tabStrip);
        button->setText(title);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setCheckable(true);
        button->setChecked(id == m_controller.selectedTabId());
        connect(button, &QToolButton::clicked, this, [this, id] { m_controller.selectTab(id); });
        m_tabs->addWidget(button);
    };
    addTab(ClipboardPanelController::clipboardTabId(), c.text("Clipboard", "Буфер"),
           QStringLiteral("clipboard"));
    for (const ClipboardNoteTab& tab : tabs) {
        addTab(tab.id, tab.title, QStringLiteral("note.text"));
    }
    QToolButton* plus = ClipboardSymbols::button(QStringLiteral("plus"), m_tabStrip);
    plus->setToolTip(c.text("Add tab", "Добавить вкладку"));
    connect(plus, &QToolButton::clicked, &m_controller, &ClipboardPanelController::addTabAndStartRename);
    m_tabs->addWidget(plus);
    m_tabs->addStretch();
}

void ClipboardHistoryPanel::refreshSelection()
{
    const ClipboardPanelController& c = m_controller;
    std::optional<ClipboardListEntry> entry;
    if (c.isClipboardTabSelected()) {
        if (const std::optional<ClipboardHistoryItem> item = c.selectedItem()) {
            entry = ClipboardListEntry{item->id, item->text, item->chars};
        }
    } else if (const std::optional<ClipboardNoteItem> note = c.selectedNote()) {
        entry = ClipboardListEntry{note->id, note->text, ClipboardHistoryItem::characterCount(note->text)};
    }
    if (m_preview->isVisible() || !entry) {
        m_preview->showEntry(entry, entry ? charsText(entry->chars) : QString(), c.contentFontSize());
    }
    const int row = entry ? c.entries().rowOf(entry->id) : -1;
    if (row >= 0 && !m_list->underMouse()) {
        m_list->scrollTo(m_controller.entries().index(row));
    }
}

void ClipboardHistoryPanel::placePreview()
{
    const int width = ClipboardPanelController::sidePreviewWidth(m_listPage->width());
    const bool wasVisible = m_preview->isVisible();
    m_preview->setVisible(width > 0);
    if (width > 0) {
        m_preview->setFixedWidth(width);
        if (!wasVisible) {
            refreshSelection();
        }
    }
}

void ClipboardHistoryPanel::applyFocus(ClipboardPanelController::FocusTarget target)
{
    switch (target) {
    case ClipboardPanelController::FocusTarget::search:
        m_search->setFocus(Qt::OtherFocusReason);
        break;
    case ClipboardPanelController::FocusTarget::noteEditor:
        m_editor->focusText();
        break;
    case ClipboardPanelController::FocusTarget::tabName:
        m_tabNameField->setFocus(Qt::OtherFocusReason);
        m_tabNameField->selectAll();
        break;
    }
}

void ClipboardHistoryPanel::rowButton(const QString& id, int button)
{
    if (m_controller.isClipboardTabSelected()) {
        switch (button) {
        case 0:
            m_controller.pasteEntry(id);
            return;
        default:
            m_controller.deleteEntry(id);
            return;
        }
    }
    switch (button) {
    case 0:
        m_controller.pasteEntry(id);
        break;
    case 1:
        m_controller.copyNote(id);
        break;
    case 2:
        m_controller.startEditNote(id);
        break;
    default:
        m_controller.deleteNote(id);
        break;
    }
}

void ClipboardHistoryPanel::previewAction(int action)
{
    const ClipboardPanelController& c = m_controller;
    if (c.isClipboardTabSelected()) {
        const std::optional<ClipboardHistoryItem> item = c.selectedItem();
        if (!item) {
            return;
        }
        switch (action) {
        case 0:
            m_controller.pasteFromHistory(item->text);
            break;
        case 1:
            m_controller.saveClipboardItemAsNote(item->id);
            break;
        default:
            m_controller.deleteEntry(item->id);
            break;
        }
        return;
    }
    const std::optional<ClipboardNoteItem> note = c.selectedNote();
    if (!note) {
        return;
    }
    if (action == 0) {
        m_controller.pasteFromHistory(note->text);
    } else {
        rowButton(note->id, action);
    }
}

void ClipboardHistoryPanel::closeEvent(QCloseEvent* event)
{
    m_controller.hide();
    // Accepted, unlike the frame's default: the panel is only hidden either way, and a refusal would stop
    // the program from quitting while the panel is up.
    event->accept();
}

bool ClipboardHistoryPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_listPage && event->type() == QEvent::Resize) {
        placePreview();
    }
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
            m_controller.moveSelection(-1);
            return true;
        case Qt::Key_Down:
            m_controller.moveSelection(1);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            m_controller.pasteSelectedEntry();
            return true;
        default:
            break;
        }
    }
    return FloatingPanel::eventFilter(watched, event);
}
