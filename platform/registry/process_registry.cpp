#include <atomic>
#include <mutex>

#include "platform/registry/registry.h"
#include "platform/registry/store_location.h"

namespace hx {
namespace {

struct ProcessRegistry {
    std::mutex mutex;
    std::shared_ptr<IRegistry> registry;
};

// Never destroyed: modules still log and read while the process exits.
ProcessRegistry& TheProcessRegistry() {
    static ProcessRegistry& registry = *new ProcessRegistry;
    return registry;
}

}  // namespace

std::shared_ptr<IRegistry> Registry() {
    ProcessRegistry& process = TheProcessRegistry();
    const std::lock_guard guard(process.mutex);
    if (!process.registry) {
        const StoreLocation location = LocateStores();
        process.registry = OpenRegistryStore(location.machine, location.user);
    }
    return process.registry;
}

uint64_t NewRegistrySource() {
    static std::atomic<uint64_t> g_last = 0;
    return ++g_last;
}

void SetRegistry(std::shared_ptr<IRegistry> registry) {
    ProcessRegistry& process = TheProcessRegistry();
    const std::lock_guard guard(process.mutex);
    process.registry.swap(registry);
}

}  // namespace hx
