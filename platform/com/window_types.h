// What component interfaces say of windows, places and keys, in the sizes that the system gives them.
#pragma once

#include "platform/com/types.h"

// Names a window; what it points at is nobody's business. platform/ui/hwnd.h makes windows of it.
struct HWND__;  // NOLINT(bugprone-reserved-identifier): so named by the system
using HWND = HWND__*;

using WPARAM = uint64_t;
using LPARAM = int64_t;

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};
// In hundredths of a millimetre.
using SIZEL = SIZE;

// The right and bottom edges are not part of it.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};
