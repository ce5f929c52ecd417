#include "TestClock.h"
#include "clipboard/ClipboardNotesService.h"
#include "core/QSettingsDefaultsStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

struct StorageFault {
    const char* name;
    // A regular file where the folder belongs: unusable whoever runs the test, root included.
    bool configBlocked;
    bool dataBlocked;
    // Every file write fails past a few hundred bytes, as on a full disk.
    bool full;
    QStringList notesAfterRestart;
    const char* settingAfterRestart;
};

class StorageFaultTest : public ::testing::TestWithParam<StorageFault> {
protected:
    QString folder(const char* name, bool blocked) const
    {
        const QString path = temp.filePath(QString::fromLatin1(name));
        if (blocked) {
            QFile(path).open(QIODevice::WriteOnly);
        }
        return path;
    }
    static QStringList texts(const ClipboardNotesService& notes)
    {
        QStringList texts;
        for (const ClipboardNoteItem& note : notes.tabs().value(0).notes) {
            texts.append(note.text.left(3));
        }
        return texts;
    }

    QTemporaryDir temp;
    TestClock clock;
};

TEST_P(StorageFaultTest, SavesAreSwallowedAndTheNextStartLoadsTheLastWholeWrite)
{
    const StorageFault fault = GetParam();
    const QString ini = folder("config", fault.configBlocked) + QStringLiteral("/mivora.conf");
    const QString data = folder("data", fault.dataBlocked) + QStringLiteral("/notes");
    QString tabId;
    {
        QSettingsDefaultsStore defaults(ini, {}, nullptr);
        ClipboardNotesService notes(clock, defaults, data);
        tabId = notes.addTab(QStringLiteral("Work")).id;
        notes.addNote(tabId, QStringLiteral("old"));
        defaults.setValue(QStringLiteral("mivora.key"), QStringLiteral("old"));
    }
    struct rlimit unlimited {};
    getrlimit(RLIMIT_FSIZE, &unlimited);
    if (fault.full) {
        std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit small {
            512, unlimited.rlim_max
        };
        setrlimit(RLIMIT_FSIZE, &small);
    }
    {
        QSettingsDefaultsStore defaults(ini, {}, nullptr);
        ClipboardNotesService notes(clock, defaults, data);
        notes.addNote(tabId, QStringLiteral("new") + QString(2000, u'n'));
        defaults.setValue(QStringLiteral("mivora.key"), QStringLiteral("new") + QString(2000, u'n'));
        if (fault.dataBlocked && !fault.configBlocked) {
            QFile file(ini);
            EXPECT_TRUE(file.open(QIODevice::ReadOnly) && file.readAll().contains("fallback"))
                << "the notes' fallback reached the disk at once";
        }
    }
    setrlimit(RLIMIT_FSIZE, &unlimited);

    // A restart: another path, so nothing cached in this process stands in for the disk.
    const QString restartIni = temp.filePath(QStringLiteral("restart.conf"));
    QFile::copy(ini, restartIni);
    QSettingsDefaultsStore defaults(restartIni, {}, nullptr);
    EXPECT_EQ(texts(ClipboardNotesService(clock, defaults, data)), fault.notesAfterRestart);
    QFile main(data + QStringLiteral("/clipboard-notes.json"));
    EXPECT_TRUE(!main.open(QIODevice::ReadOnly) || ClipboardNoteTab::decodeList(main.readAll()))
        << "the notes file is whole";
    EXPECT_EQ(defaults.value(QStringLiteral("mivora.key")).toString().left(3),
              QString::fromLatin1(fault.settingAfterRestart));
}

INSTANTIATE_TEST_SUITE_P(
    Faults, StorageFaultTest,
    ::testing::Values(StorageFault{"configBlocked", true, false, false, {"new", "old"}, ""},
                      StorageFault{"dataBlocked", false, true, false, {"new", "old"}, "new"},
                      StorageFault{"bothBlocked", true, true, false, {}, ""},
                      StorageFault{"full", false, false, true, {"old"}, "old"}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
