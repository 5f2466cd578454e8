#include <algorithm>
#include <iterator>

#include "platform/module/script_resources.h"

namespace hx {
namespace {

constexpr uint32_t kDeepestMenu = 32;

struct FlagWord {
    std::wstring_view word;
    uint32_t flag;
};
constexpr FlagWord kFlagWords[] = {
    {L"GRAYED", kMenuGrayed}, {L"INACTIVE", kMenuInactive}, {L"CHECKED", kMenuChecked},
    {L"MENUBREAK", 0x40},     {L"MENUBARBREAK", 0x20},      {L"HELP", 0x4000},
};

// Flags stand behind commas, blanks or both.
uint32_t ReadFlags(ScriptParser& parser) {
    uint32_t flags = 0;
    while (true) {
        const bool comma = parser.AcceptMark(L',');
        const auto* const found = std::ranges::find_if(
            kFlagWords, [&](const FlagWord& each) { return parser.AcceptWord(each.word); });
        if (found != std::end(kFlagWords)) {
            flags |= found->flag;
        } else if (comma) {
            parser.FailExpected(L"a flag (GRAYED, INACTIVE, CHECKED, ...)");
        } else {
            return flags;
        }
    }
}

std::vector<MenuItem> ReadItems(ScriptParser& parser, uint32_t depth);

MenuItem ReadItem(ScriptParser& parser, uint32_t depth) {
    MenuItem item;
    if (parser.AcceptWord(L"POPUP")) {
        item.text = parser.ExpectText(L"the text of a submenu");
        item.flags = kMenuSubmenu | ReadFlags(parser);
        item.items = ReadItems(parser, depth + 1);
    } else if (!parser.AcceptWord(L"MENUITEM")) {
        parser.FailExpected(L"MENUITEM, POPUP or END");
    } else if (parser.AcceptWord(L"SEPARATOR")) {
        item.flags = kMenuSeparator;
    } else {
        item.text = parser.ExpectText(L"SEPARATOR or the text of a menu item");
        parser.ExpectMark(L',', L"\",\"");
        item.id = static_cast<uint32_t>(parser.ExpectNumber(L"the id of a menu item", 1, UINT16_MAX));
        item.flags = ReadFlags(parser);
    }
    return item;
}

std::vector<MenuItem> ReadItems(ScriptParser& parser, uint32_t depth) {
    if (depth > kDeepestMenu) throw ScriptError{parser.Line(), L"menus are nested more than 32 deep"};
    std::vector<MenuItem> items;
    for (const uint32_t begin = parser.BeginBlock(L"BEGIN of the menu");
         items.empty() || !parser.EndBlock(begin);) {
        items.push_back(ReadItem(parser, depth));
    }
    return items;
}

}  // namespace

MenuTemplate ReadMenu(ScriptParser& parser) {
    parser.SkipAttributes();
    return {ReadItems(parser, 1)};
}

}  // namespace hx
