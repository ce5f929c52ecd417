#include "clipboard/ClipboardNotesService.h"

#include "MemoryDefaultsStore.h"
#include "TestClock.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

class ClipboardNotesServiceTest : public ::testing::Test {
protected:
    ClipboardNotesServiceTest() : directory(temp.filePath(ClipboardNotesService::folderName())) {}

    std::unique_ptr<ClipboardNotesService> open()
    {
        auto service = std::make_unique<ClipboardNotesService>(clock, defaults, directory);
        QObject::connect(service.get(), &ClipboardNotesService::tabsChanged, [this] { ++saves; });
        return service;
    }
    QString path(const QString& name) const { return QDir(directory).filePath(name); }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QString& name, const QByteArray& data) const
    {
        QDir().mkpath(directory);
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(data);
    }

    QTemporaryDir temp;
    QString directory;
    TestClock clock;
    MemoryDefaultsStore defaults;
    int saves = 0;
};

TEST_F(ClipboardNotesServiceTest, FirstLaunchWritesNothingAndTheFileHoldsTheEncodedTabsWithTrimmedTitles)
{
    auto notes = open();
    EXPECT_TRUE(notes->tabs().isEmpty());
    EXPECT_FALSE(QDir(directory).exists());
    const ClipboardNoteTab tab = notes->addTab(QStringLiteral("  Work  "));
    EXPECT_TRUE(QFile::exists(path(ClipboardNotesService::fileName())));
    EXPECT_FALSE(QFile::exists(path(ClipboardNotesService::backupFileName()))) << "nothing to rotate yet";

    notes->addNote(tab.id, QStringLiteral("note"));
    const QJsonArray tabs = QJsonDocument::fromJson(read(ClipboardNotesService::fileName())).array();
    ASSERT_EQ(tabs.size(), 1);
    const QJsonObject stored = tabs.first().toObject();
    EXPECT_EQ(stored.value("title").toString(), QStringLiteral("Work"));
    // The test clock starts at 2026-01-15 12:00 UTC.
    EXPECT_DOUBLE_EQ(stored.value("createdAt").toDouble(), 790171200.0);
    const QJsonObject note = stored.value("notes").toArray().first().toObject();
    EXPECT_EQ(note.keys(), (QStringList{"createdAt", "id", "text", "updatedAt"}));

    // Titles are trimmed and cut at 32 characters.
    EXPECT_EQ(notes->addTab(QStringLiteral(" \n\t")).title, QStringLiteral("Notes"));
    const QString forty = QStringLiteral("abcdefghij").repeated(4);
    EXPECT_EQ(notes->addTab(QStringLiteral("   ") + forty).title, forty.left(32));
    EXPECT_EQ(notes->addTab(QStringLiteral("\U0001F600").repeated(40)).title,
              QStringLiteral("\U0001F600").repeated(32));
}

TEST_F(ClipboardNotesServiceTest, OperationsSaveExactlyWhenTheyChangeSomething)
{
    auto notes = open();
    const ClipboardNoteTab tab = notes->addTab(QStringLiteral("Work"));
    EXPECT_EQ(tab.id, tab.id.toUpper());
    EXPECT_EQ(saves, 1);

    EXPECT_FALSE(notes->addNote(tab.id, QStringLiteral("  \n ")));
    EXPECT_FALSE(notes->addNote(QStringLiteral("unknown"), QStringLiteral("text")));
    notes->renameTab(QStringLiteral("unknown"), QStringLiteral("x"));
    notes->deleteNote(QStringLiteral("unknown"), QStringLiteral("x"));
    EXPECT_EQ(saves, 1);

    clock.advance(1s);
    const std::optional<ClipboardNoteItem> first = notes->addNote(tab.id, QStringLiteral("  first \n"));
    clock.advance(1s);
    const std::optional<ClipboardNoteItem> second = notes->addNote(tab.id, QStringLiteral("second"));
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->text, QStringLiteral("first"));
    EXPECT_EQ(notes->tab(tab.id)->notes.first().id, second->id) << "newest first";
    EXPECT_EQ(notes->tab(tab.id)->updatedAt, clock.now());
    EXPECT_EQ(saves, 3);

    // Blank text never empties a note, and nothing moves.
    clock.advance(1s);
    notes->updateNote(tab.id, first->id, QStringLiteral("   "));
    notes->updateNote(tab.id, QStringLiteral("unknown"), QStringLiteral("text"));
    EXPECT_EQ(saves, 3);
    EXPECT_EQ(notes->tab(tab.id)->notes.last(), *first);

    notes->updateNote(tab.id, first->id, QStringLiteral(" edited "));
    const ClipboardNoteItem edited = notes->tab(tab.id)->notes.last();
    EXPECT_EQ(edited.text, QStringLiteral("edited"));
    EXPECT_EQ(edited.createdAt, first->createdAt);
    EXPECT_EQ(edited.updatedAt, clock.now());
    EXPECT_EQ(saves, 4);

    // A blank rename keeps the title but still touches and saves the tab.
    clock.advance(1s);
    notes->renameTab(tab.id, QStringLiteral(" "));
    EXPECT_EQ(notes->tab(tab.id)->title, QStringLiteral("Work"));
    EXPECT_EQ(notes->tab(tab.id)->updatedAt, clock.now());
    EXPECT_EQ(saves, 5);

    // Deleting a missing note of a known tab also touches and saves.
    clock.advance(1s);
    notes->deleteNote(tab.id, QStringLiteral("missing"));
    EXPECT_EQ(notes->tab(tab.id)->updatedAt, clock.now());
    notes->deleteNote(tab.id, second->id);
    EXPECT_EQ(notes->tab(tab.id)->notes.size(), 1);
    EXPECT_EQ(saves, 7);

    EXPECT_EQ(open()->tabs(), notes->tabs());
    notes->deleteTab(tab.id);
    EXPECT_TRUE(open()->tabs().isEmpty());
}

