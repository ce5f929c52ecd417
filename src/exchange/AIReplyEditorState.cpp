#include "exchange/AIReplyEditorState.h"

bool AIReplyEditorState::showsChangeSince(const AIReplyEditorState& before) const
{
    if (value && value != before.value) {
        return true;
    }
    if (!value && before.value) {
        // An editor that stopped reporting its text but still counts characters has been rebuilt.
        return numberOfCharacters.has_value();
    }
    // The text reads the same (or neither reading has one): only the count can tell.
    if (numberOfCharacters) {
        return !before.numberOfCharacters || before.numberOfCharacters != numberOfCharacters;
    }
    return value && before.numberOfCharacters.has_value();
}
