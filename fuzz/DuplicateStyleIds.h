#pragma once

class DefaultsStore;

// Whether a stored rewrite or reply style list, as the settings loading reads it (a data blob or, from older
// versions, text), holds two styles with one id. Loading such a list stops the process on purpose, so the
// fuzzers leave those inputs out of the settings loading.
bool storesDuplicateStyleIds(const DefaultsStore& defaults);
