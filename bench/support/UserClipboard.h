#pragma once

// The user's own clipboard content, which every transient use of the clipboard by the app must give back.

// Puts the user's content on the clipboard, owned and served by this process.
void fillUserClipboard();
// Waits until the clipboard, as an independent client reads it, holds the user's content again; false when
// it did not come back within 10 s.
bool waitForUserClipboard();
