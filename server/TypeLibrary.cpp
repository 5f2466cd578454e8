#include "server/TypeLibrary.h"

#include "controls/shell/ConfigDispatch.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "server/CCoMHXMeasSettings.h"

namespace hx {
namespace {

constexpr DispatchType VtableOnly(const wchar_t* name, const IID& iid) {
    return {name, iid, {}, TKIND_INTERFACE, 0};
}
constexpr DispatchType kXmlBstrSerializable = VtableOnly(L"IXmlBstrSerializable", IID_IXmlBstrSerializable);
constexpr DispatchType kGetPointer = VtableOnly(L"IGetPointer", IID_IGetPointer);
constexpr DispatchType kConnSettings = VtableOnly(L"ICoMHXConnSettings", IID_ICoMHXConnSettings);
constexpr DispatchType kSettingsFactory = VtableOnly(L"IProfileSettingsFactory", IID_IProfileSettingsFactory);
// Pages have no events.
constexpr DispatchType kConfigCtrlEvents{
    L"DHXConfigCtrlEvents", IID_DHXConfigCtrlEvents, {}, TKIND_DISPATCH, TYPEFLAG_FDISPATCHABLE};

constexpr const DispatchType* kTypes[] = {
    &kXmlBstrSerializable, &CCoMHXMeasSettings::kTriggerSourceType,
    &kGetPointer,          &CCoMHXMeasSettings::kDispatchType,
    &kConnSettings,        &kSettingsFactory,
    &kConfigCtrlType,      &kConfigCtrlEvents,
};

constexpr ImplementedType kOfMeasSettings[] = {
    {&CCoMHXMeasSettings::kDispatchType, IMPLTYPEFLAG_FDEFAULT},
    {&kXmlBstrSerializable, 0},
    {&CCoMHXMeasSettings::kTriggerSourceType, 0},
    {&kGetPointer, 0},
};
constexpr ImplementedType kOfSettingsFactory[] = {{&kSettingsFactory, IMPLTYPEFLAG_FDEFAULT}};
constexpr ImplementedType kOfConnSettings[] = {
    {&kConnSettings, IMPLTYPEFLAG_FDEFAULT},
    {&kXmlBstrSerializable, 0},
};
constexpr ImplementedType kOfPage[] = {
    {&kConfigCtrlType, IMPLTYPEFLAG_FDEFAULT},
    {&kConfigCtrlEvents, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE},
};

constexpr WORD kPage = TYPEFLAG_FCANCREATE | TYPEFLAG_FCONTROL;

constexpr LibraryClass kClasses[] = {
    {L"CoMHXMeasSettings", CLSID_CoMHXMeasSettings, TYPEFLAG_FCANCREATE, kOfMeasSettings},
    {L"CoMHXSettingsFactory", CLSID_CoMHXSettingsFactory, TYPEFLAG_FCANCREATE, kOfSettingsFactory},
    {L"CoMHXConnSettings", CLSID_CoMHXConnSettings, TYPEFLAG_FCANCREATE, kOfConnSettings},
    {L"HXScannerMeasSettingsCtrl", CLSID_HXScannerMeasSettingsCtrl, kPage, kOfPage},
    {L"HXScannerHandheldMeasSettingsCtrl", CLSID_HXScannerHandheldMeasSettingsCtrl, kPage, kOfPage},
    {L"HXScannerDiagnosticsCtrl", CLSID_HXScannerDiagnosticsCtrl, kPage, kOfPage},
    // Nothing implements it.
    {L"HXScannerRorSettingsCtrl", CLSID_HXScannerRorSettingsCtrl, kPage, kOfPage},
};

}  // namespace

constinit const TypeLibrary kTypeLibrary{
    LIBID_HXScannerCtrls, L"HXScannerCtrls", L"HXScannerCtrls 1.0 Type Library", 1, 0, kTypes, kClasses};

}  // namespace hx
