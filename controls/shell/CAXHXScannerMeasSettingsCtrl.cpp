#include "controls/shell/CAXHXScannerMeasSettingsCtrl.h"

#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/ui/hwnd.h"

namespace hx {
namespace {

// What the dialog's template takes in its usual font.
constexpr ui::Size kFirstSize{726, 413};

constexpr ui::ControlVerb kVerbs[] = {
    {OLEIVERB_PROPERTIES, L"Properties", 0, 0},
    {1, L"Properties", 0, OLEVERBATTRIB_ONCONTAINERMENU},
};

constexpr CLSID kPropertyPages[] = {CLSID_HXScannerMeasSettingsPropPage};

}  // namespace

constinit const ui::FullControlClass kMeasSettingsCtrlClass{
    {CLSID_HXScannerMeasSettingsCtrl, L"HXScannerMeasSettingsCtrls Control",
     OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
         OLEMISC_SETCLIENTSITEFIRST,
     ui::ToHimetric(kFirstSize)},
    0x00010000,
    kVerbs,
    kPropertyPages,
    IID_DHXConfigCtrlEvents};

template class ConfigCtrl<CMeasSettingsDlg, kMeasSettingsCtrlClass>;

}  // namespace hx
