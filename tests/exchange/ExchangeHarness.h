#pragma once

#include "FakeAccessibilityTree.h"
#include "FakeApplicationWorkspace.h"
#include "FakeClipboardCaptureControl.h"
#include "FakeModifierKeyState.h"
#include "FakePasteboard.h"
#include "FakePermissionProbe.h"
#include "FakeSyntheticKeyboard.h"
#include "TestClock.h"
#include "exchange/AccessibilityTextReader.h"
#include "exchange/FocusService.h"
#include "exchange/PasteboardService.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <type_traits>

// How a coroutine under test ended, filled in as virtual time runs.
template <typename T> struct Outcome {
    bool finished = false;
    std::optional<T> value;
    std::optional<PasteboardServiceError::Kind> error;
    qint64 finishedAt = -1;
};

// The whole exchange over fakes: a chat application (process 42) was in front before this program's own
// panel took the focus, so it is the remembered target.
class ExchangeHarness : public ::testing::Test {
protected:
    static constexpr qint32 target = 42;

    ExchangeHarness()
    {
        workspace.addApplication(target, QStringLiteral("org.example.chat"));
        workspace.addApplication(FakeApplicationWorkspace::ownProcess, QStringLiteral("ai.mivora.native"));
        application = tree.addApplication(target);
        window = tree.add(application, QStringLiteral("AXWindow"));
        tree.set(application, QStringLiteral("AXFocusedWindow"), window);
        workspace.bringToFront(target);
        workspace.bringToFront(FakeApplicationWorkspace::ownProcess);
        // Checked at each finish: the user's clipboard must be back before the transient use ends.
        capture.noteOnFinish = [this] {
            return pasteboard.contents() == original ? QStringLiteral("restored") : QStringLiteral("foreign");
        };
    }

    // The user's clipboard before the operation: an image and a file list, two items.
    void fillClipboardWithImageAndFiles()
    {
        original = PasteboardSnapshot{{
            SavedPasteboardItem{{{QStringLiteral("image/png"), QByteArray("\x89PNG\r\n\x1a\n\0\x01", 10)},
                                 {QStringLiteral("image/tiff"), QByteArray("II*\0", 4)}}},
            SavedPasteboardItem{
                {{QStringLiteral("text/uri-list"), QByteArray("file:///tmp/a\r\nfile:///tmp/b")}}},
        }};
        pasteboard.restore(original);
    }

    // The target copies this selection whenever a copy shortcut completes.
    void selectInTarget(const QString& selection)
    {
        keyboard.onShortcut = [this, selection](quint16 key) {
            if (key == PasteboardService::keyC) {
                pasteboard.copyText(selection);
            }
        };
    }

    // Starts the task; its outcome fills in as virtual time runs. A task without a value reports true.
    template <typename R> auto begin(QCoro::Task<R> task)
    {
        auto outcome = std::make_unique<Outcome<std::conditional_t<std::is_void_v<R>, bool, R>>>();
        collect(std::move(task), outcome.get(), &clock);
        return outcome;
    }

    // Runs the task to its end on virtual time.
    template <typename R> auto outcomeOf(QCoro::Task<R> task)
    {
        const auto outcome = begin(std::move(task));
        clock.runUntilIdle();
        EXPECT_TRUE(outcome->finished);
        return *outcome;
    }

    TestClock clock;
    FakePasteboard pasteboard;
    FakeClipboardCaptureControl capture;
    FakeApplicationWorkspace workspace;
    FakeAccessibilityTree tree;
    FakeSyntheticKeyboard keyboard{clock};
    FakeModifierKeyState modifiers{clock};
    FakePermissionProbe permissions;
    FocusService focus{workspace, tree};
    AccessibilityTextReader reader{focus, workspace, tree};
    PasteboardService service{
        {clock, pasteboard, capture, focus, reader, workspace, keyboard, modifiers, permissions}};
    AccessibilityElement application;
    AccessibilityElement window;
    PasteboardSnapshot original;

private:
    template <typename T, typename R>
    static QCoro::Task<> collect(QCoro::Task<R> task, Outcome<T>* outcome, TestClock* clock)
    {
        try {
            if constexpr (std::is_void_v<R>) {
                co_await std::move(task);
                outcome->value = true;
            } else {
                outcome->value = co_await std::move(task);
            }
        } catch (const PasteboardServiceError& error) {
            outcome->error = error.kind();
        }
        outcome->finished = true;
        outcome->finishedAt = clock->elapsed().count();
    }
};
