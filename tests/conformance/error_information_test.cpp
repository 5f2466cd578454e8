// Which failures leave error information on the thread, and which leave what is there alone.
#include <algorithm>
#include <functional>
#include <optional>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/safearray.h"
#include "tests/conformance/conformance.h"
#include "tests/told_error.h"

namespace {

using hx::ComPtr;

constexpr std::wstring_view kOlder = L"of an older failure";

void LeaveOlderInformation() {
    ComPtr<ICreateErrorInfo> information;
    ASSERT_EQ(CreateErrorInfo(information.put()), S_OK);
    information->SetDescription(std::wstring(kOlder).data());
    SetErrorInfo(0, information.as<IErrorInfo>().get());
}

std::wstring Document(const std::wstring& body) {
    return L"<MFilerTaggedXml>" + body + L"</MFilerTaggedXml>";
}

TEST_F(Conformance, ClassesVouchForWhatTheyPromise) {
    ForEachClass([](const ClassPromises& row) {
        EXPECT_EQ(row.error_information.empty(), !Has(row, IID_ISupportErrorInfo));
        if (row.error_information.empty()) return;
        const auto support = Create<ISupportErrorInfo>(row.clsid);
        for (const InterfaceRow& each : AllInterfaces()) {
            const bool vouches =
                std::ranges::find(row.error_information, each.iid) != row.error_information.end();
            EXPECT_EQ(support->InterfaceSupportsErrorInfo(each.iid), vouches ? S_OK : S_FALSE) << each.name;
        }
    });
}

TEST_F(Conformance, ErrorInformationIsLeftWherePromisedAndNowhereElse) {
    const auto factory = Create<IProfileSettingsFactory>(CLSID_CoMHXSettingsFactory);
    const auto connection = Create<IXmlBstrSerializable>(CLSID_CoMHXConnSettings);
    const auto measurement = Create<IXmlBstrSerializable>(CLSID_CoMHXMeasSettings);
    const auto page = Create<DHXConfigCtrl>(CLSID_HXScannerMeasSettingsCtrl);
    const auto reads = [](const ComPtr<IXmlBstrSerializable>& settings, std::optional<std::wstring> text) {
        return [settings, text] { return settings->ReadXmlBstr(text ? hx::Bstr(*text).get() : nullptr); };
    };
    // A list of devices whose one type has no name.
    const std::wstring raising = Document(
        L"<ScanningMeasurementFacetSettings><Version type='int'>2</Version><DeviceSettingsList>"
        L"<Version type='uint'>1</Version><DeviceType><Version type='uint'>1</Version>"
        L"<InternalName type='string'></InternalName></DeviceType></DeviceSettingsList>"
        L"</ScanningMeasurementFacetSettings>");
    struct {
        const char* what;
        HRESULT result;
        bool leaves_information;
        std::function<HRESULT()> call;
    } const rows[] = {
        {"null settings", E_FAIL, false, reads(measurement, std::nullopt)},
        {"empty settings", E_FAIL, false, reads(measurement, L"")},
        {"no document", E_FAIL, false, reads(measurement, L"x")},
        {"another document", E_FAIL, false, reads(measurement, Document(L""))},
        {"a type without a name", E_FAIL, true, reads(measurement, raising)},
        {"nowhere to write", E_INVALIDARG, false, [&] { return measurement->WriteXmlBstr(nullptr); }},
        {"empty connection", E_FAIL, false, reads(connection, L"")},
        {"another connection", E_FAIL, false, reads(connection, raising)},
        {"nowhere to write a connection", E_INVALIDARG, false,
         [&] { return connection->WriteXmlBstr(nullptr); }},
        {"a kind that is not served", E_INVALIDARG, false,
         [&] { return factory->CreateSettingsObject(LocaliserConnectionSettings, nullptr); }},
        {"no map", E_INVALIDARG, false, [&] { return page->SetSettingsObjectMap(nullptr); }},
        {"no scanner API", E_INVALIDARG, false, [&] { return page->SetHXApi(factory.get()); }},
        {"no answer", E_INVALIDARG, false, [&] { return page->Save(nullptr); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        LeaveOlderInformation();
        EXPECT_EQ(row.call(), row.result);
        const std::wstring left = TakeToldError().description;
        if (row.leaves_information) {
            EXPECT_NE(left.find(L"CCoMHXMeasSettings.ReadXmlBstr"), std::wstring::npos);
        } else {
            EXPECT_EQ(left, kOlder);
        }
    }
}

// Called by number the exception is described; called directly it leaves the method.
TEST_F(Conformance, MalformedArgumentsOfAPageAreExceptions) {
    SAFEARRAYBOUND one{1, 0};
    const hx::SafeArray numbers(SafeArrayCreate(VT_VARIANT, 1, &one));  // its element is empty
    struct {
        SAFEARRAY* array;
        std::wstring error;
    } const rows[] = {{nullptr, L"InvalidArguments"}, {numbers.get(), L"InvalidArgumentType"}};
    struct {
        CLSID clsid;
        std::wstring place;
    } const pages[] = {{CLSID_HXScannerMeasSettingsCtrl, L"CMeasSettingsDlg.Initialise"},
                       {CLSID_HXScannerHandheldMeasSettingsCtrl, L"CHandheldMeasSettingsDlg.Initialise"}};
    for (const auto& each : pages) {
        const auto page = Create<DHXConfigCtrl>(each.clsid);
        for (const auto& row : rows) {
            SCOPED_TRACE(testing::PrintToString(each.place + L":" + row.error));
            SAFEARRAY* array = row.array;
            VARIANT arguments[4]{};
            arguments[0].vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
            arguments[0].byref = &array;
            for (int i = 1; i < 4; ++i) arguments[i].vt = VT_BSTR;
            DISPPARAMS given{arguments, nullptr, 4, 0};
            EXCEPINFO exception{};
            LeaveOlderInformation();
            EXPECT_EQ(page->Invoke(6, IID_NULL, 0, DISPATCH_METHOD, &given, nullptr, &exception, nullptr),
                      DISP_E_EXCEPTION);
            hx::Bstr source;
            hx::Bstr description;
            source.attach(exception.bstrSource);
            description.attach(exception.bstrDescription);
            EXPECT_TRUE(FAILED(exception.scode));
            EXPECT_EQ(source.view(), each.place);
            EXPECT_TRUE(description.view().starts_with(each.place + L":" + row.error + L" "));
            EXPECT_EQ(TakeToldError().description, L"") << "it was handed over";
            EXPECT_ANY_THROW(page->Initialise(nullptr, nullptr, nullptr, &array));
        }
    }
}

}  // namespace
