#include "simulator/threads/RetiredThreads.h"

#include <memory>
#include <mutex>
#include <new>
#include <utility>

namespace hx::simulator {
namespace {

struct Retired {
    std::thread thread;
    std::unique_ptr<Retired> next;
};

// Neither has a destructor: a process may end without having unloaded the library.
constinit std::mutex g_mutex;  // guards the list
constinit Retired* g_retired = nullptr;

}  // namespace

void Retire(std::thread thread) noexcept {
    std::unique_ptr<Retired> retired(new (std::nothrow) Retired);
    if (!retired) return thread.detach();
    retired->thread = std::move(thread);
    const std::lock_guard guard(g_mutex);
    retired->next.reset(g_retired);
    g_retired = retired.release();
}

void JoinRetiredThreads() {
    std::unique_ptr<Retired> all;
    {
        const std::lock_guard guard(g_mutex);
        all.reset(std::exchange(g_retired, nullptr));
    }
    for (; all; all = std::move(all->next)) all->thread.join();
}

}  // namespace hx::simulator
