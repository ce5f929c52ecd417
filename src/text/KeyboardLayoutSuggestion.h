#pragma once

#include <QString>
#include <QStringList>

// What the layout settings page proposes for the Latin and native source, and what its pickers offer.
struct KeyboardLayoutSuggestion {
    QString latinName;
    QString nativeName;
    QStringList availableNames;

    bool operator==(const KeyboardLayoutSuggestion&) const = default;
};
