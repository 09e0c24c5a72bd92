#include "platform/qt/qt_input.h"

namespace TabulonLib12 {

int16_t ButtonCode(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton: return 1;
        case Qt::RightButton: return 2;
        case Qt::MiddleButton: return 4;
        default: return 0;
    }
}

int16_t ButtonsCode(Qt::MouseButtons buttons) {
    int16_t code = 0;
    if (buttons & Qt::LeftButton) code |= 1;
    if (buttons & Qt::RightButton) code |= 2;
    if (buttons & Qt::MiddleButton) code |= 4;
    return code;
}

int16_t ShiftCode(Qt::KeyboardModifiers modifiers) {
    int16_t code = 0;
    if (modifiers & Qt::ShiftModifier) code |= 1;
    if (modifiers & Qt::ControlModifier) code |= 2;
    if (modifiers & Qt::AltModifier) code |= 4;
    return code;
}

int16_t VirtualKeyCode(int qtKey, Qt::KeyboardModifiers modifiers) {
    const bool keypad = (modifiers & Qt::KeypadModifier) != 0;
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return static_cast<int16_t>('A' + (qtKey - Qt::Key_A));
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
        const int digit = qtKey - Qt::Key_0;
        return static_cast<int16_t>(keypad ? 96 + digit : '0' + digit);
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) return static_cast<int16_t>(112 + (qtKey - Qt::Key_F1));
    switch (qtKey) {
        case Qt::Key_Backspace: return 8;
        case Qt::Key_Tab:
        case Qt::Key_Backtab: return 9;
        case Qt::Key_Clear: return 12;
        case Qt::Key_Return:
        case Qt::Key_Enter: return 13;
        case Qt::Key_Shift: return 16;
        case Qt::Key_Control: return 17;
        case Qt::Key_Alt: return 18;
        case Qt::Key_Pause: return 19;
        case Qt::Key_CapsLock: return 20;
        case Qt::Key_Escape: return 27;
        case Qt::Key_Space: return 32;
        case Qt::Key_PageUp: return 33;
        case Qt::Key_PageDown: return 34;
        case Qt::Key_End: return 35;
        case Qt::Key_Home: return 36;
        case Qt::Key_Left: return 37;
        case Qt::Key_Up: return 38;
        case Qt::Key_Right: return 39;
        case Qt::Key_Down: return 40;
        case Qt::Key_Print: return 44;
        case Qt::Key_Insert: return 45;
        case Qt::Key_Delete: return 46;
        case Qt::Key_Help: return 47;
        case Qt::Key_Meta: return 91;
        case Qt::Key_Menu: return 93;
        case Qt::Key_Asterisk: return keypad ? 106 : 0;
        case Qt::Key_Plus: return keypad ? 107 : 187;
        case Qt::Key_Minus: return keypad ? 109 : 189;
        case Qt::Key_Period: return keypad ? 110 : 190;
        case Qt::Key_Slash: return keypad ? 111 : 191;
        case Qt::Key_NumLock: return 144;
        case Qt::Key_ScrollLock: return 145;
        case Qt::Key_Semicolon: return 186;
        case Qt::Key_Equal: return 187;
        case Qt::Key_Comma: return 188;
        case Qt::Key_QuoteLeft: return 192;
        case Qt::Key_BracketLeft: return 219;
        case Qt::Key_Backslash: return 220;
        case Qt::Key_BracketRight: return 221;
        case Qt::Key_Apostrophe: return 222;
        default: return 0;
    }
}

int16_t KeyAsciiCode(int qtKey, const QString& text) {
    switch (qtKey) {
        case Qt::Key_Backspace: return 8;
        case Qt::Key_Return:
        case Qt::Key_Enter: return 13;
        case Qt::Key_Escape: return 27;
        default: break;
    }
    if (text.size() != 1) return 0;
    const char16_t c = text.at(0).unicode();
    // Printable Latin-1: the ASCII graphic characters and space, and 160..255; the controls
    // (0..31, 127..159) are not typed characters.
    if ((c >= 32 && c < 127) || (c >= 160 && c <= 255)) return static_cast<int16_t>(c);
    return 0;
}

}  // namespace TabulonLib12
