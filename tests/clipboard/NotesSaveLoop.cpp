#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardNotesService.h"

#include <QCoreApplication>
#include <cstdio>

// Saves notes in the given folder without end, so a test can kill it at arbitrary moments. Prints one line
// once the first save is done.
int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        return 2;
    }
    TestClock clock;
    MemoryDefaultsStore defaults;
    ClipboardNotesService notes(clock, defaults, QString::fromLocal8Bit(argv[1]));
    if (notes.tabs().isEmpty()) {
        notes.addTab(QStringLiteral("Crash"));
    }
    const QString tabId = notes.tabs().first().id;
    std::puts("saving");
    std::fflush(stdout);
    for (qint64 round = 0;; ++round) {
        clock.advance(std::chrono::milliseconds(1));
        notes.addNote(tabId, QStringLiteral("note %1 ").arg(round).repeated(20));
        const QList<ClipboardNoteItem> present = notes.tab(tabId)->notes;
        if (present.size() > 60) {
            notes.deleteNote(tabId, present.last().id);
        }
        notes.renameTab(tabId, QStringLiteral("Round %1").arg(round));
    }
}
