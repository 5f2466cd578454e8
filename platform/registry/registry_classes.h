// The classes that are registered below HKEY_CLASSES_ROOT of this process's registry:
//     CLSID\{...}                             default: the description
//     CLSID\{...}\InprocServer32              default: the library's path; "ThreadingModel"
//     CLSID\{...}\ProgID                      default: the ProgID with version
//     CLSID\{...}\VersionIndependentProgID    default
//     PROGID\CLSID                            default: {...}, for either ProgID
//     PROGID\CurVer                           default: the ProgID with version, for the other one
// A class without an absolute library path is passed over, and so is a name without a well-formed CLSID.
// Every question is put to the registry anew. Any thread.
#pragma once

#include <memory>

#include "platform/com/class_lookup.h"

namespace hx {

HX_PLATFORM_API std::shared_ptr<IClassLookup> MakeRegistryClassLookup();

}  // namespace hx
