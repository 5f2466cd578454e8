// What the libraries enter in the registry and what they leave there, by their own entry points.
#include <algorithm>
#include <map>
#include <vector>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/bstr.h"
#include "platform/com/class_files.h"
#include "platform/com/errorinfo.h"
#include "platform/registry/class_registration.h"
#include "platform/registry/registry_classes.h"
#include "platform/system/utf8.h"
#include "tests/server/component_library.h"
#include "tests/told_error.h"

namespace {

using Root = hx::RegistryRoot;
using Result = hx::RegistryResult;
using Keys = std::map<std::wstring, std::wstring>;  // texts by "ROOT\KEY:NAME"; keys alone have none
using Operations = std::vector<std::wstring>;

// Notes what is done, and refuses one operation.
class RefusingRegistry final : public hx::IRegistry {
public:
    static constexpr size_t kNone = SIZE_MAX;

    RefusingRegistry(std::shared_ptr<IRegistry> store, size_t refused)
        : m_store(std::move(store)), m_refused(refused) {}

    Result OpenKey(Root root, std::wstring_view path, hx::RegistryAccess access) override {
        return Do(L"open ", root, path, [&] { return m_store->OpenKey(root, path, access); });
    }
    Result CreateKey(Root root, std::wstring_view path) override {
        return Do(L"create ", root, path, [&] { return m_store->CreateKey(root, path); });
    }
    Result DeleteKey(Root root, std::wstring_view path) override {
        return Do(L"delete ", root, path, [&] { return m_store->DeleteKey(root, path); });
    }
    Result QueryValue(Root root, std::wstring_view path, std::wstring_view name,
                      hx::RegistryValue& value) override {
        return Do(L"query ", root, path, [&] { return m_store->QueryValue(root, path, name, value); });
    }
    Result SetValue(Root root, std::wstring_view path, std::wstring_view name,
                    const hx::RegistryValue& value) override {
        return Do(L"set ", root, path, [&] { return m_store->SetValue(root, path, name, value); });
    }
    Result DeleteValue(Root root, std::wstring_view path, std::wstring_view name) override {
        return Do(L"unset ", root, path, [&] { return m_store->DeleteValue(root, path, name); });
    }
    Result ListKeys(Root root, std::wstring_view path, std::vector<std::wstring>& names) override {
        return Do(L"list ", root, path, [&] { return m_store->ListKeys(root, path, names); });
    }
    Result ListValues(Root root, std::wstring_view path,
                      std::vector<hx::NamedRegistryValue>& values) override {
        return Do(L"values ", root, path, [&] { return m_store->ListValues(root, path, values); });
    }

    Operations operations;

private:
    template <class Body>
    Result Do(const wchar_t* name, Root root, std::wstring_view path, Body body) {
        operations.push_back(name + std::wstring(root == Root::kLocalMachine ? L"HKLM\\" : L"") +
                             std::wstring(path));
        return operations.size() == m_refused + 1 ? Result::kAccessDenied : body();
    }

    std::shared_ptr<IRegistry> m_store;
    size_t m_refused;
};

void Collect(hx::IRegistry& registry, Root root, const std::wstring& path, Keys& keys) {
    const std::wstring shown = (root == Root::kLocalMachine ? L"HKLM\\" : L"") + path;
    std::vector<hx::NamedRegistryValue> values;
    registry.ListValues(root, path, values);
    for (const hx::NamedRegistryValue& each : values)
        keys[shown + L":" + each.name] = std::get<std::wstring>(each.value);
    if (values.empty()) keys[shown] = L"";
    std::vector<std::wstring> names;
    registry.ListKeys(root, path, names);
    for (const std::wstring& name : names)
        Collect(registry, root, path.empty() ? name : path + L"\\" + name, keys);
}

Keys KeysOf(hx::IRegistry& registry) {
    Keys keys;
    for (const Root root : {Root::kClassesRoot, Root::kLocalMachine}) Collect(registry, root, L"", keys);
    keys.erase(L"");
    keys.erase(L"HKLM\\");
    return keys;
}

// A library that is loaded with a registry of no interest, since its log is configured there.
class Library {
public:
    explicit Library(const std::string& name) : m_path(std::string(HX_BIN_DIR) + "/" + name) {
        hx::SetRegistry(hx::MakeMemoryRegistry());
        m_library = dlopen(m_path.c_str(), RTLD_NOW | RTLD_LOCAL);
        EXPECT_NE(m_library, nullptr) << dlerror();
    }
    Library(const Library&) = delete;
    ~Library() { dlclose(m_library); }

