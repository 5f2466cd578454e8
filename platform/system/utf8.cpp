#include "platform/system/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace hx {
namespace {

constexpr char32_t replacement = 0xFFFD;

bool IsScalar(char32_t code) {
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

char* Append(char* out, char32_t code) {
    const auto trail = [code](int shift) { return static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        *out++ = static_cast<char>(code);
        return out;
    }
    if (code < 0x800) {
        *out++ = static_cast<char>(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            *out++ = static_cast<char>(0xE0 | code >> 12);
        } else {
            *out++ = static_cast<char>(0xF0 | code >> 18);
            *out++ = trail(12);
        }
        *out++ = trail(6);
    }
    *out++ = trail(0);
    return out;
}

char32_t CodeOf(wchar_t c) {
    const auto code = static_cast<char32_t>(c);
    return IsScalar(code) ? code : replacement;
}

// Without branches, so that the compiler counts many at once. What is replaced takes three bytes, as does
// every value that is too large for two but not in the range of four.
size_t EncodedSize(wchar_t c) {
    const auto code = static_cast<char32_t>(c);
    return size_t{1} + (code >= 0x80) + (code >= 0x800) + (code - 0x10000 < 0x100000);
}

// A sequence that starts with a byte of [first, last] has `trails` more; the first of them is in [low, high],
// which is what keeps out overlong forms, surrogates and values too large.
struct Lead {
    uint8_t first, last, trails, low, high;
};
constexpr Lead leads[] = {
    {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF}, {0xE1, 0xEC, 2, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF}, {0xF0, 0xF0, 3, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F},
};

// Length of the sequence at `bytes`, none if it is malformed or does not end before `end`.
size_t Decode(const uint8_t* bytes, const uint8_t* end, uint32_t& code) {
    const Lead* lead = std::find_if(std::begin(leads), std::end(leads), [&](const Lead& each) {
        return bytes[0] >= each.first && bytes[0] <= each.last;
    });
    if (lead == std::end(leads) || end - bytes <= lead->trails) return 0;
    if (bytes[1] < lead->low || bytes[1] > lead->high) return 0;
    code = bytes[0] & (0x3Fu >> lead->trails);
    for (int i = 1; i <= lead->trails; ++i) {
        if ((bytes[i] & 0xC0) != 0x80) return 0;
        code = code << 6 | (bytes[i] & 0x3Fu);
    }
    return lead->trails + size_t{1};
}

// Most text is ASCII: eight bytes at a time while none of them is anything else.
const uint8_t* DecodeAscii(const uint8_t* in, const uint8_t* end, wchar_t*& out) {
    while (end - in >= 8) {
        uint64_t block = 0;
        std::memcpy(&block, in, 8);
        if (block & 0x8080808080808080u) break;
        for (int i = 0; i < 8; ++i) out[i] = static_cast<wchar_t>(in[i]);
        in += 8;
        out += 8;
    }
    while (in != end && *in < 0x80) *out++ = static_cast<wchar_t>(*in++);
    return in;
}

const wchar_t* EncodeAscii(const wchar_t* in, const wchar_t* end, char*& out) {
    while (end - in >= 8) {
        uint32_t all = 0;
        for (int i = 0; i < 8; ++i) all |= static_cast<uint32_t>(in[i]);
        if (all >= 0x80) break;
        for (int i = 0; i < 8; ++i) out[i] = static_cast<char>(in[i]);
        in += 8;
        out += 8;
    }
    while (in != end && static_cast<uint32_t>(*in) < 0x80) *out++ = static_cast<char>(*in++);
    return in;
}

// Decodes up to `end`, or to a bad sequence, whose place it returns; `out` moves behind what was written.
const uint8_t* DecodeGood(const uint8_t* in, const uint8_t* end, wchar_t*& out) {
    while (true) {
        in = DecodeAscii(in, end, out);
        if (in == end) return in;
        uint32_t code = 0;
        const size_t length = Decode(in, end, code);
        if (length == 0) return in;
        *out++ = static_cast<wchar_t>(code);
        in += length;
    }
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    size_t size = 0;
    for (const wchar_t c : text) size += EncodedSize(c);
    std::string bytes(size, '\0');
    char* out = bytes.data();
    const wchar_t* in = text.data();
    const wchar_t* end = in + text.size();
    while (true) {
        in = EncodeAscii(in, end, out);
        if (in == end) return bytes;
        out = Append(out, CodeOf(*in++));
    }
}

std::optional<std::wstring> FromUtf8(std::string_view bytes, size_t* bad_offset) {
    // Every character has one byte that is no trailing one, so this is room enough also for what comes before
    // an error.
    const auto count = std::count_if(bytes.begin(), bytes.end(),
                                     [](char c) { return (static_cast<uint8_t>(c) & 0xC0) != 0x80; });
    std::wstring text(static_cast<size_t>(count), L'\0');
    const auto* begin = reinterpret_cast<const uint8_t*>(bytes.data());
    const uint8_t* end = begin + bytes.size();
    wchar_t* out = text.data();
    const uint8_t* const behind = DecodeGood(begin, end, out);
    if (behind == end) return text;
    if (bad_offset) *bad_offset = static_cast<size_t>(behind - begin);
    return std::nullopt;
}

std::wstring FromDamagedUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    const auto* in = reinterpret_cast<const uint8_t*>(bytes.data());
    const uint8_t* const end = in + bytes.size();
    wchar_t* out = text.data();
    while ((in = DecodeGood(in, end, out)) != end) {
        *out++ = static_cast<wchar_t>(replacement);
        ++in;
    }
    text.resize(static_cast<size_t>(out - text.data()));
    return text;
}

}  // namespace hx
