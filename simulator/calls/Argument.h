// One argument of a call, as the caller gave it, for the log. Refers to the caller's value and is good during
// the call. On the thread of the call.
#pragma once

#include <string>
#include <variant>

#include "hxapi/IDynamicSettingsPreset.h"
#include "hxapi/MGlobalScanningSettings.h"
#include "platform/com/safearray.h"

namespace hx::simulator {

class Argument {
public:
    Argument(int32_t number) : m_value(int64_t{number}) {}
    Argument(uint32_t number) : m_value(int64_t{number}) {}
    Argument(double number) : m_value(number) {}
    Argument(BSTR text) : m_value(text) {}
    Argument(SAFEARRAY* texts_or_presets) : m_value(texts_or_presets) {}
    Argument(IDynamicSettingsPreset* preset) : m_value(preset) {}
    Argument(const MGlobalScanningSettings* settings) : m_value(settings) {}
    // What BOOL and IUnknown* alone do not tell.
    static Argument Boolean(BOOL value) { return Argument(Value(value != FALSE)); }
    static Argument Observer(IUnknown* observer) {
        return Argument(Value(SomeObserver{observer != nullptr}));
    }

    // Throws std::bad_alloc.
    void AppendTo(std::wstring& json) const;

private:
    struct SomeObserver {
        bool is_given;
    };
    using Value = std::variant<bool, int64_t, double, BSTR, SAFEARRAY*, IDynamicSettingsPreset*,
                               const MGlobalScanningSettings*, SomeObserver>;
    explicit Argument(Value value) : m_value(value) {}

    Value m_value;
};

}  // namespace hx::simulator
