// What the scanner was told, fetched from the simulator now and then and shown in the log, and what follows
// from it: the state of the connection, and whether the preview is being shown anything. On the thread of the
// user interface.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <utility>
#include <vector>

#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/LogList.h"
#include "apps/hxhost/PendingFaults.h"
#include "apps/hxhost/SimulatedScanner.h"

namespace hxhost {

class CallLog {
public:
    CallLog(SimulatedScanner& scanner, const HostTexts& texts) : m_scanner(scanner), m_texts(texts) {}

    LogList& List() { return m_list; }
    // Calls that only ask are shown, too, from now on, and values of profiles that are copied from one to
    // another.
    void ShowQuestions(bool shown) { m_questions = shown; }
    // What came since the last time.
    void Fetch();
    void Add(const std::wstring& line) { Append({line}); }

    // As the listeners were told last.
    int32_t State() const { return m_state; }
    bool IsPreviewFed() const { return m_preview_fed; }

    // Failures that are asked for are entered here.
    PendingFaults& Pending() { return m_pending; }
    // Since they were asked the last time: whether a value of a profile was set, and whether the last of the
    // failures happened.
    bool TakeEdited() { return std::exchange(m_edited, false); }
    bool TakeFaultsUsedUp() { return std::exchange(m_faults_used_up, false); }

private:
    void Notice(const nlohmann::json& call);
    void Append(const std::vector<std::wstring>& lines);
    // Not a value of a profile without a name, nor one that was the last one to be set in that profile, too.
    bool IsNews(const nlohmann::json& call);

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    LogList m_list;
    bool m_questions = false;
    std::map<std::string, std::string> m_values;  // set last, by profile and operation
    PendingFaults m_pending;
    bool m_edited = false;
    bool m_faults_used_up = false;
    int32_t m_state = 0;
    bool m_preview_fed = false;
};

}  // namespace hxhost
