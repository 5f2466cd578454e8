// The index of any text equals that of a simple reading of it, and the fast scan equals the plain one.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/xml/ElementIndex.h"
#include "core/xml/MarkupScan.h"
#include "tests/core/xml_tree.h"

namespace {

// The one document type that the texts below hold, so that the reader below need not understand any other.
constexpr std::wstring_view kDoctype = L"<!DOCTYPE a [<!ENTITY b '>'><!-- <c> ' --> <?d <e> ?>]>";

// Reads a text character by character, with a stack: no tape, no fast lane, no counting of names.
class PlainReader {
public:
    explicit PlainReader(std::wstring_view text) : m_text(text) {}

    std::vector<ElementPlace> Read() {
        size_t at = 0;
        while ((at = m_text.find(L'<', at)) != npos) at = Markup(at);
        while (!m_open.empty()) Close(m_text.size());
        return m_places;
    }

private:
    static constexpr size_t npos = std::wstring_view::npos;

    size_t Markup(size_t lt) {
        const std::wstring_view rest = m_text.substr(lt);
        if (rest.starts_with(kDoctype)) return lt + kDoctype.size();
        if (rest.starts_with(L"<!--")) return Behind(L"-->", lt + 4);
        if (rest.starts_with(L"<![C")) return Behind(L"]]>", lt + 4);
        if (rest.starts_with(L"<?")) return Behind(L"?>", lt + 2);
        const bool end_tag = rest.starts_with(L"</");
        if (!end_tag && (rest.size() < 2 || std::wstring_view(L" \t\n\r<>=\\!").find(rest[1]) != npos))
            return lt + 1;
        const std::wstring_view name = Name(lt + (end_tag ? 2 : 1));
        const size_t gt = TagEnd(name);
        if (gt == npos) return npos;
        if (!end_tag) {
            StartTag(lt, gt);
        } else if (IsOpen(name)) {
            while (Name(m_places[m_open.back()].start + 1) != name) Close(lt);
            Close(lt);
        }
        return gt + 1;
    }

    size_t Behind(std::wstring_view terminator, size_t from) const {
        const size_t at = m_text.find(terminator, from);
        return at == npos ? npos : at + terminator.size();
    }

    std::wstring_view Name(size_t from) const {
        return m_text.substr(from, m_text.find_first_of(L" \t\n\r<>=\\/?!", from) - from);
    }

    size_t TagEnd(std::wstring_view name) const {
        wchar_t quote = 0;
        for (auto at = static_cast<size_t>(name.data() + name.size() - m_text.data()); at < m_text.size();
             ++at) {
            const wchar_t c = m_text[at];
            if (quote == 0 && c == L'>') return at;
            if (quote == 0 && (c == L'"' || c == L'\'')) {
                quote = c;
            } else if (c == quote) {
                quote = 0;
            }
        }
        return npos;
    }

    void StartTag(size_t lt, size_t gt) {
        m_places.push_back({static_cast<uint32_t>(m_open.size()) + 1, lt, gt + 1, gt + 1});
        if (m_text[gt - 1] != L'/') m_open.push_back(m_places.size() - 1);
    }

    bool IsOpen(std::wstring_view name) const {
        return std::any_of(m_open.begin(), m_open.end(),
                           [&](size_t open) { return Name(m_places[open].start + 1) == name; });
    }

    void Close(size_t end) {
        m_places[m_open.back()].content_end = end;
        m_open.pop_back();
    }

