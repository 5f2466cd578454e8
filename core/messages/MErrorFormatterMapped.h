// The rule that knows messages by error codes: of the oldest record, of two records together, or of a newer
// one. Messages are added at program start, before other threads run; matching is for any thread.
#pragma once

#include <map>
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

    const ErrorMessageProxy* Message(const std::wstring& first_code, const std::wstring& second_code) const;

    std::map<Codes, std::unique_ptr<ErrorMessageProxy>> m_messages;
    std::unique_ptr<ErrorMessageProxy> m_default;
};

}  // namespace hx
