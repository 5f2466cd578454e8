#include "core/messages/MErrorFormatterMapped.h"

#include <initializer_list>

namespace hx {
namespace {

IErrorFormatterRuleBased::Found MakeFound(const IErrorFormatterRuleBased::ErrorMessageProxy& message,
                                          uint32_t score, std::initializer_list<const MError*> records) {
    IErrorFormatterRuleBased::Found found;
    found.message = message.Clone();
    found.score = score;
    for (const MError* record : records) {
        found.parameters.insert(record->GetParameters().begin(), record->GetParameters().end());
        found.records.push_back(*record);
    }
    return found;
}

}  // namespace

void MErrorFormatterMapped::AddMessage(std::wstring first_code, std::wstring second_code,
                                       std::unique_ptr<ErrorMessageProxy> message) {
    if (!first_code.empty() && !second_code.empty()) m_newer_of_two.insert(second_code);
    m_messages.insert_or_assign(Codes(std::move(first_code), std::move(second_code)), std::move(message));
}

const IErrorFormatterRuleBased::ErrorMessageProxy* MErrorFormatterMapped::Message(
    std::wstring_view first_code, std::wstring_view second_code) const {
    const auto found = m_messages.find(CodesView(first_code, second_code));
    return found != m_messages.end() ? found->second.get() : nullptr;
}

IErrorFormatterRuleBased::Found MErrorFormatterMapped::Match(const MException::Chain& chain) const {
    const std::wstring_view none;
    std::vector<const MError*> newer;  // than the oldest, newest first
    for (auto place = chain.rbegin(); place != chain.rend(); ++place) newer.push_back(place->get());
    const MError* oldest = nullptr;
    if (!newer.empty()) {
        oldest = newer.back();
        newer.pop_back();
    }
    const auto has_code = [](const MError* record) { return !record->GetCode().empty(); };

    if (oldest != nullptr && has_code(oldest)) {
        if (const auto* message = Message(oldest->GetCode(), none)) {
            return MakeFound(*message, kOldestRecord, {oldest});
        }
    }
    for (size_t i = 0; i < newer.size(); ++i) {
        if (!m_newer_of_two.contains(newer[i]->GetCode())) continue;
        for (size_t j = i + 1; j <= newer.size(); ++j) {
            const MError* const older = j < newer.size() ? newer[j] : oldest;
            if (!has_code(older)) continue;
            if (const auto* message = Message(older->GetCode(), newer[i]->GetCode())) {
                return MakeFound(*message, kTwoRecords, {older, newer[i]});
            }
        }
    }
    for (const MError* const record : newer) {
        if (!has_code(record)) continue;
        if (const auto* message = Message(none, record->GetCode())) {
            return MakeFound(*message, kNewerRecord, {record});
        }
    }
    return m_default ? MakeFound(*m_default, kDefault, {}) : Found();
}

}  // namespace hx
