#pragma once

namespace vostel::widget {

// The Windows number of a Qt key; 0 for keys that a canvas has no use for.
int VirtualKey(int qtKey);

// Which keys are held, as far as the widgets with the focus have seen; 0 is ignored.
void NoteKey(int virtualKey, bool down);
void ForgetKeys();
bool IsKeyHeld(int virtualKey);

}