TEST_F(ClipboardNotesServiceTest, BackupIsOneSaveBehindAndRecoversACorruptMainFile)
{
    auto notes = open();
    const ClipboardNoteTab tab = notes->addTab(QStringLiteral("Work"));
    notes->addNote(tab.id, QStringLiteral("kept"));
    const QList<ClipboardNoteTab> beforeLast = notes->tabs();
    notes->addNote(tab.id, QStringLiteral("newest"));
    EXPECT_EQ(ClipboardNoteTab::decodeList(read(ClipboardNotesService::backupFileName())), beforeLast);

    write(ClipboardNotesService::fileName(), "{\"damaged");
    auto recovered = open();
    EXPECT_EQ(recovered->tabs(), beforeLast);

    // The next save rotates the damaged main file over the good backup before writing the new state.
    recovered->renameTab(tab.id, QStringLiteral("Renamed"));
    EXPECT_EQ(read(ClipboardNotesService::backupFileName()), QByteArray("{\"damaged"));
    EXPECT_EQ(open()->tabs(), recovered->tabs());
}

TEST_F(ClipboardNotesServiceTest, UnwritableFolderSendsTheDataToTheFallback)
{
    // A plain file where the folder's parent should be: the folder can't be created, even by root.
    QFile blocker(temp.filePath(QStringLiteral("blocker")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    directory = temp.filePath(QStringLiteral("blocker/") + ClipboardNotesService::folderName());

    auto notes = open();
    const ClipboardNoteTab tab = notes->addTab(QStringLiteral("Work"));
    notes->addNote(tab.id, QStringLiteral("survives"));
    ASSERT_EQ(notes->tab(tab.id)->notes.size(), 1);
    EXPECT_EQ(ClipboardNoteTab::decodeList(
                  defaults.value(ClipboardNotesService::fallbackDefaultsKey()).toByteArray()),
              notes->tabs());
    EXPECT_EQ(open()->tabs(), notes->tabs());
}

TEST_F(ClipboardNotesServiceTest, RecoveryOrderIsMainBackupFallbackEmpty)
{
    auto notes = open();
    notes->addTab(QStringLiteral("One"));
    notes->addTab(QStringLiteral("Two"));
    const QList<ClipboardNoteTab> both = notes->tabs();
    const QList<ClipboardNoteTab> one = both.mid(0, 1);
    defaults.setValue(ClipboardNotesService::fallbackDefaultsKey(), QByteArray("[]"));

    EXPECT_EQ(open()->tabs(), both);
    write(ClipboardNotesService::fileName(), "[{\"id\":\"x\"}]"); // valid JSON, missing keys
    EXPECT_EQ(open()->tabs(), one);
    write(ClipboardNotesService::backupFileName(), QByteArray(4096, '\0'));
    EXPECT_TRUE(open()->tabs().isEmpty()) << "the empty fallback list";
    defaults.setValue(ClipboardNotesService::fallbackDefaultsKey(), QStringLiteral("not data"));
    EXPECT_TRUE(open()->tabs().isEmpty());
    // An empty list in the main file is a valid state, not a failure.
    write(ClipboardNotesService::fileName(), "[]");
    write(ClipboardNotesService::backupFileName(), ClipboardNoteTab::encodeList(both));
    EXPECT_TRUE(open()->tabs().isEmpty());
}

TEST_F(ClipboardNotesServiceTest, KilledWhileSavingAlwaysLeavesLoadableFiles)
{
    const QString helper = QCoreApplication::applicationDirPath() + QStringLiteral("/mivora_notes_save_loop");
    ASSERT_TRUE(QFile::exists(helper));
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    int kills = 0;
    while (kills < 300 && std::chrono::steady_clock::now() < deadline) {
        QProcess child;
        child.start(helper, {directory});
        ASSERT_TRUE(child.waitForReadyRead(5000));
        std::this_thread::sleep_for(std::chrono::microseconds(QRandomGenerator::global()->bounded(4000)));
        child.kill();
        child.waitForFinished();
        ++kills;

        // The main file is replaced atomically, so it is always whole once it exists.
        const QByteArray main = read(ClipboardNotesService::fileName());
        ASSERT_TRUE(ClipboardNoteTab::decodeList(main).has_value()) << "after kill " << kills;
        MemoryDefaultsStore freshDefaults;
        ClipboardNotesService loaded(clock, freshDefaults, directory);
        ASSERT_EQ(loaded.tabs().size(), 1) << "after kill " << kills;
    }
    EXPECT_GE(kills, 100);
    std::printf("killed the saving process %d times\n", kills);
}

} // namespace
