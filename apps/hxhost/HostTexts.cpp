#include "apps/hxhost/HostTexts.h"

#include <cstdio>
#include <filesystem>

#include "hxapi/HXApiErrors.h"
#include "platform/module/this_module.h"
#include "platform/system/utf8.h"

namespace hxhost {
namespace {

hx::ModuleHandle SatelliteBeside(const hx::ModuleHandle& own, const std::string& tag) {
    const std::filesystem::path folder = std::filesystem::path(hx::ToUtf8(own->FileName())).parent_path();
    const auto file = hx::FromUtf8((folder / ("hxhost_" + tag + ".dll")).string());
    hx::ModuleError error;
    return file ? hx::LoadResourceModule(*file, error) : nullptr;
}

}  // namespace

HostTexts::HostTexts(std::string tag) : m_tag(std::move(tag)), m_own(hx::ThisModule()) {
    m_module = SatelliteBeside(m_own, m_tag);
    if (!m_module) m_module = m_own;
}

std::wstring HostTexts::Text(uint32_t id, std::initializer_list<Value> values) const {
    const std::wstring* found = m_module->String(id);
    if (!found) found = m_own->String(id);
    const std::wstring_view pattern = found ? std::wstring_view(*found) : std::wstring_view();
    // What is put in is not looked at again.
    std::wstring text;
    size_t done = 0;
    for (size_t mark; (mark = pattern.find(L"${", done)) != std::wstring_view::npos;) {
        const size_t end = pattern.find(L'}', mark);
        if (end == std::wstring_view::npos) break;
        text += pattern.substr(done, mark - done);
        const std::wstring_view name = pattern.substr(mark + 2, end - mark - 2);
        for (const Value& value : values) {
            if (value.name == name) text += value.text;
        }
        done = end + 1;
    }
    return text + std::wstring(pattern.substr(done));
}

std::wstring NameOf(HRESULT result) {
    std::string name(hx::HresultName(result));
    if (name.empty()) name = HXApiErrorName(result);
    if (name.empty()) {
        char digits[16];
        std::snprintf(digits, sizeof digits, "0x%08X", static_cast<unsigned>(result));
        name = digits;
    }
    return *hx::FromUtf8(name);
}

std::wstring ReasonOf(const hosting::Answer& failure) {
    const std::wstring name = NameOf(failure.result);
    return failure.text.empty() ? name : name + L", " + failure.text;
}

}  // namespace hxhost
