// Turns an exception into the user's words: asks its rules, takes the message of the one that fits best, and
// fills in the parameters of the records that fitted. One for the whole program; called by dialogs and by
// component entry points, on any thread.
#pragma once

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages/IErrorFormatterRuleBased.h"
#include "core/messages/MErrorFormatterRemote.h"

namespace hx {

class MErrorFormatter {
public:
    static constexpr std::wstring_view kNoDescription =
        L"No error description available due to a configuration error.";

    // With the rule for errors of other components.
    MErrorFormatter();
    MErrorFormatter(const MErrorFormatter&) = delete;
    MErrorFormatter& operator=(const MErrorFormatter&) = delete;

    static MErrorFormatter& Get();

    // Behind the others; of equally good rules the first one wins. The caller keeps the rule alive. A rule
    // may be added any number of times.
    void AddRule(const IErrorFormatterRuleBased& rule);

    struct Formatted {
        std::wstring message;      // kNoDescription if no rule fits
        std::wstring error_codes;  // as ErrorCodesText
        // The chain, and the matching rule with the message: what a component hands to its caller.
        std::wstring chain_document;
        uint32_t score = 0;  // of the rule that won; 0: none
    };
    // Throws an MException if the text of the message cannot be had.
    Formatted Format(const MException& exception) const;

    // The message's text with each "${name}" replaced by that parameter's value, one parameter after the
    // other in the order of their names; other placeholders stay.
    static std::wstring FormatMessage(const IErrorFormatterRuleBased::ErrorMessageProxy& message,
                                      const MError::Parameters& parameters);

private:
    IErrorFormatterRuleBased::Found BestMatch(const MException::Chain& chain) const;

    const MErrorFormatterRemote m_remote;
    mutable std::mutex m_mutex;
    std::vector<const IErrorFormatterRuleBased*> m_rules;
};

}  // namespace hx
