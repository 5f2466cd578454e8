// One value of the registry that components of the suite read or write: typed access to it, and what the
// catalog declares about it. Got from MRegistryKeyLib::GetRegistryKey by the key's id. Any thread; elements
// do not change, and every access stands alone.
//
// A read first stores `fallback` in `value`, and is true if the value was there and of a fitting registry
// type. Whoever reads brings the default: the catalog has none. A write is false if the store refuses it. The
// order of the operations is part of the interface.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Orvel::RegistryKeys {

class IRegistryKeyElementBase {
public:
    virtual bool Get(std::wstring& value, const std::wstring& fallback) const = 0;
    virtual bool Get(char& value, char fallback) const = 0;
    virtual bool Get(double& value, double fallback) const = 0;
    virtual bool Get(float& value, float fallback) const = 0;
    virtual bool Get(bool& value, bool fallback) const = 0;
    virtual bool Get(uint8_t& value, uint8_t fallback) const = 0;
    virtual bool Get(uint16_t& value, uint16_t fallback) const = 0;
    virtual bool Get(int16_t& value, int16_t fallback) const = 0;
    virtual bool Get(uint32_t& value, uint32_t fallback) const = 0;
    virtual bool Get(int32_t& value, int32_t fallback) const = 0;

    virtual bool Set(std::wstring_view value) const = 0;
    virtual bool Set(char value) const = 0;
    virtual bool Set(double value) const = 0;
    virtual bool Set(float value) const = 0;
    virtual bool Set(bool value) const = 0;
    virtual bool Set(uint8_t value) const = 0;
    virtual bool Set(uint16_t value) const = 0;
    virtual bool Set(int16_t value) const = 0;
    virtual bool Set(uint32_t value) const = 0;
    virtual bool Set(int32_t value) const = 0;

    // A RegistryKeyType: the accessor that is used must fit it.
    virtual uint64_t GetType() const = 0;
    virtual uint64_t GetCategory() const = 0;
    // "topic: explanation [accepted values, or the default]", in English.
    virtual std::wstring_view GetDescription() const = 0;
    // For people: the root, the key and the value name in one text. Values are written below the suite's own
    // company key even where this shows another.
    virtual std::wstring GetFullPath() const = 0;
    // The id of the first key of those that belong together.
    virtual uint64_t GetKeyGroup() const = 0;
    virtual ~IRegistryKeyElementBase() = default;

    // A literal would be taken for a bool.
    bool Set(const wchar_t* value) const { return Set(std::wstring_view(value)); }
};

}  // namespace Orvel::RegistryKeys
