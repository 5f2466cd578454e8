// Errors that components report, and how our own components report theirs.
#include <gtest/gtest.h>

#include "core/errors/MErrorCom.h"
#include "core/messages/MDiagnosticsAtl.h"
#include "platform/com/dispatch.h"
#include "platform/com/implements.h"
#include "platform/com/loader.h"
#include "platform/system/message_table.h"

namespace {

using hx::ComPtr;

// What the system says about a code, for the length of a test.
class SystemText {
public:
    explicit SystemText(std::optional<std::wstring> text) {
        s_text = std::move(text);
        hx::SetSystemMessageSource([](HRESULT) { return s_text; });
    }
    ~SystemText() { hx::SetSystemMessageSource(nullptr); }

private:
    inline static std::optional<std::wstring> s_text;
};

TEST(ErrorCom, TheSystemTextLosesOneLineBreak) {
    struct Row {
        std::wstring text;
        std::wstring message;
    };
    const Row rows[] = {
        {L"Text.\r\n", L"Text."},
        {L"Text.\n", L"Text."},
        {L"Text.", L"Text."},
        {L"Text.\r\n\r\n", L"Text.\r\n"},
        {L"Text.\n\n", L"Text.\n"},
        {L"Text.\r", L"Text.\r"},
        {L"\r\n", L""},
        {L"", L""},
    };
    for (const Row& row : rows) {
        const SystemText text(row.text);
        const hx::MErrorCom error(E_FAIL);
        EXPECT_EQ(error.GetSystemMessage(), row.message);
        EXPECT_EQ(error.GetParameters().at(L"message"), row.message);
    }
    EXPECT_EQ(hx::MErrorCom(E_FAIL).GetSystemMessage(), L"Unspecified error");
}

TEST(ErrorCom, WithoutASystemTextTheCodeSpeaks) {
    struct Row {
        uint32_t result;
        const wchar_t* message;
        const wchar_t* hresult;
    };
    const Row rows[] = {
        {0x80040205, L"IDispatch error #5", L"80040205h"},
        {0x80040201, L"IDispatch error #1", L"80040201h"},
        {0x8004FFFF, L"IDispatch error #65023", L"8004ffffh"},
        {0x80040200, L"Unknown error 0x80040200", L"80040200h"},
        {0x80050000, L"Unknown error 0x80050000", L"80050000h"},
        {0xFFFFFFFF, L"Unknown error 0xFFFFFFFF", L"ffffffffh"},
        {0x00040205, L"Unknown error 0x40205", L"00040205h"},
        {5, L"Unknown error 0x5", L"00000005h"},
        {0, L"Unknown error 0x0", L"00000000h"},
    };
    const SystemText none(std::nullopt);
    for (const Row& row : rows) {
        const hx::MErrorCom error(static_cast<HRESULT>(row.result));
        EXPECT_EQ(error.GetSystemMessage(), row.message);
        EXPECT_EQ(error.GetParameters(),
                  (hx::MError::Parameters{{L"hresult", row.hresult}, {L"message", row.message}}));
        EXPECT_EQ(error.GetCode(), L"MErrorCom.MErrorCom:");
        EXPECT_EQ(error.GetMessage(), L"MErrorCom.MErrorCom:");
        EXPECT_EQ(error.GetResult(), static_cast<HRESULT>(row.result));
    }
    EXPECT_TRUE(hx::MErrorCom().GetParameters().empty());
}

class Plain final : public hx::Implements<Plain, hx::FreeThreaded, IErrorInfo> {
public:
    explicit Plain(HRESULT guid, HRESULT description) : m_guid(guid), m_description(description) {}
    HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override {
        *guid = IID_IDispatch;
        return m_guid;
    }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override {
        *text = nullptr;
        return m_description;
    }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }

private:
    HRESULT m_guid;
    HRESULT m_description;
};

// A component that vouches for IDispatch with a given answer.
class Component final : public hx::Implements<Component, hx::FreeThreaded, ISupportErrorInfo> {
public:
    explicit Component(HRESULT answer) : m_answer(answer) {}
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IDispatch ? m_answer : S_FALSE;
    }

private:
    HRESULT m_answer;
};

ComPtr<IErrorInfo> Information(REFIID iid, std::wstring description) {
    ComPtr<ICreateErrorInfo> information;
    EXPECT_EQ(CreateErrorInfo(information.put()), S_OK);
    information->SetGUID(iid);
    information->SetDescription(description.data());
    return information.as<IErrorInfo>();
}

bool TakeFromThread() {
    ComPtr<IErrorInfo> left;
    return GetErrorInfo(0, left.put()) == S_OK;
}

