#include "controls/messages/OperatorWords.h"

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
