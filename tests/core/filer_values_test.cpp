// Every value type: how it is written, what of it can be read, and what the readers do about the rest.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

namespace {

std::wstring Element(std::wstring_view word, std::wstring_view text) {
    std::wstring element = std::wstring(L"<v type=\"").append(word);
    if (text.empty()) return element + L"\"/>";
    return element.append(L"\">").append(text).append(L"</v>");
}

template <class T>
bool Same(T left, T right) {
    if constexpr (std::is_floating_point_v<T>) {
        return std::isnan(left) ? std::isnan(right)
                                : left == right && std::signbit(left) == std::signbit(right);
    } else {
        return left == right;
    }
}

// A fallback that no row uses.
template <class T>
T Fallback() {
    if constexpr (std::is_same_v<T, std::wstring>) return L"fallback";
    if constexpr (std::is_same_v<T, bool>) return false;
    if constexpr (std::is_arithmetic_v<T> && !std::is_same_v<T, bool>) return static_cast<T>(99);
    return {};
}

// Reads one element "v" with both readers; `taken` says whether it was consumed.
template <class T>
void ExpectRead(const std::wstring& element, bool read, bool taken, T expected, T fallback) {
    SCOPED_TRACE(testing::PrintToString(element));
    const std::wstring document = L"<R>\n" + element + L"\n<next type=\"bool\">1</next>\n</R>\n";
    hx::MInFilerTaggedXml strict(document, L"R");
    hx::MInFilerTaggedOptionalXml optional(document, L"R");
    for (const auto& [filer, result] :
         {std::pair<hx::IInFilerTagged*, bool>{&strict, read}, {&optional, true}}) {
        T value{};
        EXPECT_EQ(filer->Read(L"v", value, fallback), result);
        EXPECT_TRUE(Same(value, read ? expected : fallback)) << testing::PrintToString(value);
        bool next = false;
        filer->Read(L"next", next, false);
        EXPECT_EQ(next, taken);
    }
}

struct Row {
    std::string name;
    std::function<void()> check;
};

void CheckAll(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        row.check();
    }
}

// Written as `text` under `word`, and read back as `back`.
template <class T>
Row Written(std::string name, T value, std::wstring word, std::wstring text, T back) {
    return {name, [=] {
                hx::MOutFilerTaggedXml writer(L"R");
                EXPECT_TRUE(writer.Write(L"v", value));
                EXPECT_EQ(writer.GetText(), L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<R>\n" +
                                                Element(word, text) + L"\n</R>\n");
                ExpectRead<T>(Element(word, text), true, true, back, Fallback<T>());
                ExpectRead<T>(L"<v a='b' type = '" + word + L"' >" + text + L"</v >", true, true, back,
                              Fallback<T>());
                // Any other type's word, or none, leaves the element to the next read.
                for (const wchar_t* other : {L"string", L"char", L"byte", L"uint", L"int", L"float", L"bool",
                                             L"Uint", L"", L"uint8", L" int"}) {
                    if (other != word) ExpectRead<T>(Element(other, text), false, false, back, Fallback<T>());
                }
                ExpectRead<T>(L"<v>" + text + L"</v>", false, false, back, Fallback<T>());
                ExpectRead<T>(L"<V type='" + word + L"'>" + text + L"</V>", false, false, back,
                              Fallback<T>());
            }};
}

template <class T>
Row Written(std::string name, T value, std::wstring word, std::wstring text) {
    return Written<T>(name, value, word, text, value);
}

TEST(FilerValues, AreWrittenAndReadBack) {
    using F = std::numeric_limits<float>;
    using D = std::numeric_limits<double>;
    CheckAll({
        Written<std::wstring>("string", L"Dark & <glossy> \"it's\"", L"string",
                              L"Dark &amp; &lt;glossy&gt; \"it's\""),
        Written<std::wstring>("empty string", L"", L"string", L""),
        Written<std::wstring>("white space", L" \n\t", L"string", L" \n\t"),
        Written<std::wstring>("reference", L"&#65;", L"string", L"&amp;#65;"),
        Written<char>("char", 'x', L"char", L"x"),
        Written<char>("blank", ' ', L"char", L" "),
        Written<char>("escaped char", '<', L"char", L"&lt;"),
        Written<char>("char above 7F", '\xE4', L"char", L"\u00E4"),
        Written<char>("NUL", '\0', L"char", std::wstring(1, L'\0')),
        Written<uint8_t>("byte", 255, L"byte", L"255"),
        Written<uint16_t>("uint16", 65535, L"uint", L"65535"),
        Written<int16_t>("int16", -32768, L"int", L"-32768"),
        Written<uint32_t>("uint32", 4294967295, L"uint", L"4294967295"),
        Written<int32_t>("int32", std::numeric_limits<int32_t>::min(), L"int", L"-2147483648"),
        Written<uint64_t>("uint64", 18446744073709551615u, L"uint", L"18446744073709551615"),
        Written<bool>("true", true, L"bool", L"1"),
        Written<bool>("false", false, L"bool", L"0"),
        Written<double>("0.1", 0.1, L"float", L"1.000000000000000e-01"),
        Written<double>("150", 150, L"float", L"1.500000000000000e+02"),
        Written<double>("-0", -0.0, L"float", L"-0.000000000000000e+00"),
        Written<double>("infinity", -D::infinity(), L"float", L"-inf"),
        Written<double>("NaN", D::quiet_NaN(), L"float", L"nan"),
        // Sixteen digits do not carry every double.
        Written<double>("0.1 + 0.2", 0.1 + 0.2, L"float", L"3.000000000000000e-01", 0.3),
        Written<double>("largest", D::max(), L"float", L"1.797693134862316e+308", D::infinity()),
        Written<double>("smallest", D::denorm_min(), L"float", L"4.940656458412465e-324"),
        Written<float>("0.1f", 0.1f, L"float", L"1.00000001e-01"),
        Written<float>("largest float", F::max(), L"float", L"3.40282347e+38"),
        Written<float>("smallest float", F::denorm_min(), L"float", L"1.40129846e-45"),
    });
}

