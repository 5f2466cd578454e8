#include "core/locale/MLocalisationHelper.h"

#include <filesystem>
#include <utility>

#include "core/errors/MErrorLocation.h"
#include "core/locale/CFormattedText.h"
#include "core/locale/LoadedSatellites.h"
#include "core/locale/MResourceLocale.h"
#include "platform/module/this_module.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr std::wstring_view kFallbackLocale = L"en-US";
constexpr uint32_t kApplicationName = 57344;

// The system's numbers for a file and a module that cannot be found.
constexpr uint32_t kFileNotFound = 2;
constexpr uint32_t kModuleNotFound = 126;

constexpr size_t kLongestPath = 65536;

MErrorLocation& LoadLocation() {
    static MErrorLocation location("MLocalisationHelper", "LoadSatelliteResources");
    return location;
}

MError LoadError(const void* object, int32_t line, std::wstring_view error_name) {
    LoadLocation().Set(object, line);
    return MakeError(LoadLocation(), error_name);
}

// The absolute form; symbolic links stay as they are. The file must be there.
std::wstring LongPath(const void* object, std::wstring_view path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(ToUtf8(path), error);
    const std::optional<std::wstring> text = FromUtf8(absolute.native());
    if (text && text->size() >= kLongestPath) Throw(LoadLocation(), LoadError(object, 66, L"PathTooLong"));
    if (error || !text || path.find(L'\0') != std::wstring_view::npos ||
        !std::filesystem::exists(absolute, error)) {
        MError refused = LoadError(object, 60, L"GetLongPathName");
        refused.AddParameter(L"winErrorCode", kFileNotFound);
        Throw(LoadLocation(), refused);
    }
    return *text;
}

// A locale's name becomes a part of a file name, never of its folder.
bool IsPlainName(std::wstring_view locale_name) {
    return locale_name.find_first_of(std::wstring_view(L"/\\:\0", 4)) == std::wstring_view::npos;
}

ModuleHandle LoadSatellite(const void* object, std::wstring_view locale_name, const std::wstring& file_name) {
    ModuleError failure;
    failure.code = kModuleNotFound;
    ModuleHandle satellite = IsPlainName(locale_name) ? LoadResourceModule(file_name, failure) : nullptr;
    if (satellite) return satellite;
    MError error = LoadError(object, 83, L"LoadLibrary");
    error.AddParameter(L"localeName", locale_name);
    error.AddParameter(L"fileName", file_name);
    error.AddParameter(L"winErrorCode", failure.code);
    if (failure.resources.line != 0) {
        error.AddParameter(L"line", failure.resources.line);
        error.AddParameter(L"reason", failure.resources.text);
    }
    Throw(LoadLocation(), error);
}

// Counts an object in as a holder, and out again unless it stays one.
class Holding {
public:
    explicit Holding(bool is_new) : m_is_new(is_new) {
        if (m_is_new) LoadedSatellites::Get().Add();
    }
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;
    ~Holding() {
        if (m_is_new) LoadedSatellites::Get().Remove();
    }
    void Stay() { m_is_new = false; }

private:
    bool m_is_new;
};

}  // namespace

MLocalisationHelper::~MLocalisationHelper() {
    if (!m_satellite) return;
    m_satellite.reset();
    LoadedSatellites::Get().Remove();
}

int32_t MLocalisationHelper::SatelliteCount() {
    return LoadedSatellites::Get().Holders();
}

ModuleHandle MLocalisationHelper::GetCurrentModule() {
    return ThisModule();
}

void MLocalisationHelper::SetBaseModuleHandle(std::wstring_view base_module_file_name) {
    if (ModuleHandle module = LoadedResourceModule(base_module_file_name)) {
        m_base_module = std::move(module);
        return;
    }
    static MErrorLocation location("MLocalisationHelper", "SetBaseModuleHandle");
    location.Set(this, 118);
    MError error = MakeError(location, L"GetModuleHandle");
    error.AddParameter(L"baseModuleName", base_module_file_name);
    Throw(location, error);
}

void MLocalisationHelper::SetDefaultResources() {
    MResourceLocale::ExchangeResourceModule(m_base_module);
    m_locale_name.clear();
}

void MLocalisationHelper::LoadSatelliteResources(std::wstring_view locale_name) {
    const std::wstring base_path = GetCurrentModule()->FileName();
    if (base_path.empty()) {
        MError error = LoadError(this, 29, L"GetModuleFileName");
        error.AddParameter(L"winErrorCode", kModuleNotFound);
        Throw(LoadLocation(), error);
    }
    const auto load = [&](std::wstring_view name) {
        try {
            LoadSatelliteResources(name, base_path);
            return true;
        } catch (const MException& exception) {
            LoadLocation().Set(this, 36);
            Dismiss(LoadLocation(), *exception.GetChain().back());
            return false;
        }
    };
    if (load(locale_name) || load(kFallbackLocale)) return;
    Throw(LoadLocation(), LoadError(this, 44, L"LoadSatelliteResourcesFallbackFailed"));
}

void MLocalisationHelper::LoadSatelliteResources(std::wstring_view locale_name,
                                                 std::wstring_view base_module_path) {
    // Without a name the defaults are in use, whatever satellite is held.
    if (m_satellite && !locale_name.empty() && m_locale_name == locale_name) return;
    if (base_module_path.empty()) Throw(LoadLocation(), LoadError(this, 54, L"NoModuleName"));

    const std::wstring long_path = LongPath(this, base_module_path);
    std::wstring file_name = long_path.substr(0, long_path.rfind(L'.'));
    file_name.append(L"_").append(locale_name).append(L".dll");
    const ModuleHandle satellite = LoadSatellite(this, locale_name, file_name);

    Holding holding(!m_satellite);
    const auto lock = LoadedSatellites::Get().Lock();
    LoadedSatellites::Get().Keep(satellite);
    SetBaseModuleHandle(base_module_path);
    SetDefaultResources();
    const ModuleHandle previous = MResourceLocale::ExchangeResourceModule(satellite);
    // Another object may have put its own language into use at this moment.
    if (previous != m_base_module) Throw(LoadLocation(), LoadError(this, 101, L"SetResourceInstance"));
    m_locale_name = locale_name;
    m_satellite = satellite;
    holding.Stay();
}

std::wstring ApplicationName() {
    const ModuleHandle module = MResourceLocale::ResourceModule();
    const std::wstring* const name = module ? module->String(kApplicationName) : nullptr;
    return name != nullptr ? *name : FormatText(L'.', L"Unknown string resource: %u", {kApplicationName});
}

}  // namespace hx
