#pragma once

#include "core/PromptStyle.h"
#include "core/QuickAction.h"
#include "core/UiLanguage.h"

#include <QList>

// Titles of actions and styles in the interface language. A built-in style is named by its id,
// so renaming it in the settings changes no title; a custom style is named by its name.
QString actionTitle(const QuickAction& action, const QList<PromptStyle>& promptStyles, UiLanguage language);
QString styleTitle(const PromptStyle& style, UiLanguage language);
