// What a resource script says of one dialog and of one menu. Rectangles are in dialog units, styles the
// system's bits. Made by the reader of scripts, shown by platform/ui.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace hx {

struct DialogRectangle {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const DialogRectangle&) const = default;
};

// IDC_STATIC: the id of controls that nobody asks for. Any number of controls of a dialog may have it, and
// only it.
inline constexpr uint32_t kNoControlId = UINT32_MAX;

struct DialogControl {
    // "Static", "Button", "Edit", "ComboBox", "ListBox", "ScrollBar" and "msctls_trackbar32" in this
    // spelling, any other as written.
    std::wstring window_class;
    std::wstring text;
    uint32_t id = 0;  // 16 bits, or kNoControlId
    DialogRectangle rectangle;
    uint32_t style = 0;  // whole: with what the kind of control has by default
    uint32_t extended_style = 0;

    bool operator==(const DialogControl&) const = default;
};

struct DialogTemplate {
    std::wstring caption;
    DialogRectangle rectangle;
    uint32_t style = 0;
    uint32_t extended_style = 0;
    uint32_t font_points = 0;
    std::wstring font_face;
    std::vector<DialogControl> controls;  // in tab order

    bool operator==(const DialogTemplate&) const = default;
};

// The system's bits.
enum MenuFlag : uint32_t {
    kMenuGrayed = 0x1,
    kMenuInactive = 0x2,
    kMenuChecked = 0x8,
    kMenuSubmenu = 0x10,
    kMenuSeparator = 0x800,
};

struct MenuItem {
    std::wstring text;  // with its mnemonic; empty for a separator
    uint32_t id = 0;    // 16 bits; 0 for a separator and for a submenu
    uint32_t flags = 0;
    std::vector<MenuItem> items;  // of a submenu, at least one

    bool operator==(const MenuItem&) const = default;
};

struct MenuTemplate {
    std::vector<MenuItem> items;

    bool operator==(const MenuTemplate&) const = default;
};

}  // namespace hx
