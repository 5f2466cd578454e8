#include "simulator/calls/Argument.h"

#include <algorithm>

#include "platform/com/array_elements.h"
#include "platform/com/comptr.h"
#include "simulator/calls/IStoredPreset.h"
#include "simulator/calls/JsonText.h"

namespace hx::simulator {
namespace {

constexpr wchar_t kNull[] = L"null";

// By its name: its values can be asked for by who wants them.
void AppendPreset(std::wstring& json, const ComPtr<IUnknown>& object) {
    if (const auto own = object.as<IStoredPreset>()) return AppendJsonText(json, own->StoredName());
    Bstr name;
    const auto preset = object.as<IDynamicSettingsPreset>();
    if (preset && SUCCEEDED(preset->GetName(name.put()))) return AppendJsonText(json, name.view());
    json += kNull;
}

void AppendSettings(std::wstring& json, const MGlobalScanningSettings& settings) {
    const std::pair<const wchar_t*, int32_t> members[] = {
        {L"HorizontalFov", settings.HorizontalFov},
        {L"VerticalFov", settings.VerticalFov},
        {L"FovIndicator", settings.FovIndicator},
        {L"ScanningMode", settings.ScanningMode},
        {L"FrequencySelection", settings.FrequencySelection},
    };
    wchar_t separator = L'{';
    for (const auto& [name, value] : members) {
        json += separator;
        AppendJsonText(json, name);
        json.append(L":").append(std::to_wstring(value));
        separator = L',';
    }
    json += L'}';
}

// Of a long array how many there are and the first ones: all names of a long list, at each time that it is
// saved, would push everything else out of the log.
template <class T, class Append>
void AppendElements(std::wstring& json, const ArrayElements<T>& elements, Append append) {
    constexpr size_t kMostElements = 100;
    const bool is_long = elements.size() > kMostElements;
    if (is_long) json.append(L"{\"count\":").append(std::to_wstring(elements.size())).append(L",\"first\":");
    json += L'[';
    for (size_t i = 0; i < std::min(elements.size(), kMostElements); ++i) {
        if (i != 0) json += L',';
        append(elements[i]);
    }
    json += is_long ? L"]}" : L"]";
}

struct Writer {
    std::wstring& json;

    void operator()(bool value) const { json += value ? L"true" : L"false"; }
    void operator()(int64_t number) const { json += std::to_wstring(number); }
    void operator()(double number) const { AppendJsonNumber(json, number); }
    void operator()(BSTR text) const {
        if (text == nullptr) {
            json += kNull;
        } else {
            AppendJsonText(json, {text, SysStringLen(text)});
        }
    }
    void operator()(SAFEARRAY* array) const {
        const ArrayElements<BSTR> texts(array, VT_BSTR);
        if (texts.IsValid()) return AppendElements(json, texts, *this);
        const ArrayElements<IUnknown*> presets(array, VT_UNKNOWN);
        if (!presets.IsValid()) return json.append(kNull), void();
        AppendElements(json, presets, [&](IUnknown* each) { AppendPreset(json, ComPtr<IUnknown>(each)); });
    }
    void operator()(IDynamicSettingsPreset* preset) const { AppendPreset(json, ComPtr<IUnknown>(preset)); }
    void operator()(const MGlobalScanningSettings* settings) const {
        if (settings == nullptr) {
            json += kNull;
        } else {
            AppendSettings(json, *settings);
        }
    }
    template <class Observer>
    void operator()(Observer observer) const {
        json += observer.is_given ? L"\"observer\"" : kNull;
    }
};

}  // namespace

void Argument::AppendTo(std::wstring& json) const {
    std::visit(Writer{json}, m_value);
}

}  // namespace hx::simulator
