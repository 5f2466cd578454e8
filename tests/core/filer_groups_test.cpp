#include <gtest/gtest.h>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

namespace {

const std::wstring kDeclaration = L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

int32_t ReadInt(hx::IInFilerTagged& filer, std::wstring_view tag) {
    int32_t value = 0;
    filer.Read(tag, value, -1);
    return value;
}

TEST(FilerGroups, ADocumentIsWrittenOneElementALine) {
    hx::MOutFilerTaggedXml writer(L"MFilerTaggedXml", L"urn:<a>");
    EXPECT_TRUE(writer.BeginGroup(L"Settings") && writer.Write(L"Version", uint32_t{3}));
    EXPECT_TRUE(writer.AddComment(L" of a test ") && writer.Write(L"Name", L"Dark & glossy"));
    EXPECT_FALSE(writer.AddComment(L"-->")) << "it would end early";
    EXPECT_TRUE(writer.Write(L"Exposure", 150.0) && writer.BeginGroup(L"Empty") && writer.EndGroup());
    EXPECT_TRUE(writer.Write(L"Enabled", true) && writer.EndGroup());
    EXPECT_FALSE(writer.EndGroup()) << "only the root is open";
    EXPECT_TRUE(writer.Write(L"Last", L""));
    EXPECT_FALSE(writer.Write(L"1", true) || writer.BeginGroup(L"a>") || writer.BeginGroup(L""));
    EXPECT_EQ(writer.GetText(), kDeclaration +
                                    L"<MFilerTaggedXml xmlns=\"urn:&lt;a&gt;\">\n<Settings>\n"
                                    L"<Version type=\"uint\">3</Version>\n<!-- of a test -->\n"
                                    L"<Name type=\"string\">Dark &amp; glossy</Name>\n"
                                    L"<Exposure type=\"float\">1.500000000000000e+02</Exposure>\n<Empty/>\n"
                                    L"<Enabled type=\"bool\">1</Enabled>\n</Settings>\n"
                                    L"<Last type=\"string\"/>\n</MFilerTaggedXml>\n");
    EXPECT_FALSE(writer.TakeText().empty());
    EXPECT_FALSE(writer.Write(L"More", true) || writer.BeginGroup(L"More") || writer.EndGroup())
        << "it is finished";
    EXPECT_EQ(writer.GetText(), L"");
}

TEST(FilerGroups, AReaderOpensWellFormedDocumentsOfItsRootAndNamespace) {
    struct Row {
        std::wstring text;
        const wchar_t* name_space;
        bool opens;
    };
    const std::wstring value = L"<v type='int'>5</v>";
    const Row rows[] = {
        {kDeclaration + L"<R>" + value + L"</R>", L"", true},
        {L"\n<!-- c --><R a='b'>" + value + L"</R>tail", L"", true},
        {L"<R xmlns='urn:a'>" + value + L"</R>", L"", true},
        {L"<R xmlns='urn:a'>" + value + L"</R>", L"urn:a", true},
        {L"<R xmlns='urn:&#97;'>" + value + L"</R>", L"urn:a", true},
        {L"<R xmlns='urn:a'>" + value + L"</R>", L"urn:b", false},
        {L"<R xmlns='urn:a'>" + value + L"</R>", L"URN:A", false},
        {L"<R>" + value + L"</R>", L"urn:a", false},
        {L"<r>" + value + L"</r>", L"", false},
        {L"<S><R>" + value + L"</R></S>", L"", false},
        {L"<R>" + value + L"<00/></R>", L"", true},
        {L"<R>" + value + L"<44/></R>", L"", false},
        {L"<R>" + value + L"</R><R/>", L"", false},
        {L"<R>" + value, L"", false},
        {value, L"", false},
        {L"R", L"", false},
        {L"", L"", false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.text));
        hx::MInFilerTaggedXml strict(row.text, L"R", row.name_space);
        hx::MInFilerTaggedOptionalXml optional(row.text, L"R", row.name_space);
        std::wstring extracted = L"x";
        EXPECT_EQ(ReadInt(strict, L"v"), row.opens ? 5 : -1);
        EXPECT_EQ(ReadInt(optional, L"v"), row.opens ? 5 : -1);
        EXPECT_FALSE(strict.BeginGroup(L"g") || strict.EndGroup() || strict.ExtractGroup(L"g", extracted));
        EXPECT_TRUE(optional.BeginGroup(L"g") && optional.EndGroup() && extracted.empty());
    }
    hx::MOutFilerTaggedXml closed(L"1");
    EXPECT_EQ(closed.GetText(), L"");
    EXPECT_FALSE(closed.Write(L"a", true) || closed.AddComment(L"a") || closed.BeginGroup(L"a") ||
                 closed.EndGroup() || closed.InsertDocument(L"a", L"<a/>"));
    EXPECT_EQ(closed.GetText(), L"");
}

