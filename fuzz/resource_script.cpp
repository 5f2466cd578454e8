#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"
#include "platform/module/resources.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace fuzz {
namespace {

constexpr uint32_t kShownChild = 0x50000000;

std::wstring Number(int64_t value) {
    return std::to_wstring(value);
}

// A literal in which nothing but letters and digits stands as it is.
std::wstring Text(const std::wstring& text) {
    const auto unit = [](uint32_t code) {
        std::wstring escape = L"\\x0000";
        for (size_t i = 5; i >= 2; --i, code /= 16) escape[i] = L"0123456789abcdef"[code % 16];
        return escape;
    };
    std::wstring literal = L"L\"";
    for (const wchar_t c : text) {
        const auto code = static_cast<uint32_t>(c);
        if ((c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'z' && c != L'\\')) {
            literal += c;
        } else if (code < 0x10000) {
            literal += unit(code);
        } else {
            literal += unit(0xD800 + ((code - 0x10000) >> 10)) + unit(0xDC00 + (code & 0x3FF));
        }
    }
    return literal + L"\"\n";
}

std::wstring Rectangle(const hx::DialogRectangle& rectangle) {
    return Number(rectangle.x) + L"," + Number(rectangle.y) + L"," + Number(rectangle.width) + L"," +
           Number(rectangle.height);
}

std::wstring Dialog(uint32_t id, const hx::DialogTemplate& dialog) {
    std::wstring script = Number(id) + L" DIALOGEX " + Rectangle(dialog.rectangle) + L" EXSTYLE " +
                          Number(dialog.extended_style) + L" STYLE " + Number(dialog.style);
    if (!dialog.caption.empty()) script += L" CAPTION " + Text(dialog.caption);
    if (dialog.font_points != 0)
        script += L" FONT " + Number(dialog.font_points) + L"," + Text(dialog.font_face);
    script += L"{\n";
    for (const hx::DialogControl& control : dialog.controls) {
        script += L"CONTROL " + Text(control.text) + L"," + Number(static_cast<int32_t>(control.id)) + L"," +
                  Text(control.window_class) + L",NOT " + Number(kShownChild) + L"|" + Number(control.style) +
                  L"," + Rectangle(control.rectangle) + L"," + Number(control.extended_style) + L"\n";
    }
    return script + L"}\n";
}

std::wstring Items(const std::vector<hx::MenuItem>& items) {
    constexpr struct {
        uint32_t flag;
        const wchar_t* word;
    } kWords[] = {{0x1, L"GRAYED"},     {0x2, L"INACTIVE"},      {0x8, L"CHECKED"},
                  {0x40, L"MENUBREAK"}, {0x20, L"MENUBARBREAK"}, {0x4000, L"HELP"}};
    std::wstring script = L"{\n";
    for (const hx::MenuItem& item : items) {
        const bool is_submenu = (item.flags & hx::kMenuSubmenu) != 0;
        script += is_submenu ? L"POPUP " : L"MENUITEM ";
        if (item.flags == hx::kMenuSeparator) {
            script += L"SEPARATOR\n";
            continue;
        }
        script += Text(item.text);
        if (!is_submenu) script += L"," + Number(item.id);
        for (const auto& each : kWords) {
            if (item.flags & each.flag) script += std::wstring(L",") + each.word;
        }
        script += is_submenu ? Items(item.items) : L"\n";
    }
    return script + L"}\n";
}

std::wstring Version(const hx::VersionStrings& version) {
    std::wstring script = L"1 VERSIONINFO { BLOCK \"StringFileInfo\" {\n";
    for (const auto& [language, values] : version) {
        script += L"BLOCK " + Text(language) + L"{\n";
        for (const auto& [name, value] : values) script += L"VALUE " + Text(name) + L"," + Text(value);
        script += L"}\n";
    }
    return script + L"} }\n";
}

std::wstring Script(const hx::Resources& resources) {
    std::wstring script = L"STRINGTABLE {\n";
    for (const auto& [id, text] : resources.strings) script += Number(id) + L" " + Text(text);
    script += L"}\n";
    for (const auto& [id, dialog] : resources.dialogs) script += Dialog(id, dialog);
    for (const auto& [id, menu] : resources.menus) script += Number(id) + L" MENU " + Items(menu.items);
    if (!resources.version.empty()) script += Version(resources.version);
    for (const auto& [id, file] : resources.registrations) script += Number(id) + L" REGISTRY " + Text(file);
    for (const auto& [id, file] : resources.bitmaps)
        script += Number(id) + L" BITMAP " + Text(*hx::DecodeTextFile(file));
    return script;
}

}  // namespace

void ResourceScript(Input input) {
    const std::wstring script = input.Text(SIZE_MAX);
    hx::ResourceError error;
    // Behind a mark of its own, as the name may begin with one.
    const auto name_of_file = [](const std::wstring& name) { return "\xEF\xBB\xBF" + hx::ToUtf8(name); };
    const std::optional<hx::Resources> resources = hx::ReadResourceScript(script, error, name_of_file);
    if (!resources) {
        const auto lines = static_cast<size_t>(std::count(script.begin(), script.end(), L'\n')) + 1;
        Require(error.line >= 1 && error.line <= lines, "an error is in a line of the script");
        Require(!error.text.empty() && error.text.find(L'\n') == std::wstring::npos,
                "it is said in one line");
        return;
    }
    hx::VersionOf(*resources);
    const std::optional<hx::Resources> again =
        hx::ReadResourceScript(Script(*resources), error, name_of_file);
    Require(again.has_value(), "what was read can be written as a script");
    Require(*again == *resources, "and is the same when read again");
}

}  // namespace fuzz
