// Satellites beside a module of the tests' own.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <thread>

#include "core/errors/MException.h"
#include "core/locale/MLocalisationHelperApi.h"
#include "core/locale/MResourceLocale.h"
#include "hxapi/IHXLocale.h"
#include "platform/com/implements.h"
#include "platform/module/this_module.h"
#include "platform/system/utf8.h"
#include "tests/platform/temporary_folder.h"

namespace {

using hx::MLocalisationHelper;
using hx::MResourceLocale;

constexpr uint32_t kGreeting = 60001;  // no string of the program itself

// Loaded: folder/Base.so, with satellites for de-DE and en-US, and broken ones.
class Localisation : public testing::Test {
protected:
    Localisation() {
        Satellite(L"de-DE", "STRINGTABLE BEGIN 60001 \"Guten Tag\" 57344 \"Seiten\" END");
        Satellite(L"en-US", "STRINGTABLE BEGIN 60001 \"Good day\" END");
        Satellite(L"br-FR", "STRINGTABLE\nBEGIN\n60001 \"Demat\nEND");
        m_folder.Write("Base.so", "");
        hx::Resources own;
        own.strings[kGreeting] = L"Hello";
        m_base = std::make_shared<hx::ResourceModule>(Path("Base.so"), own);
        hx::EnterResourceModule(m_base);
    }
    ~Localisation() override {
        EXPECT_EQ(MLocalisationHelper::SatelliteCount(), 0) << "every object is gone";
        MResourceLocale::ExchangeResourceModule(nullptr);
    }

    std::wstring Path(const std::string& name) const {
        return *hx::FromUtf8((m_folder.path() / name).native());
    }
    void Satellite(const std::wstring& locale, const std::string& script) const {
        m_folder.Write("Base_" + hx::ToUtf8(locale) + ".dll", script);
    }
    void Load(MLocalisationHelper& helper, std::wstring_view locale) const {
        helper.LoadSatelliteResources(locale, m_base->FileName());
    }
    std::wstring LoadFailure(std::wstring_view locale, std::wstring_view path) const {
        MLocalisationHelper helper;
        try {
            helper.LoadSatelliteResources(locale, path);
        } catch (const hx::MException& exception) {
            EXPECT_EQ(MLocalisationHelper::SatelliteCount(), 0);
            return hx::ErrorCodesText(exception);
        }
        return L"loaded";
    }
    static std::wstring Greeting() { return MResourceLocale::LoadStringResource(kGreeting); }

