// The measurement settings object, as the scanner API uses it.
#include <cmath>
#include <optional>
#include <vector>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/errorinfo.h"
#include "platform/com/variant.h"
#include "tests/server/component_library.h"
#include "tests/told_error.h"

namespace {

using hx::Bstr;
using hx::ComPtr;
using hx::Variant;

std::wstring Document(const std::wstring& body) {
    return L"<?xml version=\"1.0\" "
           L"encoding=\"UTF-8\"?>\n<MFilerTaggedXml>\n<ScanningMeasurementFacetSettings>\n" +
           body + L"</ScanningMeasurementFacetSettings>\n</MFilerTaggedXml>\n";
}
std::wstring Versioned(int version, const std::wstring& body) {
    return Document(L"<Version type=\"int\">" + std::to_wstring(version) + L"</Version>\n" + body);
}
std::wstring Entry(const std::wstring& element, const std::wstring& name, const std::wstring& body) {
    return L"<" + element + L">\n<Version type=\"uint\">1</Version>\n<InternalName type=\"string\">" + name +
           L"</InternalName>\n" + body + L"</" + element + L">\n";
}
std::wstring Collection(const std::wstring& element, const std::wstring& members) {
    return L"<" + element + L">\n<Version type=\"uint\">1</Version>\n" + members + L"</" + element + L">\n";
}
std::wstring Catalogue(const std::wstring& type_name) {
    const std::wstring fragment = L"<DeviceSettings>\n<Any type=\"int\">3</Any>\n</DeviceSettings>\n";
    const std::wstring configurations =
        Collection(L"SupportedConfigurations", Entry(L"Configuration", L"fast", fragment));
    const std::wstring capabilities =
        Collection(L"SupportedCapabilities", Entry(L"Capability", L"line", configurations));
    const std::wstring models =
        Collection(L"SupportedDevices", Entry(L"DeviceModel", L"HX", fragment + capabilities));
    return Collection(L"DeviceSettingsList", Entry(L"DeviceType", type_name, fragment + models));
}

const std::wstring kEmptyList = Collection(L"DeviceSettingsList", {});
const std::wstring kFresh = Versioned(2, kEmptyList);

std::wstring Device(int exposure) {
    return L"<DeviceMeasurementSettings>\n<Version type=\"int\">1</Version>\n<HXMeasurementSettings>\n"
           L"<Version type=\"int\">1</Version>\n<ExposureRange_us type=\"uint\">" +
           std::to_wstring(exposure) +
           L"</ExposureRange_us>\n</HXMeasurementSettings>\n"
           L"</DeviceMeasurementSettings>\n";
}

class MeasurementSettings : public ComponentLibrary {
protected:
    void SetUp() override {
        const auto factory = Create<IProfileSettingsFactory>(CLSID_CoMHXSettingsFactory);
        ASSERT_EQ(factory->CreateSettingsObject(ScannerMeasurementSettings, m_settings.put()), S_OK);
    }
    void TearDown() override {
        m_settings.reset();
        ComponentLibrary::TearDown();
    }

    std::wstring Text() const {
        Bstr text;
        EXPECT_EQ(m_settings->WriteXmlBstr(text.put()), S_OK);
        return std::wstring(text.view());
    }

    // The description of that which is left, if any.
    static std::wstring ErrorInformation() {
        const ToldError told = TakeToldError();
        EXPECT_EQ(told.guid, told.description.empty() ? GUID_NULL : IID_IXmlBstrSerializable);
        EXPECT_EQ(told.source, told.description.empty() ? L"" : kProgIdHXMeasSettings);
        return told.description;
    }

