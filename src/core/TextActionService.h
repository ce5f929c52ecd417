#pragma once

#include "core/PromptStyle.h"
#include "core/QuickAction.h"

#include <QList>
#include <QString>
#include <qcoro/qcorotask.h>

// The backend route of the action runner: turns the input of an action into its output.
class TextActionService {
public:
    virtual ~TextActionService() = default;

    // GUI thread; suspends while the backend works. Throws MivoraError with the user-facing text on failure.
    virtual QCoro::Task<QString> run(QuickAction action, QString input, QString targetLanguage,
                                     QList<PromptStyle> styles) = 0;
};
