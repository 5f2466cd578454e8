// Presets through calibration handles: values, lists, outcomes, and arrays that do not fit.
#include <cmath>
#include <limits>

#include "core/errors/MErrorCom.h"
#include "core/errors/MException.h"
#include "hxapi/ICtrlsInitialiser.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace {

using hx::ComPtr;
using Preset = IDynamicSettingsPreset;

// A preset of somebody else's.
class Foreign final : public hx::Implements<Foreign, hx::FreeThreaded, Preset> {
public:
    explicit Foreign(double percent) : m_percent(percent) {}
    HRESULT STDMETHODCALLTYPE GetName(BSTR* name) override { return hx::Bstr(L"foreign").copy_to(name); }
    HRESULT STDMETHODCALLTYPE SetName(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetLaserPower(double* percent) override { return *percent = m_percent, S_OK; }
    HRESULT STDMETHODCALLTYPE SetLaserPower(double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExposureTime(double* us) override { return *us = 321, S_OK; }
    HRESULT STDMETHODCALLTYPE SetExposureTime(double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAnalogImagerGain(uint32_t* gain) override { return *gain = 1, S_OK; }
    HRESULT STDMETHODCALLTYPE SetAnalogImagerGain(uint32_t) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDLPCEnabled(BOOL* on) override { return *on = FALSE, S_OK; }
    HRESULT STDMETHODCALLTYPE SetDLPCEnabled(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Get3DEdgeFilterEnabled(BOOL* on) override { return *on = TRUE, S_OK; }
    HRESULT STDMETHODCALLTYPE Set3DEdgeFilterEnabled(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSignalThreshold(uint32_t* percent) override { return *percent = 12, S_OK; }
    HRESULT STDMETHODCALLTYPE SetSignalThreshold(uint32_t) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetEdgeFilterValue(double* value) override { return *value = 4, S_OK; }
    HRESULT STDMETHODCALLTYPE SetEdgeFilterValue(double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMaxInclination(double* degrees) override { return *degrees = 60, S_OK; }
    HRESULT STDMETHODCALLTYPE SetMaxInclination(double) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsRFEnabled(BOOL* on) override { return *on = TRUE, S_OK; }
    HRESULT STDMETHODCALLTYPE SetRFEnabled(BOOL) override { return E_NOTIMPL; }

private:
    const double m_percent;
};

class Presets : public SimulatorTest {
protected:
    void SetUp() override {
        SimulatorTest::SetUp();
        m_handle = NewHandle();
    }
    void TearDown() override {
        m_handle.reset();
        SimulatorTest::TearDown();
    }

    static hx::SafeArray Names(const std::vector<std::wstring>& names, LONG first = 0) {
        hx::SafeArray array(SafeArrayCreateVector(VT_BSTR, first, static_cast<ULONG>(names.size())));
        LONG place = first;
        for (const std::wstring& each : names)
            SafeArrayPutElement(array.get(), &place, hx::Bstr(each).get()), ++place;
        return array;
    }
    static hx::SafeArray Objects(const std::vector<ComPtr<IUnknown>>& objects, LONG first = 0,
                                 VARTYPE type = VT_UNKNOWN) {
        hx::SafeArray array(SafeArrayCreateVector(type, first, static_cast<ULONG>(objects.size())));
        LONG place = first;
        for (const auto& each : objects) SafeArrayPutElement(array.get(), &place, each.get()), ++place;
        return array;
    }
    ComPtr<Preset> NewPreset() {
        ComPtr<Preset> preset;
        EXPECT_EQ(m_handle->CreateDynamicSettingsPreset(preset.put()), S_OK);
        return preset;
    }
    HRESULT Save(const std::vector<std::wstring>& names) {
        std::vector<ComPtr<IUnknown>> objects;
        for (size_t i = 0; i < names.size(); ++i) objects.push_back(NewPreset());
        return m_handle->SaveDynamicSettingsPresets(m_owner, Names(names).get(), Objects(objects).get(),
                                                    nullptr);
    }
    // The names, each with a blank behind.
    std::wstring Enumerated() {
        hx::SafeArray names, display_names;
        EXPECT_EQ(m_handle->EnumerateDynamicSettingsPresets(m_owner, names.put(), display_names.put()), S_OK);
        std::wstring all;
        LONG last = -1, last_display = -1;
        SafeArrayGetUBound(names.get(), 1, &last);
        SafeArrayGetUBound(display_names.get(), 1, &last_display);
        EXPECT_EQ(last, last_display);
        for (LONG i = 0; i <= last; ++i) {
            hx::Bstr name;
            EXPECT_EQ(SafeArrayGetElement(names.get(), &i, name.put()), S_OK);
            all.append(name.view()).append(L" ");
        }
        return all;
    }

    const BSTR m_owner = Text("owner");
    ComPtr<ICalibrationHandle> m_handle;
};

TEST_F(Presets, ValuesKeepTheirRanges) {
    const auto preset = NewPreset();
    hx::Bstr name;
    EXPECT_EQ(preset->GetName(name.put()), S_OK);
    EXPECT_EQ(name.view(), L"");
    EXPECT_FALSE(name.is_null());
    const struct {
        HRESULT (Preset::*set)(double);
        HRESULT (Preset::*get)(double*);
        double least, most;
    } reals[] = {
        {&Preset::SetLaserPower, &Preset::GetLaserPower, 0, 100},
        {&Preset::SetExposureTime, &Preset::GetExposureTime, std::numeric_limits<double>::min(), 1e9},
        {&Preset::SetEdgeFilterValue, &Preset::GetEdgeFilterValue, 0, 100},
        {&Preset::SetMaxInclination, &Preset::GetMaxInclination, 0, 90},
    };
    const double below_all[] = {-0.001, std::nan(""), INFINITY, -INFINITY};
    for (const auto& row : reals) {
        EXPECT_EQ((preset.get()->*row.set)(row.least), S_OK);
        EXPECT_EQ((preset.get()->*row.set)(row.most), S_OK);
        for (const double bad : below_all) EXPECT_EQ((preset.get()->*row.set)(bad), E_INVALIDARG) << bad;
        double value = 0;
        EXPECT_EQ((preset.get()->*row.get)(&value), S_OK);
        EXPECT_EQ(value, row.most);
        EXPECT_EQ((preset.get()->*row.get)(nullptr), E_POINTER);
    }
    EXPECT_EQ(preset->SetLaserPower(100.001), E_INVALIDARG);
    EXPECT_EQ(preset->SetExposureTime(0), E_INVALIDARG);
    EXPECT_EQ(preset->SetMaxInclination(90.001), E_INVALIDARG);
    EXPECT_EQ(preset->SetSignalThreshold(100), S_OK);
    EXPECT_EQ(preset->SetSignalThreshold(101), E_INVALIDARG);
    EXPECT_EQ(preset->SetAnalogImagerGain(65535), S_OK);
    for (const uint32_t bad : {0u, 65536u}) EXPECT_EQ(preset->SetAnalogImagerGain(bad), E_INVALIDARG);
    EXPECT_NE(Description(IID_IDynamicSettingsPreset), "none");
}

TEST_F(Presets, ANewPresetCanBeActivated) {
    EXPECT_EQ(m_hands->SetConnectionState(HXConnected, FALSE), S_OK);
    EXPECT_EQ(m_handle->AcquireHandle(), S_OK);
    const auto preset = NewPreset();
    EXPECT_EQ(m_handle->ActivateDynamicSettings(preset.get()), S_OK);
    EXPECT_EQ(preset->SetAnalogImagerGain(65535), S_OK);
    EXPECT_EQ(m_handle->ActivateDynamicSettings(preset.get()), E_INVALIDARG) << "no scanner has this gain";
    EXPECT_EQ(m_handle->ActivateDynamicSettings(hx::Make<Foreign>(50).get()), S_OK);
    EXPECT_EQ(m_handle->ActivateDynamicSettings(hx::Make<Foreign>(-1).get()), E_INVALIDARG);
}

TEST_F(Presets, SavingReplacesWhatIsNotHidden) {
    const std::wstring factory = Enumerated();
    ASSERT_NE(factory.find(L"$DEFAULT "), std::wstring::npos);
    ASSERT_NE(factory.find(L'@'), std::wstring::npos);
    const auto own = NewPreset();
    EXPECT_EQ(own->SetLaserPower(42), S_OK);
    // Arrays may begin anywhere.
    EXPECT_EQ(m_handle->SaveDynamicSettingsPresets(
                  m_owner, Names({L"$DEFAULT", L"own", L"theirs"}, 5).get(),
                  Objects({NewPreset(), own, hx::Make<Foreign>(7)}, -3).get(), Text("own")),
              S_OK);
    const std::wstring saved = Enumerated();
    EXPECT_NE(saved.find(L'@'), std::wstring::npos);
    EXPECT_NE(saved.find(L"own theirs "), std::wstring::npos);
    hx::Bstr selected;
    EXPECT_EQ(m_handle->GetSelectedDynamicSettingsPreset(m_owner, selected.put()), S_OK);
    EXPECT_EQ(selected.view(), L"own");
    for (const auto& [name, power] : {std::pair("own", 42.0), {"theirs", 7.0}}) {
        ComPtr<Preset> preset;
        double percent = 0;
        ASSERT_EQ(m_handle->GetDynamicSettingsPreset(m_owner, Text(name), preset.put()), S_OK);
        EXPECT_EQ(preset->GetLaserPower(&percent), S_OK);
        EXPECT_EQ(percent, power);
        EXPECT_EQ(preset->SetLaserPower(1), S_OK) << "a copy";
    }
    ComPtr<Preset> none;
    EXPECT_EQ(m_handle->GetDynamicSettingsPreset(m_owner, Text("OWN"), none.put()), HX_E_NOTFOUND);
    EXPECT_EQ(m_hands->ResetPresets(m_owner), S_OK);
    EXPECT_EQ(Enumerated(), factory);
}

// Were the file read for each of them, this would not end.
TEST_F(Presets, ManyPresetsAreGotOneByOne) {
    std::vector<std::wstring> names = {L"$DEFAULT"};
    for (int i = 1; i < 10'000; ++i) names.push_back(L"preset " + std::to_wstring(i));
    ASSERT_EQ(Save(names), S_OK);
    for (const std::wstring& each : names) {
        ComPtr<Preset> preset;
        hx::Bstr name;
        ASSERT_EQ(m_handle->GetDynamicSettingsPreset(m_owner, hx::Bstr(each).get(), preset.put()), S_OK);
        EXPECT_EQ(preset->GetName(name.put()), S_OK);
        EXPECT_EQ(name.view(), each);
    }
}

TEST_F(Presets, WhatAnotherSimulatorSavesIsSeen) {
    const auto other = Create<IHXSimulator>(kProgIdHXSimulator);
    EXPECT_EQ(other->SetPresetsFolder(Text(m_folder.path().string())), S_OK);
    hx::ComPtr<IUnknown> handle;
    ASSERT_EQ(other.as<IHXApiInternal>()->CreateCalibrationHandle(nullptr, IID_ICalibrationHandle,
                                                                  handle.put(), nullptr),
              S_OK);
    for (const char* const name : {"first", "other"}) {
        hx::Bstr selected;
        EXPECT_EQ(m_handle->GetSelectedDynamicSettingsPreset(m_owner, selected.put()), S_OK);
        const auto names = Names({L"$DEFAULT", Text(name)});
        ASSERT_EQ(handle.as<ICalibrationHandle>()->SaveDynamicSettingsPresets(
                      m_owner, names.get(), Objects({NewPreset(), NewPreset()}).get(), Text(name)),
                  S_OK);
        EXPECT_EQ(m_handle->GetSelectedDynamicSettingsPreset(m_owner, selected.put()), S_OK);
        EXPECT_EQ(selected.view(), *hx::FromUtf8(name));
    }
}

TEST_F(Presets, AnOutcomeIsToldOnceWhoeverReadsFirst) {
    ASSERT_EQ(Save({L"mine"}), S_OK);
    hx::Bstr selected;
    EXPECT_EQ(m_handle->GetSelectedDynamicSettingsPreset(m_owner, selected.put()), S_OK);
    const std::string folder = m_folder.path().string();
    EXPECT_EQ(m_hands->SetPresetsFolder(Text(folder + "/other")), S_OK);
    EXPECT_NE(Enumerated(), L"") << "nothing to tell of this one";
    EXPECT_EQ(m_hands->SetPresetsFolder(Text(folder)), S_OK);
    hx::SafeArray names, display_names;
    const HRESULT result =
        m_handle->EnumerateDynamicSettingsPresets(m_owner, names.put(), display_names.put());
    EXPECT_EQ(result, E_FAIL);
    EXPECT_FALSE(names);
    const hx::MException seen(hx::MErrorCom(result, m_handle.get(), IID_ICalibrationHandle));
    ASSERT_FALSE(seen.GetChain().empty());
    EXPECT_EQ(seen.GetChain().front()->GetCode(), kHXPresetsCustomGenerated);
    EXPECT_NE(Enumerated().find(L"$DEFAULT "), std::wstring::npos);
}

TEST_F(Presets, ArraysThatDoNotFitChangeNothing) {
    ASSERT_EQ(Save({L"$DEFAULT", L"kept"}), S_OK);
    const std::wstring before = Enumerated();
    const auto one = [&] { return Objects({NewPreset()}); };
    SAFEARRAYBOUND square[] = {{1, 0}, {1, 0}};
    const struct {
        const char* what;
        hx::SafeArray names, presets;
    } rows[] = {
        {"no names", {}, one()},
        {"no presets", Names({L"a"}), {}},
        {"fewer presets", Names({L"a", L"b"}), one()},
        {"fewer names", Names({}), one()},
        {"names of two dimensions", hx::SafeArray(SafeArrayCreate(VT_BSTR, 2, square)), one()},
        {"presets of two dimensions", Names({L"a"}), hx::SafeArray(SafeArrayCreate(VT_UNKNOWN, 2, square))},
        {"names that are numbers", hx::SafeArray(SafeArrayCreateVector(VT_I8, 0, 1)), one()},
        {"presets that are texts", Names({L"a"}), Names({L"b"})},
        {"presets as another kind of object", Names({L"a"}), Objects({}, 0, VT_DISPATCH)},
        {"no preset", Names({L"a"}), Objects({nullptr})},
        {"an object that is no preset", Names({L"a"}), Objects({m_api})},
        {"a preset with impossible values", Names({L"a"}), Objects({hx::Make<Foreign>(101)})},
        {"no name", hx::SafeArray(SafeArrayCreateVector(VT_BSTR, 0, 1)), one()},
        {"one name twice", Names({L"a", L"a"}), Objects({NewPreset(), NewPreset()})},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(m_handle->SaveDynamicSettingsPresets(m_owner, row.names.get(), row.presets.get(), nullptr),
                  E_INVALIDARG)
            << row.what;
        EXPECT_NE(Description(IID_ICalibrationHandle), "none") << row.what;
    }
    EXPECT_EQ(Enumerated(), before);
}

TEST_F(Presets, TheInitialiserLeadsToTheNewestThatLives) {
    const auto initialiser = Create<ICtrlsInitialiser>(kProgIdCtrlsInitialiser);
    const auto found = [&] {
        ComPtr<IUnknown> api;
        EXPECT_EQ(initialiser->GetHXApi(api.put()), S_OK);
        return api;
    };
    EXPECT_EQ(found(), m_api.as<IUnknown>());
    auto newer = Create<IHXSimulator>(kProgIdHXSimulator);
    EXPECT_EQ(newer->SetLocale(Text("de-DE")), S_OK);
    hx::Bstr locale;
    EXPECT_EQ(found().as<IHXLocale>()->GetLocale(locale.put()), S_OK);
    EXPECT_EQ(locale.view(), L"de-DE");
    newer.reset();
    EXPECT_EQ(found(), m_api.as<IUnknown>());
    m_handle.reset();
    m_hands.reset();
    m_api.reset();
    EXPECT_TRUE(found().as<IHXApi>()) << "a new one";
}

}  // namespace
