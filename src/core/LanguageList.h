#pragma once

#include <QStringList>

namespace LanguageList {
// The 100 target-language names offered by both language pickers, in display order.
const QStringList& names();
bool contains(const QString& name);
} // namespace LanguageList