    TemporaryFolder m_folder;
    hx::ModuleHandle m_base;
};

TEST_F(Localisation, PutsASatelliteIntoUseForAll) {
    MLocalisationHelper helper;
    Load(helper, L"de-DE");
    EXPECT_EQ(helper.GetLocaleName(), L"de-DE");
    EXPECT_EQ(Greeting(), L"Guten Tag");
    EXPECT_EQ(hx::ApplicationName(), L"Seiten");

    std::filesystem::remove(m_folder.path() / "Base_de-DE.dll");
    Load(helper, L"de-DE");  // free: the file is not asked for again
    MLocalisationHelper other;
    Load(other, L"de-DE");  // loaded already, by whomever
    EXPECT_EQ(MLocalisationHelper::SatelliteCount(), 2);

    Load(other, L"en-US");
    EXPECT_EQ(Greeting(), L"Good day");
    EXPECT_EQ(hx::ApplicationName(), L"Unknown string resource: 57344");
    EXPECT_EQ(MLocalisationHelper::SatelliteCount(), 2) << "objects are counted, not loads";

    helper.SetDefaultResources();
    EXPECT_EQ(helper.GetLocaleName(), L"");
    EXPECT_EQ(Greeting(), L"Hello");
    EXPECT_THROW(Load(helper, L""), hx::MException) << "no name is not the name of what is in use";
    Load(helper, L"en-US");
    EXPECT_EQ(Greeting(), L"Good day");
}

TEST_F(Localisation, TheLastObjectFreesWhatAllHaveLoaded) {
    auto first = std::make_unique<MLocalisationHelper>();
    auto last = std::make_unique<MLocalisationHelper>();
    Load(*first, L"de-DE");
    Load(*last, L"en-US");
    first.reset();
    EXPECT_TRUE(hx::LoadedResourceModule(Path("Base_de-DE.dll"))) << "its texts may still be shown";
    EXPECT_EQ(Greeting(), L"Good day");
    last.reset();
    EXPECT_FALSE(hx::LoadedResourceModule(Path("Base_de-DE.dll")));
    EXPECT_FALSE(hx::LoadedResourceModule(Path("Base_en-US.dll")));
    EXPECT_EQ(MResourceLocale::ResourceModule(), hx::ThisModule());
}

TEST_F(Localisation, SaysWhyASatelliteCannotBeLoaded) {
    const std::wstring load = L"MLocalisationHelper.LoadSatelliteResources:";
    const std::wstring base = m_base->FileName();
    EXPECT_EQ(LoadFailure(L"de-DE", L""), load + L"NoModuleName ()");
    EXPECT_EQ(LoadFailure(L"de-DE", Path("None.so")), load + L"GetLongPathName ($winErrorCode=\"2\")");
    EXPECT_EQ(LoadFailure(L"de-DE", base + std::wstring(1, L'\0')),
              load + L"GetLongPathName ($winErrorCode=\"2\")");
    EXPECT_EQ(LoadFailure(L"de-DE", L"/" + std::wstring(65535, L'a')), load + L"PathTooLong ()");
    EXPECT_EQ(LoadFailure(L"fr-FR", base), load + L"LoadLibrary ($fileName=\"" + Path("Base_fr-FR.dll") +
                                               L"\", $localeName=\"fr-FR\", $winErrorCode=\"126\")");
    m_folder.Write("Other.so", "");
    m_folder.Write("Other_de-DE.dll", "STRINGTABLE BEGIN 60001 \"x\" END");
    EXPECT_EQ(LoadFailure(L"de-DE", Path("Other.so")),
              L"MLocalisationHelper.SetBaseModuleHandle:GetModuleHandle ($baseModuleName=\"" +
                  Path("Other.so") + L"\")");
    const std::wstring broken = LoadFailure(L"br-FR", base);
    EXPECT_NE(broken.find(L"$line=\"3\""), std::wstring::npos) << testing::PrintToString(broken);
    EXPECT_NE(broken.find(L"$winErrorCode=\"193\""), std::wstring::npos) << testing::PrintToString(broken);
    EXPECT_EQ(MResourceLocale::ResourceModule(), hx::ThisModule()) << "what was in use stays in use";
}

// A locale's name comes from the host; it must not lead out of the module's folder.
TEST_F(Localisation, ALocaleNameOpensNothingElsewhere) {
    std::filesystem::create_directory(m_folder.path() / "Base_x");
    m_folder.Write("Base_x/evil.dll", "STRINGTABLE BEGIN 60001 \"evil\" END");
    m_folder.Write("evil.dll", "STRINGTABLE BEGIN 60001 \"evil\" END");
    const std::wstring names[] = {L"x/evil",
                                  L"x/../evil",
                                  L"..",
                                  L"/evil",
                                  Path("evil"),
                                  L"x\\evil",
                                  L"C:evil",
                                  std::wstring(L"de-DE\0", 6),
                                  std::wstring(5000, L'x'),
                                  L""};
    for (const std::wstring& name : names) {
        const std::wstring failure = LoadFailure(name, m_base->FileName());
        EXPECT_NE(failure.find(L":LoadLibrary ("), std::wstring::npos) << testing::PrintToString(name);
        EXPECT_NE(failure.find(L"$winErrorCode=\"126\""), std::wstring::npos)
            << testing::PrintToString(failure);
    }
}

TEST_F(Localisation, FallsBackToUsEnglish) {
    // The program's own module: where the tests are.
    const std::wstring own = hx::ThisModule()->FileName();
    const std::filesystem::path satellite = hx::ToUtf8(own.substr(0, own.rfind(L'.'))) + "_en-US.dll";
    MLocalisationHelper helper;
    try {
        helper.LoadSatelliteResources(L"fr-FR");
        FAIL() << "there is no satellite of the tests";
    } catch (const hx::MException& exception) {
        EXPECT_EQ(hx::ErrorCodesText(exception),
                  L"MLocalisationHelper.LoadSatelliteResources:LoadSatelliteResourcesFallbackFailed ()");
    }
    std::ofstream(satellite) << "STRINGTABLE BEGIN 60001 \"Howdy\" END";
    helper.LoadSatelliteResources(L"../fr-FR");
    EXPECT_EQ(helper.GetLocaleName(), L"en-US");
    EXPECT_EQ(Greeting(), L"Howdy");
    std::filesystem::remove(satellite);
}

TEST_F(Localisation, ManyControlsLoadAtOnce) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this, i] {
            for (int round = 0; round < 50; ++round) {
                MLocalisationHelper helper;
                const bool german = i % 2 == 0;
                EXPECT_NO_THROW(Load(helper, german ? L"de-DE" : L"en-US"));
                EXPECT_TRUE(hx::LoadedResourceModule(Path(german ? "Base_de-DE.dll" : "Base_en-US.dll")));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(hx::LoadedResourceModule(Path("Base_de-DE.dll")));
    EXPECT_FALSE(hx::LoadedResourceModule(Path("Base_en-US.dll")));
}

class Api final : public hx::Implements<Api, hx::SingleThreaded, IHXLocale> {
public:
    explicit Api(HRESULT result) : m_result(result) {}
    HRESULT STDMETHODCALLTYPE GetLocale(BSTR* locale) override {
        *locale = SUCCEEDED(m_result) ? SysAllocString(L"de-DE") : nullptr;
        return m_result;
    }

private:
    HRESULT m_result;
};

class OtherObject final : public hx::Implements<OtherObject, hx::SingleThreaded, IUnknown> {};

TEST_F(Localisation, TheApiNamesTheLanguage) {
    using hx::MLocalisationHelperApi;
    const auto failure = [](IUnknown* api) -> std::wstring {
        try {
            return MLocalisationHelperApi::GetLocaleFromApi(api);
        } catch (const hx::MException& exception) {
            return hx::ErrorCodesText(exception);
        }
    };
    const std::wstring get = L"MLocalisationHelperApi.GetLocaleFromApi:";
    EXPECT_EQ(failure(nullptr), get + L"NoApiPointer ()");
    EXPECT_EQ(failure(hx::Make<OtherObject>().get()), get + L"QueryInterface ($hresult=\"80004002h\")");
    EXPECT_EQ(failure(hx::Make<Api>(E_FAIL).get()), get + L"GetLocale ($hresult=\"80004005h\")");
    EXPECT_EQ(failure(hx::Make<Api>(S_OK).get()), L"de-DE");
}

TEST_F(Localisation, AStringThatIsNotThereIsAnError) {
    const auto failure = [](uint32_t id) -> std::wstring {
        try {
            return MResourceLocale::LoadStringResource(id);
        } catch (const hx::MException& exception) {
            return hx::ErrorCodesText(exception);
        }
    };
    hx::Resources resources;
    const std::wstring load = L"MResourceLocale.LoadStringResource:LoadString ($win32ErrorCode=\"";
    MResourceLocale::ExchangeResourceModule(std::make_shared<hx::ResourceModule>(L"/none", resources));
    EXPECT_EQ(failure(1), load + L"1812\")");
    resources.strings = {{1, L""}, {2, std::wstring(100000, L'x')}};
    MResourceLocale::ExchangeResourceModule(std::make_shared<hx::ResourceModule>(L"/some", resources));
    EXPECT_EQ(failure(1), load + L"1814\")") << "an empty one is none";
    EXPECT_EQ(failure(2).size(), 100000u);
}

}  // namespace
