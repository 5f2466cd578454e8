// The errors of this program that a user may see, and the string resources that tell of them.
#include <cstdint>

#include "core/messages/MErrorFormatterResource.h"

namespace hx {
namespace {

struct RegisteredMessage {
    const char* class_name;
    const char* method_name;
    const wchar_t* error_name;
    uint32_t string_id;
};

constexpr RegisteredMessage kMessages[] = {
    {"MLaserProfileSettings", "ValidateProfileName", L"ProfileNameEmpty", 1002},
    {"MLaserProfileSettings", "ValidateProfileName", L"ProfileNameReserved", 1003},
    {"MLaserProfileSettings", "ValidateProfileName", L"ProfileNameStartsWith", 1004},
    {"MLaserProfileSettings", "ValidateProfileName", L"ProfileNameContains", 1005},
    {"BaseDynamicSettingsDlg", "BaseSettingsToData", L"GainNotSupported", 1006},
};

// At program start: whoever formats an exception finds them all.
const bool kRegistered = [] {
    for (const RegisteredMessage& message : kMessages) {
        RegisterErrorMessage(message.class_name, message.method_name, message.error_name, message.string_id);
    }
    return true;
}();

}  // namespace
}  // namespace hx
