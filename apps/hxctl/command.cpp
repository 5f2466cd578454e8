#include "apps/hxctl/command.h"

#include <cstdio>
#include <iostream>
#include <iterator>

#include "hxapi/HXApiErrors.h"
#include "platform/system/files.h"

namespace hxctl {

std::optional<std::wstring> ReadTextFile(const std::string& path, std::string& reason) {
    std::string bytes;
    if (path == "-") {
        bytes.assign(std::istreambuf_iterator<char>(std::cin), {});
    } else if (const hx::FileError error = hx::ReadFile(path, bytes)) {
        reason = path + ": " + error.code.message();
        return {};
    }
    size_t bad_offset = 0;
    auto text = hx::DecodeTextFile(bytes, &bad_offset);
    if (!text) reason = path + ": no UTF-8 or UTF-16 text, at byte " + std::to_string(bad_offset);
    return text;
}

std::string HexResult(HRESULT result) {
    char text[12];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(result));
    return text;
}

std::string NamedResult(HRESULT result) {
    std::string name(hx::HresultName(result));
    if (name.empty()) name = HXApiErrorName(result);
    return name.empty() ? HexResult(result) : name + " (" + HexResult(result) + ")";
}

}  // namespace hxctl
