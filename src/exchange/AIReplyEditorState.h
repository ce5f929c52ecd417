#pragma once

#include <QString>
#include <optional>

// What the reply editor held before the paste, to tell afterwards whether the paste landed.
struct AIReplyEditorState {
    std::optional<QString> value;
    std::optional<qint64> numberOfCharacters;

    bool operator==(const AIReplyEditorState&) const = default;

    bool isEmpty() const { return !value && !numberOfCharacters; }
    // Whether this (later) reading of the editor shows that a paste changed it since before.
    bool showsChangeSince(const AIReplyEditorState& before) const;
};
