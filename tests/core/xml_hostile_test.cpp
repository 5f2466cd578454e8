// Texts made to hurt: they must be indexed, walked and read in time, whatever they hold.
#include <gtest/gtest.h>

#include <random>

#include "tests/core/xml_tree.h"

namespace {

std::wstring Repeated(std::wstring_view piece, size_t times) {
    std::wstring text;
    text.reserve(piece.size() * times);
    while (times-- != 0) text += piece;
    return text;
}

// Everything that a reader may ask for.
size_t ReadAll(hx::MXmlDocument& document) {
    size_t elements = 0;
    Walk(document, [&] {
        ++elements;
        document.GetContent();
        document.GetAttribute(L"none");
    });
    document.ResetPosition();
    while (document.FindNode(~0u) != 0) document.GetNodeText();
    return elements;
}

constexpr size_t kMillion = 1'000'000;

struct HostileText {
    const char* name;
    bool well_formed;
    size_t elements;
    std::wstring (*text)();
};

class XmlHostileText : public testing::TestWithParam<HostileText> {};

TEST_P(XmlHostileText, IsIndexedAndReadInTime) {
    hx::MXmlDocument document;
    EXPECT_EQ(document.Parse(GetParam().text()), GetParam().well_formed);
    EXPECT_EQ(ReadAll(document), GetParam().elements);
}

#define TEXT(expression) [] { return std::wstring(expression); }
constexpr HostileText kTexts[] = {
    {"Nested", true, kMillion, TEXT(Repeated(L"<a>", kMillion) + Repeated(L"</a>", kMillion))},
    {"NestedNotEnded", false, kMillion, TEXT(Repeated(L"<a>", kMillion))},
    {"Siblings", true, kMillion + 1, TEXT(L"<r>" + Repeated(L"<a>1</a>", kMillion) + L"</r>")},
    {"Attributes", true, 1, TEXT(L"<r " + Repeated(L"a='1' ", 200'000) + L"/>")},
    {"StrayEndsAgainstOpenElements", false, kMillion,
     TEXT(Repeated(L"<a>", kMillion) + Repeated(L"</b>", kMillion))},
    {"StrayEndsAgainstALongName", false, 1,
     TEXT(L"<" + Repeated(L"a", kMillion) + L">" + Repeated(L"</ab>", kMillion))},
    {"LongStrayEnds", false, 1, TEXT(L"<r>" + Repeated(L"</" + std::wstring(1000, L'b') + L">", 1000))},
    {"EndsOfOuterElements", false, kMillion,
     TEXT(Repeated(L"<a><b>", kMillion / 2) + Repeated(L"</a>", kMillion / 2))},
    {"TagsThatNeverEnd", false, 1, TEXT(L"<r>" + Repeated(L"<a ", kMillion))},
    {"TagsInAQuoteThatNeverEnds", false, 1, TEXT(L"<r>" + Repeated(L"<a \"", kMillion) + L"'")},
    {"EndTagsThatNeverEnd", false, 1, TEXT(L"<r>" + Repeated(L"</a ", kMillion))},
    {"LoneLessThan", false, 1, TEXT(L"<r>" + Repeated(L"<", kMillion) + L"</r>")},
    {"BadMarkup", false, 1, TEXT(L"<r>" + Repeated(L"<!", kMillion) + L"</r>")},
    {"CommentsThatNeverEnd", false, 1, TEXT(L"<r>" + Repeated(L"<!--", kMillion))},
    {"CDataThatNeverEnds", false, 1, TEXT(L"<r>" + Repeated(L"<![CDATA[", kMillion))},
    {"InstructionsThatNeverEnd", false, 1, TEXT(L"<r>" + Repeated(L"<?", kMillion))},
    {"DeclarationsThatNeverEnd", false, 0, TEXT(Repeated(L"<!D", kMillion))},
    {"References", true, 1, TEXT(L"<r>" + Repeated(L"&#0;", kMillion) + Repeated(L"&", kMillion) + L"</r>")},
    {"QuotesInAName", true, 1, TEXT(L"<a" + Repeated(L"'\"", kMillion) + L"/>")},
};
#undef TEXT

INSTANTIATE_TEST_SUITE_P(Million, XmlHostileText, testing::ValuesIn(kTexts),
                         [](const auto& row) { return row.param.name; });

TEST(XmlHostile, DeepDocumentsAreEditedAndForgotten) {
    hx::MXmlDocument document;
    document.Parse(L"<r>" + Repeated(L"<a>", kMillion) + Repeated(L"</a>", kMillion) + L"</r>");
    EXPECT_TRUE(document.FindElement() && document.SetElementContent(L"<b/>"));
    EXPECT_EQ(document.GetText(), L"<r><b/></r>");
    EXPECT_TRUE(document.SetElementContent(Repeated(L"<c>", kMillion) + Repeated(L"</c>", kMillion)));
    EXPECT_LE(document.RecordCount(), kMillion + 10) << "records are used again";
    EXPECT_EQ(ReadAll(document), kMillion + 1);
}

TEST(XmlHostile, AnyCharactersGoThrough) {
    // Embedded NUL, lone surrogates, values that are no characters.
    for (const uint32_t code :
         {0u, 1u, 0xD800u, 0xDFFFu, 0xFFFEu, 0x110000u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        const auto c = static_cast<wchar_t>(code);
        const std::wstring text = std::wstring(L"<a b='") + c + L"'>" + c + L"</a>";
        hx::MXmlDocument document;
        EXPECT_TRUE(document.Parse(text)) << code;
        EXPECT_EQ(document.GetAttribute(L"b"), std::wstring(1, c)) << code;
        EXPECT_EQ(document.GetContent(), std::wstring(1, c)) << code;
        EXPECT_TRUE(document.FindElement() && document.SetAttribute(L"d", std::wstring(1, c)));
        EXPECT_EQ(document.GetAttribute(L"d"), std::wstring(1, c)) << code;
    }
}

TEST(XmlHostile, RandomCharactersAreReadToTheEnd) {
    std::mt19937 random(1);
    const std::wstring_view likely = L"<>\"'/!?-[]CDATA&#;= \nab01";
    for (int round = 0; round < 20'000; ++round) {
        std::wstring text(random() % 100, L'\0');
        for (wchar_t& c : text) {
            c = random() % 20 == 0 ? static_cast<wchar_t>(random()) : likely[random() % likely.size()];
        }
        hx::MXmlDocument document;
        document.Parse(text);
        ReadAll(document);
        document.ResetPosition();
        if (document.FindElement() && document.EnterElement()) {
            document.AddElement(L"n", L"1");
            document.SetAttribute(L"o", L"p");
            document.LeaveElement();
            document.SetAttribute(L"o", L"p");
            document.SetElementContent(text);
            ReadAll(document);
        }
    }
}

}  // namespace
