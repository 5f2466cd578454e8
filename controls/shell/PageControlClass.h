// What the classes of all pages' controls have alike: their status, verbs, property page, version and events.
#pragma once

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/ui/full_control_object.h"
#include "platform/ui/hwnd.h"

namespace hx {

// Which is also what they are registered with.
inline constexpr uint32_t kPageMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                            OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                            OLEMISC_SETCLIENTSITEFIRST;

inline constexpr ui::ControlVerb kPageVerbs[] = {
    {OLEIVERB_PROPERTIES, L"Properties", 0, 0},
    {1, L"Properties", 0, OLEVERBATTRIB_ONCONTAINERMENU},
};

inline constexpr CLSID kPagePropertyPages[] = {CLSID_HXScannerMeasSettingsPropPage};

// The first size is what the page's template takes in its usual font.
constexpr ui::FullControlClass PageControlClass(const CLSID& clsid, const wchar_t* type_name,
                                                const ui::Size& first_size) {
    return {{clsid, type_name, kPageMiscStatus, ui::ToHimetric(first_size)},
            0x00010000,
            kPageVerbs,
            kPagePropertyPages,
            IID_DHXConfigCtrlEvents};
}

}  // namespace hx
