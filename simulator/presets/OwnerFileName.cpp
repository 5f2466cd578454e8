#include "simulator/presets/OwnerFileName.h"

#include <charconv>
#include <cstdint>

namespace hx::simulator {
namespace {

// Also keeps a name from being one of those that some systems give to devices.
constexpr std::string_view kPrefix = "presets-";
// Leaves room for what is put behind it, where 255 bytes are the most.
constexpr size_t kLongest = 160;

void AppendHex(std::string& out, uint64_t number) {
    char text[16];
    out.append(text, std::to_chars(text, text + sizeof text, number, 16).ptr);
}

// FNV-1a over the characters' codes.
uint64_t Checksum(std::wstring_view text) {
    uint64_t sum = 0xCBF29CE484222325;
    for (const wchar_t character : text) {
        const auto code = static_cast<uint32_t>(character);
        for (uint32_t shift = 0; shift < 32; shift += 8) {
            sum = (sum ^ (code >> shift & 0xFF)) * 0x100000001B3;
        }
    }
    return sum;
}

}  // namespace

std::string OwnerFileName(std::wstring_view owner) {
    std::string name(kPrefix);
    for (const wchar_t c : owner) {
        if (name.size() > kLongest) break;
        if ((c >= L'a' && c <= L'z') || (c >= L'0' && c <= L'9') || c == L'-') {
            name += static_cast<char>(c);
        } else if (c >= L'A' && c <= L'Z') {
            name += '+';
            name += static_cast<char>(c - L'A' + L'a');
        } else {
            name += '_';
            AppendHex(name, static_cast<uint32_t>(c));
            name += '_';
        }
    }
    if (name.size() > kLongest) {
        name.resize(kLongest);
        name += '~';
        AppendHex(name, Checksum(owner));
    }
    return name;
}

}  // namespace hx::simulator
