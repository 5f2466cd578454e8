// What a SAFEARRAY does to its elements: the size of each type, copying one and freeing one.
// Used by safearray.cpp and variant.cpp alone.
#pragma once

#include "platform/com/variant.h"

namespace hx {

// In bytes; zero for a type that cannot be an element.
ULONG ElementSize(VARTYPE type);

// The FADF_ flag of a type whose elements own something, else zero.
USHORT ElementFeature(VARTYPE type);

// Writes a copy of `*source` over `*target`, which owns nothing yet. Zeroes there on failure.
HRESULT CopyElement(VARTYPE type, void* target, const void* source);

// Frees what the element owns and leaves zeroes.
void ClearElement(VARTYPE type, void* element);

}  // namespace hx
