#include "tests/resources/scripts.h"

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>

#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx_test {
namespace {

namespace fs = std::filesystem;

Script ReadScript(const fs::path& path, const std::string& tag) {
    std::string bytes;
    if (hx::ReadFile(path, bytes)) {
        throw std::runtime_error(path.string() + " cannot be read");
    }
    const std::optional<std::wstring> source = hx::DecodeTextFile(bytes);
    if (!source) {
        throw std::runtime_error(path.string() + " is no UTF-8");
    }
    hx::ResourceError error;
    const auto no_matter = [](const std::wstring&) { return std::string(); };
    std::optional<hx::Resources> resources = hx::ReadResourceScript(*source, error, no_matter);
    if (!resources) {
        throw std::runtime_error(path.string() + ":" + std::to_string(error.line) + ": " +
                                 hx::ToUtf8(error.text));
    }
    return {tag, std::move(*resources)};
}

std::vector<Script> ReadScripts(const std::string& module) {
    const fs::path folder = fs::path(HX_SOURCE_DIR) / (module == kHost ? "apps/hxhost" : "resources");
    std::vector<Script> scripts = {ReadScript(folder / (module + ".rc"), "")};
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        const std::string stem = entry.path().stem().string();
        if (entry.path().extension() == ".rc" && stem.starts_with(module + "_")) {
            scripts.push_back(ReadScript(entry.path(), stem.substr(module.size() + 1)));
        }
    }
    std::ranges::sort(scripts, {}, &Script::tag);
    return scripts;
}

void ForEachItem(const std::vector<hx::MenuItem>& items, const std::string& menu,
                 const std::function<void(const std::string&, const std::wstring&)>& visit) {
    for (size_t i = 0; i < items.size(); ++i) {
        const std::string place = menu + ", item " + std::to_string(i);
        visit(place, items[i].text);
        ForEachItem(items[i].items, place, visit);
    }
}

}  // namespace

const std::vector<Script>& Scripts(const std::string& module) {
    static std::map<std::string, std::vector<Script>> scripts;
    const auto found = scripts.find(module);
    return found != scripts.end() ? found->second
                                  : scripts.emplace(module, ReadScripts(module)).first->second;
}

const Script& Base(const std::string& module) {
    return Scripts(module).front();
}

Kind KindOf(const hx::DialogControl& control) {
    constexpr uint32_t kButtonTypes = 0xF;
    constexpr uint32_t kAutoCheckBox = 3;
    constexpr uint32_t kGroupBox = 7;
    if (control.window_class == L"Button") {
        const uint32_t type = control.style & kButtonTypes;
        return type == kGroupBox ? Kind::group : type == kAutoCheckBox ? Kind::check_box : Kind::push_button;
    }
    return control.window_class == L"Static"              ? Kind::label
           : control.window_class == L"Edit"              ? Kind::edit
           : control.window_class == L"ComboBox"          ? Kind::combo_box
           : control.window_class == L"ListBox"           ? Kind::list_box
           : control.window_class == L"msctls_trackbar32" ? Kind::slider
                                                          : Kind::component;
}

std::wstring Shown(std::wstring_view text) {
    std::wstring shown;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) {
            ++i;
        }
        shown += text[i];
    }
    return shown;
}

wchar_t Mnemonic(std::wstring_view text) {
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == L'&' && text[++i] != L'&') {
            return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[i])));
        }
    }
    return 0;
}

void ForEachText(const hx::Resources& resources,
                 const std::function<void(const std::string& place, const std::wstring& text)>& visit) {
    for (const auto& [id, text] : resources.strings) {
        visit("string " + std::to_string(id), text);
    }
    for (const auto& [id, dialog] : resources.dialogs) {
        const std::string place = "dialog " + std::to_string(id);
        visit(place, dialog.caption);
        for (size_t i = 0; i < dialog.controls.size(); ++i) {
            visit(place + ", control " + std::to_string(dialog.controls[i].id) + " at " + std::to_string(i),
                  dialog.controls[i].text);
        }
    }
    for (const auto& [id, menu] : resources.menus) {
        ForEachItem(menu.items, "menu " + std::to_string(id), visit);
    }
}

}  // namespace hx_test
