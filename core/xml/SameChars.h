// Comparing a few characters without a call: for the two places that do it for every element of a document.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace hx {

// Equality of `count` characters, a step of 16 bytes at a time; the last step may overlap the one before.
inline bool SameChars(const wchar_t* left, const wchar_t* right, size_t count) {
    constexpr size_t kStep = 16 / sizeof(wchar_t);
    const auto same_step = [&](size_t at) {
        uint64_t a[2];
        uint64_t b[2];
        std::memcpy(a, left + at, sizeof a);
        std::memcpy(b, right + at, sizeof b);
        return ((a[0] ^ b[0]) | (a[1] ^ b[1])) == 0;
    };
    if (count >= kStep) {
        for (size_t at = 0; at + kStep < count; at += kStep) {
            if (!same_step(at)) return false;
        }
        return same_step(count - kStep);
    }
    for (size_t at = 0; at < count; ++at) {
        if (left[at] != right[at]) return false;
    }
    return true;
}

inline bool SameChars(const wchar_t* left, std::wstring_view right) {
    return SameChars(left, right.data(), right.size());
}

}  // namespace hx
