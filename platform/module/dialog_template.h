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
};

struct DialogControl {
    std::wstring window_class;  // "Static", "Button", "msctls_trackbar32", ...; of a component its {CLSID}
    std::wstring text;
    uint32_t id = 0;
    DialogRectangle rectangle;
    uint32_t style = 0;
    uint32_t extended_style = 0;
};

struct DialogTemplate {
    std::wstring caption;
    DialogRectangle rectangle;
    uint32_t style = 0;
    uint32_t extended_style = 0;
    uint32_t font_points = 0;
    std::wstring font_face;
    std::vector<DialogControl> controls;  // in tab order
};

struct MenuItem {
    std::wstring text;  // with its mnemonic; empty for a separator
    uint32_t id = 0;    // 0 for a separator and for a submenu
    uint32_t flags = 0;
    std::vector<MenuItem> items;  // of a submenu
};

struct MenuTemplate {
    std::vector<MenuItem> items;
};

}  // namespace hx
