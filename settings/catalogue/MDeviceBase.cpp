#include "settings/catalogue/MDeviceBase.h"

namespace hx {

bool MDeviceBase::SetInternalName(std::wstring_view name) {
    if (name.empty()) return false;
    InternalName = name;
    return true;
}

}  // namespace hx
