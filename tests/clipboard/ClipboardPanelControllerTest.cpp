#include "clipboard/ClipboardPanelController.h"

#include "AppStateHarness.h"
#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakeInputEventMonitor.h"
#include "FakePasteboard.h"
#include "QStringPrinting.h"
#include "clipboard/ClipboardHistoryService.h"
#include "clipboard/ClipboardNotesService.h"
#include "exchange/FocusService.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

class FakeSurface : public ClipboardPanelSurface {
public:
    void present(bool placeNearMouse) override
    {
        shown = true;
        placements += placeNearMouse ? 1 : 0;
    }
    void orderOut() override { shown = false; }
    bool isShown() const override { return shown; }
    const void* windowIdentity() const override { return this; }
    void setLook(AppearanceMode, SurfaceMode) override {}

    bool shown = false;
    int placements = 0;
};

class ClipboardPanelControllerTest : public ::testing::Test, protected AppStateHarness {
protected:
    ClipboardPanelControllerTest()
    {
        workspace.addApplication(42, QStringLiteral("org.example.editor"));
        workspace.bringToFront(42);
    }
    ClipboardPanelController& panel()
    {
        if (!m_panel) {
            m_panel = std::make_unique<ClipboardPanelController>(
                ClipboardPanelController::Services{clock, defaults, history, notes, pasteboard, exchange,
                                                   focus, workspace, &localEvents, &globalEvents},
                [this](ClipboardPanelController&) {
                    auto made = std::make_unique<FakeSurface>();
                    surface = made.get();
                    return made;
                });
            m_panel->attach(state);
        }
        return *m_panel;
    }
    // Newest first, as the history keeps them.
    void copied(const QStringList& texts)
    {
        for (auto text = texts.rbegin(); text != texts.rend(); ++text) {
            clock.advance(1s);
            history.record(*text);
        }
    }
    static QStringList texts(const QList<ClipboardListEntry>& rows)
    {
        QStringList result;
        for (const ClipboardListEntry& row : rows) {
            result << row.text;
        }
        return result;
    }
    QStringList rows() { return texts(panel().entries().entries()); }
    QString selectedText()
    {
        return panel().isClipboardTabSelected() ? panel().selectedItem().value_or(ClipboardHistoryItem{}).text
                                                : panel().selectedNote().value_or(ClipboardNoteItem{}).text;
    }

    QTemporaryDir directory;
    FakePasteboard pasteboard;
    ClipboardHistoryService history{pasteboard, clock, defaults};
    ClipboardNotesService notes{clock, defaults, directory.path()};
    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    FocusService focus{workspace, tree};
    FakeInputEventMonitor localEvents;
    FakeInputEventMonitor globalEvents;
    FakeSurface* surface = nullptr;
    std::unique_ptr<ClipboardPanelController> m_panel;
};

TEST_F(ClipboardPanelControllerTest, ShowRemembersTheTargetAndEscapeOrToggleHidesWithStateKept)
{
    copied({"alpha", "beta"});
    panel().show();
    ASSERT_TRUE(panel().isShown());
    EXPECT_EQ(panel().pasteTarget(), QStringLiteral("org.example.editor"));
    EXPECT_EQ(panel().selectedItemId(), history.items().first().id);
    panel().setSearchText(QStringLiteral("BET"));
    EXPECT_EQ(rows(), QStringList{"beta"});

    localEvents.deliver(FakeInputEventMonitor::event(MonitoredInputEvent::Kind::keyDown, 53));
    QCoreApplication::processEvents();
    EXPECT_FALSE(panel().isShown());
    panel().toggle();
    EXPECT_TRUE(panel().isShown());
    panel().toggle();
    EXPECT_FALSE(panel().isShown());
    EXPECT_EQ(panel().searchText(), QStringLiteral("BET"));
    EXPECT_EQ(surface->placements, 2) << "each show from hidden goes near the mouse";
}

TEST_F(ClipboardPanelControllerTest, PasteHidesWaitsAndReportsTheOutcome)
{
    struct Case {
        std::optional<QString> error;
        ActionStatus::Kind kind;
        QString text;
    };
    for (const Case& c : {Case{std::nullopt, ActionStatus::Kind::done, "Pasted"},
                          Case{QStringLiteral("No target"), ActionStatus::Kind::failed, "No target"}}) {
        exchange.pastes.clear();
        exchange.pasteError = c.error;
        copied({"first item"});
        panel().show();
        panel().pasteSelectedEntry();
        EXPECT_FALSE(panel().isShown());
        clock.advance(119ms);
        EXPECT_TRUE(exchange.pastes.isEmpty());
        clock.advance(1ms);
        ASSERT_EQ(exchange.pastes.size(), 1);
        EXPECT_EQ(exchange.pastes[0].text, QStringLiteral("first item"));
        EXPECT_EQ(exchange.pastes[0].target, QStringLiteral("org.example.editor"));
        EXPECT_EQ(exchange.pastes[0].timing, PasteboardTiming::standardTiming());
        EXPECT_EQ(state.status().kind, c.kind);
        EXPECT_EQ(state.status().text, c.text);
    }
}