TEST(ErrorCom, TakesTheInformationThatTheComponentVouchesFor) {
    const auto vouching = hx::Make<Component>(S_OK);
    const auto hesitant = hx::Make<Component>(S_FALSE);
    const auto failing = hx::Make<Component>(E_FAIL);
    const auto silent = hx::Make<Plain>(S_OK, S_OK);
    struct Row {
        const char* what;
        HRESULT result;
        IUnknown* component;
        IID asked;
        IID about;
        bool kept;
        bool left;  // on the thread, for the next one
    };
    const Row rows[] = {
        {"all matches", E_FAIL, vouching.get(), IID_IDispatch, IID_IDispatch, true, false},
        {"about another interface", E_FAIL, vouching.get(), IID_IDispatch, IID_IUnknown, false, false},
        {"another interface failed", E_FAIL, vouching.get(), IID_IUnknown, IID_IUnknown, false, true},
        {"answers S_FALSE", E_FAIL, hesitant.get(), IID_IDispatch, IID_IDispatch, false, true},
        {"answers with a failure", E_FAIL, failing.get(), IID_IDispatch, IID_IDispatch, false, true},
        {"cannot be asked", E_FAIL, silent.get(), IID_IDispatch, IID_IDispatch, false, true},
        {"no component", E_FAIL, nullptr, IID_IDispatch, IID_IDispatch, false, true},
        {"no failure", S_FALSE, vouching.get(), IID_IDispatch, IID_IDispatch, false, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        SetErrorInfo(0, Information(row.about, L"described").get());
        const hx::MErrorCom error(row.result, row.component, row.asked);
        EXPECT_EQ(error.GetErrorInformation() != nullptr, row.kept);
        EXPECT_EQ(error.GetDescription(), row.kept ? L"described" : L"");
        EXPECT_EQ(error.GetParameters().size(), 2u);
        EXPECT_EQ(TakeFromThread(), row.left);
        const auto clone = error.Clone();
        EXPECT_EQ(dynamic_cast<hx::MErrorCom&>(*clone).GetErrorInformation(), error.GetErrorInformation());
        EXPECT_EQ(dynamic_cast<hx::MErrorCom&>(*clone).GetDescription(), error.GetDescription());
    }
    EXPECT_EQ(hx::MErrorCom(E_FAIL, vouching.get(), IID_IDispatch).GetErrorInformation(), nullptr)
        << "there is none";
}

TEST(ErrorCom, ADescriptionThatCannotBeHadIsAnErrorOfItsOwn) {
    struct Row {
        HRESULT description;
        const wchar_t* kind;
        const wchar_t* hresult;
    };
    const Row rows[] = {
        {E_OUTOFMEMORY, L"MErrorOutOfMemory", L""},
        {E_INVALIDARG, L"MErrorCom", L"80070057h"},
        {E_NOTIMPL, L"MErrorCom", L"80004005h"},
    };
    const auto component = hx::Make<Component>(S_OK);
    for (const Row& row : rows) {
        SetErrorInfo(0, hx::Make<Plain>(S_OK, row.description).get());
        try {
            hx::MErrorCom error(E_FAIL, component.get(), IID_IDispatch);
            ADD_FAILURE() << "nothing thrown";
        } catch (const hx::MException& exception) {
            ASSERT_EQ(exception.GetChain().size(), 1u);
            const hx::MError& thrown = *exception.GetChain().front();
            EXPECT_EQ(thrown.GetDynClass().Name(), row.kind);
            if (*row.hresult != 0) {
                EXPECT_EQ(thrown.GetParameters().at(L"hresult"), row.hresult);
            }
        }
        EXPECT_FALSE(TakeFromThread());
    }
    // Information that will not say what it is about is not kept, and its absent text is no text.
    SetErrorInfo(0, hx::Make<Plain>(E_FAIL, E_FAIL).get());
    EXPECT_EQ(hx::MErrorCom(E_FAIL, component.get(), IID_IDispatch).GetErrorInformation(), nullptr);
    SetErrorInfo(0, hx::Make<Plain>(S_OK, S_OK).get());
    EXPECT_EQ(hx::MErrorCom(E_FAIL, component.get(), IID_IDispatch).GetDescription(), L"");
}

// One class, registered under a ProgID.
class OneClass final : public hx::IClassLookup {
public:
    std::optional<hx::ClassEntry> ByClsid(const CLSID& clsid) const override {
        if (!(clsid == IID_IDispatch)) return {};
        hx::ClassEntry entry;
        entry.clsid = clsid;
        entry.prog_id = L"Acme.Thing.1";
        return entry;
    }
    std::optional<CLSID> ByProgId(std::wstring_view) const override { return {}; }
    std::vector<hx::ClassEntry> All() const override { return {}; }
};

TEST(DiagnosticsAtl, AnExceptionCrossesTheBoundaryAsErrorInformation) {
    hx::SetClassLookup(std::make_shared<OneClass>());
    hx::MException exception(hx::MError(L"first"));
    hx::MError second(L"second");
    second.AddParameter(L"name", std::wstring(L"a\0b", 3));
    exception.Append(second);
    for (const bool registered : {true, false}) {
        SetErrorInfo(0, Information(IID_IUnknown, L"an older failure").get());
        EXPECT_EQ(hx::MDiagnosticsAtl::MExceptionAsErrorinfo(registered ? IID_IDispatch : IID_IErrorInfo,
                                                             exception, IID_IDispatch, E_ABORT),
                  E_ABORT);
        ComPtr<IErrorInfo> information;
        ASSERT_EQ(GetErrorInfo(0, information.put()), S_OK);
        GUID about{};
        hx::Bstr source;
        hx::Bstr help;
        DWORD context = 1;
        EXPECT_TRUE(information->GetGUID(&about) == S_OK && about == IID_IDispatch);
        EXPECT_TRUE(information->GetSource(source.put()) == S_OK &&
                    information->GetHelpFile(help.put()) == S_OK);
        EXPECT_EQ(source.view(), registered ? L"Acme.Thing.1" : L"");
        EXPECT_TRUE(help.view().empty() && information->GetHelpContext(&context) == S_OK && context == 0);

        // On the other side it is the remote records, followed by the one for the code.
        SetErrorInfo(0, information.get());
        const hx::MException local(hx::MErrorCom(E_ABORT, hx::Make<Component>(S_OK).get(), IID_IDispatch));
        std::wstring codes;
        for (const auto& error : local.GetChain()) codes += error->GetCode() + L" ";
        EXPECT_EQ(codes, L"first second MErrorCom.MErrorCom: ");
        EXPECT_TRUE(local.GetChain().back()->IsOfKind(hx::MErrorCom::Class()));
    }
    hx::SetClassLookup(nullptr);
}

}  // namespace
