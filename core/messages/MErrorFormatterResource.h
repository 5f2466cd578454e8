// The messages that this program has for its own errors, from the string resources of the language in use.
// Filled at program start by RegisterErrorMessage; dialogs add it to the formatter's rules.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/messages/MErrorFormatterMapped.h"

namespace hx {

class MErrorFormatterResource : public MErrorFormatterMapped {
public:
    // A string resource, loaded each time: the language may change.
    class ErrorMessageResource : public ErrorMessageProxy {
    public:
        explicit ErrorMessageResource(uint32_t string_id) : m_string_id(string_id) {}
        // Throws as MResourceLocale::LoadStringResource does.
        std::wstring GetText() const override;
        std::unique_ptr<ErrorMessageProxy> Clone() const override {
            return std::make_unique<ErrorMessageResource>(*this);
        }

    private:
        uint32_t m_string_id;
    };

    static MErrorFormatterResource& Get();
};

// The text of `string_id` is the message of that error if it is the oldest of its chain. The names are those
// that the error is raised with.
void RegisterErrorMessage(std::string_view class_name, std::string_view method_name,
                          std::wstring_view error_name, uint32_t string_id);

}  // namespace hx
