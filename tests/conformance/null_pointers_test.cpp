// Places for answers that are not there are refused, and places for answers that are not given are emptied.
#include <functional>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICtrlsInitialiser.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXLocale.h"
#include "hxapi/IHXSimulator.h"
#include "hxapi/IHXSimulatorPresets.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/connection_point.h"
#include "platform/com/ole_control.h"
#include "platform/com/persist.h"
#include "platform/com/property_page.h"
#include "platform/com/typeinfo.h"
#include "tests/conformance/conformance.h"

namespace {

using hx::ComPtr;

struct Probe {
    const char* what;
    IID iid;
    HRESULT result;
    std::function<HRESULT(IUnknown&)> call;
};

template <class I>
Probe On(const char* what, HRESULT result, HRESULT (*call)(I&)) {
    return {what, hx::uuid_of<I>(), result, [call](IUnknown& object) {
                const auto face = ComPtr<IUnknown>(&object).as<I>();
                return face ? call(*face) : E_NOINTERFACE;
            }};
}

// The result, or E_UNEXPECTED if the place for the answer is not emptied.
template <class T, class Call>
HRESULT Emptied(const Call& call) {
    auto* const poison = reinterpret_cast<T*>(sizeof(void*));
    T* out = poison;
    const HRESULT result = call(&out);
    return out ? E_UNEXPECTED : result;
}

const Probe kProbes[] = {
    On<IXmlBstrSerializable>("write", E_INVALIDARG, [](auto& o) { return o.WriteXmlBstr(nullptr); }),
    On<IGetPointer>("pointer", E_POINTER, [](auto& o) { return o.GetPointer(nullptr); }),
    On<IProfileSettingsFactory>(
        "settings", E_POINTER,
        [](auto& o) { return o.CreateSettingsObject(ScannerMeasurementSettings, nullptr); }),
    On<DHXConfigCtrl>("api", E_INVALIDARG, [](auto& o) { return o.SetHXApi(nullptr); }),
    On<IOleObject>("site", E_POINTER, [](auto& o) { return o.GetClientSite(nullptr); }),
    On<IOleObject>(
        "no site", S_OK,
        [](auto& o) { return Emptied<IOleClientSite>([&](auto out) { return o.GetClientSite(out); }); }),
    On<IOleObject>("moniker", E_POINTER, [](auto& o) { return o.GetMoniker(1, 1, nullptr); }),
    On<IOleObject>(
        "no moniker", E_NOTIMPL,
        [](auto& o) { return Emptied<IMoniker>([&](auto out) { return o.GetMoniker(1, 1, out); }); }),
    On<IOleObject>("data", E_POINTER, [](auto& o) { return o.GetClipboardData(0, nullptr); }),
    On<IOleObject>(
        "no data", E_NOTIMPL,
        [](auto& o) { return Emptied<IDataObject>([&](auto out) { return o.GetClipboardData(0, out); }); }),
    On<IOleObject>("verbs", E_POINTER, [](auto& o) { return o.EnumVerbs(nullptr); }),
    On<IOleObject>("class", E_POINTER, [](auto& o) { return o.GetUserClassID(nullptr); }),
    On<IOleObject>("type", E_POINTER, [](auto& o) { return o.GetUserType(1, nullptr); }),
    On<IOleObject>("new extent", E_POINTER, [](auto& o) { return o.SetExtent(DVASPECT_CONTENT, nullptr); }),
    On<IOleObject>("extent", E_POINTER, [](auto& o) { return o.GetExtent(DVASPECT_CONTENT, nullptr); }),
    On<IOleObject>("advise", E_POINTER, [](auto& o) { return o.Advise(nullptr, nullptr); }),
    On<IOleObject>("advised", E_POINTER, [](auto& o) { return o.EnumAdvise(nullptr); }),
    On<IOleObject>(
        "none advised", OLE_E_ADVISENOTSUPPORTED,
        [](auto& o) { return Emptied<IEnumSTATDATA>([&](auto out) { return o.EnumAdvise(out); }); }),
    On<IOleObject>("status", E_POINTER, [](auto& o) { return o.GetMiscStatus(DVASPECT_CONTENT, nullptr); }),
    On<IOleWindow>("window", E_POINTER, [](auto& o) { return o.GetWindow(nullptr); }),
    On<IOleWindow>("no window", OLE_E_NOT_INPLACEACTIVE,
                   [](auto& o) { return Emptied<HWND__>([&](auto out) { return o.GetWindow(out); }); }),
    On<IOleInPlaceObject>("place", E_POINTER, [](auto& o) { return o.SetObjectRects(nullptr, nullptr); }),
    On<IOleControl>("keys", E_POINTER, [](auto& o) { return o.GetControlInfo(nullptr); }),
    On<IPersist>("class to store", E_POINTER, [](auto& o) { return o.GetClassID(nullptr); }),
    On<IPersistStreamInit>("load", E_POINTER, [](auto& o) { return o.Load(nullptr); }),
    On<IPersistStreamInit>("store", E_POINTER, [](auto& o) { return o.Save(nullptr, TRUE); }),
    On<IPersistStreamInit>("size", E_POINTER, [](auto& o) { return o.GetSizeMax(nullptr); }),
    On<ISpecifyPropertyPages>("pages", E_POINTER, [](auto& o) { return o.GetPages(nullptr); }),
    On<IConnectionPointContainer>("points", E_POINTER,
                                  [](auto& o) { return o.EnumConnectionPoints(nullptr); }),
    On<IConnectionPointContainer>("point", E_POINTER,
                                  [](auto& o) { return o.FindConnectionPoint(IID_NULL, nullptr); }),
    On<IConnectionPointContainer>("no point", CONNECT_E_NOCONNECTION,
                                  [](auto& o) {
                                      return Emptied<IConnectionPoint>(
                                          [&](auto out) { return o.FindConnectionPoint(IID_NULL, out); });
                                  }),
    On<IPropertyPage>("page", E_POINTER, [](auto& o) { return o.GetPageInfo(nullptr); }),
    On<IPropertyPage>("page's place", E_POINTER, [](auto& o) { return o.Activate(nullptr, nullptr, FALSE); }),
    On<IPropertyPage>("page's objects", E_POINTER, [](auto& o) { return o.SetObjects(1, nullptr); }),
    On<IPropertyPage>("page's new place", E_POINTER, [](auto& o) { return o.Move(nullptr); }),
    On<IPropertyPage>("page's keys", E_POINTER, [](auto& o) { return o.TranslateAccelerator(nullptr); }),
    On<ICtrlsInitialiser>("api of host", E_POINTER, [](auto& o) { return o.GetHXApi(nullptr); }),
    On<IHXApi>("state", E_POINTER, [](auto& o) { return o.GetConnectionState(nullptr, nullptr); }),
    On<IHXApi>("manager", E_POINTER, [](auto& o) { return o.GetDeviceManager(nullptr, nullptr); }),
    On<IHXApiInternal>("profile", E_POINTER, [](auto& o) { return o.GetCurrentProfile(nullptr, nullptr); }),
    On<IHXApiInternal>(
        "handle", E_POINTER,
        [](auto& o) { return o.CreateCalibrationHandle(nullptr, IID_IUnknown, nullptr, nullptr); }),
    On<IHXLocale>("language", E_POINTER, [](auto& o) { return o.GetLocale(nullptr); }),
    On<IHXSimulator>("models", E_POINTER, [](auto& o) { return o.GetModels(nullptr); }),
    On<IHXSimulator>("model", E_POINTER, [](auto& o) { return o.GetModel(nullptr); }),
    On<IHXSimulator>("device", E_POINTER, [](auto& o) { return o.GetDevice(nullptr, nullptr); }),
    On<IHXSimulator>("surfaces", E_POINTER, [](auto& o) { return o.GetSurfaces(nullptr); }),
    On<IHXSimulator>("fault", E_POINTER, [](auto& o) { return o.InjectFault(nullptr); }),
    On<IHXSimulator>("operations", E_POINTER, [](auto& o) { return o.GetOperations(nullptr); }),
    On<IHXSimulator>("calls", E_POINTER, [](auto& o) { return o.TakeCalls(nullptr); }),
    On<IHXSimulatorPresets>("presets", E_POINTER, [](auto& o) { return o.ReadPresets(nullptr, nullptr); }),
};

TEST_F(Conformance, MissingPlacesForAnswersAreRefused) {
    ForEachClass([](const ClassPromises& row) {
        const auto object = Create(row.clsid);
        for (const Probe& probe : kProbes) {
            if (!Has(row, probe.iid)) continue;
            EXPECT_EQ(probe.call(*object), probe.result) << probe.what;
        }
        EXPECT_EQ(CountOf(*object), 1u);
    });
}

// Only the pages of settings look at them.
TEST_F(Conformance, PagesOfSettingsRefuseWhatIsMissing) {
    for (const ClassPromises& row : AllClasses()) {
        if (!Has(row, IID_DHXConfigCtrl)) continue;
        const HRESULT refused = row.clsid == CLSID_HXScannerDiagnosticsCtrl ? S_OK : E_INVALIDARG;
        const auto page = Create<DHXConfigCtrl>(row.clsid);
        EXPECT_EQ(page->Save(nullptr), refused);
        EXPECT_EQ(page->SetSettingsObjectMap(nullptr), refused);
        BOOL answer = 0x12345678;
        EXPECT_EQ(page->Save(&answer), S_OK);
        EXPECT_EQ(answer, FAILED(refused) ? 0x1234FFFF : 0x12345678) << "the upper half is the caller's";
    }
}

TEST_F(Conformance, TypeInformationRefusesMissingPlaces) {
    ForEachClass([](const ClassPromises& row) {
        if (!Has(row, IID_IDispatch)) return;
        ComPtr<ITypeInfo> info;
        ASSERT_EQ(Create<IDispatch>(row.clsid)->GetTypeInfo(0, 0, info.put()), S_OK);
        UINT count = 1;
        BSTR name = nullptr;
        EXPECT_EQ(info->GetTypeAttr(nullptr), E_POINTER);
        EXPECT_EQ(info->GetFuncDesc(0, nullptr), E_POINTER);
        EXPECT_EQ(info->GetNames(row.members[0].id, nullptr, 1, &count), E_POINTER);
        EXPECT_EQ(info->GetNames(row.members[0].id, &name, 1, nullptr), E_POINTER);
        EXPECT_EQ(info->GetIDsOfNames(nullptr, 1, nullptr), E_POINTER);
        EXPECT_EQ(info->GetDocumentation(MEMBERID_NIL, nullptr, nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(Emptied<FUNCDESC>([&](auto out) { return info->GetFuncDesc(999, out); }),
                  TYPE_E_ELEMENTNOTFOUND);
    });
}

}  // namespace
