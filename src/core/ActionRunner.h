#pragma once

#include "core/ActionStatus.h"
#include "core/PasteboardTiming.h"
#include "core/QuickAction.h"
#include "core/UiLanguage.h"

#include <QObject>
#include <functional>
#include <qcoro/qcorotask.h>

class KeyboardLayoutService;
class SettingsService;
class StatusService;
class TextActionService;
class TextExchange;

// The action runner: gets the text of an action (the selection of the other application, or
// the sample text), transforms it on the layout road or the backend road, puts the result back and
// publishes a status at every step. GUI thread.
class ActionRunner : public QObject {
    Q_OBJECT
public:
    struct Services {
        SettingsService& settings;
        StatusService& status;
        KeyboardLayoutService& keyboardLayout;
        TextActionService& actions;
        TextExchange& exchange;
    };
    // The two text fields of the application state that a run reads and writes.
    struct Texts {
        std::function<QString()> sampleText;
        // Called with the output of a finished run, before its last status.
        std::function<void(const QString& output, bool updateSampleText)> keepOutput;
    };

    ActionRunner(Services services, Texts texts, QObject* parent = nullptr);

    // Starts eagerly: the first status is published before this returns. The task may be dropped, and runs
    // may overlap; the later status simply overwrites the earlier one. A runner destroyed meanwhile ends the
    // run without a further status.
    QCoro::Task<> run(QuickAction action, bool pasteResult, bool updateSampleText);

private:
    struct Run {
        QuickAction action;
        bool pasteResult;
        bool updateSampleText;
        // A run from a hotkey of an action that reports elsewhere (or, for the layout fix, not at all).
        bool quiet;
    };
    struct Input {
        QString text;
        bool readByAccessibility = false;
    };

    QCoro::Task<Input> readInput(const Run& run);
    QCoro::Task<> layoutRoad(const Run& run, Input input);
    QCoro::Task<> backendRoad(const Run& run, QString input, QString targetLanguage);
    // Puts text where the selection was; a refused accessibility replacement falls back to the clipboard.
    QCoro::Task<> paste(QString text, PasteboardTiming timing, bool replaceByAccessibilityFirst);
    // Forms the message of a pasted layout fix, switching the layout first when the settings ask for it.
    QString switchLayoutAfterFix(const std::optional<QString>& targetLayoutName);
    void finish(const Run& run, const QString& output, const ActionStatus& status);
    void publish(const ActionStatus& status);
    // Running statuses of the steps are not shown on a quiet run.
    void publishRunning(const Run& run, const QString& text);
    UiLanguage language() const;

    Services m_services;
    Texts m_texts;
};
