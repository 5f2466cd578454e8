// The library's own description: its identity, and the interfaces and classes that it lists. Read by whoever
// registers the library, and by clients through the ITypeInfo of its objects. Any thread.
#pragma once

#include "platform/com/type_library.h"

namespace hx {

extern const TypeLibrary kTypeLibrary;

}  // namespace hx
