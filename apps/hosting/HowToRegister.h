// What a program says behind the failure of creating a component, so that people know what to do. Any thread.
#pragma once

#include <string>

#include "platform/com/hresult.h"

namespace hosting {

// How the components of this installation are registered, or why nobody can tell whether they are, to be put
// behind a sentence; empty for a failure that has another reason. Throws std::bad_alloc.
std::string HowToRegister(HRESULT result);

}  // namespace hosting