TEST(FilerGroups, AreFoundPastWhateverStandsInFrontOfThem) {
    const std::wstring document =
        L"<R><X type='uint'>1</X><A type='int'>1</A><A type=''><v type='int'>2</v></A>text<Y/><A><v "
        L"type='int'>3</v>"
        L"<A><v type='int'>4</v></A></A><w type='int'>5</w></R>";
    hx::MInFilerTaggedXml strict(document, L"R");
    EXPECT_FALSE(strict.BeginGroup(L"B"));
    EXPECT_EQ(ReadInt(strict, L"A"), -1) << "values are not searched for";
    for (const int32_t expected : {2, 3, 4}) {
        ASSERT_TRUE(strict.BeginGroup(L"A"));
        EXPECT_EQ(ReadInt(strict, L"v"), expected);
        if (expected == 2) {
            EXPECT_FALSE(strict.BeginGroup(L"A")) << "it is not searched for outside of the open group";
            EXPECT_TRUE(strict.EndGroup());
        }
    }
    EXPECT_TRUE(strict.EndGroup() && strict.EndGroup());
    EXPECT_FALSE(strict.BeginGroup(L"A"));
    EXPECT_EQ(ReadInt(strict, L"w"), 5) << "a search that fails keeps the position";
    EXPECT_FALSE(strict.EndGroup()) << "the root stays open";
}

TEST(FilerGroups, InAMissingGroupTheOptionalReaderReadsTheEnclosingLevel) {
    hx::MInFilerTaggedOptionalXml filer(
        L"<R><v type='int'>1</v><w type='int'>2</w><G><x type='int'>3</x></G><y type='int'>4</y></R>", L"R");
    EXPECT_TRUE(filer.BeginGroup(L"None") && filer.BeginGroup(L"Neither"));
    EXPECT_EQ(ReadInt(filer, L"w"), -1);
    EXPECT_EQ(ReadInt(filer, L"v"), 1);
    EXPECT_TRUE(filer.EndGroup());
    EXPECT_EQ(ReadInt(filer, L"w"), 2);
    EXPECT_TRUE(filer.BeginGroup(L"G")) << "found on the enclosing level";
    EXPECT_EQ(ReadInt(filer, L"x"), 3);
    EXPECT_TRUE(filer.EndGroup() && filer.EndGroup());
    EXPECT_EQ(ReadInt(filer, L"y"), 4) << "only what was entered is left";
    EXPECT_TRUE(filer.EndGroup() && filer.EndGroup());
    std::wstring document = L"x";
    EXPECT_FALSE(filer.ExtractGroup(L"G", document));
    EXPECT_EQ(document, L"");
}

TEST(FilerGroups, AGroupIsExtractedAsADocumentAndInsertedAgain) {
    hx::MInFilerTaggedXml reader(
        L"<R><a type='int'>1</a><G type='int'/><G k='v'>\n<b type='int'>2</b>\n<00>&lt;</00>\n</G><G/><c "
        L"type='int'>3</c></R>",
        L"R");
    std::wstring first = L"x";
    EXPECT_TRUE(reader.ExtractGroup(L"G", first));
    EXPECT_EQ(first,
              kDeclaration + L"<MFilerTaggedXml>\n<b type='int'>2</b>\n<00>&lt;</00>\n</MFilerTaggedXml>\n");
    EXPECT_EQ(ReadInt(reader, L"c"), -1) << "another group comes first";
    std::wstring second;
    EXPECT_TRUE(reader.ExtractGroup(L"G", second));
    EXPECT_EQ(second, kDeclaration + L"<MFilerTaggedXml/>\n");
    EXPECT_FALSE(reader.ExtractGroup(L"G", second));
    EXPECT_EQ(second, L"");
    EXPECT_EQ(ReadInt(reader, L"c"), 3) << "reading goes on behind the last extracted group";

    hx::MOutFilerTaggedXml writer(L"R");
    EXPECT_TRUE(writer.InsertDocument(L"G", first) && writer.Write(L"d", true));
    EXPECT_TRUE(writer.InsertDocument(L"H", L"<!-- c --><any>text</any>") &&
                writer.InsertDocument(L"I", L"<any/>"));
    const std::wstring written = writer.GetText();
    for (const wchar_t* document : {L"", L"text", L"<a>", L"<a/><b/>", L"<a><44/></a>", L"<!-- c -->"}) {
        EXPECT_FALSE(writer.InsertDocument(L"J", document)) << testing::PrintToString(std::wstring(document));
    }
    EXPECT_FALSE(writer.InsertDocument(L"1", L"<a/>"));
    EXPECT_EQ(writer.GetText(), written) << "what is refused leaves nothing behind";
    EXPECT_EQ(written, kDeclaration +
                           L"<R>\n<G>\n<b type='int'>2</b>\n<00>&lt;</00>\n</G>\n<d type=\"bool\">1</d>\n"
                           L"<H>text</H>\n<I/>\n</R>\n");
    std::wstring again;
    EXPECT_TRUE(hx::MInFilerTaggedXml(written, L"R").ExtractGroup(L"G", again));
    EXPECT_EQ(again, first);
}

}  // namespace
