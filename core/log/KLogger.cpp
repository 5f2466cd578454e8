#include "core/log/KLogger.h"

#include <bit>
#include <new>

#include "platform/system/thread_id.h"

namespace hx {
namespace {

// Names come from code, but some codes come from other components.
constexpr size_t kLongestState = 200;

KNameNumber NumberOf(KTextTable& table, const char* name) {
    return name != nullptr ? table.Number(name) : kNoName;
}

KNameNumber NumberOf(KWideTextTable& table, std::wstring_view name) {
    return !name.empty() ? table.Number(name.substr(0, kLongestState)) : kNoName;
}

KNameNumber NumberOf(KAddressTable& table, const void* object) {
    return object != nullptr ? table.Number(std::bit_cast<uintptr_t>(object)) : kNoName;
}

KNameNumber NumberOf(KNumberTable& table, uint32_t thread) {
    return table.Number(thread);
}

// Without memory for a new name the event is kept all the same.
template <class Table, class Name>
KNameNumber SafeNumberOf(Table& table, Name name) noexcept {
    try {
        return NumberOf(table, name);
    } catch (...) {
        return kUnknownName;
    }
}

}  // namespace

KLogger::KLogger(const IClock& clock) noexcept
    : m_clock(clock),
      m_reference_wall(clock.WallMicroseconds()),
      m_reference_steady(clock.SteadyMicroseconds()),
      // Without initial values: the system hands out the pages when they are first written.
      m_events(new (std::nothrow) Event[kCapacity]) {}

void KLogger::Add(KLoggerEvent event, const KLoggerParts& parts) noexcept {
    if (!m_events) return;
    const std::lock_guard guard(m_mutex);
    m_events[m_count % kCapacity] = {m_clock.SteadyMicroseconds(),
                                     event,
                                     SafeNumberOf(m_classes, parts.in_class),
                                     SafeNumberOf(m_objects, parts.for_object),
                                     SafeNumberOf(m_states, parts.to_state),
                                     SafeNumberOf(m_modules, parts.to),
                                     SafeNumberOf(m_points, parts.at),
                                     SafeNumberOf(m_threads, ThisThreadId())};
    ++m_count;
}

void KLogger::AddNames(const char* in_class, const char* at) noexcept {
    const std::lock_guard guard(m_mutex);
    SafeNumberOf(m_classes, in_class);
    SafeNumberOf(m_points, at);
}

}  // namespace hx
