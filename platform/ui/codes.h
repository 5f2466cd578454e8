// The system's own names and numbers of notifications, keys, buttons and styles of controls, as far as
// dialogs here use them.
#pragma once

#ifdef _WIN32
#include <commctrl.h>
#include <windows.h>
#else

#include <cstdint>

// Notifications of controls
inline constexpr uint32_t BN_CLICKED = 0;
inline constexpr uint32_t CBN_SELCHANGE = 1;
inline constexpr uint32_t LBN_SELCHANGE = 1;
inline constexpr uint32_t EN_SETFOCUS = 0x0100;
inline constexpr uint32_t EN_KILLFOCUS = 0x0200;
inline constexpr uint32_t EN_CHANGE = 0x0300;  // the text was changed, and shows it
inline constexpr uint32_t EN_UPDATE = 0x0400;  // it was changed, and is about to be shown

// What a track bar was moved by
inline constexpr uint32_t TB_LINEUP = 0;
inline constexpr uint32_t TB_LINEDOWN = 1;
inline constexpr uint32_t TB_PAGEUP = 2;
inline constexpr uint32_t TB_PAGEDOWN = 3;
inline constexpr uint32_t TB_THUMBPOSITION = 4;
inline constexpr uint32_t TB_THUMBTRACK = 5;
inline constexpr uint32_t TB_TOP = 6;
inline constexpr uint32_t TB_BOTTOM = 7;
inline constexpr uint32_t TB_ENDTRACK = 8;

// Keys
inline constexpr uint32_t VK_BACK = 0x08;
inline constexpr uint32_t VK_TAB = 0x09;
inline constexpr uint32_t VK_RETURN = 0x0D;
inline constexpr uint32_t VK_ESCAPE = 0x1B;
inline constexpr uint32_t VK_SPACE = 0x20;
inline constexpr uint32_t VK_PRIOR = 0x21;
inline constexpr uint32_t VK_NEXT = 0x22;
inline constexpr uint32_t VK_END = 0x23;
inline constexpr uint32_t VK_HOME = 0x24;
inline constexpr uint32_t VK_LEFT = 0x25;
inline constexpr uint32_t VK_UP = 0x26;
inline constexpr uint32_t VK_RIGHT = 0x27;
inline constexpr uint32_t VK_DOWN = 0x28;
inline constexpr uint32_t VK_DELETE = 0x2E;
inline constexpr uint32_t VK_APPS = 0x5D;
inline constexpr uint32_t VK_F2 = 0x71;

// Buttons that every dialog knows
inline constexpr uint32_t IDOK = 1;
inline constexpr uint32_t IDCANCEL = 2;

// Styles
inline constexpr uint32_t WS_TABSTOP = 0x00010000;
inline constexpr uint32_t WS_DISABLED = 0x08000000;
inline constexpr uint32_t WS_VISIBLE = 0x10000000;
inline constexpr uint32_t WS_THICKFRAME = 0x00040000;
inline constexpr uint32_t WS_CAPTION = 0x00C00000;
inline constexpr uint32_t WS_CHILD = 0x40000000;
inline constexpr uint32_t WS_POPUP = 0x80000000;
inline constexpr uint32_t BS_TYPEMASK = 0x0F;
inline constexpr uint32_t BS_PUSHBUTTON = 0x00;
inline constexpr uint32_t BS_DEFPUSHBUTTON = 0x01;
inline constexpr uint32_t BS_AUTOCHECKBOX = 0x03;
inline constexpr uint32_t BS_GROUPBOX = 0x07;
inline constexpr uint32_t SS_TYPEMASK = 0x1F;
inline constexpr uint32_t SS_CENTER = 0x01;
inline constexpr uint32_t SS_RIGHT = 0x02;
inline constexpr uint32_t SS_ENDELLIPSIS = 0x4000;
inline constexpr uint32_t ES_RIGHT = 0x0002;
inline constexpr uint32_t LBS_OWNERDRAWFIXED = 0x0010;
inline constexpr uint32_t TBS_AUTOTICKS = 0x0001;
inline constexpr uint32_t TBS_VERT = 0x0002;
inline constexpr uint32_t TBS_DOWNISLEFT = 0x0400;

#endif
