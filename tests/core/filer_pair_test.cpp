#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <stdexcept>

#include "core/filer/MFilerTaggedPair.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/records/InGroup.h"

namespace {

using namespace std::string_literals;

// One record's function, both ways.
bool Exchange(hx::MFilerTaggedPair filer, int32_t& number, std::wstring& text) {
    bool good = filer.BeginGroup(L"G");
    good &= filer.Exchange(L"number", number, 7);
    good &= filer.Exchange(L"text", text, L"fallback"s);
    return filer.EndGroup() && good;
}

TEST(FilerPair, ForwardsToTheFilersThatItHas) {
    hx::MOutFilerTaggedXml writer(L"R");
    int32_t number = 1;
    std::wstring text = L"a";
    EXPECT_TRUE(Exchange(writer, number, text));
    const std::wstring document = writer.GetText();
    EXPECT_EQ(document,
              L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              L"<R>\n<G>\n<number type=\"int\">1</number>\n<text type=\"string\">a</text>\n</G>\n</R>\n");

    number = 0;
    text.clear();
    hx::MInFilerTaggedXml reader(document, L"R");
    EXPECT_TRUE(Exchange(reader, number, text));
    EXPECT_TRUE(number == 1 && text == L"a");
    EXPECT_FALSE(Exchange(reader, number, text));
    EXPECT_TRUE(number == 7 && text == L"fallback");

    hx::MInFilerTaggedXml both_in(document, L"R");
    hx::MOutFilerTaggedXml both_out(L"R");
    EXPECT_TRUE(Exchange({&both_in, &both_out}, number, text));
    EXPECT_EQ(both_out.GetText(), document) << "with both, what was read is written";
    EXPECT_FALSE(hx::MFilerTaggedPair(&both_in, &both_out).BeginGroup(L"missing")) << "both must succeed";

    number = 3;
    EXPECT_FALSE(Exchange({nullptr, nullptr}, number, text));
    EXPECT_EQ(number, 3);
}

TEST(FilerPair, OperationsOfAnAbsentFilerFail) {
    hx::MInFilerTaggedXml reader(L"<R><a type='int'>1</a><G/></R>", L"R");
    hx::MOutFilerTaggedXml writer(L"R");
    int32_t value = 5;
    std::wstring document = L"x";
    hx::MFilerTaggedPair reading(reader);
    hx::MFilerTaggedPair writing(writer);
    EXPECT_TRUE(reading.IsReading() && !reading.IsWriting() && writing.IsWriting() && !writing.IsReading());
    EXPECT_FALSE(reading.Write(L"a", value) || reading.AddComment(L"c") ||
                 reading.InsertDocument(L"a", L"<a/>"));
    EXPECT_FALSE(writing.Read(L"a", value, 6) || writing.ExtractGroup(L"G", document));
    EXPECT_EQ(value, 5);
    EXPECT_TRUE(reading.Read(L"a", value, 6) && reading.ExtractGroup(L"G", document));
    EXPECT_TRUE(writing.Write(L"a", value) && writing.AddComment(L"c") &&
                writing.InsertDocument(L"a", L"<a/>"));
}

// A pointer to a virtual member holds the byte offset of its slot; the lowest bit only says that it is
// virtual.
template <class Method>
size_t SlotOf(Method method) {
    uintptr_t offset = 0;
    std::memcpy(&offset, &method, sizeof(offset));
    return (offset & ~uintptr_t{1}) / sizeof(void*) - 2;  // the destructor has two
}

template <class Filer, class... T>
std::vector<size_t> ReadSlots() {
    return {SlotOf(static_cast<bool (Filer::*)(std::wstring_view, T&, T)>(&Filer::Read))...};
}

template <class Filer, class... T>
std::vector<size_t> WriteSlots() {
    return {SlotOf(static_cast<bool (Filer::*)(std::wstring_view, T)>(&Filer::Write))...};
}

TEST(FilerInterfaces, KeepTheirOrder) {
    using In = hx::IInFilerTagged;
    using Out = hx::IOutFilerTagged;
    using Text = bool (In::*)(std::wstring_view, std::wstring&, const std::wstring&);
    EXPECT_EQ(SlotOf(static_cast<Text>(&In::Read)), 0u);
    EXPECT_EQ(
        (ReadSlots<In, char, double, float, bool, uint8_t, uint16_t, int16_t, uint64_t, uint32_t, int32_t>()),
        (std::vector<size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(SlotOf(&In::BeginGroup), 11u);
    EXPECT_EQ(SlotOf(&In::EndGroup), 12u);
    EXPECT_EQ(SlotOf(&In::ExtractGroup), 13u);
    EXPECT_EQ((WriteSlots<Out, char, std::wstring_view, double, float, bool, uint8_t, uint16_t, int16_t,
                          uint64_t, uint32_t, int32_t>()),
              (std::vector<size_t>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(SlotOf(&Out::AddComment), 11u);
    EXPECT_EQ(SlotOf(&Out::BeginGroup), 12u);
    EXPECT_EQ(SlotOf(&Out::EndGroup), 13u);
    EXPECT_EQ(SlotOf(&Out::InsertDocument), 14u);
}

// A writer whose memory is used up when an element is to be closed.
class Exhausted : public hx::MOutFilerTaggedXml {
public:
    Exhausted() : MOutFilerTaggedXml(L"R") {}
    bool EndGroup() override {
        ++ends;
        throw std::bad_alloc();
    }
    int ends = 0;
};

TEST(InGroup, WhatTheBodyThrowsPassesAlsoIfTheElementCannotBeClosed) {
    Exhausted writer;
    hx::MFilerTaggedPair filer(writer);
    const auto body = []() -> bool { throw std::runtime_error("first"); };
    EXPECT_THROW(hx::InGroup(filer, L"G", body), std::runtime_error);
    EXPECT_EQ(writer.ends, 1);
    EXPECT_THROW(hx::InGroup(filer, L"G", [] { return true; }), std::bad_alloc);
    EXPECT_EQ(writer.ends, 2) << "closed once";
}

}  // namespace
