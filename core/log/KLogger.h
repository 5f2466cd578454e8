// The event store: what happened last in a module, kept in memory in compact form, to be written to a file
// when somebody asks. Fed by MKLoggerAdapter and by the module's start and end. Any thread; its lock is held
// while an event is added and while the dump is put together.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "core/log/KLoggerEvent.h"
#include "core/log/KNameTable.h"
#include "platform/system/clock.h"

namespace hx {

// The parts that belong to an event; those that do not apply are left null or empty.
struct KLoggerParts {
    const char* in_class = nullptr;
    const void* for_object = nullptr;
    std::wstring_view to_state = {};
    std::wstring_view to = {};  // the module that the event is about
    const char* at = nullptr;   // a method, or a point of the program
};

class KLogger {
public:
    static constexpr size_t kCapacity = 65536;  // events; then a new one takes the oldest one's place

    // `clock` outlives the store. Without memory for the events none are kept.
    explicit KLogger(const IClock& clock = SystemClock()) noexcept;
    KLogger(const KLogger&) = delete;
    KLogger& operator=(const KLogger&) = delete;

    void Add(KLoggerEvent event, const KLoggerParts& parts) noexcept;
    // Enters names ahead of the first event that bears them; they may be there already.
    void AddNames(const char* in_class, const char* at) noexcept;

    // All events as text, oldest first. Throws std::bad_alloc.
    std::wstring DumpText() const;
    // Writes that text to the file, which nobody but this user can read; links are not followed. By default
    // DefaultDumpFile. False if the file cannot be written. Throws std::bad_alloc.
    bool Dump() const;
    bool Dump(const std::filesystem::path& file) const;
    // In the company's log folder; empty if there is none.
    static std::filesystem::path DefaultDumpFile();

private:
    struct Event {
        int64_t time;  // steady, in microseconds
        KLoggerEvent event;
        KNameNumber in_class, for_object, to_state, to, at, in_thread;
    };
    static_assert(sizeof(Event) <= 32);

    std::wstring ReferenceText() const;
    // With m_mutex held.
    void AppendText(std::wstring& text, const Event& event) const;

    const IClock& m_clock;
    const int64_t m_reference_wall;
    const int64_t m_reference_steady;

    mutable std::mutex m_mutex;  // guards what follows
    std::unique_ptr<Event[]> m_events;
    uint64_t m_count = 0;  // of the events ever added; event i lies at i modulo the capacity
    KTextTable m_classes, m_points;
    KAddressTable m_objects;
    KNumberTable m_threads;
    KWideTextTable m_states, m_modules;
};

}  // namespace hx
