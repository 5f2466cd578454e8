#include "platform/registry/text_encoding.h"

#include <bit>
#include <cstdint>

#include "platform/system/case_fold.h"

namespace hx {
namespace {

// The smallest value with so many trailing bytes. Fewer would do for anything below, so that is not read
// back.
constexpr uint64_t kSmallest[] = {0,         0x80,       0x800,       0x1'0000,
                                  0x20'0000, 0x400'0000, 0x8000'0000, 0x1'0000'0000};
constexpr int kMostTrailing = 6;

}  // namespace

void AppendEncoded(std::string& bytes, wchar_t character) {
    const auto code = static_cast<uint64_t>(static_cast<uint32_t>(character));
    int trailing = 0;
    while (code >= kSmallest[trailing + 1]) ++trailing;
    if (trailing == 0) {
        bytes += static_cast<char>(code);
        return;
    }
    const uint64_t mark = 0xFF << (7 - trailing) & 0xFF;
    bytes += static_cast<char>(mark | code >> (6 * trailing));
    while (trailing-- > 0) bytes += static_cast<char>(0x80 | (code >> (6 * trailing) & 0x3F));
}

std::string EncodeText(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) AppendEncoded(bytes, character);
    return bytes;
}

std::string EncodeFolded(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) AppendEncoded(bytes, FoldCase(character));
    return bytes;
}

std::optional<std::wstring> DecodeText(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto lead = static_cast<uint8_t>(bytes[i]);
        const int marks = std::countl_one(lead);
        const int trailing = marks == 0 ? 0 : marks - 1;
        if (marks == 1 || trailing > kMostTrailing || bytes.size() - i <= static_cast<size_t>(trailing)) {
            return std::nullopt;
        }
        uint64_t code = lead & (0x7Fu >> marks);
        for (int k = 0; k < trailing; ++k) {
            const auto byte = static_cast<uint8_t>(bytes[++i]);
            if ((byte & 0xC0) != 0x80) return std::nullopt;
            code = code << 6 | (byte & 0x3Fu);
        }
        if (code < kSmallest[trailing] || code > UINT32_MAX) return std::nullopt;
        text += static_cast<wchar_t>(static_cast<uint32_t>(code));
    }
    return text;
}

}  // namespace hx
