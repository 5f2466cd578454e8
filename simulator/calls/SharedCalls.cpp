#include "simulator/calls/SharedCalls.h"

#include <memory>

namespace hx::simulator {
namespace {

// Neither has a destructor: an object that a host never releases may be used while the process ends.
constinit std::mutex g_mutex;  // guards both
constinit void* g_shared = nullptr;
constinit size_t g_users = 0;

}  // namespace

SharedCalls::Shared& SharedCalls::Enter() {
    const std::lock_guard guard(g_mutex);
    if (g_users == 0) g_shared = std::make_unique<Shared>().release();
    ++g_users;
    return *static_cast<Shared*>(g_shared);
}

SharedCalls::SharedCalls() : m_shared(Enter()) {}

SharedCalls::~SharedCalls() {
    const std::lock_guard guard(g_mutex);
    if (--g_users == 0) const std::unique_ptr<Shared> last(&m_shared);
}

}  // namespace hx::simulator
