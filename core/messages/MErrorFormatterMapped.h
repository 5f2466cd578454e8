// The rule that knows messages by error codes: of the oldest record, of two records together, or of a newer
// one. Messages are added at program start, before other threads run; matching is for any thread.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "core/messages/IErrorFormatterRuleBased.h"

namespace hx {

class MErrorFormatterMapped : public IErrorFormatterRuleBased {
public:
    // How well it fits.
    static constexpr uint32_t kOldestRecord = 2000;
    static constexpr uint32_t kTwoRecords = 1500;  // an older and a newer one
    static constexpr uint32_t kNewerRecord = 1000;
    static constexpr uint32_t kDefault = 1;

    MErrorFormatterMapped() = default;
    MErrorFormatterMapped(const MErrorFormatterMapped&) = delete;
    MErrorFormatterMapped& operator=(const MErrorFormatterMapped&) = delete;

    // (code, ""): the oldest record has it. (older, newer): two records have them. ("", code): a record that
    // is not the oldest has it. What was there for these codes is replaced.
    void AddMessage(std::wstring first_code, std::wstring second_code,
                    std::unique_ptr<ErrorMessageProxy> message);
    // For chains that nothing else fits; null for none.
    void SetDefault(std::unique_ptr<ErrorMessageProxy> message) { m_default = std::move(message); }

    Found Match(const MException::Chain& chain) const override;

private:
    using Codes = std::pair<std::wstring, std::wstring>;
    using CodesView = std::pair<std::wstring_view, std::wstring_view>;
    // Looks up without a copy of the codes.
    struct Less {
        using is_transparent = void;
        template <class A, class B>
        bool operator()(const A& a, const B& b) const {
            return CodesView(a) < CodesView(b);
        }
    };

    const ErrorMessageProxy* Message(std::wstring_view first_code, std::wstring_view second_code) const;

    std::map<Codes, std::unique_ptr<ErrorMessageProxy>, Less> m_messages;
    std::set<std::wstring, std::less<>> m_newer_of_two;  // the second codes of pairs: few records have one
    std::unique_ptr<ErrorMessageProxy> m_default;
};

}  // namespace hx
