// Registering component libraries, as installers and tools do: each library is loaded, does it itself by its
// entry points DllRegisterServer and DllUnregisterServer, and is unloaded unless it is in use. Any thread.
#pragma once

#include <string>

#include "platform/api.h"
#include "platform/com/hresult.h"

namespace hx {

// What the entry point says; CO_E_DLLNOTFOUND if there is no such library, CO_E_ERRORINDLL if it has no such
// entry point or cannot be loaded. The thread's error information, if there is any, says more: it is what the
// library set, or why it could not be loaded. A path that is not absolute counts from the current folder.
HX_PLATFORM_API HRESULT RegisterComponentLibrary(const std::wstring& path);
HX_PLATFORM_API HRESULT UnregisterComponentLibrary(const std::wstring& path);

// Whether the loader could make objects out of the library, none of which is made: S_OK, or what is wrong, as
// above.
HX_PLATFORM_API HRESULT CheckComponentLibrary(const std::wstring& path);

}  // namespace hx