TEST_F(ClipboardPanelControllerTest, SearchIsCaseInsensitiveAcrossScriptsAndNarrowsCorrectly)
{
    copied({"Привет, мир", "hello World", "world peace", "other"});
    panel();
    const std::vector<std::pair<QString, QStringList>> steps{
        {"  ПРИВЕТ ", {"Привет, мир"}},
        {"wor", {"hello World", "world peace"}},
        {"worl", {"hello World", "world peace"}},
        {"world p", {"world peace"}},
        {"wo", {"hello World", "world peace"}},
        {"", {"Привет, мир", "hello World", "world peace", "other"}},
    };
    for (const auto& [search, expected] : steps) {
        panel().setSearchText(search);
        EXPECT_EQ(rows(), expected) << search.toStdString();
    }
    panel().setSearchText(QStringLiteral("wor"));
    copied({"new world"});
    panel().setSearchText(QStringLiteral("world"));
    EXPECT_EQ(rows(), (QStringList{"new world", "hello World", "world peace"}))
        << "a new item is searched too";
}

TEST_F(ClipboardPanelControllerTest, SelectionFallsBackAsTheListChanges)
{
    copied({"one", "two", "three"});
    panel().show();
    struct Step {
        const char* what;
        std::function<void()> act;
        QString selected;
    };
    const std::vector<Step> steps{
        {"hover", [&] { panel().selectEntry(history.items()[1].id); }, "two"},
        {"another item goes, selection stays", [&] { history.removeItem(history.items()[2].id); }, "two"},
        {"the selected one goes", [&] { history.removeItem(history.items()[1].id); }, "one"},
        {"down past the end stays on the last",
         [&] {
             copied({"zero"});
             panel().moveSelection(5);
         },
         "one"},
        {"up", [&] { panel().moveSelection(-1); }, "zero"},
        {"search hides it: down starts at the top",
         [&] {
             panel().setSearchText(QStringLiteral("one"));
             panel().moveSelection(1);
         },
         "one"},
    };
    for (const Step& step : steps) {
        step.act();
        EXPECT_EQ(selectedText(), step.selected) << step.what;
    }
    panel().setSearchText(QStringLiteral("o"));
    panel().pressDeleteFound();
    panel().pressDeleteFound();
    EXPECT_TRUE(history.items().isEmpty());
    EXPECT_EQ(panel().selectedItemId(), std::nullopt);
    EXPECT_EQ(panel().searchText(), QString());
}

TEST_F(ClipboardPanelControllerTest, DeleteFoundArmsDisarmsAndFollowsTheSelectedTab)
{
    copied({"apple", "apricot", "banana"});
    const QString tab = notes.addTab(QStringLiteral("Fruit")).id;
    notes.addNote(tab, QStringLiteral("apple pie"));
    notes.addNote(tab, QStringLiteral("plum"));
    panel().setSearchText(QStringLiteral("ap"));
    EXPECT_TRUE(panel().canDeleteFound());
    panel().pressDeleteFound();
    EXPECT_TRUE(panel().isDeleteFoundArmed());
    panel().setSearchText(QStringLiteral("app"));
    EXPECT_FALSE(panel().isDeleteFoundArmed()) << "typing disarms";
    panel().pressDeleteFound();
    EXPECT_EQ(history.items().size(), 3) << "after disarming, a press only arms again";

    panel().selectTab(tab);
    EXPECT_TRUE(panel().isDeleteFoundArmed()) << "a tab switch keeps the arming";
    EXPECT_EQ(panel().entries().rowCount(), 1);
    panel().pressDeleteFound();
    EXPECT_EQ(rows(), QStringList{"plum"});
    EXPECT_EQ(history.items().size(), 3);
    EXPECT_FALSE(panel().isDeleteFoundArmed());

    panel().setSearchText(QStringLiteral("zzz"));
    EXPECT_FALSE(panel().canDeleteFound()) << "nothing found, nothing to delete";
}

