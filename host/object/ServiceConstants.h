#pragma once

namespace host {

// The numbers of the host's clipboard and dialog services. The toolkit passes them as
// they are, so each value is fixed.

// Clipboard formats. The toolkit's pose, track and pose kit buffers travel under format 8
// as raw bytes (no bitmap header, despite the name).
using ClipboardFormat = unsigned;
inline constexpr ClipboardFormat CF_DIB = 8;

// Message box flags: the buttons in the low four bits, the icon in the next four, the
// default button in the next four. MB_YESNO | MB_ICONQUESTION (36) asks a question.
inline constexpr unsigned MB_OK = 0x0;
inline constexpr unsigned MB_OKCANCEL = 0x1;
inline constexpr unsigned MB_ABORTRETRYIGNORE = 0x2;
inline constexpr unsigned MB_YESNOCANCEL = 0x3;
inline constexpr unsigned MB_YESNO = 0x4;
inline constexpr unsigned MB_RETRYCANCEL = 0x5;
inline constexpr unsigned MB_TYPEMASK = 0xF;
inline constexpr unsigned MB_ICONHAND = 0x10;
inline constexpr unsigned MB_ICONERROR = MB_ICONHAND;
inline constexpr unsigned MB_ICONQUESTION = 0x20;
inline constexpr unsigned MB_ICONEXCLAMATION = 0x30;
inline constexpr unsigned MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr unsigned MB_ICONASTERISK = 0x40;
inline constexpr unsigned MB_ICONINFORMATION = MB_ICONASTERISK;
inline constexpr unsigned MB_ICONMASK = 0xF0;
inline constexpr unsigned MB_DEFBUTTON1 = 0x000;
inline constexpr unsigned MB_DEFBUTTON2 = 0x100;
inline constexpr unsigned MB_DEFBUTTON3 = 0x200;
inline constexpr unsigned MB_DEFMASK = 0xF00;

// What a message box answers: the button pressed.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// The sound MessageBeep plays: a message box icon's, or the plain beep.
inline constexpr unsigned MB_SIMPLEBEEP = 0xFFFFFFFF;

}  // namespace host
