// Keys of the registry with all that is below them, read to be printed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "apps/hxctl/json.h"
#include "platform/registry/registry.h"

namespace hxctl {

struct Key {
    std::wstring name;
    std::vector<hx::NamedRegistryValue> values;  // both in the registry's order
    std::vector<Key> keys;
};

// A line for each key and value, each level two further in.
std::string KeyText(const Key& key, size_t level = 0);
Json KeyJson(const Key& key);

// Reads on when something cannot be read, and remembers it. What is missing is empty.
class KeyReader {
public:
    explicit KeyReader(hx::RegistryRoot root) : m_registry(hx::Registry()), m_root(root) {}

    // The whole key, under the name given.
    Key Read(const std::wstring& path, std::wstring name);
    // As they were first written.
    std::vector<std::wstring> NamesBelow(std::wstring_view path);
    // The key's default value, if it is a text.
    std::wstring TextOf(std::wstring_view path);

    // The first refusal other than that something is missing; kDone without any.
    hx::RegistryResult Result() const { return m_result; }

private:
    void Note(hx::RegistryResult result);

    const std::shared_ptr<hx::IRegistry> m_registry;
    const hx::RegistryRoot m_root;
    hx::RegistryResult m_result = hx::RegistryResult::kDone;
};

// The path of a key below another; an empty one is the root.
std::wstring PathBelow(std::wstring_view path, std::wstring_view name);

}  // namespace hxctl
