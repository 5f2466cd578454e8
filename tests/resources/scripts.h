// The resource scripts of this tree as the tests of their texts and of their layout see them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/module/resources.h"

namespace hx_test {

struct Script {
    std::string tag;  // "de-DE"; empty for the base
    hx::Resources resources;
};

// Those with scripts: of the pages, and the desktop host.
inline constexpr char kPages[] = "HXScannerCtrls";
inline constexpr char kHost[] = "hxhost";

// The base first, then one script per language. Throws if one of them is no resource script.
const std::vector<Script>& Scripts(const std::string& module = kPages);
const Script& Base(const std::string& module = kPages);

// The kinds of control that the tests tell apart.
enum class Kind { label, group, check_box, push_button, edit, combo_box, list_box, slider, component };
Kind KindOf(const hx::DialogControl& control);

// `text` as it is shown: without the mark of its mnemonic. "&&" is one ampersand.
std::wstring Shown(std::wstring_view text);
// The mnemonic of `text` in lower case, or 0.
wchar_t Mnemonic(std::wstring_view text);

// Every text of a script that a person reads, with a name of its place ("dialog 203, control 210").
void ForEachText(const hx::Resources& resources,
                 const std::function<void(const std::string& place, const std::wstring& text)>& visit);

}  // namespace hx_test
