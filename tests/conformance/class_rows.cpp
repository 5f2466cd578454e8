#include "tests/conformance/class_rows.h"

#include <algorithm>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXPreviewClasses.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/ICtrlsInitialiser.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiEvents.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXLocale.h"
#include "hxapi/IHXPreviewWatcher.h"
#include "hxapi/IHXProfile.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "hxapi/IHXSimulator.h"
#include "hxapi/IHXSimulatorPresets.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "hxapi/IReplayCapture.h"
#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/connection_point.h"
#include "platform/com/errorinfo.h"
#include "platform/com/ole_control.h"
#include "platform/com/ole_verbs.h"
#include "platform/com/persist.h"
#include "platform/com/property_page.h"
#include "platform/com/typeinfo.h"
#include "platform/com/typelib.h"
#include "preview/IHXPreview.h"

namespace {

constexpr WORD kMethod = DISPATCH_METHOD;
// Each page asks its host for a language and loads it; each API makes a scanner.
constexpr int kCostlyCreations = 1000;
constexpr int kApiCreations = 10'000;

const std::vector<IID> kPage = {IID_DHXConfigCtrl,
                                IID_IDispatch,
                                IID_IOleObject,
                                IID_IOleWindow,
                                IID_IOleInPlaceObject,
                                IID_IOleControl,
                                IID_IPersist,
                                IID_IPersistStreamInit,
                                IID_ISpecifyPropertyPages,
                                IID_IConnectionPointContainer};

// The settings pages want objects where the diagnostics page does not look, and only they are initialised.
std::vector<MemberRow> PageMembers(bool has_settings) {
    std::vector<MemberRow> members = {
        {DISPID_CAPTION, L"Caption", DISPATCH_PROPERTYGET, {}, S_OK},
        {DISPID_CAPTION, L"Caption", DISPATCH_PROPERTYPUT, {{nullptr, VT_BSTR}}, S_OK},
        {DISPID_TEXT, L"Text", DISPATCH_PROPERTYGET, {}, S_OK},
        {DISPID_TEXT, L"Text", DISPATCH_PROPERTYPUT, {{nullptr, VT_BSTR}}, S_OK},
        {1,
         L"SetSettingsObjectMap",
         kMethod,
         {{L"pSettings", VT_UNKNOWN}},
         has_settings ? E_INVALIDARG : S_OK},
        {2, L"OnSelected", kMethod, {}, S_OK},
        {3, L"OnDeselected", kMethod, {}, S_OK},
        {4, L"SetHXApi", kMethod, {{L"pApi", VT_UNKNOWN}}, E_INVALIDARG},
        {5, L"Save", kMethod, {{L"reallyCloseDlg", VT_BYREF | VT_I4}}, S_OK},
    };
    if (has_settings) {
        members.push_back({6,
                           L"Initialise",
                           kMethod,
                           {{L"driverInternalName", VT_BSTR},
                            {L"deviceInternalName", VT_BSTR},
                            {L"functionName", VT_BSTR},
                            {L"arguments", VT_BYREF | VT_ARRAY | VT_VARIANT}},
                           S_OK});
    }
    return members;
}

}  // namespace

const std::vector<ClassPromises>& AllClasses() {
    static const std::vector<ClassPromises> classes = {
        {CLSID_CoMHXMeasSettings,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXMeasSettings.1",
         L"Orvel.HXScannerCtrls.HXMeasSettings",
         L"",
         {IID_ICoMHXMeasSettings, IID_ITriggerSource, IID_IDispatch, IID_IXmlBstrSerializable,
          IID_ISupportErrorInfo, IID_IGetPointer},
         {IID_IXmlBstrSerializable, IID_ITriggerSource},
         IID_ICoMHXMeasSettings,
         {{3, L"SetMaximumTriggerFrequency", kMethod, {{L"frequency", VT_R8}}, S_OK},
          {4, L"SetMinimumTriggerFrequency", kMethod, {{L"frequency", VT_R8}}, S_OK}}},
        {CLSID_CoMHXSettingsFactory,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXSettingsFactory.1",
         L"Orvel.HXScannerCtrls.HXSettingsFactory",
         L"Both",
         {IID_IProfileSettingsFactory},
         {},
         {},
         {}},
        {CLSID_CoMHXConnSettings,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXConnSettings.1",
         L"Orvel.HXScannerCtrls.HXConnSettings",
         L"",
         {IID_ICoMHXConnSettings, IID_IXmlBstrSerializable},
         {},
         {},
         {}},
        {CLSID_HXScannerMeasSettingsCtrl,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXMeasSettingsCtrl.1",
         L"",
         L"Apartment",
         kPage,
         {},
         IID_DHXConfigCtrl,
         PageMembers(true),
         kCostlyCreations},
        {CLSID_HXScannerHandheldMeasSettingsCtrl,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXHandheldMeasSettingsCtrl.1",
         L"",
         L"Apartment",
         kPage,
         {},
         IID_DHXConfigCtrl,
         PageMembers(true),
         kCostlyCreations},
        {CLSID_HXScannerDiagnosticsCtrl,
         "HXScannerCtrls.so",
         L"Orvel.HXScannerCtrls.HXDiagnosticsCtrl.1",
         L"",
         L"Apartment",
         kPage,
         {},
         IID_DHXConfigCtrl,
         PageMembers(false),
         kCostlyCreations},
        {CLSID_HXScannerMeasSettingsPropPage,
         "HXScannerCtrls.so",
         L"HXSCANNERCTRL.MeasSettingsPropPage.1",
         L"",
         L"",
         {IID_IPropertyPage},
         {},
         {},
         {}},
        {CLSID_HXPreview,
         "HXPreview.so",
         L"Orvel.HXPreview.FieldOfView.1",
         L"Orvel.HXPreview.FieldOfView",
         L"Both",
         {IID_IHXPreview, IID_IDispatch, IID_ITrackingCycleObserver, IID_IOleObject, IID_IOleWindow,
          IID_IOleInPlaceObject, IID_IConnectionPointContainer},
         {},
         IID_IHXPreview,
         {{DISPID_HXPREVIEW_RESET, L"Reset", kMethod, {}, S_OK}}},
        {CLSID_HXSimulator,
         "HXSimulator.so",
         L"Orvel.HXSimulator.HXApi.1",
         L"Orvel.HXSimulator.HXApi",
         L"Both",
         {IID_IHXApi, IID_IHXApiInternal, IID_IHXLocale, IID_IHXSimulator, IID_IHXSimulatorPresets,
          IID_IConnectionPointContainer},
         {},
         {},
         {},
         kApiCreations},
        {CLSID_HXSimulatorCtrlsInitialiser,
         "HXSimulator.so",
         L"Orvel.Ctrls.CtrlsInitialiser.1",
         L"Orvel.Ctrls.CtrlsInitialiser",
         L"Both",
         {IID_ICtrlsInitialiser},
         {},
         {},
         {}},
        {CLSID_HXSimulatorReplayCapture,
         "HXSimulator.so",
         L"Orvel.ReplayCapture.1",
         L"Orvel.ReplayCapture",
         L"Both",
         {IID_IReplayCapture},
         {},
         {},
         {}},
    };
    return classes;
}

