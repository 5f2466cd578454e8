#include "core/log/KLoggerEvent.h"

namespace hx {
namespace {

struct NameRow {
    KLoggerEvent event;
    std::wstring_view name;
};

constexpr NameRow kNames[] = {
    {KLoggerEvent::kLogModuleAdded, L"Log_module_added"},
    {KLoggerEvent::kLogModuleRemoved, L"Log_module_removed"},
    {KLoggerEvent::kRootError, L"Root_error"},
    {KLoggerEvent::kCascadeError, L"Cascade_error"},
    {KLoggerEvent::kDismissedError, L"Dismissed_error"},
    {KLoggerEvent::kReturnError, L"Return_error"},
    {KLoggerEvent::kWarning, L"Warning"},
    {KLoggerEvent::kStateChange, L"State_change"},
    {KLoggerEvent::kNotify, L"Notify"},
    {KLoggerEvent::kUpdate, L"Update"},
    {KLoggerEvent::kMessageSend, L"Message_send"},
    {KLoggerEvent::kMessageReceive, L"Message_receive"},
    {KLoggerEvent::kConstruction, L"Construction"},
    {KLoggerEvent::kDestruction, L"Destruction"},
    {KLoggerEvent::kScopePop, L"Scope_pop"},
    {KLoggerEvent::kScopePush, L"Scope_push"},
    {KLoggerEvent::kNumberedTimingPoint, L"Timing_point"},
    {KLoggerEvent::kTimingPoint, L"Timing_point"},
};

}  // namespace

std::wstring_view KLoggerEventName(KLoggerEvent event) {
    for (const NameRow& row : kNames) {
        if (row.event == event) return row.name;
    }
    return {};
}

}  // namespace hx
