// After any sequence of edits, a document's own index equals that of its text parsed anew.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <stdlib.h>

#include "platform/system/utf8.h"
#include "tests/core/xml_tree.h"

namespace {

using hx::MXmlDocument;

// More than the library's usual hundred.
[[maybe_unused]] const int kRuns = setenv("RC_PARAMS", "max_success=2000", 0);

// What is done, and what it is done with.
using Step = std::pair<uint8_t, uint8_t>;

const wchar_t* const kNames[] = {L"a", L"bb", L"c d", L"e[1]", L"longer.name", L"\u00C4"};
const wchar_t* const kTexts[] = {
    L"", L"1", L"<&>'\"", L"]]>", L"\n", L"&lt;&", L"a longer text, longer than most"};
const wchar_t* const kMarkup[] = {L"",
                                  L"text",
                                  L"<x/>",
                                  L"\n<x a='>'>1</x>\n<y><z/></y>\n",
                                  L"<!-- <q> -->",
                                  L"<w/><w></w><w v=u><t><s></s></t></w><![CDATA[<r>]]>"};

std::string DoStep(MXmlDocument& document, Step step) {
    const auto [operation, choice] = step;
    const auto pick = [&, choice = choice](const auto& table) { return table[choice % std::size(table)]; };
    const auto saved = std::wstring(1, static_cast<wchar_t>(L'a' + choice % 3));
    switch (operation % 16) {
        case 0:
            return document.AddElement(pick(kNames), pick(kTexts)) ? "add" : "-";
        case 1:
            return document.AddElement(pick(kNames), pick(kTexts), choice & 15u) ? "add" : "-";
        case 2:
            return document.AddElement(pick(kNames), {}, hx::kAddChild, L"n", pick(kTexts)) ? "child" : "-";
        case 3:
            return document.AddNode(1u << choice % 6, pick(kTexts)) ? "node" : "-";
        case 4:
            return document.AddNode(hx::kElementNode, L"n o='>'") ? "node" : "-";
        case 5:
            return document.SetAttribute(choice % 2 == 0 ? L"n" : L"m", pick(kTexts)) ? "set" : "-";
        case 6:
            return document.SetElementContent(pick(kMarkup)) ? "content" : "-";
        case 7:
            document.ResetPosition();
            return "reset";
        case 8:
            document.SavePosition(saved);
            return "save";
        case 9:
            return document.RestorePosition(saved) ? "restore" : "-";
        case 10:
            return document.LeaveElement() ? "leave" : "-";
        case 11:
            return document.FindNode(choice) != 0 ? "find node" : "-";
        case 12:
        case 13:
            return document.EnterElement() ? "enter" : "-";
        default:
            return document.FindElement() ? "find" : "-";
    }
}

// Nothing that a person could ask of it is answered differently than by a fresh document.
void RequireIndexOfText(MXmlDocument& document) {
    MXmlDocument fresh;
    fresh.Parse(document.GetText());
    std::vector<std::wstring> answers[2];
    for (MXmlDocument* each : {&document, &fresh}) {
        Walk(*each, [&] {
            answers[each == &fresh].push_back(each->GetTagName() + each->GetContent() +
                                              each->GetAttribute(L"n"));
        });
    }
    if (Places(document) != Places(fresh) || answers[0] != answers[1])
        RC_FAIL(hx::ToUtf8(document.GetText()));
}

RC_GTEST_PROP(XmlEditRandom, TheIndexStaysThatOfTheText, (const std::vector<Step>& steps)) {
    MXmlDocument document;
    document.Parse(
        L"<?xml?>\n<root k='v'>\n<one>1<two/></one>\n<three />  text\n<four><five>5</five></four></root>\n");
    document.FindElement();
    document.EnterElement();
    for (const Step& step : steps) {
        const std::wstring before = document.GetText();
        const std::string done = DoStep(document, step);
        RC_LOG(done + "\n");
        const bool refused_unchanged = done != "-" || document.GetText() == before;
        RC_ASSERT(refused_unchanged);
        RequireIndexOfText(document);
        if (done == "set") {
            const bool read_back = document.GetAttribute(step.second % 2 == 0 ? L"n" : L"m") ==
                                   kTexts[step.second % std::size(kTexts)];
            RC_ASSERT(read_back);
        }
    }
}

}  // namespace
