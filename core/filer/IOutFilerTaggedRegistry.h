// The writer of values in the registry, always below the suite's own company key. Missing keys are made.
// 64-bit integers, comments and documents cannot be written. One thread at a time.
#pragma once

#include "core/filer/IFilerTaggedRegistryBase.h"
#include "core/filer/RegistryType.h"
#include "core/filer/TypedFilers.h"

namespace hx {

class IOutFilerTaggedRegistry : public TypedWrites<IOutFilerTaggedRegistry>, public IFilerTaggedRegistryBase {
public:
    IOutFilerTaggedRegistry(std::wstring_view base_path, bool view_32_bit)
        : IFilerTaggedRegistryBase(base_path, view_32_bit) {}

    bool AddComment(std::wstring_view text) override;
    bool BeginGroup(std::wstring_view tag) override;
    bool EndGroup() override;
    bool InsertDocument(std::wstring_view tag, std::wstring_view document) override;

private:
    friend TypedWrites;
    template <class T, class Value>
    bool WriteValue(std::wstring_view tag, Value value) {
        if constexpr (KeptInRegistry<T>) {
            return Set(tag, RegistryType<T>::Store(value));
        } else {
            return false;
        }
    }
    bool Set(std::wstring_view name, const RegistryValue& value);
};

}  // namespace hx
