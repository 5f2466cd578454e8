// Registration scripts: which keys and values a component has in the registry, and what becomes of them when
// it is registered and unregistered. The text is a resource of its library (REGISTRY), run by its entry
// points; how it is written stands in registration_parser.h:
//     HKCR
//     {
//         Acme.Thing.1 = s 'Thing Class' { CLSID = s '{...}' }
//         NoRemove CLSID
//         {
//             ForceRemove {...} = s 'Thing Class'
//             {
//                 InprocServer32 = s '%MODULE%' { val ThreadingModel = s 'Both' }
//             }
//         }
//     }
// Keys are made when registering and deleted, with all below, when unregistering; a NoRemove one stays, as a
// root does, and so do its default value and its NoRemove values, while its other values (val) and what is
// below are dealt with one by one; a ForceRemove one is first deleted when registering, too; a Delete one is
// only ever deleted. Any thread; throws std::bad_alloc only.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/com/hresult.h"
#include "platform/registry/registry.h"

namespace hx {

enum class RegistrationAction { kRegister, kUnregister };

// %NAME% in a name, text or number of the script becomes the value, which may hold any character, except that
// no name of a key holds a "\"; names compare without case.
struct RegistrationReplacement {
    std::wstring_view name;
    std::wstring_view value;
};

// Where and why a script could not be run.
struct RegistrationError {
    uint32_t line = 0;  // of the script, from 1
    std::wstring text;  // one line in English, for people who write scripts or look after a machine
};

// The whole script is read before anything is changed. S_OK; E_FAIL for a text that is no script, else the
// registry's result as HRESULT_FROM_WIN32; `error` then says where. The first failure ends it, and what was
// done stays. Deleting what is not there is success.
HX_PLATFORM_API HRESULT RunRegistrationScript(IRegistry& registry, std::wstring_view script,
                                              std::span<const RegistrationReplacement> replacements,
                                              RegistrationAction action, RegistrationError& error);

// Reads the script only, whatever its replacements may be; false if it is none, and `error` then says where.
HX_PLATFORM_API bool CheckRegistrationScript(std::wstring_view script, RegistrationError& error);

}  // namespace hx
