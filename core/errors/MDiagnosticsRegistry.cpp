#include "core/errors/MDiagnosticsRegistry.h"

#include <atomic>
#include <cstddef>
#include <new>

namespace hx {
namespace {

class Nobody final : public MDiagnosticsRegistryImplementation {
public:
    void OnLocation(const char*, const char*) override {}
    void OnRootError(const MErrorLocation&, std::wstring_view) override {}
    void OnCascadeError(const MErrorLocation&, std::wstring_view) override {}
    void OnDismissedError(const MErrorLocation&, std::wstring_view) override {}
    void OnReturnedError(const MErrorLocation&, HRESULT) override {}
    void OnException(const MErrorLocation&, const MException&, int32_t) override {}
};

std::atomic<MDiagnosticsRegistryImplementation*>& Installed() {
    static std::atomic<MDiagnosticsRegistryImplementation*> installed = nullptr;
    return installed;
}

}  // namespace

MDiagnosticsRegistryImplementation& DiagnosticsRegistry() {
    // Never destroyed: errors are still raised while the process exits.
    alignas(Nobody) static std::byte place[sizeof(Nobody)];
    static Nobody& nobody = *new (place) Nobody;
    MDiagnosticsRegistryImplementation* installed = Installed();
    return installed != nullptr ? *installed : nobody;
}

MDiagnosticsRegistryImplementation* SetDiagnosticsRegistry(MDiagnosticsRegistryImplementation* registry) {
    return Installed().exchange(registry);
}

}  // namespace hx