const std::vector<InterfaceRow>& AllInterfaces() {
    static const std::vector<InterfaceRow> interfaces = {
        {IID_IUnknown, "IUnknown"},
        {IID_IClassFactory, "IClassFactory"},
        {IID_IDispatch, "IDispatch"},
        {IID_ITypeInfo, "ITypeInfo"},
        {IID_ITypeLib, "ITypeLib"},
        {IID_IErrorInfo, "IErrorInfo"},
        {IID_ICreateErrorInfo, "ICreateErrorInfo"},
        {IID_ISupportErrorInfo, "ISupportErrorInfo"},
        {IID_ICoMHXConnSettings, "ICoMHXConnSettings"},
        {IID_ICoMHXMeasSettings, "ICoMHXMeasSettings"},
        {IID_ITriggerSource, "ITriggerSource"},
        {IID_IXmlBstrSerializable, "IXmlBstrSerializable"},
        {IID_IGetPointer, "IGetPointer"},
        {IID_IProfileSettingsFactory, "IProfileSettingsFactory"},
        {IID_DHXConfigCtrl, "DHXConfigCtrl"},
        {IID_DHXConfigCtrlEvents, "DHXConfigCtrlEvents"},
        {IID_IOleClientSite, "IOleClientSite"},
        {IID_IOleControl, "IOleControl"},
        {IID_IOleControlSite, "IOleControlSite"},
        {IID_IOleInPlaceActiveObject, "IOleInPlaceActiveObject"},
        {IID_IOleInPlaceObject, "IOleInPlaceObject"},
        {IID_IOleInPlaceSite, "IOleInPlaceSite"},
        {IID_IOleObject, "IOleObject"},
        {IID_IOleWindow, "IOleWindow"},
        {IID_IEnumOLEVERB, "IEnumOLEVERB"},
        {IID_IPersist, "IPersist"},
        {IID_IPersistStreamInit, "IPersistStreamInit"},
        {IID_IPropertyPage, "IPropertyPage"},
        {IID_IPropertyPageSite, "IPropertyPageSite"},
        {IID_ISpecifyPropertyPages, "ISpecifyPropertyPages"},
        {IID_IConnectionPoint, "IConnectionPoint"},
        {IID_IConnectionPointContainer, "IConnectionPointContainer"},
        {IID_IEnumConnectionPoints, "IEnumConnectionPoints"},
        {IID_IEnumConnections, "IEnumConnections"},
        {IID_IHXPreview, "IHXPreview"},
        {IID_IHXPreviewWatcher, "IHXPreviewWatcher"},
        {IID_ITrackingCycleObserver, "ITrackingCycleObserver"},
        {IID_IHXApi, "IHXApi"},
        {IID_IHXApiEvents, "IHXApiEvents"},
        {IID_IHXApiInternal, "IHXApiInternal"},
        {IID_IHXLocale, "IHXLocale"},
        {IID_IHXSettingsObjectMap, "IHXSettingsObjectMap"},
        {IID_IHXProfile, "IHXProfile"},
        {IID_IHXSimulator, "IHXSimulator"},
        {IID_IHXSimulatorPresets, "IHXSimulatorPresets"},
        {IID_ICtrlsInitialiser, "ICtrlsInitialiser"},
        {IID_IReplayCapture, "IReplayCapture"},
        {IID_NULL, "no interface"},
    };
    return interfaces;
}

bool Has(const ClassPromises& row, REFIID iid) {
    return iid == IID_IUnknown || std::ranges::find(row.interfaces, iid) != row.interfaces.end();
}
