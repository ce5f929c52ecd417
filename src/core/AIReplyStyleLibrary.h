#pragma once

#include "core/AIReplyStyle.h"

#include <QList>
#include <QSet>

namespace AIReplyStyleLibrary {
// The 17 built-in reply styles, in catalogue order.
const QList<AIReplyStyle>& builtInStyles();
const QSet<QString>& builtInStyleIds();
// Reconciles a saved list with the catalogue; an empty list gives the catalogue.
// A duplicate id is a programming error and stops the process.
QList<AIReplyStyle> restoredStyles(const QList<AIReplyStyle>& saved);
// The backend's word for a reply style; "" for custom styles.
QString backendStyleName(const AIReplyStyle& style);
} // namespace AIReplyStyleLibrary