    HRESULT Register() const { return Call("DllRegisterServer"); }
    HRESULT Unregister() const { return Call("DllUnregisterServer"); }
    std::wstring Path() const { return hx::FromUtf8(m_path).value(); }

private:
    HRESULT Call(const char* entry) const {
        const auto function = reinterpret_cast<HRESULT (*)()>(dlsym(m_library, entry));
        EXPECT_NE(function, nullptr) << entry;
        return function != nullptr ? function() : E_UNEXPECTED;
    }

    std::string m_path;
    void* m_library;
};

class Registration : public ComponentLibrary {
protected:
    void SetUp() override { hx::SetRegistry(m_registry); }
    void TearDown() override {
        hx::SetRegistry(nullptr);
        SetErrorInfo(0, nullptr);
    }

    std::shared_ptr<hx::IRegistry> m_registry = hx::MakeMemoryRegistry();
};

const std::wstring kLibrary = hx::GuidToText(LIBID_HXScannerCtrls);
const Keys kLeft = {{L"CLSID", L""},
                    {L"HKLM\\Software", L""},
                    {L"HKLM\\Software\\Orvel", L""},
                    {L"HKLM\\Software\\Orvel\\HXAPI4", L""},
                    {L"HKLM\\Software\\Orvel\\HXAPI4\\Components", L""}};

Keys ExpectedKeys(const std::wstring& path) {
    struct Class {
        CLSID clsid;
        std::wstring prog_id, name, threading;
        enum { kSettings, kControl, kPage } kind;
    };
    const std::wstring kControls = L"HXScannerMeasSettingsCtrls Control";
    const Class classes[] = {
        {CLSID_CoMHXMeasSettings, kProgIdHXMeasSettings, L"CoMHXMeasSettings Class", L"", Class::kSettings},
        {CLSID_CoMHXSettingsFactory, kProgIdHXSettingsFactory, L"CoMHXSettingsFactory Class", L"Both",
         Class::kSettings},
        {CLSID_CoMHXConnSettings, kProgIdHXConnSettings, L"CoMHXConnSettings Class", L"", Class::kSettings},
        {CLSID_HXScannerMeasSettingsCtrl, kProgIdHXMeasSettingsCtrl, kControls, L"Apartment",
         Class::kControl},
        {CLSID_HXScannerHandheldMeasSettingsCtrl, kProgIdHXHandheldMeasSettingsCtrl, kControls, L"Apartment",
         Class::kControl},
        {CLSID_HXScannerDiagnosticsCtrl, kProgIdHXDiagnosticsCtrl, L"HXScanner Diagnostics Control",
         L"Apartment", Class::kControl},
        {CLSID_HXScannerMeasSettingsPropPage, kProgIdHXMeasSettingsPropPage,
         L"HXScannerMeasSettings Property Page", L"", Class::kPage},
    };
    Keys keys = kLeft;
    for (const Class& each : classes) {
        const std::wstring clsid = hx::GuidToText(each.clsid);
        const std::wstring key = L"CLSID\\" + clsid;
        keys[each.prog_id + L":"] = keys[key + L":"] = each.name;
        keys[each.prog_id + L"\\CLSID:"] = clsid;
        keys[key + L"\\ProgID:"] = each.prog_id;
        keys[key + L"\\InprocServer32:"] = path;
        if (!each.threading.empty()) keys[key + L"\\InprocServer32:ThreadingModel"] = each.threading;
        if (each.kind != Class::kPage) keys[key + L"\\TypeLib:"] = kLibrary;
        if (each.kind == Class::kSettings) {
            const std::wstring without_version = each.prog_id.substr(0, each.prog_id.size() - 2);
            keys[without_version + L":"] = each.name;
            keys[without_version + L"\\CLSID:"] = clsid;
            keys[without_version + L"\\CurVer:"] = each.prog_id;
            keys[key + L"\\VersionIndependentProgID:"] = without_version;
        } else if (each.kind == Class::kControl) {
            keys[key + L"\\Control:"] = L"";
            keys[key + L"\\MiscStatus:"] = L"0";
            keys[key + L"\\MiscStatus\\1:"] = std::to_wstring(0x20191);
            keys[key + L"\\ToolboxBitmap32:"] = path + L", 2";
            keys[key + L"\\Version:"] = L"1.0";
        }
    }
    const std::wstring library = L"TypeLib\\" + kLibrary;
    keys[L"TypeLib"] = keys[library] = L"";
    keys[library + L"\\1.0:"] = L"HXScannerCtrls 1.0 Type Library";
    keys[library + L"\\1.0\\0"] = L"";
    keys[library + L"\\1.0\\0\\linux64:"] = path;
    keys[library + L"\\1.0\\FLAGS:"] = L"0";
    keys[library + L"\\1.0\\HELPDIR:"] = path.substr(0, path.rfind(L'/'));
    return keys;
}

TEST_F(Registration, LeavesOneSetOfKeysAndRemovesIt) {
    const Library library("HXScannerCtrls.so");
    hx::SetRegistry(m_registry);
    const Keys expected = ExpectedKeys(library.Path());
    EXPECT_EQ(library.Register(), S_OK);
    EXPECT_EQ(KeysOf(*m_registry), expected);
    // Of an older version of the class: its key is made anew.
    m_registry->CreateKey(Root::kClassesRoot,
                          L"CLSID\\" + hx::GuidToText(CLSID_CoMHXMeasSettings) + L"\\Old");
    EXPECT_EQ(library.Register(), S_OK);
    EXPECT_EQ(KeysOf(*m_registry), expected);
    for (int time = 1; time <= 2; ++time) {
        EXPECT_EQ(library.Unregister(), S_OK);
        EXPECT_EQ(KeysOf(*m_registry), kLeft) << "time " << time;
    }
    hx::SetRegistry(m_registry = hx::MakeMemoryRegistry());
    EXPECT_EQ(library.Unregister(), S_OK) << "never registered";
    EXPECT_EQ(KeysOf(*m_registry), Keys());
}

TEST_F(Registration, LeavesTheKeysOfOthersAlone) {
    const Library library("HXScannerCtrls.so");
    hx::SetRegistry(m_registry);
    const std::wstring others[] = {L"CLSID\\{00000000-0000-0000-0000-000000000001}\\InprocServer32",
                                   L"TypeLib\\{00000000-0000-0000-0000-000000000001}\\1.0",
                                   L"TypeLib\\" + kLibrary + L"\\2.0",
                                   L"Orvel.HXScannerCtrls.HXMeasSettings.2"};
    for (const std::wstring& key : others) m_registry->CreateKey(Root::kClassesRoot, key);
    m_registry->CreateKey(Root::kLocalMachine, L"Software\\Orvel\\HXAPI4\\Components\\Other");
    const Keys before = KeysOf(*m_registry);
    EXPECT_EQ(library.Register(), S_OK);
    EXPECT_EQ(library.Unregister(), S_OK);
    EXPECT_EQ(KeysOf(*m_registry), before);
}

// The code that a refused operation ends with, by the step that it belongs to: the type library is entered
// twice, then come the controls, then the place of components.
HRESULT CodeOf(const Operations& all, size_t refused) {
    const auto is_at = [](const std::wstring& part) {
        return [part](const std::wstring& each) { return each.find(part) != std::wstring::npos; };
    };
    const auto first = std::ranges::find_if(all, is_at(L" TypeLib\\" + kLibrary + L"\\1.0"));
    const auto second = std::find(first + 1, all.end(), *first);
    const auto controls = std::find_if(second, all.end(), [](const std::wstring& each) {
        return each.find(L" TypeLib") == std::wstring::npos;
    });
    const auto place = std::find_if(controls, all.end(), is_at(L" HKLM\\"));
    const auto at = all.begin() + static_cast<std::ptrdiff_t>(refused);
    if (at < second || at >= place) return E_ACCESSDENIED;
    return at < controls ? SELFREG_E_TYPELIB : SELFREG_E_CLASS;
}

TEST_F(Registration, EndsAtTheFirstRefusalWithTheCodeOfItsStep) {
    const Library library("HXScannerCtrls.so");
    for (const bool is_registering : {true, false}) {
        const auto run = [&](size_t refused, HRESULT& result) {
            const auto store = hx::MakeMemoryRegistry();
            hx::SetRegistry(store);
            if (!is_registering) {
                EXPECT_EQ(library.Register(), S_OK);
            }
            const auto registry = std::make_shared<RefusingRegistry>(store, refused);
            hx::SetRegistry(registry);
            SetErrorInfo(0, nullptr);
            result = is_registering ? library.Register() : library.Unregister();
            return registry->operations;
        };
        HRESULT result = E_UNEXPECTED;
        const Operations all = run(RefusingRegistry::kNone, result);
        EXPECT_EQ(result, S_OK);
        EXPECT_EQ(TakeToldError().description, L"");
        for (size_t i = 0; i < all.size(); ++i) {
            SCOPED_TRACE(testing::PrintToString(all[i]));
            const Operations done = run(i, result);
            EXPECT_EQ(result, CodeOf(all, i));
            EXPECT_TRUE(
                std::equal(done.begin(), done.end(), all.begin(), all.begin() + static_cast<long>(i) + 1));
            const std::wstring text = TakeToldError().description;
            EXPECT_NE(text.find(all[i].substr(all[i].find_last_of(L"\\ ") + 1)), std::wstring::npos)
                << testing::PrintToString(text);
            EXPECT_NE(text.find(L"0x80070005"), std::wstring::npos);
        }
    }
}

// The tables beside the libraries serve programs that run from a build: both say the same.
TEST_F(Registration, EntersTheClassesThatTheTablesList) {
    const Library libraries[] = {Library("HXScannerCtrls.so"), Library("HXPreview.so"),
                                 Library("HXSimulator.so")};
    hx::SetRegistry(m_registry);
    for (const Library& each : libraries) EXPECT_EQ(each.Register(), S_OK);
    const auto registered = hx::MakeRegistryClassLookup();
    const auto listed = hx::ReadClassFiles(HX_BIN_DIR)->All();
    EXPECT_EQ(registered->All().size(), listed.size());
    for (const hx::ClassEntry& each : listed) {
        SCOPED_TRACE(testing::PrintToString(each.prog_id));
        const auto found = registered->ByClsid(each.clsid);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->prog_id, each.prog_id);
        EXPECT_EQ(found->version_independent_prog_id, each.version_independent_prog_id);
        EXPECT_EQ(found->threading_model, each.threading_model);
        EXPECT_EQ(found->library, each.library);
        for (const std::wstring& name : {each.prog_id, each.version_independent_prog_id})
            EXPECT_TRUE(name.empty() || registered->ByProgId(name) == each.clsid);
    }
    for (const Library& each : libraries) EXPECT_EQ(each.Unregister(), S_OK);
    EXPECT_EQ(KeysOf(*m_registry), kLeft);

