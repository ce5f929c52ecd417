#include "FuzzApplication.h"
#include "MemoryDefaultsStore.h"
#include "TestClock.h"
#include "clipboard/ClipboardNotesService.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

// The notes files and their fallback copy are read at every start, after crashes, disk errors and hand edits.
// The input is the main file, the backup file and the fallback value, in that order, split at NUL bytes; a
// part the input does not reach is absent. Whatever loads must save and load again unchanged.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzzApplication();
    return 0;
}

namespace {

const QString& notesDirectory()
{
    static const QTemporaryDir root;
    static const QString directory = root.filePath(QStringLiteral("notes"));
    return directory;
}

void writeOrRemove(const QString& path, const std::optional<QByteArray>& contents)
{
    QFile::remove(path);
    if (contents) {
        QFile file(path);
        fuzzCheck(file.open(QIODevice::WriteOnly) && file.write(*contents) == contents->size());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QList<QByteArray> parts =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
            .split('\0');
    const auto part = [&parts](qsizetype i) {
        return i < parts.size() ? std::optional(QByteArray(parts.at(i))) : std::nullopt;
    };
    const QDir directory(notesDirectory());
    fuzzCheck(directory.mkpath(QStringLiteral(".")));
    writeOrRemove(directory.filePath(ClipboardNotesService::fileName()), part(0));
    writeOrRemove(directory.filePath(ClipboardNotesService::backupFileName()), part(1));
    MemoryDefaultsStore defaults;
    if (const auto fallback = part(2)) {
        defaults.setValue(ClipboardNotesService::fallbackDefaultsKey(), *fallback);
    }

    TestClock clock;
    ClipboardNotesService notes(clock, defaults, notesDirectory());
    notes.save();
    const ClipboardNotesService reloaded(clock, defaults, notesDirectory());
    fuzzCheck(reloaded.tabs() == notes.tabs());
    return 0;
}