// An element of the right type is taken whatever its text is.
template <class T>
Row Good(std::wstring text, T expected, std::wstring word) {
    return {"", [=] { ExpectRead<T>(Element(word, text), true, true, expected, Fallback<T>()); }};
}

template <class T>
Row Bad(std::wstring text, std::wstring word) {
    return {"", [=] { ExpectRead<T>(Element(word, text), false, true, T{}, Fallback<T>()); }};
}

TEST(FilerValues, TextThatIsNoSuchValueIsConsumedAndLeavesTheFallback) {
    CheckAll({
        Good<int32_t>(L" 12abc", 12, L"int"),
        Good<int32_t>(L"0x10", 0, L"int"),
        Good<int32_t>(L"010", 10, L"int"),
        Good<int32_t>(L"+5", 5, L"int"),
        Good<int32_t>(L"&#53;<!-- c -->5<b/>", 55, L"int"),
        Good<int32_t>(L"<![CDATA[7]]>", 7, L"int"),
        Bad<int32_t>(L"abc", L"int"),
        Bad<int32_t>(L"", L"int"),
        Bad<int32_t>(L"<![CDATA[&#53;]]>", L"int"),
        Bad<int32_t>(L"2147483648", L"int"),
        Bad<int16_t>(L"-32769", L"int"),
        Good<uint16_t>(L"-1", 65535, L"uint"),
        Good<uint32_t>(L"-1", 4294967295, L"uint"),
        Bad<uint16_t>(L"65536", L"uint"),
        Bad<uint64_t>(L"18446744073709551616", L"uint"),
        Good<uint8_t>(L"300", 44, L"byte"),
        Good<uint8_t>(L"-1", 255, L"byte"),
        Bad<uint8_t>(L"70000", L"byte"),
        Good<bool>(L"2", true, L"bool"),
        Good<bool>(L"256", true, L"bool"),
        Bad<bool>(L"true", L"bool"),
        Bad<bool>(L"65536", L"bool"),
        Good<char>(L"xyz", 'x', L"char"),
        Good<char>(L"\u0141", 'A', L"char"),
        Bad<char>(L"", L"char"),
        Good<double>(L" +1.5 ", 1.5, L"float"),
        Good<double>(L"0x10", 16, L"float"),
        Good<double>(L"1e999", std::numeric_limits<double>::infinity(), L"float"),
        Bad<double>(L"1,5", L"float"),
        Bad<double>(L"1.5x", L"float"),
        Bad<double>(L" ", L"float"),
        Good<float>(L"1e39", std::numeric_limits<float>::infinity(), L"float"),
        Bad<float>(L"1.5x", L"float"),
        Good<std::wstring>(L"a<b>c</b><![CDATA[&lt;]]>&lt;", L"a&lt;<", L"string"),
    });
}

TEST(FilerValues, AreReadInTheOrderInWhichTheyWereWritten) {
    const std::wstring document =
        L"<R>text<a type='int'>1</a><!-- c --><X type='int'>2</X><b type='int'>3</b></R>";
    hx::MInFilerTaggedXml strict(document, L"R");
    hx::MInFilerTaggedOptionalXml optional(document, L"R");
    int32_t value = 0;
    EXPECT_FALSE(strict.Read(L"b", value, 7));
    EXPECT_EQ(value, 7);
    EXPECT_TRUE(strict.Read(L"a", value, 7));
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(strict.Read(L"b", value, 7)) << "an unexpected element stops every later value";
    EXPECT_FALSE(strict.Read(L"b", value, 7));
    EXPECT_TRUE(strict.Read(L"X", value, 7));
    EXPECT_TRUE(strict.Read(L"b", value, 7));
    EXPECT_EQ(value, 3);
    EXPECT_FALSE(strict.Read(L"b", value, 7)) << "there are no more";
    for (const int32_t expected : {1, 7, 7}) {
        EXPECT_TRUE(optional.Read(expected == 1 ? L"a" : L"b", value, 7));
        EXPECT_EQ(value, expected);
    }
}

// Names that are more than a tag: the tag and what makes its element different stay together.
TEST(FilerValues, NamesMayHoldABlank) {
    hx::MOutFilerTaggedXml writer(L"R");
    EXPECT_TRUE(writer.Write(L"Min Reflectivity", 0.5f) && writer.Write(L"Max Reflectivity", L""));
    EXPECT_EQ(writer.GetText(),
              L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<R>\n"
              L"<Min Reflectivity type=\"float\">5.00000000e-01</Min Reflectivity>\n"
              L"<Max Reflectivity type=\"string\"/>\n</R>\n");
    EXPECT_TRUE(writer.BeginGroup(L"Some Group") && writer.Write(L"c[1]", 'c') && writer.EndGroup());
    hx::MInFilerTaggedXml reader(writer.TakeText(), L"R");
    float number = 0;
    std::wstring text = L"x";
    char c = 0;
    EXPECT_TRUE(reader.Read(L"Min Reflectivity", number, 1.0f) &&
                reader.Read(L"Max Reflectivity", text, L"y"));
    EXPECT_TRUE(reader.BeginGroup(L"Some Group") && reader.Read(L"c[1]", c, 'x') && reader.EndGroup());
    EXPECT_TRUE(number == 0.5f && text.empty() && c == 'c');
}

}  // namespace
