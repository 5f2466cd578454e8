// Entering the library in the registry of the machine, and removing it: a table of steps, which are taken in
// the same order both ways. The first failure ends it, and what was done stays. Called by the entry points,
// on any thread.
#pragma once

#include "platform/registry/registration_script.h"

namespace hx {

// S_OK, else what the step that failed says or stands for: SELFREG_E_TYPELIB, SELFREG_E_CLASS, the registry's
// code, E_FAIL, E_OUTOFMEMORY. A failure is logged, and left as the thread's error information.
HRESULT UpdateLibraryRegistration(RegistrationAction action) noexcept;

}  // namespace hx
