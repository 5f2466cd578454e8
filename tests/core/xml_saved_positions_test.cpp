#include "tests/core/xml_edit.h"

namespace {

using hx::MXmlDocument;

TEST(XmlSavedPositions, SurviveEditsAndGoWithTheirElements) {
    MXmlDocument document;
    document.Parse(L"<r><a><b/>1</a><c/><!--2--></r>");
    Go(document, L"r/a/b");
    document.SavePosition(L"b");
    ASSERT_EQ(document.FindNode(hx::kTextNode), hx::kTextNode);
    document.SavePosition(L"1");
    Go(document, L"r/c");
    document.SavePosition(L"c");
    ASSERT_EQ(document.FindNode(hx::kCommentNode), hx::kCommentNode);
    document.SavePosition(L"2");
    Go(document, L"r/a");
    document.SavePosition(L"a");

    EXPECT_TRUE(document.SetAttribute(L"long", L"value"));
    Go(document, L"r/a/");
    EXPECT_TRUE(document.AddElement(L"new"));
    EXPECT_TRUE(document.RestorePosition(L"1"));
    EXPECT_EQ(document.GetNodeText(), L"1");
    EXPECT_TRUE(document.RestorePosition(L"2"));
    EXPECT_EQ(document.GetNodeText(), L"2");
    EXPECT_TRUE(document.RestorePosition(L"b"));
    EXPECT_EQ(document.GetTagName(), L"b");

    EXPECT_TRUE(document.RestorePosition(L"a") && document.SetElementContent(L"<x/><y/><z/>"));
    EXPECT_FALSE(document.RestorePosition(L"b")) << "its element is gone";
    EXPECT_FALSE(document.RestorePosition(L"1")) << "its text is gone";
    EXPECT_TRUE(document.RestorePosition(L"c"));
    EXPECT_EQ(document.GetTagName(), L"c");
    EXPECT_TRUE(document.RestorePosition(L"2"));
    EXPECT_EQ(document.GetNodeText(), L"2");
}

TEST(XmlSavedPositions, ASavedTextThatAnElementIsPutIntoStaysText) {
    MXmlDocument document;
    document.Parse(L"<r><a/>\n  <c/></r>");
    Go(document, L"r/a");
    ASSERT_EQ(document.FindNode(hx::kWhiteSpaceNode), hx::kWhiteSpaceNode);
    document.SavePosition();
    Go(document, L"r/a");
    // It goes behind the line break, that is, into the middle of the saved node.
    EXPECT_TRUE(document.AddElement(L"b"));
    if (document.RestorePosition()) {
        EXPECT_EQ(document.GetNodeText().find_first_not_of(L" \n"), std::wstring::npos)
            << testing::PrintToString(document.GetNodeText());
        EXPECT_TRUE(document.AddElement(L"d"));
    }
    ExpectIndexOfText(document);
    MXmlDocument fresh;
    EXPECT_TRUE(fresh.Parse(document.GetText())) << testing::PrintToString(document.GetText());
}

TEST(XmlSavedPositions, ASavedNodeStaysBehindWhatIsPutInFrontOfIt) {
    MXmlDocument document;
    document.Parse(L"<r>x</r>");
    Go(document, L"r/");
    ASSERT_EQ(document.FindNode(hx::kTextNode), hx::kTextNode);
    document.SavePosition();
    Go(document, L"r/");
    EXPECT_TRUE(document.AddElement(L"a"));
    ASSERT_TRUE(document.RestorePosition());
    EXPECT_EQ(document.GetNodeText(), L"x");
    EXPECT_FALSE(document.FindElement()) << "the new element lies in front of the node";
    EXPECT_TRUE(document.RestorePosition() && document.AddElement(L"b"));
    EXPECT_EQ(document.GetText(), L"<r><a/>\nx<b/>\n</r>");
    ExpectIndexOfText(document);
}

}  // namespace
