// What the entries of a device catalogue have in common: the name by which they are looked up. Any one thread
// at a time.
#pragma once

#include <string>
#include <string_view>

namespace hx {

class MDeviceBase {
public:
    MDeviceBase() = default;
    MDeviceBase(const MDeviceBase&) = default;
    MDeviceBase(MDeviceBase&&) = default;
    MDeviceBase& operator=(const MDeviceBase&) = default;
    MDeviceBase& operator=(MDeviceBase&&) = default;
    virtual ~MDeviceBase() = default;
    // False for an empty name; the old one then stays.
    virtual bool SetInternalName(std::wstring_view name);

    std::wstring InternalName;
};

}  // namespace hx