TEST_F(ClipboardPanelControllerTest, FontSizeAndPanelSizeKeepTheirLimits)
{
    for (const auto& [stored, opened] : std::vector<std::pair<QVariant, double>>{
             {QVariant(), 13}, {11.0, 13}, {30.0, 13}, {12.0, 12}, {28.0, 28}, {17.0, 17}}) {
        defaults.setValue(ClipboardPanelController::fontSizeKey(), stored);
        m_panel.reset();
        EXPECT_EQ(panel().contentFontSize(), opened) << stored.toString().toStdString();
    }
    for (const auto& [asked, taken] : std::vector<std::pair<double, double>>{{29, 28}, {5, 12}, {14, 14}}) {
        panel().setContentFontSize(asked);
        EXPECT_EQ(panel().contentFontSize(), taken);
        EXPECT_EQ(defaults.value(ClipboardPanelController::fontSizeKey()).toDouble(), taken);
    }
    const std::unique_ptr<SavedPanelSize> size = panel().makePanelSizeStore();
    EXPECT_EQ(size->load(), QSize(380, 520));
    size->save(QSize(200, 300));
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.width")).toDouble(), 340);
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.clipboardPanel.height")).toDouble(), 380);
    defaults.setValue(QStringLiteral("mivora.clipboardPanel.width"), 900.0);
    defaults.setValue(QStringLiteral("mivora.clipboardPanel.height"), 900.0);
    EXPECT_EQ(size->load(), QSize(760, 860));
    EXPECT_EQ(ClipboardPanelController::sidePreviewWidth(559), 0);
    EXPECT_EQ(ClipboardPanelController::sidePreviewWidth(560), 252);
    EXPECT_EQ(ClipboardPanelController::sidePreviewWidth(800), 360);
}

TEST_F(ClipboardPanelControllerTest, NotesAreWrittenEditedAndDeletedThroughTheEditor)
{
    panel().startNewNote();
    ASSERT_EQ(notes.tabs().size(), 1);
    EXPECT_EQ(notes.tabs()[0].title, QStringLiteral("Notes"))
        << "a new note from the Clipboard tab makes a tab";
    EXPECT_TRUE(panel().isEditingNote());
    panel().setNoteDraft(QStringLiteral("   "));
    panel().saveNoteDraft();
    EXPECT_TRUE(panel().isEditingNote()) << "blank text keeps the editor open";
    panel().setNoteDraft(QStringLiteral(" first "));
    panel().saveNoteDraft();
    EXPECT_FALSE(panel().isEditingNote());
    EXPECT_EQ(selectedText(), QStringLiteral("first"));

    const QString id = *panel().selectedNoteId();
    panel().startEditNote(id);
    panel().setNoteDraft(QString());
    panel().saveNoteDraft();
    EXPECT_EQ(notes.tabs()[0].notes[0].text, QStringLiteral("first"));
    panel().setNoteDraft(QStringLiteral("edited"));
    panel().saveNoteDraft();
    EXPECT_EQ(rows(), QStringList{"edited"});

    panel().startEditNote(id);
    panel().deleteNote(id);
    EXPECT_FALSE(panel().isEditingNote()) << "deleting the note being edited ends the editing";
    EXPECT_EQ(panel().selectedNote(), std::nullopt);

    panel().selectTab(ClipboardPanelController::clipboardTabId());
    panel().startNewNote();
    EXPECT_EQ(notes.tabs().last().title, QStringLiteral("Notes 2"));
    panel().addTabAndStartRename();
    EXPECT_EQ(notes.tabs().last().title, QStringLiteral("Notes 3"));
    EXPECT_EQ(panel().renamingTabId(), notes.tabs().last().id);
    panel().setTabTitleDraft(QStringLiteral("  Work  "));
    panel().finishRenameTab();
    EXPECT_EQ(notes.tabs().last().title, QStringLiteral("Work"));
    EXPECT_EQ(panel().renamingTabId(), std::nullopt);

    while (!panel().isClipboardTabSelected()) {
        panel().deleteCurrentTab();
    }
    EXPECT_TRUE(notes.tabs().isEmpty()) << "deleting the last tab lands on the Clipboard tab";
    panel().deleteCurrentTab();
    EXPECT_TRUE(panel().isClipboardTabSelected());
}

TEST_F(ClipboardPanelControllerTest, ToNoteAndCopyLeaveTheHistoryAsItWas)
{
    configure([](MivoraSettings& settings) { settings.uiLanguage = UiLanguage::ru; });
    copied({"keep me"});
    panel().saveClipboardItemAsNote(history.items()[0].id);
    ASSERT_EQ(notes.tabs().size(), 1);
    EXPECT_EQ(notes.tabs()[0].title, QStringLiteral("Заметки"));
    EXPECT_EQ(panel().selectedTabId(), notes.tabs()[0].id);
    EXPECT_EQ(selectedText(), QStringLiteral("keep me"));
    EXPECT_EQ(history.items().size(), 1);

    const QString noteId = notes.addNote(notes.tabs()[0].id, QStringLiteral("note only"))->id;
    panel().copyNote(noteId);
    clock.advance(ClipboardHistoryService::pollInterval);
    EXPECT_EQ(pasteboard.text(), QStringLiteral("note only"));
    EXPECT_EQ(history.items().size(), 1) << "the note's copy is not history";
}

} // namespace
