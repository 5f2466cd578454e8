#include <gtest/gtest.h>

#include "core/xml/AttributeReader.h"
#include "core/xml/XmlNames.h"
#include "tests/core/xml_tree.h"

namespace {

using namespace std::string_literals;

hx::MXmlDocument Parsed(std::wstring text) {
    hx::MXmlDocument document;
    document.Parse(std::move(text));
    return document;
}

TEST(XmlNavigation, RequestsMatchTheWholeTagOrThePartInFrontOfADelimiter) {
    struct Row {
        const wchar_t* tag;
        const wchar_t* request;
        bool matches;
    };
    const Row rows[] = {
        {L"Name", L"Name", true},     {L"NameX", L"Name", false},
        {L"Name", L"NameX", false},   {L"Name", L"Name X", true},
        {L"Name", L"Name=X", true},   {L"Name", L"Name/X", true},
        {L"Name", L"Name[1]", true},  {L"Name", L"Name]", true},
        {L"Name", L"Name\tX", false}, {L"Name", L"Name?", false},
        {L"Name", L"name", false},    {L"a[1]", L"a[1]", true},
        {L"a[1]", L"a[1][2]", true},  {L"a", L"a[1][2]", true},
        {L"a[1]", L"a[2]", false},    {L"Min", L"Min Reflectivity", true},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hx::MatchesRequest(row.tag, row.request, false), row.matches)
            << testing::PrintToString(row.tag) << testing::PrintToString(row.request);
        hx::MXmlDocument document = Parsed(L"<"s + row.tag + L" attr='1'/>");
        EXPECT_EQ(document.FindElement(row.request), row.matches);
    }
}

TEST(XmlNavigation, FindGoesForwardAmongSiblingsAndKeepsThePositionWhenItFails) {
    hx::MXmlDocument document = Parsed(L"<r><a>1<b>2</b></a><b>3</b><a>4</a></r>");
    EXPECT_FALSE(document.FindElement(L"a"));
    EXPECT_FALSE(document.EnterElement()) << "there is no main element yet";
    ASSERT_TRUE(document.FindElement(L"r") && document.EnterElement());
    EXPECT_EQ(document.GetContent(), L"1") << "before any find the first child answers";
    EXPECT_FALSE(document.SetAttribute(L"x", L"y") || document.SetElementContent(L"") ||
                 document.EnterElement());
    ASSERT_TRUE(document.FindElement());
    EXPECT_EQ(document.GetContent(), L"1") << "the first find yields the first child";
    ASSERT_TRUE(document.FindElement(L"a"));
    EXPECT_EQ(document.GetContent(), L"4");
    EXPECT_FALSE(document.FindElement());
    EXPECT_FALSE(document.FindElement(L"b")) << "it does not search backwards";
    EXPECT_EQ(document.GetContent(), L"4");
    EXPECT_TRUE(document.LeaveElement());
    EXPECT_EQ(document.GetTagName(), L"r");
    EXPECT_FALSE(document.FindElement());
    EXPECT_FALSE(document.LeaveElement());
    ASSERT_TRUE(document.EnterElement() && document.FindElement(L"a") && document.EnterElement());
    EXPECT_TRUE(document.FindElement(L"b") && document.EnterElement())
        << "an element without children can be entered";
    EXPECT_TRUE(document.GetTagName().empty() && document.GetContent().empty() &&
                document.StartTag().empty());
    EXPECT_TRUE(document.LeaveElement() && document.LeaveElement() && document.FindElement());
    EXPECT_EQ(document.GetContent(), L"3") << "after leaving, the search goes on behind the element";
    document.ResetPosition();
    EXPECT_EQ(document.GetTagName(), L"r");
}

TEST(XmlNavigation, PositionsAreKeptByName) {
    hx::MXmlDocument document = Parsed(L"<r><a/><b/></r>");
    EXPECT_FALSE(document.RestorePosition());
    document.FindElement();
    document.SavePosition();
    document.EnterElement();
    document.FindElement();
    // "ah" and "ha" have the same sum, and so the same bucket.
    document.SavePosition(L"ah");
    document.FindElement();
    document.SavePosition(L"ha");
    EXPECT_TRUE(document.RestorePosition(L"ah"));
    EXPECT_EQ(document.GetTagName(), L"a");
    EXPECT_TRUE(document.RestorePosition(L"ha"));
    EXPECT_EQ(document.GetTagName(), L"b");
    EXPECT_TRUE(document.RestorePosition());
    EXPECT_EQ(document.GetTagName(), L"r");
    document.SavePosition(L"ah");
    document.RestorePosition(L"ha");
    EXPECT_TRUE(document.RestorePosition(L"ah"));
    EXPECT_EQ(document.GetTagName(), L"r") << "saved anew";
    EXPECT_FALSE(document.RestorePosition(L"h"));
    EXPECT_EQ(document.GetTagName(), L"r");
    document.Parse(L"<x/>");
    EXPECT_FALSE(document.RestorePosition()) << "another text has other positions";
}

struct Node {
    uint32_t kind;
    std::wstring name;
    std::wstring text;
    bool operator==(const Node&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Node& node) {
        return out << node.kind << testing::PrintToString(node.name) << testing::PrintToString(node.text);
    }
};

std::vector<Node> Nodes(hx::MXmlDocument& document, uint32_t kinds = ~0u) {
    std::vector<Node> nodes;
    while (const uint32_t kind = document.FindNode(kinds)) {
        EXPECT_EQ(document.GetNodeKind(), kind);
        nodes.push_back({kind, document.GetTagName(), document.GetNodeText()});
    }
    return nodes;
}

