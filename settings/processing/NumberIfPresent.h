// Tells whether a document has a number, also of the optional reader, which says so of every number. For
// alternatives and for lists, which end where the next one is absent. Any thread.
#pragma once

#include <bit>
#include <cstdint>

#include "core/filer/MFilerTaggedPair.h"

namespace hx {

struct NumberIfPresent {
    bool present;
    bool answer;  // the reader's own
};

// `value` is unchanged if it is absent.
inline NumberIfPresent ReadIfPresent(MFilerTaggedPair& filer, std::wstring_view child, double& value) {
    // No text is read as this one of the many that are no number.
    constexpr uint64_t kAbsent = 0x7FFC'0000'4142'5345;
    double number = 0;
    const bool answer = filer.Read<double>(child, number, std::bit_cast<double>(kAbsent));
    const bool present = answer && std::bit_cast<uint64_t>(number) != kAbsent;
    if (present) value = number;
    return {present, answer};
}

}  // namespace hx
