#include "core/xml/XmlText.h"

#include <gtest/gtest.h>

namespace {

std::wstring Decoded(std::wstring_view text) {
    std::wstring out;
    hx::AppendDecoded(out, text);
    return out;
}

std::wstring Escaped(std::wstring_view text, hx::EscapeSet set, bool keep_references = false) {
    std::wstring out;
    hx::AppendEscaped(out, text, set, keep_references);
    return out;
}

TEST(XmlText, ReferencesThatStandForACharacterAreDecoded) {
    struct Row {
        std::wstring_view text;
        std::wstring_view decoded;
    };
    const Row rows[] = {
        {L"", L""},
        {L"a&lt;b&gt;c&amp;d&apos;e&quot;f", L"a<b>c&d'e\"f"},
        {L"&#65;&#x41;&#0000065;&#x0000041;&#xaB;", L"AAAA\u00AB"},
        {L"&#1114111;&#x10FFFF;&#xFFFF;", L"\U0010FFFF\U0010FFFF\uFFFF"},
        {L"&amp;lt;&amp;#65;", L"&lt;&#65;"},
        {L"&&lt;", L"&<"},
        {L"&#6&#65;5;", L"&#6A5;"},
    };
    for (const Row& row : rows) EXPECT_EQ(Decoded(row.text), row.decoded);
}

TEST(XmlText, WhatIsNoReferenceStaysAsItStands) {
    const std::wstring_view rows[] = {
        L"&",        L"&;",          L"&lt",          L"&LT;",        L"&nbsp;",
        L"& lt;",    L"&#;",         L"&#x;",         L"&#",          L"&#x",
        L"&#65",     L"&#12345678;", L"&#x12345678;", L"&#00000065;", L"&#x00000041;",
        L"&#X41;",   L"&#0;",        L"&#x0;",        L"&#xD800;",    L"&#xDFFF;",
        L"&#55296;", L"&#x110000;",  L"&#1114112;",   L"&#9999999;",  L"&#xFFFFFFF;",
        L"&#-5;",    L"&#+65;",      L"&#6 5;",       L"&#xG;",       L"&#6A;",
    };
    for (const std::wstring_view text : rows) {
        EXPECT_EQ(Decoded(text), text);
        EXPECT_EQ(Decoded(std::wstring(L"<").append(text).append(L"&gt;")),
                  std::wstring(L"<").append(text) + L">");
    }
}

TEST(XmlText, EachPlaceEscapesItsOwnSet) {
    struct Row {
        std::wstring_view text;
        std::wstring_view in_text;
        std::wstring_view in_attribute;
        std::wstring_view with_references;  // in text, "&" kept where it begins a reference
    };
    const Row rows[] = {
        {L"", L"", L"", L""},
        {L"it's \"x\"", L"it's \"x\"", L"it&apos;s &quot;x&quot;", L"it's \"x\""},
        {L"a<b & \"c\">", L"a&lt;b &amp; \"c\"&gt;", L"a&lt;b &amp; &quot;c&quot;&gt;",
         L"a&lt;b &amp; \"c\"&gt;"},
        {L"&lt;", L"&amp;lt;", L"&amp;lt;", L"&lt;"},
        {L"&#65;&#x41;&a.b-c_d:e\u00C4;", L"&amp;#65;&amp;#x41;&amp;a.b-c_d:e\u00C4;",
         L"&amp;#65;&amp;#x41;&amp;a.b-c_d:e\u00C4;", L"&#65;&#x41;&a.b-c_d:e\u00C4;"},
        {L"&&;&#;&a b;&a", L"&amp;&amp;;&amp;#;&amp;a b;&amp;a", L"&amp;&amp;;&amp;#;&amp;a b;&amp;a",
         L"&amp;&amp;;&amp;#;&amp;a b;&amp;a"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Escaped(row.text, hx::EscapeSet::kText), row.in_text);
        EXPECT_EQ(Escaped(row.text, hx::EscapeSet::kAttribute), row.in_attribute);
        EXPECT_EQ(Escaped(row.text, hx::EscapeSet::kText, true), row.with_references);
        EXPECT_EQ(Decoded(row.in_text), row.text);
        EXPECT_EQ(Decoded(row.in_attribute), row.text);
    }
}

TEST(XmlText, CDataIsSplitWhereTheTextWouldEndIt) {
    struct Row {
        std::wstring_view text;
        std::wstring_view cdata;
    };
    const Row rows[] = {
        {L"", L"<![CDATA[]]>"},
        {L"a&<b>", L"<![CDATA[a&<b>]]>"},
        {L"a]]>b", L"<![CDATA[a]]]]><![CDATA[>b]]>"},
        {L"]]>", L"<![CDATA[]]]]><![CDATA[>]]>"},
        {L"]]]>", L"<![CDATA[]]]]]><![CDATA[>]]>"},
        {L"]]", L"<![CDATA[]]]]>"},
        {L"]]>]]>", L"<![CDATA[]]]]><![CDATA[>]]]]><![CDATA[>]]>"},
    };
    for (const Row& row : rows) {
        std::wstring cdata;
        hx::AppendCData(cdata, row.text);
        EXPECT_EQ(cdata, row.cdata);
    }
}

}  // namespace
