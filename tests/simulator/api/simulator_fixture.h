// A simulated scanner API as a host finds it: by name, from its library, which is gone again after each test.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <vector>

#include "hxapi/HXApiErrors.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiEvents.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXLocale.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/connection_point.h"
#include "platform/com/loader.h"
#include "platform/com/variant.h"
#include "platform/system/utf8.h"
#include "tests/platform/temporary_folder.h"

// A listener that keeps what it is told.
class Listener final : public hx::Implements<Listener, hx::FreeThreaded, IHXApiEvents, IDispatch> {
public:
    // Called with each state, on the event thread.
    explicit Listener(std::function<HRESULT(int32_t)> also = {}) : m_also(std::move(also)) {}

    std::vector<int32_t> Told() {
        const std::lock_guard guard(m_mutex);
        return m_told;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        if (member != DISPID_HXCONNECTIONSTATECHANGED || flags != DISPATCH_METHOD) return E_UNEXPECTED;
        if (arguments->cArgs != 1 || arguments->rgvarg[0].vt != VT_I4) return E_INVALIDARG;
        const int32_t state = arguments->rgvarg[0].lVal;
        {
            const std::lock_guard guard(m_mutex);
            m_told.push_back(state);
        }
        return m_also ? m_also(state) : S_OK;
    }

private:
    const std::function<HRESULT(int32_t)> m_also;
    std::mutex m_mutex;
    std::vector<int32_t> m_told;
};

class SimulatorTest : public testing::Test {
protected:
    template <class I>
    static hx::ComPtr<I> Create(const wchar_t* prog_id) {
        CLSID clsid{};
        EXPECT_EQ(CLSIDFromProgID(prog_id, &clsid), S_OK);
        hx::ComPtr<I> object;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<I>(), object.put_void()),
                  S_OK);
        return object;
    }

    static void SetUpTestSuite() {
        const std::string build = std::string(HX_BIN_DIR) + "/..";
        setenv("HX_DATA", (build + "/data").c_str(), 0);
        setenv("HX_REGISTRY", (build + "/registry").c_str(), 0);
    }

    void SetUp() override {
        m_api = Create<IHXApi>(kProgIdHXSimulator);
        ASSERT_TRUE(m_api);
        m_hands = m_api.as<IHXSimulator>();
        ASSERT_TRUE(m_hands);
        EXPECT_EQ(m_hands->SetPresetsFolder(Text(m_folder.path().string())), S_OK);
    }

    void TearDown() override {
        m_hands.reset();
        m_api.reset();
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsLoaded()) << "something of the simulator is still alive";
    }

    static bool IsLoaded() {
        const std::string path = std::string(HX_BIN_DIR) + "/HXSimulator.so";
        void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
        if (library) dlclose(library);
        return library != nullptr;
    }

    // Good until the end of the test.
    BSTR Text(const std::string& utf8) {
        m_texts.emplace_back(*hx::FromUtf8(utf8));
        return m_texts.back().get();
    }

    hx::ComPtr<ICalibrationHandle> NewHandle() {
        hx::ComPtr<IUnknown> handle;
        EXPECT_EQ(m_api.as<IHXApiInternal>()->CreateCalibrationHandle(nullptr, IID_ICalibrationHandle,
                                                                      handle.put(), nullptr),
                  S_OK);
        return handle.as<ICalibrationHandle>();
    }

    hx::ComPtr<IConnectionPoint> Events() {
        hx::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(m_api.as<IConnectionPointContainer>()->FindConnectionPoint(IID_IHXApiEvents, point.put()),
                  S_OK);
        return point;
    }

    void ConnectAndWait() {
        EXPECT_EQ(m_hands->Connect(), S_OK);
        EXPECT_EQ(m_hands->WaitForEvents(), S_OK);
    }

    // The calls since the last time, one JSON object each.
    std::vector<std::string> Calls() {
        hx::Bstr json;
        EXPECT_EQ(m_hands->TakeCalls(json.put()), S_OK);
        std::vector<std::string> calls;
        std::string text = hx::ToUtf8(json.view());
        EXPECT_TRUE(text.starts_with('[') && text.ends_with(']')) << text;
        text = text.substr(1, text.size() - 2);
        while (!text.empty()) {
            const size_t end = std::min(text.find(",\n"), text.size());
            calls.push_back(text.substr(0, end));
            text.erase(0, end + 2);
        }
        return calls;
    }
    static std::string Call(const std::string& on, const std::string& op, const std::string& args,
                            HRESULT result = S_OK) {
        return R"({"on":")" + on + R"(","op":")" + op + R"(","args":)" + args + R"(,"result":)" +
               std::to_string(result) + "}";
    }

    // Of the last failure on this thread, if it is about that interface.
    static std::string Description(REFIID iid) {
        hx::ComPtr<IErrorInfo> information;
        GetErrorInfo(0, information.put());
        return information ? DescriptionOf(*information, iid) : "none";
    }
    static std::string DescriptionOf(IErrorInfo& information, REFIID iid) {
        GUID about{};
        EXPECT_EQ(information.GetGUID(&about), S_OK);
        EXPECT_EQ(about, iid);
        hx::Bstr text;
        EXPECT_EQ(information.GetDescription(text.put()), S_OK);
        return hx::ToUtf8(text.view());
    }

    TemporaryFolder m_folder;
    std::list<hx::Bstr> m_texts;
    hx::ComPtr<IHXApi> m_api;
    hx::ComPtr<IHXSimulator> m_hands;
};
