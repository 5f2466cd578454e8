#include <gtest/gtest.h>

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorCom.h"
#include "core/errors/MErrorLocation.h"

namespace {

using namespace std::string_literals;
using hx::MError;
using hx::MException;

std::vector<std::wstring> Codes(const MException& exception) {
    std::vector<std::wstring> codes;
    for (const auto& error : exception.GetChain()) codes.push_back(error->GetCode());
    return codes;
}

TEST(Exceptions, ChainsAreReadAsFarAsTheyGo) {
    struct Row {
        const wchar_t* group;
        bool read;
        std::vector<std::wstring> codes;  // of a chain that held "old"
    };
    const Row rows[] = {
        {L"<Exception/>", true, {}},
        {L"<Other/><Exception><Error><Code type='string'>1</Code></Error></Exception>", true, {L"1"}},
        {L"<Exception><Error><Code type='string'>1</Code></Error><x/><Error><Code "
         L"type='string'/></Error></Exception>",
         true,
         {L"1", L""}},
        {L"<Exception><Error><Code type='string'>1</Code></Error><Error/><Error><Code "
         L"type='string'>3</Code></Error>"
         L"</Exception>",
         true,
         {L"1"}},
        {L"<Exception type='string'/>", false, {L"old"}},
        {L"<Error><Code type='string'>1</Code></Error>", false, {L"old"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.group)));
        MException exception(MError(L"old"));
        EXPECT_EQ(hx::ReadChainDocument(L"<ExceptionChain>"s + row.group + L"</ExceptionChain>", exception),
                  row.read);
        EXPECT_EQ(Codes(exception), row.codes);
    }
}

TEST(Exceptions, AChainTravelsAsADocument) {
    MError error(L"MLaserProfileSettings.ValidateProfileName:ProfileNameContains");
    error.AddParameter(L"invalidCharacter", L"/");
    error.AddParameter(L"a", L"\"x\"");
    MException exception(error);
    exception.Append(MError());
    exception.Append(hx::MErrorOutOfMemory(L"M.N:O"));
    EXPECT_STREQ(exception.what(), "Unknown exception");
    EXPECT_EQ(hx::ErrorCodesText(exception),
              L"M.N:O ()\nMLaserProfileSettings.ValidateProfileName:ProfileNameContains "
              L"($a=\"\"x\"\", $invalidCharacter=\"/\")");
    EXPECT_EQ(hx::ErrorCodesText(MException()), L"");
    const std::wstring document = hx::ChainDocument(exception);
    EXPECT_EQ(
        document,
        L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ExceptionChain>\n<Exception>\n<Error>\n"
        L"<Code type=\"string\">MLaserProfileSettings.ValidateProfileName:ProfileNameContains</Code>\n"
        L"<Parameter>\n<Name type=\"string\">a</Name>\n<Value type=\"string\">\"x\"</Value>\n</Parameter>\n"
        L"<Parameter>\n<Name type=\"string\">invalidCharacter</Name>\n<Value type=\"string\">/</Value>\n"
        L"</Parameter>\n</Error>\n<Error>\n<Code type=\"string\"/>\n</Error>\n<Error>\n"
        L"<Code type=\"string\">M.N:O</Code>\n</Error>\n</Exception>\n</ExceptionChain>\n");
    MException read;
    EXPECT_TRUE(hx::ReadChainDocument(document, read));
    EXPECT_EQ(hx::ChainDocument(read), document);
    EXPECT_EQ(read.GetChain().back()->GetDynClass().Name(), L"MError") << "whatever kind was written";
}

// A record that says it is described by a text.
class Described : public MError {
public:
    Described(std::wstring code, std::wstring description)
        : MError(std::move(code)), m_description(std::move(description)) {}
    std::unique_ptr<hx::MDynObject> Clone() const override { return std::make_unique<Described>(*this); }
    std::wstring GetDescription() const override { return m_description; }

private:
    std::wstring m_description;
};

class Uncloneable : public MError {
public:
    explicit Uncloneable(bool foreign) : m_foreign(foreign) {}
    std::unique_ptr<hx::MDynObject> Clone() const override {
        return m_foreign ? std::make_unique<hx::MDynObject>() : nullptr;
    }

private:
    bool m_foreign;
};