    ComPtr<IXmlBstrSerializable> m_settings;
};

TEST_F(MeasurementSettings, EveryTextIsAnsweredAndLeavesTheStateThatItsRuleSays) {
    const std::wstring before = Versioned(2, Device(7));
    const auto code = [](std::wstring_view text) {
        return L"<Code type=\"string\">" + std::wstring(text) + L"</Code>";
    };
    struct Row {
        const char* what;
        std::optional<std::wstring> text;  // none: a null string
        HRESULT result;
        std::wstring after;
        std::wstring raised = {};  // the code inside; empty: no error information
    };
    const Row rows[] = {
        {"null", std::nullopt, E_FAIL, before},
        {"empty", L"", E_FAIL, before},
        {"no XML", L"x", E_FAIL, before},
        {"another root", L"<Other/>", E_FAIL, before},
        {"no group", L"<MFilerTaggedXml/>", E_FAIL, before},
        {"version 1", Versioned(1, Device(9)), S_OK, Versioned(2, Device(9))},
        {"its own text of version 1", before, E_FAIL, kFresh},
        {"no version", Document(Device(9)), E_FAIL, Versioned(2, Device(9))},
        {"version 1 without its body", Versioned(1, Catalogue(L"A")), E_FAIL, before},
        {"version 2", Versioned(2, Catalogue(L"A")), S_OK, Versioned(2, Catalogue(L"A"))},
        {"version 3", Versioned(3, Catalogue(L"A")), S_OK, Versioned(2, Catalogue(L"A"))},
        {"version -7", Versioned(-7, Catalogue(L"A")), S_OK, Versioned(2, Catalogue(L"A"))},
        {"what a new object writes", kFresh, E_FAIL, kFresh, L"MDeviceSettingsList.ReadImpTagged:Read"},
        {"a type without a name", Versioned(2, Catalogue(L"")), E_FAIL, kFresh,
         L"MDeviceType.ReadImpTagged:EmptyInternalName"},
    };
    EXPECT_EQ(Text(), kFresh);
    SetErrorInfo(0, nullptr);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ASSERT_EQ(m_settings->ReadXmlBstr(Bstr(Versioned(1, Device(7))).get()), S_OK);
        ASSERT_EQ(Text(), before);
        EXPECT_EQ(m_settings->ReadXmlBstr(row.text ? Bstr(*row.text).get() : nullptr), row.result);
        const std::wstring description = ErrorInformation();
        EXPECT_EQ(Text(), row.after);
        EXPECT_EQ(description.empty(), row.raised.empty());
        if (row.raised.empty()) continue;
        // The cause first, then where it ended.
        const size_t cause = description.find(code(row.raised));
        EXPECT_NE(cause, std::wstring::npos);
        EXPECT_NE(description.find(code(L"CCoMHXMeasSettings.ReadXmlBstr"), cause), std::wstring::npos);
        EXPECT_TRUE(description.ends_with(L"</ExceptionChain>\n"));
    }
    EXPECT_EQ(m_settings->WriteXmlBstr(nullptr), E_INVALIDARG);
    EXPECT_EQ(ErrorInformation(), L"");
}

TEST_F(MeasurementSettings, VouchesForErrorInformationOfTwoInterfaces) {
    const auto support = m_settings.as<ISupportErrorInfo>();
    ASSERT_TRUE(support);
    for (const IID& iid : {IID_IXmlBstrSerializable, IID_ITriggerSource}) {
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(iid), S_OK);
    }
    for (const IID& iid : {IID_ICoMHXMeasSettings, IID_IUnknown, IID_IDispatch, IID_IGetPointer,
                           IID_ISupportErrorInfo, IID_NULL}) {
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(iid), S_FALSE);
    }
}

// Whatever the frequency, it is no part of the text.
TEST_F(MeasurementSettings, TakesTriggerFrequenciesByNameAndByNumber) {
    const auto source = m_settings.as<ITriggerSource>();
    ASSERT_TRUE(source);
    EXPECT_EQ(source->SetMinimumTriggerFrequency(-5.0), S_OK);
    EXPECT_EQ(source->SetMaximumTriggerFrequency(std::nan("")), S_OK);

    struct Row {
        const wchar_t* name;
        DISPID id;
    };
    for (const Row& row : {Row{L"SetMaximumTriggerFrequency", 3}, Row{L"setminimumtriggerfrequency", 4}}) {
        std::wstring name = row.name;
        std::wstring parameter = L"Frequency";
        LPOLESTR names[] = {name.data(), parameter.data()};
        DISPID ids[] = {-1, -1};
        EXPECT_EQ(source->GetIDsOfNames(IID_NULL, names, 2, 0, ids), S_OK);
        EXPECT_EQ(ids[0], row.id);
        EXPECT_EQ(ids[1], 0);
        const auto invoke = [&](std::vector<VARIANT> given) {
            DISPPARAMS arguments{given.data(), nullptr, static_cast<UINT>(given.size()), 0};
            return source->Invoke(row.id, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr,
                                  nullptr);
        };
        const Variant number(1e9);
        const Variant text(std::wstring_view(L"12.5"));
        const Variant word(std::wstring_view(L"fast"));
        EXPECT_EQ(invoke({number.get()}), S_OK);
        EXPECT_EQ(invoke({text.get()}), S_OK);
        EXPECT_EQ(invoke({word.get()}), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(invoke({}), DISP_E_BADPARAMCOUNT);
        EXPECT_EQ(invoke({number.get(), number.get()}), DISP_E_BADPARAMCOUNT);
    }
    DISPPARAMS none{};
    for (const DISPID id : {1, 2, 5}) {
        EXPECT_EQ(source->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
                  DISP_E_MEMBERNOTFOUND);
    }
    EXPECT_EQ(Text(), kFresh);
}

}  // namespace
