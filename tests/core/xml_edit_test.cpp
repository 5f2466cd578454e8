#include <functional>

#include "tests/core/xml_edit.h"

namespace {

using namespace std::string_literals;

using hx::MXmlDocument;

struct EditRow {
    const wchar_t* before;
    const wchar_t* path;
    std::function<bool(MXmlDocument&)> edit;
    const wchar_t* after;  // null: refused, and nothing changed
    const wchar_t* name;   // of the current node afterwards; null: unchanged
};

void Check(const std::vector<EditRow>& rows) {
    for (const EditRow& row : rows) {
        SCOPED_TRACE(&row - rows.data());
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.before)));
        MXmlDocument document;
        document.Parse(row.before);
        Go(document, row.path);
        const std::wstring name_before = document.GetTagName();
        EXPECT_EQ(row.edit(document), row.after != nullptr);
        EXPECT_EQ(document.GetText(), row.after != nullptr ? row.after : row.before);
        EXPECT_EQ(document.GetTagName(), row.name != nullptr ? row.name : name_before);
        ExpectIndexOfText(document);
    }
}

auto Add(std::wstring name, std::wstring data = {}, uint32_t flags = 0, std::wstring attribute = {}) {
    return [=](MXmlDocument& document) { return document.AddElement(name, data, flags, attribute, L"v\""); };
}

TEST(XmlEdit, ElementsAreAddedInEveryForm) {
    Check({
        {L"", L"", Add(L"a"), L"<a/>\n", L"a"},
        {L"", L"", Add(L"a", L"", hx::kAddSpace), L"<a />\n", L"a"},
        {L"", L"", Add(L"a", L"1<2 & \"'"), L"<a>1&lt;2 &amp; \"'</a>\n", L"a"},
        {L"", L"", Add(L"a", L"]]>&", hx::kAddCData), L"<a><![CDATA[]]]]><![CDATA[>&]]></a>\n", L"a"},
        {L"", L"", Add(L"a", L"&lt;&", hx::kAddWithReferences), L"<a>&lt;&amp;</a>\n", L"a"},
        {L"", L"", Add(L"a", L"", 0, L"b"), L"<a b=\"v&quot;\"/>\n", L"a"},
        {L"", L"", Add(L"a", L"1", 0, L"b"), L"<a b=\"v&quot;\">1</a>\n", L"a"},
        {L"", L"", Add(L"a c", L"1", 0, L"b"), L"<a c b=\"v&quot;\">1</a c>\n", L"a"},
        {L"", L"", Add(L"a[1]"), L"<a[1]/>\n", L"a[1]"},
        {L"", L"", Add(L"31", L"1"), L"<31>1</31>\n", L"31"},
    });
}

TEST(XmlEdit, ElementsAreAddedBehindTheCurrentNodeOrAsLastChild) {
    Check({
        {L"<r><a/></r>", L"r/", Add(L"n"), L"<r><n/>\n<a/></r>", L"n"},
        {L"<r>\n<a/></r>", L"r/", Add(L"n"), L"<r>\n<n/>\n<a/></r>", L"n"},
        {L"<r><a/><b/></r>", L"r/a", Add(L"n"), L"<r><a/><n/>\n<b/></r>", L"n"},
        {L"<r><a/>\n<b/></r>", L"r/a", Add(L"n"), L"<r><a/>\n<n/>\n<b/></r>", L"n"},
        {L"<r><a>x</a></r>", L"r/a", Add(L"n", L"1"), L"<r><a>x</a><n>1</n>\n</r>", L"n"},
        {L"<r><a/><b/></r>", L"r", Add(L"n", L"", hx::kAddChild), L"<r><a/><b/><n/>\n</r>", L"n"},
        {L"<r>x</r>", L"r", Add(L"n", L"", hx::kAddChild), L"<r>x<n/>\n</r>", L"n"},
        {L"<r/>", L"r", Add(L"n", L"", hx::kAddChild), L"<r>\n<n/>\n</r>", L"n"},
        {L"<r/>\n", L"r/", Add(L"n"), L"<r>\n<n/>\n</r>\n", L"n"},
        {L"<r a='b' />", L"r/", Add(L"n"), L"<r a='b'>\n<n/>\n</r>", L"n"},
        {L"<r><a b=c/><d/></r>", L"r/a/", Add(L"n"), L"<r><a b=c>\n<n/>\n</a><d/></r>", L"n"},
        {L"<r/>", L"r", Add(L"n"), L"<r/><n/>\n", L"n"},
        {L"<!-- c --><r/>", L"", Add(L"n"), L"<n/>\n<!-- c --><r/>", L"n"},
    });
    // An element whose tag has a slash too many gets an end tag all the same.
    MXmlDocument document;
    document.Parse(L"<r><a//></r>");
    Go(document, L"r/a/");
    EXPECT_TRUE(document.AddElement(L"n"));
    ExpectIndexOfText(document);
}

