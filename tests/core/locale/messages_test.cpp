// What the user reads of an exception.
#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "core/errors/MErrorLocation.h"
#include "core/locale/MResourceLocale.h"
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterResource.h"
#include "core/messages/MMatchingRule.h"

namespace {

using hx::MError;
using hx::MErrorFormatter;
using hx::MErrorFormatterMapped;
using hx::MErrorMessageTrivial;
using hx::MException;

// A record of a failed call, with what the other side said of it.
class Described : public MError {
public:
    explicit Described(std::wstring description) : MError(L"Call"), m_description(std::move(description)) {}
    std::unique_ptr<hx::MDynObject> Clone() const override { return std::make_unique<Described>(*this); }
    std::wstring GetDescription() const override { return m_description; }

private:
    std::wstring m_description;
};

MError Record(std::wstring code, const std::map<std::wstring, std::wstring>& parameters = {}) {
    MError error(std::move(code));
    for (const auto& [name, value] : parameters) error.AddParameter(name, value);
    return error;
}

MException Chain(const std::vector<std::wstring>& codes) {
    MException exception;
    for (const std::wstring& code : codes) exception.Append(Record(code, {{code, L"p" + code}}));
    return exception;
}

auto Text(std::wstring text) {
    return std::make_unique<MErrorMessageTrivial>(std::move(text));
}

TEST(Messages, AMappedRuleScoresWhatItFinds) {
    MErrorFormatterMapped rule;
    rule.AddMessage(L"a", L"", Text(L"oldest a"));
    rule.AddMessage(L"b", L"c", Text(L"b then c"));
    rule.AddMessage(L"d", L"c", Text(L"d then c"));
    rule.AddMessage(L"", L"c", Text(L"some c"));
    rule.AddMessage(L"", L"e", Text(L"some e"));
    rule.AddMessage(L"", L"a", Text(L"replaced"));
    rule.AddMessage(L"", L"a", Text(L"some a"));
    struct Row {
        std::vector<std::wstring> codes;  // oldest first
        uint32_t score;
        const wchar_t* text;
        std::set<std::wstring> parameters;
    };
    const Row rows[] = {
        {{L"a"}, 2000, L"oldest a", {L"a"}},
        {{L"a", L"b", L"c"}, 2000, L"oldest a", {L"a"}},
        {{L"x", L"a"}, 1000, L"some a", {L"a"}},
        {{L"b", L"x", L"c"}, 1500, L"b then c", {L"b", L"c"}},
        {{L"b", L"d", L"c"}, 1500, L"d then c", {L"d", L"c"}},  // the newer of the older ones
        {{L"c", L"b"}, 0, nullptr, {}},                         // not in this order
        {{L"x", L"e", L"c"}, 1000, L"some c", {L"c"}},          // the newest
        {{L"c"}, 0, nullptr, {}},                               // the oldest is no newer one
        {{L"", L"c"}, 1000, L"some c", {L"c"}},
        {{L""}, 0, nullptr, {}},
        {{}, 0, nullptr, {}},
    };
    for (const bool has_default : {false, true}) {
        if (has_default) rule.SetDefault(Text(L"default"));
        for (const Row& row : rows) {
            SCOPED_TRACE(testing::PrintToString(row.codes));
            const auto found = rule.Match(Chain(row.codes).GetChain());
            EXPECT_EQ(found.score, row.score == 0 && has_default ? 1 : row.score);
            EXPECT_EQ(found.message ? found.message->GetText() : L"", row.text      ? row.text
                                                                      : has_default ? L"default"
                                                                                    : L"");
            std::set<std::wstring> names;
            for (const auto& [name, value] : found.parameters) names.insert(name);
            EXPECT_EQ(names, row.parameters);
            EXPECT_EQ(found.records.size(), row.parameters.size());
        }
    }
}

TEST(Messages, PlaceholdersAreReplacedInTheOrderOfTheirNames) {
    struct Row {
        const wchar_t* text;
        MError::Parameters parameters;
        const wchar_t* expected;
    };
    const Row rows[] = {
        {L"${a}${a}${b}", {{L"a", L"x"}}, L"xx${b}"},
        {L"${a}", {{L"a", L"${a}"}}, L"${a}"},             // what was inserted is not searched again,
        {L"${a}", {{L"a", L"${b}"}, {L"b", L"x"}}, L"x"},  // but by the names that follow
        {L"${b}", {{L"a", L"x"}, {L"b", L"${a}"}}, L"${a}"},
        {L"$ {a} ${a ${} ${A}", {{L"a", L"x"}}, L"$ {a} ${a ${} ${A}"},
        {L"${${a}}", {{L"a", L"b"}, {L"b", L"x"}}, L"x"},
        {L"${}", {{L"", L"empty"}}, L"empty"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(MErrorFormatter::FormatMessage(MErrorMessageTrivial(row.text), row.parameters),
                  row.expected);
    }
}

// A description comes from another component, and need not be well meant.
TEST(Messages, ValuesThatDoubleEachOtherEndAtTheLongestMessage) {
    MError::Parameters parameters;
    for (wchar_t name = L'a'; name < L'z'; ++name) {
        const std::wstring next = L"${" + std::wstring(1, static_cast<wchar_t>(name + 1)) + L"}";
        parameters[std::wstring(1, name)] = next + next;
    }
    parameters[L"z"] = L"0123456789";
    const std::wstring text = MErrorFormatter::FormatMessage(MErrorMessageTrivial(L"${a}"), parameters);
    EXPECT_GT(text.size(), 60000u);
    EXPECT_LE(text.size(), 65536u);
}

TEST(Messages, TheBestRuleWinsAndOfEqualOnesTheFirst) {
    MErrorFormatterMapped first, second, better;
    first.AddMessage(L"", L"a", Text(L"first"));
    second.AddMessage(L"", L"a", Text(L"second"));
    better.AddMessage(L"x", L"", Text(L"better ${x}"));
    MErrorFormatter formatter;
    const MException exception = Chain({L"x", L"a"});
    EXPECT_EQ(formatter.Format(exception).message, MErrorFormatter::kNoDescription);
    EXPECT_EQ(formatter.Format(exception).score, 0u);
    EXPECT_EQ(formatter.Format(exception).chain_document.find(L"MatchingRule"), std::wstring::npos);
    for (const auto* rule : {&first, &second, &first}) formatter.AddRule(*rule);
    EXPECT_EQ(formatter.Format(exception).message, L"first");
    formatter.AddRule(better);
    const auto formatted = formatter.Format(exception);
    EXPECT_EQ(formatted.message, L"better px");
    EXPECT_EQ(formatted.error_codes, L"a ($a=\"pa\")\nx ($x=\"px\")");
    EXPECT_EQ(formatted.score, 2000u);
}

TEST(Messages, TheOtherSidesMessageTravelsWithTheChain) {
    MErrorFormatterMapped german;
    german.AddMessage(L"x", L"", Text(L"Fehler in ${x}"));
    MErrorFormatter there;
    there.AddRule(german);
    const auto sent = there.Format(Chain({L"x", L"y"}));

    const MException received{Described(sent.chain_document)};
    MErrorFormatter here;
    const auto shown = here.Format(received);
    EXPECT_EQ(shown.message, L"Fehler in px") << "in the words of the process where it arose";
    EXPECT_EQ(shown.score, 500u);
    EXPECT_EQ(shown.error_codes, L"Call ()\n" + sent.error_codes);
    EXPECT_EQ(here.Format(MException{Described(shown.chain_document)}).message, shown.message)
        << "through a third process";

    MErrorFormatterMapped english;
    english.AddMessage(L"", L"y", Text(L"error in ${y}"));
    here.AddRule(english);
    EXPECT_EQ(here.Format(received).message, L"error in py") << "own words go before others'";
}

TEST(Messages, OlderDescriptionsServeWhenNewerOnesHaveNoMessage) {
    const std::wstring good =
        L"<ExceptionChain><MatchingRule><Error><Code type='string'>r</Code><Parameter><Name "
        L"type='string'>n</Name>"
        L"<Value type='string'>${n}1</Value></Parameter></Error><Message type='string'>at "
        L"${n}</Message></MatchingRule>"
        L"</ExceptionChain>";
    const std::wstring bad[] = {
        L"text",
        L"<ExceptionChain/>",
        L"<Other><MatchingRule><Message type='string'>m</Message></MatchingRule></Other>",
        L"<ExceptionChain><MatchingRule/></ExceptionChain>",
        L"<ExceptionChain><MatchingRule><Message type='uint'>1</Message></MatchingRule></ExceptionChain>",
        good.substr(0, good.size() - 1)};
    for (const std::wstring& newer : bad) {
        MException exception;
        exception.Append(Described(newer));
        EXPECT_EQ(MErrorFormatter().Format(exception).score, 0u) << testing::PrintToString(newer);
        MException with_older;
        with_older.Append(Described(good));
        with_older.Append(Described(newer));
        EXPECT_EQ(MErrorFormatter().Format(with_older).message, L"at ${n}1")
            << "a value is replaced once more";
    }
}

TEST(Messages, RegisteredErrorsReadInTheLanguageInUse) {
    MErrorFormatter formatter;
    static hx::MErrorLocation location("MLaserProfileSettings", "ValidateProfileName");
    MError error = hx::MakeError(location, L"ProfileNameContains");
    error.AddParameter(L"invalidCharacter", L"/");
    const MException exception(error);
    EXPECT_EQ(formatter.Format(exception).score, 0u) << "until a dialog adds the rule";
    formatter.AddRule(hx::MErrorFormatterResource::Get());
    EXPECT_EQ(formatter.Format(exception).message,
              L"The profile name cannot contain '/'.\nChoose a different name for the new profile.");
    hx::Resources german;
    german.strings[1005] = L"Kein ${invalidCharacter}!";
    hx::MResourceLocale::ExchangeResourceModule(std::make_shared<hx::ResourceModule>(L"/de", german));
    EXPECT_EQ(formatter.Format(exception).message, L"Kein /!");
    hx::MResourceLocale::ExchangeResourceModule(
        std::make_shared<hx::ResourceModule>(L"/fr", hx::Resources()));
    EXPECT_THROW(formatter.Format(exception), MException) << "no other module steps in";
    hx::MResourceLocale::ExchangeResourceModule(nullptr);
}

}  // namespace
