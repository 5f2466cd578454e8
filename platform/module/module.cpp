#include "platform/module/module.h"

#include <algorithm>
#include <filesystem>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>

#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

// The system's numbers.
constexpr uint32_t kNotEnoughMemory = 8;
constexpr uint32_t kModuleNotFound = 126;
constexpr uint32_t kBadModule = 193;

constexpr uintmax_t kLargestSatellite = uintmax_t{16} << 20;

struct Modules {
    std::mutex mutex;
    std::map<std::wstring, std::weak_ptr<const ResourceModule>, std::less<>> by_file_name;
};

// Never destroyed: modules may still be asked for while the process exits.
Modules& TheModules() {
    static Modules& modules = *new Modules;
    return modules;
}

// Empty for what can be no file name.
std::wstring Absolute(std::wstring_view file_name) {
    if (file_name.empty() || file_name.find(L'\0') != std::wstring_view::npos) return {};
    if (file_name.front() == L'/') return std::wstring(file_name);
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    const std::optional<std::wstring> absolute = FromUtf8((folder / ToUtf8(file_name)).native());
    return error || !absolute ? std::wstring() : *absolute;
}

// To be called under the lock.
ModuleHandle Find(const Modules& modules, std::wstring_view file_name) {
    const auto found = modules.by_file_name.find(file_name);
    return found == modules.by_file_name.end() ? nullptr : found->second.lock();
}

void Enter(Modules& modules, const ModuleHandle& module, std::wstring file_name) {
    std::erase_if(modules.by_file_name, [](const auto& each) { return each.second.expired(); });
    modules.by_file_name[std::move(file_name)] = module;
}

uint32_t LineAt(std::string_view bytes, size_t offset) {
    return 1 + static_cast<uint32_t>(std::ranges::count(bytes.substr(0, offset), '\n'));
}

// The resources of a satellite's file; nothing if there are none, and `error` then says why.
std::optional<Resources> ReadSatellite(const std::filesystem::path& path, ModuleError& error) {
    std::error_code refused;
    std::string bytes;
    // What is no plain file might never end, or wait for somebody to write.
    if (!std::filesystem::is_regular_file(path, refused)) {
        error = {kModuleNotFound, {}};
        return std::nullopt;
    }
    if (std::filesystem::file_size(path, refused) > kLargestSatellite && !refused) {
        error = {kBadModule, {0, L"the file is larger than 16 MB"}};
        return std::nullopt;
    }
    if (ReadFile(path, bytes)) {
        error = {kModuleNotFound, {}};
        return std::nullopt;
    }
    size_t bad_offset = 0;
    const std::optional<std::wstring> script = DecodeTextFile(bytes, &bad_offset);
    if (!script) {
        error = {kBadModule, {LineAt(bytes, bad_offset), L"the text is not UTF-8"}};
        return std::nullopt;
    }
    error.code = kBadModule;
    std::optional<Resources> resources = ReadResourceScript(*script, error.resources);
    if (resources && *resources == Resources{}) {
        error.resources = {0, L"the file holds no resources"};
        return std::nullopt;
    }
    return resources;
}

}  // namespace

const std::wstring* ResourceModule::String(uint32_t id) const {
    const auto found = m_resources.strings.find(id);
    return found == m_resources.strings.end() ? nullptr : &found->second;
}

const std::wstring* ResourceModule::Registration(uint32_t id) const {
    const auto found = m_resources.registrations.find(id);
    return found == m_resources.registrations.end() ? nullptr : &found->second;
}

const std::string* ResourceModule::Bitmap(uint32_t id) const {
    const auto found = m_resources.bitmaps.find(id);
    return found == m_resources.bitmaps.end() ? nullptr : &found->second;
}

ModuleHandle LoadResourceModule(std::wstring_view file_name, ModuleError& error) {
    error = {};
    try {
        const std::wstring absolute = Absolute(file_name);
        if (absolute.empty()) {
            error.code = kModuleNotFound;
            return nullptr;
        }
        // Held while the file is read, so that all who ask for it at once get the same module.
        Modules& modules = TheModules();
        const std::lock_guard guard(modules.mutex);
        if (ModuleHandle loaded = Find(modules, absolute)) return loaded;
        std::optional<Resources> resources = ReadSatellite(ToUtf8(absolute), error);
        if (!resources) return nullptr;
        ModuleHandle module = MakeResourceModule(absolute, std::move(*resources));
        Enter(modules, module, absolute);
        error = {};
        return module;
    } catch (const std::bad_alloc&) {
        error = {kNotEnoughMemory, {}};
    }
    return nullptr;
}

ModuleHandle LoadedResourceModule(std::wstring_view file_name) {
    const std::wstring absolute = Absolute(file_name);
    Modules& modules = TheModules();
    const std::lock_guard guard(modules.mutex);
    return Find(modules, absolute);
}

ModuleHandle MakeResourceModule(std::wstring file_name, Resources resources) {
    return std::make_shared<const ResourceModule>(std::move(file_name), std::move(resources));
}

void EnterResourceModule(const ModuleHandle& module) {
    std::wstring absolute = Absolute(module->FileName());
    if (absolute.empty()) return;
    Modules& modules = TheModules();
    const std::lock_guard guard(modules.mutex);
    Enter(modules, module, std::move(absolute));
}

}  // namespace hx