TEST(XmlEdit, NamesThatCouldNotBeReadAgainAreRefused) {
    for (const wchar_t* name :
         {L"", L" ", L"1", L"44", L"000", L"-a", L"a>", L"a<b", L"a/", L"a\"", L"a'", L"!a"}) {
        Check({{L"<r><a/></r>", L"r/a", Add(name), nullptr, nullptr}});
    }
    for (const wchar_t* name : {L"b c", L"b=", L"b/", L"b>", L"b\"", L"b'", L"<"}) {
        Check({{L"<r><a/></r>", L"r/a", Add(L"n", L"", 0, name), nullptr, nullptr}});
        const auto set = [=](MXmlDocument& document) { return document.SetAttribute(name, L""); };
        Check({{L"<r><a/></r>", L"r/a", set, nullptr, nullptr}});
    }
    Check({{L"<r><a/></r>", L"r/", Add(L"n", L"", hx::kAddChild), nullptr, nullptr}});
}

TEST(XmlEdit, NodesOfEveryKindAreAddedAndBecomeCurrent) {
    const auto node = [](uint32_t kind, std::wstring text) {
        return [=](MXmlDocument& document) {
            const bool added = document.AddNode(kind, text);
            if (added) {
                EXPECT_EQ(document.GetNodeKind(), kind);
                EXPECT_EQ(document.GetNodeText(), kind == hx::kElementNode ? L"" : text);
            }
            return added;
        };
    };
    const wchar_t* const r = L"<r><a/>\n</r>";
    Check({
        {r, L"r/a", node(hx::kElementNode, L"n b='c'"), L"<r><a/>\n<n b='c'/></r>", L"n"},
        {r, L"r/a", node(hx::kTextNode, L"1<2'"), L"<r><a/>1&lt;2'\n</r>", L"#text"},
        {r, L"r/a", node(hx::kWhiteSpaceNode, L" \t"), L"<r><a/> \t\n</r>", L"#text"},
        {r, L"r/a", node(hx::kCDataNode, L"<&]]"), L"<r><a/><![CDATA[<&]]]]>\n</r>", L"#cdata-section"},
        {r, L"r/a", node(hx::kInstructionNode, L"p q?"),
         L"<r><a/>\n<?p q?"
         L"?>\n</r>",
         L"p"},
        {r, L"r/a", node(hx::kCommentNode, L" <b> -"), L"<r><a/>\n<!-- <b> --->\n</r>", L"#comment"},
        {r, L"", node(hx::kDoctypeNode, L"<!DOCTYPE r>"), L"<!DOCTYPE r>\n<r><a/>\n</r>", L"r"},
        {L"<r/>", L"r/", node(hx::kTextNode, L"1"), L"<r>1</r>", L"#text"},
        {L"<r/>", L"r/", node(hx::kCommentNode, L"1"), L"<r>\n<!--1-->\n</r>", L"#comment"},
        {r, L"r/a", node(hx::kElementNode, L""), nullptr, nullptr},
        {r, L"r/a", node(hx::kElementNode, L"1"), nullptr, nullptr},
        {r, L"r/a", node(hx::kElementNode, L"n>"), nullptr, nullptr},
        {r, L"r/a", node(hx::kElementNode, L"n b='"), nullptr, nullptr},
        {r, L"r/a", node(hx::kCDataNode, L"]]>"), nullptr, nullptr},
        {r, L"r/a", node(hx::kInstructionNode, L"?>"), nullptr, nullptr},
        {r, L"r/a", node(hx::kCommentNode, L"a-->"), nullptr, nullptr},
        {r, L"r/a", node(hx::kDoctypeNode, L"<!DOCTYPE"), nullptr, nullptr},
        {r, L"r/a", node(hx::kDoctypeNode, L"<!DOCTYPE r><b/>"), nullptr, nullptr},
        {r, L"r/a", node(hx::kDoctypeNode, L"<!-- r -->"), nullptr, nullptr},
        {r, L"r/a", node(hx::kLoneEndTagNode, L"a"), nullptr, nullptr},
        {r, L"r/a", node(hx::kTextNode | hx::kCommentNode, L"a"), nullptr, nullptr},
    });
}

