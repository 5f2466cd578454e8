#include "platform/module/this_module.h"

#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/module/embedded_scripts.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

std::wstring& GivenFileName() {
    static std::wstring file_name;
    return file_name;
}

std::wstring FindOwnFileName() {
    static const char anchor = 0;
    Dl_info info{};
    void* entry = nullptr;
    std::error_code error;
    std::filesystem::path path;
    if (dladdr1(&anchor, &info, &entry, RTLD_DL_LINKMAP) != 0) {
        // The loader has no name for the program, only what it was called by.
        const char* const loaded_from = static_cast<const link_map*>(entry)->l_name;
        path = *loaded_from != '\0' ? std::filesystem::path(loaded_from)
                                    : std::filesystem::read_symlink("/proc/self/exe", error);
        if (path.empty()) path = info.dli_fname;
    }
    path = std::filesystem::absolute(path, error);
    return FromUtf8(path.native()).value_or(std::wstring());
}

const std::wstring& OwnFileName() {
    static const std::wstring file_name = FindOwnFileName();
    return file_name;
}

// While it is loaded: a host may load it by a relative name and then change its current folder.
[[maybe_unused]] const std::wstring& g_own_file_name = OwnFileName();

std::optional<std::string> ReadFileBeside(const std::wstring& file_name) {
    const std::optional<std::string_view> bytes = EmbeddedFile(ToUtf8(file_name));
    return bytes ? std::optional<std::string>(*bytes) : std::nullopt;
}

// The build has read all scripts before: none can be broken.
Resources ReadEmbedded(std::string_view script) {
    ResourceError error;
    return ReadResourceScript(DecodeTextFile(script).value(), error, &ReadFileBeside).value();
}

ModuleHandle MakeThisModule() {
    Resources resources = ReadEmbedded(EmbeddedScript());
    resources.version = ReadEmbedded(EmbeddedVersionScript()).version;
    const std::wstring& given = GivenFileName();
    ModuleHandle module = MakeResourceModule(given.empty() ? OwnFileName() : given, std::move(resources));
    EnterResourceModule(module);
    return module;
}

}  // namespace

ModuleVersion ThisModuleVersion() {
    return VersionOf(ThisModule()->GetResources());
}

ModuleHandle ThisModule() {
    static const ModuleHandle module = MakeThisModule();
    return module;
}

void SetThisModuleFileName(std::wstring file_name) {
    GivenFileName() = std::move(file_name);
}

}  // namespace hx
