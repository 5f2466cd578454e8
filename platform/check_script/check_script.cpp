// hxcheckscript [--module] FILE...: reads resource scripts as the library does: those of satellites, or those
// that a module embeds, with the registration scripts and bitmaps beside them. Says where one is broken, in
// the form that editors jump to, and exits with 1; silent if all is well.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/module/module.h"
#include "platform/registry/registration_script.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace {

namespace fs = std::filesystem;

bool Refuse(const fs::path& path, uint32_t line, const std::wstring& text) {
    std::fprintf(stderr, "%s:%u: error: %s\n", path.c_str(), line, hx::ToUtf8(text).c_str());
    return false;
}

// Nothing if there is none, or no text, which it says.
std::optional<std::wstring> ReadText(const fs::path& path, std::string& bytes) {
    if (hx::ReadFile(path, bytes)) {
        Refuse(path, 0, L"cannot be read");
        return std::nullopt;
    }
    size_t bad_offset = 0;
    std::optional<std::wstring> text = hx::DecodeTextFile(bytes, &bad_offset);
    const auto lines_before = std::count(bytes.data(), bytes.data() + bad_offset, '\n');
    if (!text) Refuse(path, static_cast<uint32_t>(lines_before) + 1, L"the text is not UTF-8");
    return text;
}

bool CheckSatellite(const fs::path& path) {
    hx::ModuleError error;
    if (hx::LoadResourceModule(hx::FromUtf8(path.native()).value_or(L""), error)) return true;
    return Refuse(path, error.resources.line,
                  error.resources.text.empty() ? L"cannot be read" : error.resources.text);
}

bool CheckBitmap(const fs::path& file, std::string& bytes) {
    return (!hx::ReadFile(file, bytes) && bytes.starts_with("BM")) || Refuse(file, 0, L"is no bitmap");
}

bool CheckModule(const fs::path& path) {
    std::string script_bytes;
    const std::optional<std::wstring> script = ReadText(path, script_bytes);
    if (!script) return false;
    bool is_well = true;
    const auto read_and_check = [&](const std::wstring& file_name) -> std::optional<std::string> {
        const fs::path file = path.parent_path() / hx::ToUtf8(file_name);
        std::string bytes;
        if (file.extension() == ".bmp") {
            is_well = CheckBitmap(file, bytes) && is_well;
            return bytes;
        }
        const std::optional<std::wstring> text = ReadText(file, bytes);
        if (!text) return std::nullopt;
        hx::RegistrationError error;
        if (!hx::CheckRegistrationScript(*text, error)) is_well = Refuse(file, error.line, error.text);
        return bytes;
    };
    hx::ResourceError error;
    if (!hx::ReadResourceScript(*script, error, read_and_check)) return Refuse(path, error.line, error.text);
    return is_well;
}

}  // namespace

int main(int count, char** arguments) {
    const bool is_module = count > 1 && arguments[1] == std::string_view("--module");
    int result = 0;
    for (int i = is_module ? 2 : 1; i < count; ++i) {
        if (!(is_module ? CheckModule(arguments[i]) : CheckSatellite(arguments[i]))) result = 1;
    }
    return result;
}
