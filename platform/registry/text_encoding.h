// How texts lie in the store on disk: UTF-8 as it was first drawn up, for values of up to 31 bits, with one
// more step for all of 32. So whatever a wchar_t can hold comes back the same, the bytes sort like the
// characters, and proper text is proper UTF-8 for whoever looks into the file. Any thread; throws
// std::bad_alloc only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hx {

void AppendEncoded(std::string& bytes, wchar_t character);

std::string EncodeText(std::wstring_view text);
// With every character as it compares without case.
std::string EncodeFolded(std::wstring_view text);

// Nothing for bytes that no text gives.
std::optional<std::wstring> DecodeText(std::string_view bytes);

}  // namespace hx
