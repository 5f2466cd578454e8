// The place for whoever knows of a better class lookup than the text tables beside this library. The loader
// asks it whenever no lookup was installed for it (loader.h).
#pragma once

#include <memory>

#include "platform/com/class_lookup.h"

namespace hx {

// Never gives null; throws std::bad_alloc. Called with the loader's lock held, so it creates no components.
using ClassLookupMaker = std::shared_ptr<IClassLookup> (*)();

// Makes the usual lookup from now on. Called while this library's own objects are being initialised.
void SetUsualClassLookup(ClassLookupMaker maker);

}  // namespace hx
