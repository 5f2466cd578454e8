#include "settings/catalogue/MDeviceBase.h"

#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MDeviceBase"};
const StreamedClasses kClasses(kNames);

}  // namespace

bool MDeviceBase::SetInternalName(std::wstring_view name) {
    if (name.empty()) return false;
    InternalName = name;
    return true;
}

}  // namespace hx
