// The reader of values in the registry. A missing key, a missing value or one of another registry type makes
// a read false. 64-bit integers and documents cannot be read. One thread at a time.
#pragma once

#include "core/filer/IFilerTaggedRegistryBase.h"
#include "core/filer/RegistryType.h"
#include "core/filer/TypedFilers.h"

namespace hx {

class IInFilerTaggedRegistry : public TypedReads<IInFilerTaggedRegistry>, public IFilerTaggedRegistryBase {
public:
    // With `create`, reading makes missing keys, if that is allowed.
    IInFilerTaggedRegistry(std::wstring_view base_path, bool view_32_bit, bool create = false)
        : IFilerTaggedRegistryBase(base_path, view_32_bit), m_create(create) {}

    // Empty: the suite's own.
    void SetCompanyKey(std::wstring_view company_key) { m_company_key = company_key; }

    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool ExtractGroup(std::wstring_view tag, std::wstring& document) override;

private:
    friend TypedReads;
    template <class T>
    bool ReadValue(std::wstring_view tag, T& value, const T& fallback) {
        value = fallback;
        if constexpr (KeptInRegistry<T>) {
            RegistryValue stored;
            return Query(tag, stored) && RegistryType<T>::Load(stored, value);
        } else {
            return false;
        }
    }
    bool Query(std::wstring_view name, RegistryValue& stored);

    std::wstring m_company_key;
    bool m_create;
};

}  // namespace hx
