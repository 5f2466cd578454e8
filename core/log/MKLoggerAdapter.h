// Feeds the event store with what errors and scopes report, and writes the exceptions that end at an entry
// point to the module's log. Any thread. Never raises: whoever reports has an error of his own.
#pragma once

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/log/KLogger.h"
#include "core/log/MFlowScope.h"

namespace hx {

class MKLoggerAdapter final : public MDiagnosticsRegistryImplementation, public MFlowLoggerImplementation {
public:
    // `events` outlives the adapter.
    explicit MKLoggerAdapter(KLogger& events) : m_events(events) {}

    void OnClass(const char* class_name) override;
    void OnLocation(const char* class_name, const char* method_name) override;
    void OnRootError(const MErrorLocation& location, std::wstring_view error_name) override;
    void OnCascadeError(const MErrorLocation& location, std::wstring_view error_name) override;
    void OnDismissedError(const MErrorLocation& location, std::wstring_view code) override;
    void OnReturnedError(const MErrorLocation& location, HRESULT result) override;
    void OnException(const MErrorLocation& location, const MException& exception, int32_t kind) override;

    void OnScopeEntered(const char* source_name, const char* method_name) noexcept override;
    void OnScopeLeft(const char* source_name, const char* method_name) noexcept override;

private:
    void Add(KLoggerEvent event, const MErrorLocation& location, std::wstring_view state) noexcept;

    KLogger& m_events;
};

}  // namespace hx
