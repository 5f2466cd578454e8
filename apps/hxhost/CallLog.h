// What the scanner was told, fetched from the simulator now and then and shown in the log, and what follows
// from it: the state of the connection, and whether the preview is being shown anything. On the thread of the
// user interface.
#pragma once

#include <cstdint>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "apps/hxhost/HostTexts.h"
#include "apps/hxhost/LogList.h"
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

private:
    void Append(const std::vector<std::wstring>& lines);
    // Not a value of a profile without a name, nor one that was the last one to be set in that profile, too.
    bool IsNews(const nlohmann::json& call);

    SimulatedScanner& m_scanner;
    const HostTexts& m_texts;
    LogList m_list;
    bool m_questions = false;
    std::map<std::string, std::string> m_values;  // set last, by profile and operation
    int32_t m_state = 0;
    bool m_preview_fed = false;
};

}  // namespace hxhost
