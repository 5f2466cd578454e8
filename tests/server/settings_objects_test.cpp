// The settings factory and the connection settings object, as the scanner API uses them.
#include <optional>
#include <vector>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/errorinfo.h"
#include "platform/registry/registry.h"
#include "platform/system/files.h"
#include "tests/platform/temporary_folder.h"
#include "tests/server/component_library.h"

namespace {

using hx::Bstr;
using hx::ComPtr;

std::wstring Document(std::wstring_view server, bool proxy, bool wifi) {
    return std::wstring(
               L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MFilerTaggedXml>\n<HXConnectionSettings>\n"
               L"<Version type=\"int\">2</Version>\n<ServerIP type=\"string\">")
        .append(server)
        .append(L"</ServerIP>\n<IsProxy type=\"bool\">")
        .append(proxy ? L"1" : L"0")
        .append(L"</IsProxy>\n<WiFiConnection type=\"bool\">")
        .append(wifi ? L"1" : L"0")
        .append(L"</WiFiConnection>\n</HXConnectionSettings>\n</MFilerTaggedXml>\n");
}

// The address as it leaves the factory.
constexpr std::wstring_view kServer = L"192.168.178.10";

class SettingsObjects : public ComponentLibrary {
protected:
    static ComPtr<IProfileSettingsFactory> Factory() {
        return Create<IProfileSettingsFactory>(CLSID_CoMHXSettingsFactory);
    }

    static std::wstring Text(IXmlBstrSerializable& settings) {
        Bstr text;
        EXPECT_EQ(settings.WriteXmlBstr(text.put()), S_OK);
        return std::wstring(text.view());
    }
};

TEST_F(SettingsObjects, TheFactoryServesItsKindsAndTouchesNothingOtherwise) {
    const auto factory = Factory();
    struct Row {
        int32_t type;
        HRESULT result;
        HRESULT without_pointer;
        IID kind = IID_NULL;
    };
    std::vector<Row> rows = {{ScannerConnectionSettings, S_OK, E_POINTER, IID_ICoMHXConnSettings},
                             {ScannerMeasurementSettings, S_OK, E_POINTER, IID_ICoMHXMeasSettings}};
    for (const int32_t type :
         {LocaliserConnectionSettings + 0, LocaliserMeasurementSettingsForScanning + 0,
          LocaliserMeasurementSettingsForTactile + 0, LocaliserReadySettingsForScanning + 0,
          LocaliserReadySettingsForTactile + 0, TriggerDeviceMeasurementSettings + 0,
          ClockSyncMeasurementSettings + 0, 0, -1, 1, 256, 259, 257 << 16, 0x7FFFFFFF}) {
        rows.push_back({type, E_INVALIDARG, E_INVALIDARG});
    }
    for (const Row& row : rows) {
        SCOPED_TRACE(row.type);
        const auto type = static_cast<ProfileSettingsType>(row.type);
        auto* const untouched = reinterpret_cast<IXmlBstrSerializable*>(&rows);
        IXmlBstrSerializable* out = untouched;
        EXPECT_EQ(factory->CreateSettingsObject(type, &out), row.result);
        if (FAILED(row.result)) {
            EXPECT_EQ(out, untouched);
        } else {
            ComPtr<IXmlBstrSerializable> settings;
            settings.attach(out);
            EXPECT_EQ(settings->AddRef(), 2u) << "the caller holds the only reference";
            settings->Release();
            ComPtr<IUnknown> kind;
            EXPECT_EQ(settings->QueryInterface(row.kind, kind.put_void()), S_OK);
        }
        EXPECT_EQ(factory->CreateSettingsObject(type, nullptr), row.without_pointer);
    }
}

TEST_F(SettingsObjects, EveryTextIsAnsweredAndLeavesTheStateThatItsRuleSays) {
    const std::wstring group = L"<HXConnectionSettings>";
    const std::wstring tail = L"</HXConnectionSettings></MFilerTaggedXml>";
    const std::wstring head = L"<MFilerTaggedXml>" + group;
    const std::wstring server = L"<ServerIP type='string'>1.2.3.4</ServerIP>";
    const std::wstring before = Document(L"before", false, true);
    struct Row {
        const char* what;
        std::optional<std::wstring> text;  // none: a null string
        HRESULT result;
        std::wstring after;
    };
    const Row rows[] = {
        {"null resets", std::nullopt, S_OK, Document(kServer, true, false)},
        {"empty", L"", E_FAIL, before},
        {"no XML", L"1.2.3.4", E_FAIL, before},
        {"ill-formed", head + server + L"</HXConnectionSettings>", E_FAIL, before},
        {"another root", L"<Other>" + group + server + L"</HXConnectionSettings></Other>", E_FAIL, before},
        {"no group", L"<MFilerTaggedXml/>", E_FAIL, before},
        {"a value in the group's place",
         L"<MFilerTaggedXml><HXConnectionSettings type='string'/></MFilerTaggedXml>", E_FAIL, before},
        {"newer version", head + L"<Version type='int'>3</Version>" + server + tail, E_FAIL, before},
        {"no server", head + L"<Version type='int'>2</Version>" + tail, E_FAIL,
         Document(kServer, false, false)},
        {"version 1",
         head + L"<Version type='int'>1</Version>" + server + L"<IsProxy type='bool'>1</IsProxy>" + tail,
         S_OK, Document(L"1.2.3.4", true, true)},
        {"version 2", Document(L"5.6.7.8", true, true), S_OK, Document(L"5.6.7.8", true, true)},
        {"escaped", Document(L"a &amp; &lt;b>", true, false), S_OK,
         Document(L"a &amp; &lt;b&gt;", true, false)},
        {"any namespace", L"<MFilerTaggedXml xmlns='urn:x'><x/>" + group + server + tail, S_OK,
         Document(L"1.2.3.4", false, true)},
        {"embedded NUL",
         head + L"<ServerIP type='string'>1" + std::wstring(1, L'\0') + L"2</ServerIP>" + tail, S_OK,
         Document(std::wstring(L"1\0002", 3), false, true)},
    };
    const auto settings = Create<IXmlBstrSerializable>(CLSID_CoMHXConnSettings);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ASSERT_EQ(settings->ReadXmlBstr(Bstr(before).get()), S_OK);
        ASSERT_EQ(Text(*settings), before);
        EXPECT_EQ(settings->ReadXmlBstr(row.text ? Bstr(*row.text).get() : nullptr), row.result);
        EXPECT_EQ(Text(*settings), row.after);
        ComPtr<IErrorInfo> information;
        EXPECT_EQ(GetErrorInfo(0, information.put()), S_FALSE) << "these objects leave no error information";
    }
    EXPECT_EQ(settings->WriteXmlBstr(nullptr), E_INVALIDARG);
}

