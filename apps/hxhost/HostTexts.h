// The texts and the window of this program in one language: its own resources, or the satellite of that
// language beside it. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "apps/hosting/HostedPage.h"
#include "platform/com/hresult.h"
#include "platform/module/module.h"

namespace hxhost {

struct Value {
    std::wstring_view name;  // of "${name}" in a text
    std::wstring_view text;
};

class HostTexts {
public:
    // A tag as "de-DE"; another language than those that there are texts in is shown in English.
    explicit HostTexts(std::string tag);

    const std::string& Tag() const { return m_tag; }
    // That dialogs come from.
    const hx::ModuleHandle& Module() const { return m_module; }
    std::wstring Text(uint32_t id, std::initializer_list<Value> values = {}) const;

private:
    std::string m_tag;
    hx::ModuleHandle m_own;
    hx::ModuleHandle m_module;
};

// "E_FAIL", or the number of a result that has no name.
std::wstring NameOf(HRESULT result);
// That, and what the page said of it.
std::wstring ReasonOf(const hosting::Answer& failure);

}  // namespace hxhost
