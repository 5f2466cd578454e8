#include "controls/messages/OperatorWords.h"

#include <memory>
#include <utility>

#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"
#include "core/messages/MErrorFormatterResource.h"

namespace hx {
namespace {

const MErrorFormatter& Formatter() {
    static MErrorFormatter& formatter = []() -> MErrorFormatter& {
        MErrorFormatter::Get().AddRule(MErrorFormatterResource::Get());
        return MErrorFormatter::Get();
    }();
    return formatter;
}

// A failure that nothing is known of but what was said of it.
class DescribedError final : public MError {
public:
    explicit DescribedError(std::wstring description) : m_description(std::move(description)) {}
    std::unique_ptr<MDynObject> Clone() const override { return std::make_unique<DescribedError>(*this); }
    std::wstring GetDescription() const override { return m_description; }

private:
    std::wstring m_description;
};

}  // namespace

MErrorFormatter::Formatted InOperatorsWords(const MException& exception) {
    try {
        return Formatter().Format(exception);
    } catch (const MException&) {
        MErrorFormatter::Formatted formatted;
        formatted.message = MErrorFormatter::kNoDescription;
        formatted.error_codes = ErrorCodesText(exception);
        return formatted;
    }
}

std::wstring ReasonIn(const std::wstring& description) {
    MException chain;
    if (!ReadChainDocument(description, chain)) return description;
    return InOperatorsWords(MException(DescribedError(description))).message;
}

std::wstring TextOrNothing(uint32_t string_id) {
    const ModuleHandle module = MResourceLocale::ResourceModule();
    const std::wstring* const text = module ? module->String(string_id) : nullptr;
    return text != nullptr ? *text : std::wstring();
}

std::wstring TextOrNumber(uint32_t string_id) {
    try {
        return MResourceLocale::LoadStringResource(string_id);
    } catch (const MException&) {
        return FormatText(L'.', L"Unknown string resource: %u", {string_id});
    }
}

}  // namespace hx
