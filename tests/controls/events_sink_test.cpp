// What the listener for events of the scanner API answers, and what it posts.
#include <gtest/gtest.h>

#include "controls/api/cHXApiEventsSinkSimple.h"

namespace {

using hx::ComPtr;

class Page final : public hx::MessageWindow, public hx::cHXApiEventsSinkSimple<Page> {
public:
    std::string seen;

private:
    void OnMessage(const hx::WindowMessage& message) override {
        seen += std::to_string(message.id) + " " + std::to_string(hx::ConnectionStateOf(message)) + " " +
                std::to_string(message.second);
    }
};

HRESULT Raise(IUnknown& sink, DISPID event, DISPPARAMS* arguments, VARIANT* result = nullptr,
              UINT* bad = nullptr) {
    return ComPtr<IUnknown>(&sink).as<IDispatch>()->Invoke(event, IID_NULL, 0, DISPATCH_METHOD, arguments,
                                                           result, nullptr, bad);
}

TEST(EventsSink, PostsTheStateAndNothingElse) {
    Page page;
    const ComPtr<IUnknown> sink = page.MakeEventsSink();
    EXPECT_TRUE(sink.as<IHXApiEvents>() && sink.as<IDispatch>());
    int32_t referred = -7;
    VARIANT by_reference{};
    by_reference.vt = VT_I4 | VT_BYREF;
    by_reference.plVal = &referred;
    VARIANT error{};
    error.vt = VT_ERROR;
    const hx::Variant number(2);
    const hx::Variant text(L"1");
    const hx::Variant word(L"one");
    const hx::Variant fraction(1e12);
    DISPID name = 0;
    struct Row {
        const char* what;
        DISPID event;
        std::vector<VARIANT> arguments;
        HRESULT result;
        std::string posted;
        UINT named = 0;
    };
    const Row rows[] = {
        {"state", 3, {number.get()}, S_OK, "2135 2 0"},
        {"by reference", 3, {by_reference}, S_OK, "2135 -7 0"},
        {"as text", 3, {text.get()}, S_OK, "2135 1 0"},
        {"no number", 3, {word.get()}, DISP_E_TYPEMISMATCH, ""},
        {"omitted", 3, {error}, DISP_E_TYPEMISMATCH, ""},
        {"too great", 3, {fraction.get()}, DISP_E_OVERFLOW, ""},
        {"none", 3, {}, DISP_E_BADPARAMCOUNT, ""},
        {"two", 3, {number.get(), number.get()}, DISP_E_BADPARAMCOUNT, ""},
        {"named", 3, {number.get()}, DISP_E_NONAMEDARGS, "", 1},
        {"another event", 4, {number.get()}, S_OK, ""},
        {"another event without arguments", 2, {}, S_OK, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::vector<VARIANT> given = row.arguments;
        DISPPARAMS arguments{given.data(), &name, static_cast<UINT>(given.size()), row.named};
        VARIANT result{};
        UINT bad = 9;
        EXPECT_EQ(Raise(*sink, row.event, &arguments, &result, &bad), row.result);
        EXPECT_EQ(result.vt, row.posted.empty() ? VT_EMPTY : VT_I4);
        EXPECT_EQ(result.lVal, 0);
        EXPECT_TRUE(page.seen.empty());  // it is posted, not called
        hx::DispatchMessages();
        EXPECT_EQ(std::exchange(page.seen, {}), row.posted);
    }
    EXPECT_EQ(Raise(*sink, 3, nullptr), DISP_E_BADPARAMCOUNT);
    DISPPARAMS nowhere{nullptr, nullptr, 1, 0};
    EXPECT_EQ(Raise(*sink, 3, &nowhere), DISP_E_BADPARAMCOUNT);
}

TEST(EventsSink, OutlivesItsPage) {
    ComPtr<IUnknown> sink;
    {
        Page page;
        sink = page.MakeEventsSink();
    }
    hx::Variant state(1);
    VARIANT argument = state.get();
    DISPPARAMS arguments{&argument, nullptr, 1, 0};
    EXPECT_EQ(Raise(*sink, 3, &arguments), S_OK);
    EXPECT_EQ(hx::DispatchMessages(), 0u);
}

TEST(EventsSink, DescribesItsOneEvent) {
    hx::ApiEvent event;
    EXPECT_EQ(Page::GetFuncInfoFromId(IID_IHXApiEvents, 2, 0, event), E_FAIL);
    EXPECT_EQ(Page::GetFuncInfoFromId(IID_IDispatch, 3, 0, event), E_FAIL);
    EXPECT_EQ(event.parameter_count, 0u);
    EXPECT_EQ(Page::GetFuncInfoFromId(IID_IHXApiEvents, 3, 0, event), S_OK);
    EXPECT_TRUE(event.parameter_count == 1 && event.parameter == VT_I4 && event.result == VT_I4 &&
                event.calling_convention == CC_STDCALL && event.number == 3);
}

}  // namespace
