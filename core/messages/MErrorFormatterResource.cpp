#include "core/messages/MErrorFormatterResource.h"

#include "core/errors/MErrorLocation.h"
#include "core/locale/MResourceLocale.h"

namespace hx {

std::wstring MErrorFormatterResource::ErrorMessageResource::GetText() const {
    return MResourceLocale::LoadStringResource(m_string_id);
}

MErrorFormatterResource& MErrorFormatterResource::Get() {
    static MErrorFormatterResource rule;
    return rule;
}

void RegisterErrorMessage(std::string_view class_name, std::string_view method_name,
                          std::wstring_view error_name, uint32_t string_id) {
    MErrorFormatterResource::Get().AddMessage(
        ErrorCode(class_name, method_name, error_name), {},
        std::make_unique<MErrorFormatterResource::ErrorMessageResource>(string_id));
}

}  // namespace hx
