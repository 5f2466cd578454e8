#include "platform/com/guid.h"

namespace hx {

std::wstring GuidToText(const GUID& guid) {
    static constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text = L"{";
    const auto append = [&text](uint32_t value, int nibbles) {
        for (int shift = 4 * (nibbles - 1); shift >= 0; shift -= 4) text += digits[value >> shift & 0xF];
    };
    append(guid.Data1, 8);
    text += L'-';
    append(guid.Data2, 4);
    text += L'-';
    append(guid.Data3, 4);
    text += L'-';
    for (int i = 0; i < 8; ++i) {
        if (i == 2) text += L'-';
        append(guid.Data4[i], 2);
    }
    text += L'}';
    return text;
}

bool GuidFromText(std::wstring_view text, GUID& guid) {
    return ReadGuid(text, guid);
}

}  // namespace hx
