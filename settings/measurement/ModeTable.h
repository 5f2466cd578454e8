// Values with a text for each, in tables whose rows have `value` and `text`. For the helpers of this folder;
// any thread.
#pragma once

#include <string_view>
#include <utility>

#include "core/errors/MErrorLocation.h"
#include "core/filer/CNumberText.h"

namespace hx {

[[noreturn]] inline void RaiseNoMode(MErrorLocation& location, int32_t line, std::wstring_view error_name,
                                     std::wstring_view mode) {
    location.Set(nullptr, line);
    MError error = MakeError(location, error_name);
    error.AddParameter(L"mode", mode);
    Throw(location, error);
}

// The value whose text this is, to the letter; raises `error_name` at `location` if there is none.
template <class Row, size_t kRows>
auto ValueOfText(const Row (&rows)[kRows], std::wstring_view text, MErrorLocation& location, int32_t line,
                 std::wstring_view error_name) {
    for (const Row& row : rows) {
        if (row.text == text) return row.value;
    }
    RaiseNoMode(location, line, error_name, text);
}

// The row of a value, which may be any number; raises `error_name` at `location` if there is none.
template <class Row, size_t kRows>
const Row& RowOfValue(const Row (&rows)[kRows], decltype(Row::value) value, MErrorLocation& location,
                      int32_t line, std::wstring_view error_name) {
    for (const Row& row : rows) {
        if (row.value == value) return row;
    }
    RaiseNoMode(location, line, error_name, CNumberText(int64_t{static_cast<int32_t>(value)}));
}

}  // namespace hx