TEST(XmlEdit, WhatIsAddedOneAfterTheOtherStandsInThatOrder) {
    MXmlDocument document;
    EXPECT_TRUE(document.AddNode(hx::kInstructionNode, L"xml") && document.AddElement(L"r") &&
                document.EnterElement());
    EXPECT_TRUE(document.AddElement(L"a") && document.AddNode(hx::kCommentNode, L"1") &&
                document.AddElement(L"b"));
    EXPECT_TRUE(document.AddNode(hx::kTextNode, L"2") && document.AddNode(hx::kCDataNode, L"3"));
    EXPECT_TRUE(document.AddElement(L"c", L"4") && document.EnterElement() && document.AddElement(L"d"));
    EXPECT_TRUE(document.LeaveElement() && document.AddElement(L"e"));
    EXPECT_EQ(document.GetText(),
              L"<?xml?>\n<r>\n<a/>\n<!--1-->\n<b/>2<![CDATA[3]]>\n<c><d/>\n4</c>\n<e/>\n</r>\n");
    ExpectIndexOfText(document);
}

TEST(XmlEdit, AttributesAreAddedReplacedAndReadBack) {
    struct Row {
        const wchar_t* before;
        const wchar_t* after;
    };
    const Row rows[] = {
        {L"<a/>", L"<a n=\"&lt;&apos;&quot;\"/>"},
        {L"<a />", L"<a n=\"&lt;&apos;&quot;\" />"},
        {L"<a>x</a>", L"<a n=\"&lt;&apos;&quot;\">x</a>"},
        {L"<a b='c' >x</a>", L"<a b='c' n=\"&lt;&apos;&quot;\" >x</a>"},
        {L"<a n='c' d>x</a>", L"<a n=\"&lt;&apos;&quot;\" d>x</a>"},
        {L"<a n d='e'/>", L"<a n=\"&lt;&apos;&quot;\" d='e'/>"},
        {L"<a n = c d/>", L"<a n=\"&lt;&apos;&quot;\" d/>"},
        {L"<a b=c/>", L"<a b=c n=\"&lt;&apos;&quot;\"/>"},
        {L"<a 'n'/>", L"<a 'n' n=\"&lt;&apos;&quot;\"/>"},
        {L"<a b='n=1' n=\"2\" n='3'/>", L"<a b='n=1' n=\"&lt;&apos;&quot;\" n='3'/>"},
        {L"<a//>", L"<a n=\"&lt;&apos;&quot;\"//>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.before)));
        MXmlDocument document;
        document.Parse(L"<r>"s + row.before + L"<z/></r>");
        Go(document, L"r/a");
        EXPECT_TRUE(document.SetAttribute(L"n", L"<'\""));
        EXPECT_EQ(document.GetText(), L"<r>"s + row.after + L"<z/></r>");
        EXPECT_EQ(document.GetAttribute(L"n"), L"<'\"");
        ExpectIndexOfText(document);
    }
    // Behind an attribute whose value is missing the new one must not be taken for it.
    MXmlDocument document;
    document.Parse(L"<a b=/>");
    Go(document, L"a");
    EXPECT_TRUE(document.SetAttribute(L"n", L"v"));
    EXPECT_EQ(document.GetAttribute(L"n"), L"v") << testing::PrintToString(document.GetText());
    EXPECT_EQ(document.GetAttribute(L"b"), L"");
}

TEST(XmlEdit, ContentIsReplacedAndIndexed) {
    const auto content = [](std::wstring markup) {
        return [=](MXmlDocument& document) {
            const bool set = document.SetElementContent(markup);
            EXPECT_EQ(document.GetElementContent(), set ? markup : document.GetElementContent());
            return set;
        };
    };
    Check({
        {L"<r><a>x<b/></a><c/></r>", L"r/a", content(L"1<d e='>'>2</d><f/>"),
         L"<r><a>1<d e='>'>2</d><f/></a><c/></r>", nullptr},
        {L"<r><a>x<b><c/></b></a><c/></r>", L"r/a", content(L""), L"<r><a></a><c/></r>", nullptr},
        {L"<r><a/><c/></r>", L"r/a", content(L"<d/>"), L"<r><a><d/></a><c/></r>", nullptr},
        {L"<r><a b='c' /><c/></r>", L"r/a", content(L"x"), L"<r><a b='c'>x</a><c/></r>", nullptr},
        {L"<r><a/><c/></r>", L"r/a", content(L""), L"<r><a/><c/></r>", nullptr},
        {L"<r><a/></r>", L"r/", content(L"x"), nullptr, nullptr},
        {L"<r><a><b/></a></r>", L"r", content(L"<00>1</00>"), L"<r><00>1</00></r>", nullptr},
    });
}

TEST(XmlEdit, IllFormedContentIsTakenAndTold) {
    struct Row {
        const wchar_t* markup;
        const wchar_t* error;
        const wchar_t* outline;
        bool readable;
    };
    const Row rows[] = {
        {L"<b>", L"Element 'b' at offset 6 not ended", L"r(a(b) z)", false},
        {L"</r>", L"No start tag for end tag 'r' at offset 6", L"r(a z)", false},
        {L"<b/></r><c/>", L"No start tag for end tag 'r' at offset 10", L"r(a(b c) z)", false},
        {L"<b><c></b>", L"Element 'c' at offset 9 not ended", L"r(a(b(c)) z)", false},
        {L"<b x='", L"Element tag at offset 6 unterminated", L"r(a z)", false},
        {L"<!-- ", L"Comment at offset 6 unterminated", L"r(a z)", false},
        {L"<00/>", L"Incorrect tag name character at offset 6", L"r(a(00) z)", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.markup)));
        MXmlDocument document;
        document.Parse(L"<r><a>x<b/></a><z/></r>");
        Go(document, L"r/a");
        EXPECT_TRUE(document.SetElementContent(row.markup));
        EXPECT_EQ(document.GetText(), L"<r><a>"s + row.markup + L"</a><z/></r>");
        EXPECT_EQ(document.GetElementContent(), row.markup);
        EXPECT_EQ(Outline(document), row.outline);
        EXPECT_EQ(document.GetError(), row.error);
        EXPECT_EQ(document.IsReadable(), row.readable);
        EXPECT_TRUE(document.SetElementContent(L"<y/>"));
        EXPECT_EQ(Outline(document), L"r(a(y) z)");
    }
}

}  // namespace
