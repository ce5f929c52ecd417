#pragma once

#include "core/BackendAction.h"
#include "core/PromptStyle.h"
#include "core/QuickAction.h"

#include <QList>
#include <QSet>

namespace MivoraPromptLibrary {
// The 17 built-in rewrite styles, in catalogue order.
const QList<PromptStyle>& builtInStyles();
const QSet<QString>& builtInStyleIds();
// Reconciles a saved list with the shipped catalogue; built-ins first, then custom styles in saved order.
// A duplicate id is a programming error and stops the process.
QList<PromptStyle> mergeSavedStyles(const QList<PromptStyle>& saved);
// First match in styles, else in the built-in catalogue.
std::optional<PromptStyle> style(const QString& id, const QList<PromptStyle>& styles);
BackendAction backendAction(const QuickAction& action, const PromptStyle& style);
} // namespace MivoraPromptLibrary
