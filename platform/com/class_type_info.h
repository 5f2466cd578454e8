// The description of a component class as an object: ITypeInfo over its row of the type library. Made by the
// library's ITypeLib. Any thread.
#pragma once

#include "platform/com/comptr.h"
#include "platform/com/type_library.h"

namespace hx {

// `index` is into the classes. [caller owns] Throws std::bad_alloc.
ComPtr<ITypeInfo> MakeClassTypeInfo(const TypeLibrary& library, size_t index);

}  // namespace hx