TEST(XmlNavigation, EveryKindOfNodeIsFoundWithItsNameAndText) {
    hx::MXmlDocument document = Parsed(
        L"<?xml v='1'?>\n<!DOCTYPE r [<!ELEMENT r>]><!-- c --><r>a&lt;b<x>in</x><![CDATA[&lt;]]> \n"
        L"</lone z><?pi?><y/>it's</r>tail");
    const std::vector<Node> top = {
        {hx::kInstructionNode, L"xml", L"xml v='1'"},
        {hx::kWhiteSpaceNode, L"#text", L"\n"},
        {hx::kDoctypeNode, L"r", L"<!DOCTYPE r [<!ELEMENT r>]>"},
        {hx::kCommentNode, L"#comment", L" c "},
        {hx::kElementNode, L"r", L"a<b&lt; \nit's"},
        {hx::kTextNode, L"#text", L"tail"},
    };
    EXPECT_EQ(Nodes(document), top);
    const std::vector<Node> inside = {
        {hx::kTextNode, L"#text", L"a<b"},
        {hx::kElementNode, L"x", L"in"},
        {hx::kCDataNode, L"#cdata-section", L"&lt;"},
        {hx::kWhiteSpaceNode, L"#text", L" \n"},
        {hx::kLoneEndTagNode, L"lone", L"lone z"},
        {hx::kInstructionNode, L"pi", L"pi"},
        {hx::kElementNode, L"y", L""},
        {hx::kTextNode, L"#text", L"it's"},
    };
    document.ResetPosition();
    ASSERT_TRUE(document.FindElement(L"r") && document.EnterElement());
    EXPECT_EQ(Nodes(document), inside);
    for (const Node& node : inside) {
        document.LeaveElement();
        document.EnterElement();
        std::vector<Node> same_kind;
        for (const Node& other : inside) {
            if (other.kind == node.kind) same_kind.push_back(other);
        }
        EXPECT_EQ(Nodes(document, node.kind), same_kind);
    }
}

TEST(XmlNavigation, ElementsAreFoundFromOtherNodes) {
    hx::MXmlDocument document = Parsed(L"<r>1<a/>2<b/>3</r>");
    ASSERT_TRUE(document.FindElement() && document.EnterElement());
    EXPECT_EQ(document.FindNode(hx::kTextNode), hx::kTextNode);
    EXPECT_TRUE(document.FindElement());
    EXPECT_EQ(document.GetTagName(), L"a");
    EXPECT_EQ(document.FindNode(hx::kTextNode), hx::kTextNode);
    EXPECT_EQ(document.GetNodeText(), L"2");
    EXPECT_TRUE(document.FindElement());
    EXPECT_EQ(document.GetTagName(), L"b");
    EXPECT_EQ(document.FindNode(hx::kCommentNode), 0u);
    EXPECT_EQ(document.GetTagName(), L"b") << "the position stays";
}

TEST(XmlNavigation, BrokenMarkupIsText) {
    hx::MXmlDocument document = Parsed(L"<r>1 < 2<!x>3<![CDATA[4</r>");
    ASSERT_TRUE(document.FindElement() && document.EnterElement());
    std::wstring text;
    for (const Node& node : Nodes(document, hx::kTextNode)) text += node.text;
    EXPECT_EQ(text, L"1 < 2<!x>3");
    document.LeaveElement();
    EXPECT_EQ(document.GetContent(), L"1 < 2<!x>34</r>");
}

TEST(XmlNavigation, AttributesAreReadFromTheStartTag) {
    struct Row {
        const wchar_t* tag;
        const wchar_t* name;
        const wchar_t* value;
    };
    const Row rows[] = {
        {L"<a b=\"c\"/>", L"b", L"c"},
        {L"<a b='c' b='d'>", L"b", L"c"},
        {L"<a b = 'c'>", L"b", L"c"},
        {L"<a b=c/>", L"b", L"c"},
        {L"<a b=''>", L"b", L""},
        {L"<a b c='d'>", L"b", L""},
        {L"<a b c='d'>", L"c", L"d"},
        {L"<a b c='d'>", L"d", L""},
        {L"<a b='c'd='e'>", L"d", L"e"},
        {L"<a x='b=\"c\"' b='d'>", L"b", L"d"},
        {L"<a 'b=c' b=d>", L"b", L"d"},
        {L"<a b\"c\" d=e>", L"d", L"e"},
        {L"<a'b='c'>", L"a'b", L""},
        {L"<a b='&lt;&#65;&bad; >'>", L"b", L"<A&bad; >"},
        {L"<a b='c'>", L"a", L""},
        {L"<a b='c'>", L"B", L""},
        {L"<a 'c'>", L"", L""},
        {L"<a>", L"b", L""},
        {L"<a\nb\n=\n'c\nd'\n/>", L"b", L"c\nd"},
    };
    for (const Row& row : rows) {
        hx::MXmlDocument document = Parsed(row.tag);
        EXPECT_EQ(document.GetAttribute(row.name), row.value)
            << testing::PrintToString(row.tag) << testing::PrintToString(row.name);
    }
}

TEST(XmlNavigation, AttributesLieWhereTheReaderSays) {
    constexpr std::wstring_view tag = L"<a b='c' d = e 'f' g/>";
    const std::wstring_view expected[] = {L"b='c'", L"d = e", L"'f'", L"g"};
    hx::AttributeReader reader(tag);
    hx::Attribute attribute;
    EXPECT_EQ(reader.Position(), 2u);
    for (const std::wstring_view each : expected) {
        ASSERT_TRUE(reader.Next(attribute));
        EXPECT_EQ(tag.substr(attribute.begin, attribute.end - attribute.begin), each);
        EXPECT_EQ(reader.Position(), attribute.end);
    }
    EXPECT_FALSE(reader.Next(attribute));
    EXPECT_FALSE(reader.Next(attribute));
}

}  // namespace
