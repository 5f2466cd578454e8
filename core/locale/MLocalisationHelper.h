// Puts the resources of the user's language into use: a satellite module beside the program's own. One object
// per control; what it loads is in use by the whole program, until another one loads another. Each object is
// used on one thread, the thread of the user interface; several may live on several threads.
#pragma once

#include <string>
#include <string_view>

#include "platform/module/module.h"

namespace hx {

class MLocalisationHelper {
public:
    MLocalisationHelper() = default;
    MLocalisationHelper(const MLocalisationHelper&) = delete;
    MLocalisationHelper& operator=(const MLocalisationHelper&) = delete;
    // The last object that holds a satellite frees all that were loaded; the program's own resources are then
    // in use.
    virtual ~MLocalisationHelper();

    // The satellite of that locale ("de-DE") beside this program's module, or else that of US English. Throws
    // an MException: LoadSatelliteResourcesFallbackFailed if there is neither, and the defaults or what was
    // in use stay in use; GetModuleFileName ("winErrorCode").
    void LoadSatelliteResources(std::wstring_view locale_name);
    // The satellite of that locale beside the module of that file, and no other. Free if it is loaded
    // already. Throws an MException: NoModuleName, GetLongPathName ("winErrorCode"), PathTooLong, LoadLibrary
    // ("localeName", "fileName", "winErrorCode"; of a broken satellite "line" and "reason", too),
    // GetModuleHandle
    // ("baseModuleName"), SetResourceInstance.
    void LoadSatelliteResources(std::wstring_view locale_name, std::wstring_view base_module_path);

    // The module whose resources are the default. Throws an MException (GetModuleHandle, "baseModuleName") if
    // no module of that file name is loaded.
    void SetBaseModuleHandle(std::wstring_view base_module_file_name);
    // Puts the base module's resources into use; without one, those of the program's own.
    void SetDefaultResources();
    // This program's module.
    static ModuleHandle GetCurrentModule();

    // "" while the defaults are in use.
    const std::wstring& GetLocaleName() const { return m_locale_name; }
    // How many objects hold a satellite now.
    static int32_t SatelliteCount();

private:
    // Null for the program's own, which is in use when none was put into use.
    ModuleHandle m_base_module;
    ModuleHandle m_satellite;
    std::wstring m_locale_name;
};

// The name of the application in the language in use; if the satellite has none, a text that says so. Any
// thread.
std::wstring ApplicationName();

}  // namespace hx
