#include "apps/hxctl/classes/key_tree.h"

#include <utility>

#include "apps/hxctl/command.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

std::string Quoted(const std::wstring& text) {
    return Json(hx::ToUtf8(text)).dump();
}

// On one line, whatever it holds.
std::string NameText(const std::wstring& name) {
    const std::string quoted = Quoted(name);
    return quoted.substr(1, quoted.size() - 2);
}

std::string ValueText(const hx::RegistryValue& value) {
    if (const auto* const text = std::get_if<std::wstring>(&value)) return "REG_SZ " + Quoted(*text);
    const uint32_t number = std::get<uint32_t>(value);
    return "REG_DWORD " + std::to_string(number) + " (" + HexResult(static_cast<HRESULT>(number)) + ")";
}

Json ValueJson(const hx::NamedRegistryValue& value) {
    const auto* const text = std::get_if<std::wstring>(&value.value);
    return {{"name", hx::ToUtf8(value.name)},
            {"type", text ? "REG_SZ" : "REG_DWORD"},
            {"value", text ? Json(hx::ToUtf8(*text)) : Json(std::get<uint32_t>(value.value))}};
}

}  // namespace

std::string KeyText(const Key& key, size_t level) {
    std::string text = std::string(2 * level, ' ') + NameText(key.name) + "\n";
    const std::string indent(2 * (level + 1), ' ');
    for (const auto& [name, value] : key.values) {
        text += indent + (name.empty() ? "(default)" : NameText(name)) + " = " + ValueText(value) + "\n";
    }
    for (const Key& below : key.keys) text += KeyText(below, level + 1);
    return text;
}

Json KeyJson(const Key& key) {
    Json values = Json::array();
    for (const hx::NamedRegistryValue& value : key.values) values.push_back(ValueJson(value));
    Json keys = Json::array();
    for (const Key& below : key.keys) keys.push_back(KeyJson(below));
    return {{"name", hx::ToUtf8(key.name)}, {"values", std::move(values)}, {"keys", std::move(keys)}};
}

Key KeyReader::Read(const std::wstring& path, std::wstring name) {
    Key key{std::move(name), {}, {}};
    Note(m_registry->ListValues(m_root, path, key.values));
    for (std::wstring& below : NamesBelow(path)) {
        const std::wstring path_below = PathBelow(path, below);
        key.keys.push_back(Read(path_below, std::move(below)));
    }
    return key;
}

std::vector<std::wstring> KeyReader::NamesBelow(std::wstring_view path) {
    std::vector<std::wstring> names;
    Note(m_registry->ListKeys(m_root, path, names));
    return names;
}

std::wstring KeyReader::TextOf(std::wstring_view path) {
    hx::RegistryValue value;
    Note(m_registry->QueryValue(m_root, path, L"", value));
    auto* const text = std::get_if<std::wstring>(&value);
    return text ? std::move(*text) : std::wstring();
}

void KeyReader::Note(hx::RegistryResult result) {
    if (m_result == hx::RegistryResult::kDone && result != hx::RegistryResult::kNotFound) m_result = result;
}

std::wstring PathBelow(std::wstring_view path, std::wstring_view name) {
    std::wstring below(path);
    if (!below.empty()) below += L'\\';
    return below += name;
}

}  // namespace hxctl
