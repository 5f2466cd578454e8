// The reasons why records could not be read, kept by the process for whoever looks for them. No lock: on the
// thread of the user interface.
#pragma once

#include <cstdint>
#include <vector>

namespace hx {

class LastReadStatusHelper {
public:
    // An element without a version, or with a newer one than is known.
    static constexpr uint32_t kNoKnownVersion = 51;

    static void Append(uint32_t status);
    static const std::vector<uint32_t>& List();
};

}  // namespace hx
