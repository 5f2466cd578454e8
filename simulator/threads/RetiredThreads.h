// Threads whose owner went on the thread itself, so that nobody could wait for it: they are waited for before
// the library is unloaded. Any thread.
#pragma once

#include <thread>

namespace hx::simulator {

// Without memory the thread is left to itself.
void Retire(std::thread thread) noexcept;
// Waits for those that are still about to end. To be called when no ModuleLock is left.
void JoinRetiredThreads();

}  // namespace hx::simulator