TEST(Exceptions, ADescriptionThatIsAChainExpandsInFrontOfItsRecord) {
    MException remote(MError(L"r1"));
    remote.Append(MError(L"r2"));
    const std::wstring chain = hx::ChainDocument(remote);
    struct Row {
        std::wstring description;
        std::vector<std::wstring> codes;
    };
    const Row rows[] = {
        {chain, {L"r1", L"r2", L"me"}},
        {L"", {L"me"}},
        {L"no document", {L"me"}},
        {L"<Other><Exception/></Other>", {L"me"}},
        {L"<ExceptionChain/>", {L"me"}},
        {L"<ExceptionChain><Exception/></ExceptionChain>", {L"me"}},
        {chain.substr(0, chain.size() - 2), {L"me"}},
    };
    for (const Row& row : rows) {
        const MException exception(Described(L"me", row.description));
        EXPECT_EQ(Codes(exception), row.codes) << testing::PrintToString(row.description);
        EXPECT_EQ(Codes(MException(exception)), row.codes) << "a copy expands nothing again";
    }
    MException exception;
    exception.Append(Described(L"me", chain));
    exception.Append(Uncloneable(true));
    exception.Append(Uncloneable(false));
    EXPECT_EQ(Codes(exception), (std::vector<std::wstring>{L"me"}));
    EXPECT_TRUE(exception.Contains(MError(L"me")));
    EXPECT_FALSE(exception.Contains(MError(L"r1")) || exception.Contains(hx::MErrorOutOfMemory(L"me")));
}

// Writes down what it is told.
class Listener : public hx::MDiagnosticsRegistryImplementation {
public:
    using At = const hx::MErrorLocation&;
    Listener() { hx::SetDiagnosticsRegistry(this); }
    ~Listener() override { EXPECT_EQ(hx::SetDiagnosticsRegistry(nullptr), this); }
    void OnClass(const char*) override {}
    void OnLocation(const char* class_name, const char* method_name) override {
        Note(L"location", hx::ErrorCode(class_name, method_name, L""));
    }
    void OnRootError(At at, std::wstring_view name) override { Note(L"root", name, &at); }
    void OnCascadeError(At at, std::wstring_view name) override { Note(L"cascade", name, &at); }
    void OnDismissedError(At at, std::wstring_view code) override { Note(L"dismissed", code, &at); }
    void OnReturnedError(At at, HRESULT result) override { Note(L"returned", std::to_wstring(result), &at); }
    void OnException(At, const MException&, int32_t) override { ADD_FAILURE() << "no entry point here"; }

    std::vector<std::wstring> notes;

private:
    void Note(std::wstring_view what, std::wstring_view which, const hx::MErrorLocation* at = nullptr) {
        notes.emplace_back(std::wstring(what).append(L" ").append(which));
        if (at != nullptr)
            notes.back() += L" " + std::to_wstring(at->Line()) + (at->Object() == this ? L" here" : L"");
    }
};

TEST(Exceptions, RaisingIsReportedAndCarriesTheCauseFirst) {
    Listener listener;
    hx::MErrorLocation location("C", "M");
    EXPECT_EQ(location.Line(), -1);
    location.Set(&listener, 28);
    std::vector<std::wstring> codes;
    try {
        try {
            hx::Throw(location, hx::MakeError(location, L"First"));
        } catch (const MException& cause) {
            location.Set(nullptr, 30);
            hx::ThrowWithCause(location, cause, hx::MakeCascadeError(location, L"Second"));
        }
    } catch (const MException& exception) {
        codes = Codes(exception);
        hx::Dismiss(location, *exception.GetChain().back());
    }
    EXPECT_EQ(codes, (std::vector<std::wstring>{L"C.M:First", L"C.M:Second"}));
    hx::MErrorCom com(E_FAIL);
    const std::vector<std::wstring> expected = {L"location C.M", L"root First 28 here", L"cascade Second 30",
                                                L"dismissed C.M:Second 30"};
    ASSERT_GE(listener.notes.size(), 5u);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), listener.notes.begin()));
    EXPECT_EQ(listener.notes.back(), L"returned -2147467259 28");
}

}  // namespace