    hx::SetRegistry(std::make_shared<RefusingRegistry>(m_registry, 0));
    EXPECT_EQ(libraries[1].Register(), SELFREG_E_CLASS);
    EXPECT_NE(TakeToldError().description, L"");
}

TEST_F(Registration, CategoriesLieBelowTheClass) {
    const hx::ComponentCategory categories[] = {{LIBID_HXScannerCtrls, hx::CategoryUse::kImplemented},
                                                {APPID_HXScannerCtrls, hx::CategoryUse::kRequired}};
    hx::RegistrationError error;
    for (const auto& [action, count] : {std::pair(hx::RegistrationAction::kRegister, size_t{1}),
                                        std::pair(hx::RegistrationAction::kUnregister, size_t{0})}) {
        EXPECT_EQ(hx::RegisterCategories(*m_registry, CLSID_CoMHXMeasSettings, categories, action, error),
                  S_OK);
        const std::wstring key = L"CLSID\\" + hx::GuidToText(CLSID_CoMHXMeasSettings);
        for (const wchar_t* use : {L"\\Implemented Categories", L"\\Required Categories"}) {
            std::vector<std::wstring> names;
            m_registry->ListKeys(Root::kClassesRoot, key + use, names);
            EXPECT_EQ(names.size(), count) << testing::PrintToString(use);
        }
    }
}

}  // namespace
