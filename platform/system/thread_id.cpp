#include "platform/system/thread_id.h"

#include <unistd.h>

namespace hx {

uint32_t ThisThreadId() {
    static thread_local const auto id = static_cast<uint32_t>(gettid());
    return id;
}

}  // namespace hx
