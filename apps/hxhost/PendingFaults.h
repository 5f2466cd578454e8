// The failures that were asked for and have not happened yet, as far as the log of calls tells. On the thread
// of the user interface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/com/hresult.h"

namespace hxhost {

class PendingFaults {
public:
    // An operation without its interface; S_OK is met by whatever it answers.
    void Add(std::string operation, HRESULT result, int32_t times);
    void Clear() { m_faults.clear(); }
    // A call was made. True if it was the last one of all.
    bool UseUp(const std::string& operation, HRESULT result);

private:
    struct Pending {
        std::string operation;
        HRESULT result;
        int32_t times;
    };
    std::vector<Pending> m_faults;
};

}  // namespace hxhost
