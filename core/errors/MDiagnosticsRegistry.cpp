#include "core/errors/MDiagnosticsRegistry.h"

#include <atomic>

#include "core/errors/MRegisteredClasses.h"
#include "platform/system/never_destroyed.h"

namespace hx {
namespace {

class Nobody final : public MDiagnosticsRegistryImplementation {
public:
    void OnClass(const char*) override {}
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
    static NeverDestroyed<Nobody> nobody;
    MDiagnosticsRegistryImplementation* installed = Installed();
    return installed != nullptr ? *installed : *nobody;
}

MDiagnosticsRegistryImplementation* SetDiagnosticsRegistry(MDiagnosticsRegistryImplementation* registry) {
    MDiagnosticsRegistryImplementation* const before = Installed().exchange(registry);
    if (registry != nullptr) MRegisteredClasses::TellAll(*registry);
    return before;
}

}  // namespace hx