    std::wstring_view m_text;
    std::vector<ElementPlace> m_places;
    std::vector<size_t> m_open;
};

void ExpectPlainReading(const std::wstring& text) {
    hx::MXmlDocument document;
    document.Parse(text);
    const auto plain = PlainReader(text).Read();
    ASSERT_EQ(Places(document), plain) << testing::PrintToString(text.substr(0, 2000));
}

// What random texts are made of. The first ones are what any writer makes.
const std::wstring kPieces[] = {
    L"<a>",
    L"<a b=c&d e='&'>",
    L"<a>1 &amp; 2</a>",
    L"</a>",
    L"<bb c=\"d\">",
    L"</bb>",
    L"<a type='x'/>",
    L"text",
    L"\n",
    L"<e/>",
    L"<longer.name x=\"\">",
    L"</longer.name>",
    L"<a>1</a>",
    L"<bb f='1' g=\"2\">1</bb>",
    L"<Min Reflectivity type=\"float\">",
    L"</Min Reflectivity>",
    // Oddities that are well-formed, then what is not.
    L"<a b='>' c=\"</a>\">",
    L"<a d=\"it's\" e>",
    L"<a f=g>",
    L"<h i='\"'/>",
    L"<j'k>",
    L"</j'k>",
    L"<j\"=\"k\">",
    L"'",
    L"\"",
    L">",
    L"</a l='>'>",
    L"</a >",
    L"<![CDATA[<a>]]>",
    L"<!--<a>-->",
    L"<?m <a>?>",
    std::wstring(kDoctype),
    L"<n <o>",
    L"</bb",
    L"<",
    L"</",
    L"<p",
    L"<1>",
    L"</1>",
    L"<!q>",
    L"<!-r>",
    L"<![s>",
    L"</>",
    L"=",
    L"/",
    L"<t u=",
    L"<aa>",
    L"</aa>",
    L"<\U0001F600>",
    L"</\U0001F600>",
    L"<v//>",
    L"<w =''>",
    L"<x\"y\">",
    std::wstring(1, L'\0'),
};
constexpr size_t kUsual = 14;

std::wstring RandomText(std::mt19937& random, size_t pieces, unsigned odd_in_1000) {
    std::wstring text;
    for (size_t i = 0; i < pieces; ++i) {
        const bool odd = random() % 1000 < odd_in_1000;
        text += kPieces[odd ? kUsual + random() % (std::size(kPieces) - kUsual) : random() % kUsual];
    }
    return text;
}

TEST(XmlIndex, AnyTextIsIndexedAsAPlainReadingWould) {
    std::mt19937 random(20240229);
    for (int round = 0; round < 20'000; ++round) {
        // From texts that are nearly all oddities to ones with a single oddity among a thousand usual pieces.
        const unsigned odd_in_1000[] = {1000, 300, 50, 1};
        const size_t pieces[] = {8, 20, 60, 1000};
        const int form = round % 100 == 0 ? 3 : round % 3;
        ASSERT_NO_FATAL_FAILURE(
            ExpectPlainReading(RandomText(random, random() % pieces[form], odd_in_1000[form])));
    }
}

// Any construct at any distance from the boundaries between the stretches in which a text is scanned.
TEST(XmlIndex, ConstructsMayLieAnywhere) {
    for (const std::wstring& piece : kPieces) {
        for (const size_t shift : {4060u, 4090u, 4091u, 4092u, 4093u, 4094u, 4095u, 4096u, 8190u, 8191u}) {
            std::wstring text = L"<r>" + std::wstring(shift - 3, L'.') + piece;
            for (int i = 0; i < 60; ++i) text += L"<a b=\"c\">1</a><d><e/></d>";
            ASSERT_NO_FATAL_FAILURE(ExpectPlainReading(text + L"</r>"));
        }
    }
}

// The records lie in segments; elements of every shape at every distance from the boundary.
TEST(XmlIndex, SegmentsChangeNothing) {
    for (size_t shift = 0; shift < 7; ++shift) {
        std::wstring text = L"<r>";
        for (size_t i = 0; i < shift; ++i) text += L"<s/>";
        while (text.size() < 600'000) text += L"<a><b>1</b><c/><d><e></e></d></a>";
        text += L"</r>";
        hx::MXmlDocument document;
        EXPECT_TRUE(document.Parse(text));
        EXPECT_GT(document.RecordCount(), hx::ElementIndex::kSegmentSize + 1000);
        EXPECT_LE(document.IndexBytes(), 40u * document.RecordCount());
        ASSERT_TRUE(Places(document) == PlainReader(text).Read()) << shift;
    }
}

TEST(MarkupScan, FastAndPlainGiveTheSamePositions) {
    std::mt19937 random(64);
    // Markup, its neighbours, and characters whose low bytes are markup.
    const int64_t alphabet[] = {'<',    '>',     '"',    '\'',   ' ',        'a',        0,        '=',
                                0x13C,  0x13E,   0x222,  0x2700, 0x1003C,    0x3C00,     0x3C0000, 0x3C000000,
                                0xFFFF, 0x10022, 0x7FFF, 0x8000, 0xFFFFFFFF, 0xFFFFFF3C, 0x800027, 0x8000003C,
                                0x7F,   0x80,    0xFF,   0xBC,   0x7FFFFFFF, 0x80000000, '<',      '>'};
    std::vector<wchar_t> text(300);
    for (int round = 0; round < 200; ++round) {
        for (wchar_t& c : text) c = static_cast<wchar_t>(alphabet[random() % std::size(alphabet)]);
        for (uint32_t from = 0; from < 70; from += 1 + static_cast<uint32_t>(random() % 5)) {
            for (uint32_t to = from; to <= text.size(); to += 1 + static_cast<uint32_t>(random() % 3)) {
                std::vector<uint32_t> expected;
                for (uint32_t at = from; at < to; ++at) {
                    const wchar_t c = text[at];
                    if (c == L'<' || c == L'>' || c == L'"' || c == L'\'') expected.push_back(at);
                }
                for (const hx::MarkupScan scan : {&hx::ScanMarkupPlain, hx::FastestMarkupScan()}) {
                    std::vector<uint32_t> positions(to - from + hx::kScanSlack);
                    positions.resize(scan(text.data(), from, to, positions.data()));
                    ASSERT_EQ(positions, expected) << from << ".." << to;
                }
            }
        }
    }
}

}  // namespace
