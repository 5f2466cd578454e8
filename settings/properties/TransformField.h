// The row of a table for a transform. Included by the sources of records. Any thread.
#pragma once

#include "core/records/FieldsOf.h"
#include "settings/properties/forms.h"

namespace hx {

template <class R, auto kMember>
struct TransformOps : detail::RecordOps<R, kMember> {
    using Form = detail::RecordOps<R, kMember>;

    static FieldRef At(void* record) {
        return ListRef{&(static_cast<R*>(record)->*kMember), &Transform4x4::kEntries};
    }
    static constexpr FieldOps kOps{L"transform", 0, &At, &Form::Read, &Form::Write};
};

template <class R, auto kMember>
constexpr Field TransformField(std::wstring_view child) {
    return {child, &TransformOps<R, kMember>::kOps, {}, "16 numbers, row by row"};
}

}  // namespace hx
