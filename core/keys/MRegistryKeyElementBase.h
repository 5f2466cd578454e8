// The element of a key: reads and writes through the filers of the registry, as its row of the catalog says.
// Made by MRegistryKeyLib. Any thread.
#pragma once

#include "core/filer/IInFilerTaggedRegistry.h"
#include "core/filer/IOutFilerTaggedRegistry.h"
#include "core/keys/IRegistryKeyElementBase.h"
#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

class MRegistryKeyElementBase : public IRegistryKeyElementBase {
public:
    // `row` outlives the element.
    explicit MRegistryKeyElementBase(const RegistryKeyRow& row) : m_row(&row) {}

    bool Get(std::wstring& value, const std::wstring& fallback) const override {
        return Read(value, fallback);
    }
    bool Get(char& value, char fallback) const override { return Read(value, fallback); }
    bool Get(double& value, double fallback) const override { return Read(value, fallback); }
    bool Get(float& value, float fallback) const override { return Read(value, fallback); }
    bool Get(bool& value, bool fallback) const override { return Read(value, fallback); }
    bool Get(uint8_t& value, uint8_t fallback) const override { return Read(value, fallback); }
    bool Get(uint16_t& value, uint16_t fallback) const override { return Read(value, fallback); }
    bool Get(int16_t& value, int16_t fallback) const override { return Read(value, fallback); }
    bool Get(uint32_t& value, uint32_t fallback) const override { return Read(value, fallback); }
    bool Get(int32_t& value, int32_t fallback) const override { return Read(value, fallback); }

    using IRegistryKeyElementBase::Set;
    bool Set(std::wstring_view value) const override { return Write(value); }
    bool Set(char value) const override { return Write(value); }
    bool Set(double value) const override { return Write(value); }
    bool Set(float value) const override { return Write(value); }
    bool Set(bool value) const override { return Write(value); }
    bool Set(uint8_t value) const override { return Write(value); }
    bool Set(uint16_t value) const override { return Write(value); }
    bool Set(int16_t value) const override { return Write(value); }
    bool Set(uint32_t value) const override { return Write(value); }
    bool Set(int32_t value) const override { return Write(value); }

    uint64_t GetType() const override { return m_row->type; }
    uint64_t GetCategory() const override { return m_row->category; }
    std::wstring_view GetDescription() const override { return m_row->description; }
    std::wstring GetFullPath() const override { return FullPath(*m_row, m_row->place.company); }
    uint64_t GetKeyGroup() const override { return m_row->group; }

private:
    template <class T>
    bool Read(T& value, const T& fallback) const {
        const auto root = RootOf(*m_row);
        if (!root) {
            value = fallback;
            return false;
        }
        hx::IInFilerTaggedRegistry filer(m_row->place.path, Has(kView32), Has(kCreate));
        filer.SetCompanyKey(m_row->place.company);
        filer.SetRoot(*root);
        return filer.Read(m_row->value_name, value, fallback);
    }

    // This filer writes below the suite's own company key, whatever the row says.
    template <class T>
    bool Write(T value) const {
        const auto root = RootOf(*m_row);
        if (!root) return false;
        hx::IOutFilerTaggedRegistry filer(m_row->place.path, Has(kView32));
        filer.SetRoot(*root);
        return filer.Write(m_row->value_name, value);
    }

    bool Has(RegistryKeyFlags flag) const { return (m_row->flags & flag) != 0; }

    const RegistryKeyRow* m_row;
};

}  // namespace Orvel::RegistryKeys
