#include <gtest/gtest.h>

#include "tests/core/xml_tree.h"

namespace {

using namespace std::string_literals;

TEST(XmlParse, SaysWhatIsWrongAndIndexesTheRest) {
    struct Row {
        std::wstring text;
        std::wstring error;
        std::wstring outline;
    };
    const Row rows[] = {
        {L"", L"Empty document", L""},
        {L" \n", L"No root element", L""},
        {L"text", L"No root element", L""},
        {L"<!-- a --><?b?>", L"No root element", L""},
        {L"<a/><b/>", L"Root element has sibling", L"a b"},
        {L"<a></a>\n<b><c/></b>", L"Root element has sibling", L"a b(c)"},
        {L"<r><!x></r>", L"Incorrect ! tag at offset 3", L"r"},
        {L"<r><!></r>", L"Incorrect ! tag at offset 3", L"r"},
        {L"<!doctype r><r/>", L"Incorrect ! tag at offset 0", L"r"},
        {L"<r><!-x--></r>", L"Incorrect comment tag at offset 3", L"r"},
        {L"<r><![x]]></r>", L"Incorrect tag at offset 3", L"r"},
        {L"<r>1 < 2<b/></r>", L"Incorrect tag name character at offset 5", L"r(b)"},
        {L"<r><5>x</5><b/></r>", L"Incorrect tag name character at offset 3", L"r(5 b)"},
        {L"<r><5 b='", L"Incorrect tag name character at offset 3", L"r"},
        {L"<r", L"Element tag at offset 0 unterminated, No root element", L""},
        {L"<r><a b=\">", L"Element tag at offset 3 unterminated", L"r"},
        {L"<r><a <", L"Element tag at offset 3 unterminated", L"r"},
        {L"<r></r", L"Element end tag at offset 3 unterminated", L"r"},
        {L"<r></", L"Element end tag at offset 3 unterminated", L"r"},
        {L"<r><![C", L"CDATA Section at offset 3 unterminated", L"r"},
        {L"<r><![CDATA[<a/>]] >", L"CDATA Section at offset 3 unterminated", L"r"},
        {L"<r><?x >", L"Processing instruction at offset 3 unterminated", L"r"},
        {L"<r><?>", L"Processing instruction at offset 3 unterminated", L"r"},
        {L"<r><!--->", L"Comment at offset 3 unterminated", L"r"},
        {L"<r><!-- -- >", L"Comment at offset 3 unterminated", L"r"},
        {L"<!DOCTYPE a [<!ELEMENT b>]", L"Doctype at offset 0 unterminated, No root element", L""},
        {L"<!DOCTYPE a \">", L"Doctype at offset 0 unterminated, No root element", L""},
        {L"<r><", L"tag at offset 3 unterminated", L"r"},
        {L"<r><!", L"tag at offset 3 unterminated", L"r"},
        {L"<r>", L"Element 'r' at offset 0 not ended", L"r"},
        {L"<r><a><b></r>", L"Element 'b' at offset 6 not ended", L"r(a(b))"},
        {L"<r><a b='c'>", L"Element 'a' at offset 3 not ended", L"r(a)"},
        {L"<r><a><a></a></r>", L"Element 'a' at offset 3 not ended", L"r(a(a))"},
        {L"</a><r/>", L"No start tag for end tag 'a' at offset 0", L"r"},
        {L"<r/></r>", L"No start tag for end tag 'r' at offset 4", L"r"},
        {L"</><r/>", L"No start tag for end tag '' at offset 0", L"r"},
        {L"<r></a x></r>", L"End tag 'a' at offset 3 does not match start tag 'r' at offset 0", L"r"},
        {L"<r></></r>", L"End tag '' at offset 3 does not match start tag 'r' at offset 0", L"r"},
        {L"<r><rr></r></rr></r>", L"Element 'rr' at offset 3 not ended", L"r(rr)"},
        {L"<r></R></r>", L"End tag 'R' at offset 3 does not match start tag 'r' at offset 0", L"r"},
        {L"<r></a></b><!x></r>", L"End tag 'a' at offset 3 does not match start tag 'r' at offset 0", L"r"},
        {L"<r><1/></r><s/>", L"Incorrect tag name character at offset 3, Root element has sibling",
         L"r(1) s"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        hx::MXmlDocument document;
        EXPECT_FALSE(document.Parse(row.text));
        EXPECT_EQ(document.GetError(), row.error);
        EXPECT_EQ(Outline(document), row.outline);
        EXPECT_EQ(document.GetText(), row.text);
    }
}

TEST(XmlParse, TakesEverythingThatIsWellFormed) {
    struct Row {
        std::wstring text;
        std::wstring outline;
        std::wstring root_content;
    };
    const Row rows[] = {
        {L"<a/>", L"a", L""},
        {L"<a></a>", L"a", L""},
        {L"<?xml version=\"1.0\"?>\n<a>\n<b/>\n</a>\n", L"a(b)", L"\n\n"},
        {L"before<a>in</a>behind", L"a", L"in"},
        {L"<a >1</a >", L"a", L"1"},
        {L"<a\tb\n=\r'c' />", L"a", L""},
        {L"<a>it's \"quoted\" > text</a>", L"a", L"it's \"quoted\" > text"},
        {L"<a b='>' c=\"/>\" d='\"'><e f=\"it's\"/></a>", L"a(e)", L""},
        {L"<a b c=d e='f' 'g' =h><i/></a>", L"a(i)", L""},
        {L"<a'b\"c>1<d'/></a'b\"c>", L"a'b\"c(d')", L"1"},
        {L"<a b=\"<c>\" <d/>", L"a", L""},
        {L"<a/b/>", L"a", L""},
        {L"<a>1</a b='>'>", L"a", L"1"},
        {L"<a>1<![CDATA[<b>&lt;]]]]>2<![CDATA[]]></a>", L"a", L"1<b>&lt;]]2"},
        {L"<a><![C]]></a>", L"a", L"C"},
        {L"<a>1<!-- <b> -- -->2<?c <d> ?>3<e>4</e>5</a>", L"a(e)", L"1235"},
        {L"<!DOCTYPE a><a/>", L"a", L""},
        {L"<!DOCTYPE a [<!ENTITY b '>'><!-- >' --><?c >\" ?><!ELEMENT d ANY>]><a/>", L"a", L""},
        {L"<!ELEMENT b ANY><!ATTLIST b c CDATA '>'><!NOTATION d><a/>", L"a", L""},
        {L"<Min Reflectivity type=\"float\">1</Min Reflectivity>", L"Min", L"1"},
        {L"<{/>", L"{", L""},
        {L"<_:/>", L"_:", L""},
        {L"<\u00C4\U0001F600>x</\u00C4\U0001F600>", L"\u00C4\U0001F600", L"x"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        hx::MXmlDocument document;
        EXPECT_TRUE(document.Parse(row.text));
        EXPECT_EQ(document.GetError(), L"");
        EXPECT_TRUE(document.IsReadable());
        EXPECT_EQ(Outline(document), row.outline);
        EXPECT_EQ(document.GetContent(), row.root_content);
    }
}

TEST(XmlParse, OnlyLettersUnderscoreColonAndWhatIsAboveZStartATagName) {
    for (int32_t code = 0; code <= 0x100; ++code) {
        const bool starts = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_' ||
                            code == ':' || code > 'z';
        const bool other_markup = code == '/' || code == '!' || code == '?';
        if (other_markup) continue;
        hx::MXmlDocument document;
        const bool well_formed = document.Parse(L"<r><"s + static_cast<wchar_t>(code) + L"/></r>");
        EXPECT_EQ(well_formed, starts) << code;
        EXPECT_EQ(document.GetError(), starts ? L"" : L"Incorrect tag name character at offset 3") << code;
    }
    hx::MXmlDocument document;
    EXPECT_TRUE(document.Parse({L'<', static_cast<wchar_t>(-1), L'/', L'>'}));
}

TEST(XmlParse, DocumentsWithTransformCellsAreReadable) {
    for (wchar_t row = L'0'; row <= L'4'; ++row) {
        for (wchar_t column = L'0'; column <= L'4'; ++column) {
            const std::wstring name = {row, column};
            hx::MXmlDocument document;
            EXPECT_FALSE(document.Parse(L"<r><" + name + L">1</" + name + L"><" + name + L" a='b'/></r>"));
            EXPECT_EQ(document.IsReadable(), row < L'4' && column < L'4') << row - L'0' << column - L'0';
            EXPECT_EQ(Outline(document), L"r(" + name + L" " + name + L")");
        }
    }
    struct Row {
        const wchar_t* text;
        bool readable;
    };
    const Row rows[] = {
        {L"<r><00/><00/></r>", true}, {L"<r><000/></r>", false},          {L"<r><0/></r>", false},
        {L"<r><00></r>", false},      {L"<r><00/></x></r>", false},       {L"<r><00/><44/></r>", false},
        {L"<r><00/>", false},         {L"<r><00/></r><r/>", false},       {L"<r><44/><00/></r>", false},
        {L"<r><00/><!x></r>", false}, {L"<r><00/>&<![CDATA[</r>", false}, {L"", false},
    };
    for (const Row& row : rows) {
        hx::MXmlDocument document;
        EXPECT_FALSE(document.Parse(row.text));
        EXPECT_EQ(document.IsReadable(), row.readable) << testing::PrintToString(row.text);
    }
}

TEST(XmlParse, NoPrefixOfADocumentIsWellFormed) {
    const std::wstring text =
        L"<?xml version='1.0'?><!DOCTYPE a [<!ENTITY b '>'>]><!-- c --><a d=\"e>\" f>g&amp;<h/><00></00>"
        L"<i j='k'>l<![CDATA[m]]>n</i><?o?></a>";
    for (size_t length = 0; length < text.size(); ++length) {
        hx::MXmlDocument document;
        EXPECT_FALSE(document.Parse(text.substr(0, length))) << length;
        EXPECT_FALSE(document.IsReadable()) << length;
        EXPECT_FALSE(document.GetError().empty()) << length;
        Walk(document, [&] { document.GetContent(); });
        while (document.FindNode(~0u) != 0) document.GetNodeText();
    }
    hx::MXmlDocument document;
    document.Parse(text);
    EXPECT_TRUE(document.IsReadable());
}

TEST(XmlParse, CaseIsIgnoredOnRequest) {
    const std::wstring text = L"<Root Key='v'><a></A><\u00C4a></\u00C4A></rOOT>";
    hx::MXmlDocument strict;
    EXPECT_FALSE(strict.Parse(text));
    hx::MXmlDocument lenient(hx::MXmlDocument::kIgnoreCase);
    EXPECT_TRUE(lenient.Parse(text));
    EXPECT_EQ(Outline(lenient), L"Root(a \u00C4a)");
    EXPECT_FALSE(strict.FindElement(L"root"));
    ASSERT_TRUE(lenient.FindElement(L"ROOT=1"));
    EXPECT_EQ(lenient.GetAttribute(L"kEY"), L"v");
    EXPECT_TRUE(lenient.SetAttribute(L"KEY", L"w"));
    EXPECT_EQ(lenient.GetAttribute(L"Key"), L"w");
    // A stray end tag finds the outer element by the same rule.
    EXPECT_FALSE(lenient.Parse(L"<A><b></x></a>"));
    EXPECT_EQ(lenient.GetError(), L"End tag 'x' at offset 6 does not match start tag 'b' at offset 3");
    EXPECT_FALSE(lenient.Parse(L"<A><b></a>"));
    EXPECT_EQ(lenient.GetError(), L"Element 'b' at offset 3 not ended");
}

}  // namespace
