#include "core/messages/MErrorFormatter.h"

#include "core/filer/MOutFilerTaggedXml.h"
#include "core/messages/MMatchingRule.h"

namespace hx {
namespace {

// Values that hold placeholders of each other double a text with every parameter; no message for people is
// longer.
constexpr size_t kLongestMessage = 65536;

// Up to the longest message; what is behind that stays as it is.
void ReplaceAll(std::wstring& text, std::wstring_view placeholder, std::wstring_view value) {
    // Most texts have none; so nothing is built before one is found.
    size_t found = text.find(placeholder);
    if (found == std::wstring::npos) return;
    std::wstring replaced;
    size_t copied = 0;
    for (; found != std::wstring::npos; found = text.find(placeholder, copied)) {
        const size_t length = replaced.size() + (text.size() - copied) - placeholder.size() + value.size();
        if (length > kLongestMessage) break;
        replaced.append(text, copied, found - copied).append(value);
        copied = found + placeholder.size();
    }
    replaced.append(text, copied);
    text = std::move(replaced);
}

}  // namespace

MErrorFormatter::MErrorFormatter() : m_rules{&m_remote} {}

MErrorFormatter& MErrorFormatter::Get() {
    static MErrorFormatter formatter;
    return formatter;
}

void MErrorFormatter::AddRule(const IErrorFormatterRuleBased& rule) {
    const std::lock_guard guard(m_mutex);
    m_rules.push_back(&rule);
}

IErrorFormatterRuleBased::Found MErrorFormatter::BestMatch(const MException::Chain& chain) const {
    IErrorFormatterRuleBased::Found best;
    const std::lock_guard guard(m_mutex);
    for (const IErrorFormatterRuleBased* const rule : m_rules) {
        IErrorFormatterRuleBased::Found found = rule->Match(chain);
        if (found.score > best.score) best = std::move(found);
    }
    return best;
}

std::wstring MErrorFormatter::FormatMessage(const IErrorFormatterRuleBased::ErrorMessageProxy& message,
                                            const MError::Parameters& parameters) {
    std::wstring text = message.GetText();
    std::wstring placeholder;
    for (const auto& [name, value] : parameters) {
        placeholder.assign(L"${").append(name).append(L"}");
        ReplaceAll(text, placeholder, value);
    }
    return text;
}

MErrorFormatter::Formatted MErrorFormatter::Format(const MException& exception) const {
    Formatted formatted;
    const IErrorFormatterRuleBased::Found best = BestMatch(exception.GetChain());
    formatted.score = best.score;
    formatted.message =
        best.message ? FormatMessage(*best.message, best.parameters) : std::wstring(kNoDescription);
    formatted.error_codes = ErrorCodesText(exception);

    MOutFilerTaggedXml writer(kChainRoot);
    MFilerTaggedPair filer(writer);
    bool written = exception.Write(filer, kChainGroup);
    if (best.score > 0) written = written && MMatchingRule{best.records, formatted.message}.Write(filer);
    if (written) formatted.chain_document = writer.TakeText();
    return formatted;
}

}  // namespace hx
