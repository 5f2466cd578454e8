#include "platform/registry/registry_report.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace hx {
namespace {

class Reports {
public:
    void Add(RegistryReport report) {
        const std::lock_guard guard(m_mutex);
        m_reports.push_back(std::move(report));
        m_any = true;
    }

    void Deliver() {
        // Asked behind every operation of a store, and hardly ever true.
        if (!m_any) return;
        std::unique_lock guard(m_mutex);
        // Whoever is delivering takes what came since along.
        if (m_is_delivering) return;
        while (m_sink && !m_reports.empty()) {
            const RegistryReport report = std::move(m_reports.front());
            m_reports.pop_front();
            m_any = !m_reports.empty();
            const RegistryReportSink sink = m_sink;
            m_is_delivering = true;
            guard.unlock();
            sink(report);
            guard.lock();
            m_is_delivering = false;
        }
        m_delivered.notify_all();
    }

    // The former sink is not being called any more when this returns: its library may be unloaded.
    RegistryReportSink SetSink(RegistryReportSink sink) {
        {
            std::unique_lock guard(m_mutex);
            m_delivered.wait(guard, [this] { return !m_is_delivering; });
            std::swap(m_sink, sink);
        }
        Deliver();
        return sink;
    }

private:
    std::atomic<bool> m_any{false};
    std::mutex m_mutex;
    std::condition_variable m_delivered;
    std::deque<RegistryReport> m_reports;
    RegistryReportSink m_sink = nullptr;
    bool m_is_delivering = false;
};

// Never destroyed: the registry is still used while the process exits.
Reports& TheReports() {
    static Reports& reports = *new Reports;
    return reports;
}

}  // namespace

void AddRegistryReport(RegistryReport report) {
    TheReports().Add(std::move(report));
}

void DeliverRegistryReports() {
    TheReports().Deliver();
}

RegistryReportSink SetRegistryReportSink(RegistryReportSink sink) {
    return TheReports().SetSink(sink);
}

}  // namespace hx
