#pragma once
// Qt input as the element model takes it: button and shift codes, classic virtual key codes and
// the character codes of KeyPress.
#include <QString>
#include <Qt>
#include <cstdint>

namespace TabulonLib12 {

// 1 left, 2 right, 4 middle; other buttons 0.
int16_t ButtonCode(Qt::MouseButton button);
// The same codes summed over the buttons held.
int16_t ButtonsCode(Qt::MouseButtons buttons);
// Shift 1, Ctrl 2, Alt 4, summed.
int16_t ShiftCode(Qt::KeyboardModifiers modifiers);

// The classic virtual key code of a Qt key: letters 65..90, digits 48..57, arrows 37..40, Home
// 36, End 35, PageUp 33, PageDown 34, Enter 13, Escape 27, Tab 9, Backspace 8, Delete 46, Space
// 32, F1..F12 112..123, and the rest of the keyboard; keypad digits and operators take their
// keypad codes. 0 for a key without one.
int16_t VirtualKeyCode(int qtKey, Qt::KeyboardModifiers modifiers);

// The KeyPress code of a key press: the character for printable Latin-1 text, 8 for Backspace,
// 13 for Enter, 27 for Escape; 0 when the press types no such character.
int16_t KeyAsciiCode(int qtKey, const QString& text);

}  // namespace TabulonLib12