TEST_F(SettingsObjects, ObjectsShareNoState) {
    const auto factory = Factory();
    ComPtr<IXmlBstrSerializable> one;
    ComPtr<IXmlBstrSerializable> other;
    EXPECT_EQ(factory->CreateSettingsObject(ScannerConnectionSettings, one.put()), S_OK);
    EXPECT_EQ(factory->CreateSettingsObject(ScannerConnectionSettings, other.put()), S_OK);
    EXPECT_EQ(one->ReadXmlBstr(Bstr(Document(L"x", false, true)).get()), S_OK);
    EXPECT_EQ(Text(*one), Document(L"x", false, true));
    EXPECT_EQ(Text(*other), Document(kServer, true, false));
}

TEST_F(SettingsObjects, TheLibraryGoesWithItsLastObject) {
    EXPECT_FALSE(IsLoaded());
    ComPtr<IXmlBstrSerializable> settings;
    {
        CLSID clsid{};
        ASSERT_EQ(CLSIDFromProgID(L"Orvel.HXScannerCtrls.HXSettingsFactory", &clsid), S_OK);
        const auto factory = Create<IProfileSettingsFactory>(clsid);
        EXPECT_EQ(factory->CreateSettingsObject(ScannerConnectionSettings, settings.put()), S_OK);
    }
    CoFreeUnusedLibraries();
    EXPECT_TRUE(IsLoaded());
    EXPECT_EQ(Text(*settings), Document(kServer, true, false));
    // A failure inside uses all of the library: its exceptions and statics must not pin it.
    EXPECT_EQ(settings->ReadXmlBstr(Bstr(L"").get()), E_FAIL);
    settings.reset();
    CoFreeUnusedLibraries();
    EXPECT_FALSE(IsLoaded());
}

TEST_F(SettingsObjects, TheLibraryTellsItsEventsEachTimeThatItGoes) {
    const TemporaryFolder folder;
    const std::string call = " in_class CCoMHXConnSettings at CCoMHXConnSettings::ReadXmlBstr in_thread ";
    for (const std::string name : {"first", "second"}) {
        setenv("HX_EVENTS", (folder.path() / name).c_str(), 1);
        auto settings = Create<IXmlBstrSerializable>(CLSID_CoMHXConnSettings);
        unsetenv("HX_EVENTS");
        EXPECT_EQ(settings->ReadXmlBstr(Bstr(L"").get()), E_FAIL);
        settings.reset();
        CoFreeUnusedLibraries();
        std::string events;
        EXPECT_FALSE(hx::ReadFile(folder.path() / name, events));
        const size_t entered = events.find("% Scope_push" + call);
        EXPECT_NE(events.find("% Scope_pop" + call, entered), std::string::npos) << events;
        EXPECT_EQ(events.find("% Scope_push", entered + 1), std::string::npos) << events;
    }
}

TEST_F(SettingsObjects, LoadingTheLibraryAgainWritesNothingToTheRegistry) {
    const TemporaryFolder folder;
    setenv("HX_DATA", folder.path().c_str(), 1);
    const auto registry = hx::MakeMemoryRegistry();
    hx::SetRegistry(registry);
    // The registry in memory counts every attempt to change it.
    const auto changes_of_loading = [&] {
        const auto before = registry->Stamp(hx::RegistryRoot::kLocalMachine);
        EXPECT_FALSE(IsLoaded());
        EXPECT_TRUE(Factory());
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsLoaded());
        return registry->Stamp(hx::RegistryRoot::kLocalMachine)->state[0] - before->state[0];
    };
    EXPECT_GT(changes_of_loading(), 0u) << "the configuration is entered once";
    EXPECT_EQ(changes_of_loading(), 0u);
    registry->DeleteValue(hx::RegistryRoot::kLocalMachine, L"Software\\Wow6432Node\\Orvel\\HXAPI4\\Logging",
                          L"Severity");
    EXPECT_GT(changes_of_loading(), 0u) << "what is missing is entered";
    EXPECT_EQ(changes_of_loading(), 0u);
    hx::SetRegistry(nullptr);
    setenv("HX_DATA", (std::string(HX_BIN_DIR) + "/../data").c_str(), 1);
}

}  // namespace
