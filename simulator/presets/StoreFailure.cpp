#include "simulator/presets/StoreFailure.h"

#include "platform/system/utf8.h"

namespace hx::simulator {
namespace {

// What is no UTF-8 shows as far as it is plain.
std::wstring Readable(const std::string& bytes) {
    if (std::optional<std::wstring> text = FromUtf8(bytes)) return *std::move(text);
    std::wstring text;
    for (const char byte : bytes) text += byte >= ' ' ? static_cast<wchar_t>(byte) : L'?';
    return text;
}

bool IsDenied(const std::error_code& code) {
    return code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
           code == std::errc::read_only_file_system;
}

}  // namespace

std::wstring PathText(const std::filesystem::path& path) {
    return Readable(path.string());
}

HRESULT ResultOf(const FileError& error, std::wstring& reason) {
    if (!error) return S_OK;
    reason = PathText(error.path) + L": " + Readable(error.code.message());
    return IsDenied(error.code) ? E_ACCESSDENIED : E_FAIL;
}

}  // namespace hx::simulator
