// Reading a number takes no memory, in whatever way its element is written, and reading a text only that of
// the text.
#include <gtest/gtest.h>

#include "bench/allocations.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"

namespace hx {
namespace {

struct Reading {
    const char* what;
    const wchar_t* element;
    bool found;
};

template <class T>
void ExpectNoAllocation(const Reading& reading, const T& expected) {
    MInFilerTaggedXml filer(L"<MFilerTaggedXml>" + std::wstring(reading.element) + L"</MFilerTaggedXml>",
                            kTaggedXmlRoot);
    T value{};
    const T fallback{};
    const size_t before = bench::Allocations();
    const bool found = filer.Read(L"Exposure", value, fallback);
    EXPECT_EQ(bench::Allocations() - before, 0u) << reading.what;
    EXPECT_EQ(found, reading.found) << reading.what;
    EXPECT_EQ(value, found ? expected : fallback) << reading.what;
}

TEST(FilerAllocations, NoneForANumber) {
    const Reading kReadings[] = {
        {"as written", LR"(<Exposure type="float">1.5</Exposure>)", true},
        {"other quotes", LR"(<Exposure type='float'>1.5</Exposure>)", true},
        {"blanks", LR"(<Exposure  type = "float" >  1.5  </Exposure>)", true},
        {"other attributes", LR"(<Exposure unit="us" type="float">1.5</Exposure>)", true},
        {"sign", LR"(<Exposure type="float">+1.500000000000000e+00</Exposure>)", true},
        {"hexadecimal", LR"(<Exposure type="float">0x1.80000000000000p+0</Exposure>)", true},
        {"many digits",
         LR"(<Exposure type="float">1.500000000000000000000000000000000000000000000000000000</Exposure>)",
         true},
        {"no number", LR"(<Exposure type="float">a little more than nothing</Exposure>)", false},
        {"other type", LR"(<Exposure type="integer">1</Exposure>)", false},
        {"other name", LR"(<Expository type="float">1.5</Expository>)", false},
        {"empty", LR"(<Exposure type="float"/>)", false},
    };
    for (const Reading& reading : kReadings) ExpectNoAllocation(reading, 1.5);
}

TEST(FilerAllocations, NoneForAnEmptyText) {
    const Reading kReadings[] = {
        {"as written", LR"(<Exposure type="string"/>)", true},
        {"with an end tag", LR"(<Exposure type="string"></Exposure>)", true},
        {"with a blank", LR"(<Exposure type="string" />)", true},
    };
    for (const Reading& reading : kReadings) ExpectNoAllocation(reading, std::wstring());
}

}  // namespace
}  // namespace hx
