// The filers of the registry: where values lie, in which form, and what is read from other forms.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/filer/IInFilerTaggedRegistry.h"
#include "core/filer/IOutFilerTaggedRegistry.h"
#include "core/filer/MFilerTaggedPair.h"
#include "tests/memory_registry.h"

namespace {

using namespace std::string_literals;
using hx::IInFilerTaggedRegistry;
using hx::IOutFilerTaggedRegistry;

const std::wstring kBase = L"HXAPI4\\Test";
const std::wstring kKey = L"Software\\Orvel\\HXAPI4\\Test";

class RegistryFiler : public WithMemoryRegistry {
protected:
    template <class T>
    void ExpectStored(T value, const hx::RegistryValue& expected) {
        IOutFilerTaggedRegistry writer(kBase, false);
        EXPECT_TRUE(writer.Write(L"v", value));
        EXPECT_EQ(Stored(kUserRoot, kKey, L"v"), expected) << testing::PrintToString(value);
    }

    // What a stored value is read as; nothing if the read fails, and then the fallback stands.
    template <class T>
    std::optional<T> Load(const hx::RegistryValue& stored, T fallback) {
        Store(kUserRoot, kKey, L"v", stored);
        IInFilerTaggedRegistry reader(kBase, false);
        T value{};
        if (reader.Read(L"v", value, fallback)) return value;
        EXPECT_EQ(value, fallback);
        return {};
    }
};

TEST_F(RegistryFiler, IntegersLieAsNumbers) {
    ExpectStored('a', uint32_t{'a'});
    ExpectStored(static_cast<char>(0xE9), 0xE9u);
    ExpectStored(true, 1u);
    ExpectStored(false, 0u);
    ExpectStored(uint8_t{255}, 255u);
    ExpectStored(uint16_t{65535}, 65535u);
    ExpectStored(int16_t{-1}, 0xFFFFFFFFu);
    ExpectStored(std::numeric_limits<int16_t>::min(), 0xFFFF8000u);
    ExpectStored(std::numeric_limits<uint32_t>::max(), 0xFFFFFFFFu);
    ExpectStored(std::numeric_limits<int32_t>::min(), 0x80000000u);

    EXPECT_EQ(Load<char>(0xE9u, 'x'), static_cast<char>(0xE9));
    EXPECT_EQ(Load<bool>(0u, true), false);
    EXPECT_EQ(Load<bool>(256u, false), true);
    EXPECT_EQ(Load<uint8_t>(300u, 1), 44);
    EXPECT_EQ(Load<uint16_t>(0x12345u, 1), 0x2345);
    EXPECT_EQ(Load<int16_t>(0xFFFFFFFFu, 1), -1);
    EXPECT_EQ(Load<int16_t>(0x8000u, 1), -32768);
    EXPECT_EQ(Load<uint32_t>(0xFFFFFFFFu, 1), 0xFFFFFFFFu);
    EXPECT_EQ(Load<int32_t>(0x80000000u, 1), std::numeric_limits<int32_t>::min());
}

TEST_F(RegistryFiler, NumbersWithAPointLieAsTextOfAsManyDigitsAsTheirTypeHas) {
    ExpectStored(0.1, L"1.00000000000000e-01");
    ExpectStored(-1.0 / 3, L"-3.33333333333333e-01");
    ExpectStored(1e300, L"1.00000000000000e+300");
    ExpectStored(0.1f, L"1.000000e-01");
    ExpectStored(16777215.0f, L"1.677722e+07");
    ExpectStored(L"a\0b\\\""s, L"a\0b\\\""s);
    ExpectStored(std::wstring(100'000, L'\x1F600'), std::wstring(100'000, L'\x1F600'));

    struct Row {
        std::wstring text;
        std::optional<double> number;
    };
    for (const Row& row :
         {Row{L"1.5abc", 1.5}, Row{L" 12", 12.0}, Row{L"-.5e-1", -0.05}, Row{L"1,5", 1.0}, Row{L"0x10", 16.0},
          Row{L"7\08"s, 7.0}, Row{L"inf", HUGE_VAL}, Row{L"1e999", HUGE_VAL}, Row{L"-1e999", -HUGE_VAL},
          Row{L"1e-999", 0.0}, Row{L"", {}}, Row{L" ", {}}, Row{L"abc", {}}, Row{L".", {}}, Row{L"+-1", {}},
          Row{L"\x0661", {}}}) {
        EXPECT_EQ(Load<double>(row.text, 42), row.number) << testing::PrintToString(row.text);
        const auto as_float = row.number ? std::optional(static_cast<float>(*row.number)) : std::nullopt;
        EXPECT_EQ(Load<float>(row.text, 42), as_float) << testing::PrintToString(row.text);
    }
    EXPECT_TRUE(std::isnan(Load<double>(L"nan", 42).value()));
    // By way of a double this would be rounded twice.
    EXPECT_EQ(Load<float>(L"1.000000059604644775390626", 42), std::nextafter(1.0f, 2.0f));
    EXPECT_EQ(Load<float>(L"1e39", 42), std::numeric_limits<float>::infinity());
}

TEST_F(RegistryFiler, AValueOfAnotherRegistryTypeIsMissing) {
    EXPECT_EQ(Load<std::wstring>(5u, L"fallback"), std::nullopt);
    EXPECT_EQ(Load<double>(5u, 1), std::nullopt);
    EXPECT_EQ(Load<float>(5u, 1), std::nullopt);
    EXPECT_EQ(Load<char>(L"5", 'x'), std::nullopt);
    EXPECT_EQ(Load<bool>(L"1", true), std::nullopt);
    EXPECT_EQ(Load<uint8_t>(L"5", 1), std::nullopt);
    EXPECT_EQ(Load<uint16_t>(L"5", 1), std::nullopt);
    EXPECT_EQ(Load<int16_t>(L"5", 1), std::nullopt);
    EXPECT_EQ(Load<uint32_t>(L"5", 1), std::nullopt);
    EXPECT_EQ(Load<int32_t>(L"5", 1), std::nullopt);
}

TEST_F(RegistryFiler, WhatTheRegistryCannotKeepIsFalse) {
    IOutFilerTaggedRegistry writer(kBase, false);
    EXPECT_FALSE(writer.Write(L"v", uint64_t{5}));
    EXPECT_FALSE(writer.AddComment(L"c") || writer.InsertDocument(L"d", L"<a/>"));
    EXPECT_FALSE(HasKey(kUserRoot, L"Software")) << "nothing was opened either";
    Store(kUserRoot, kKey, L"v", 5u);
    IInFilerTaggedRegistry reader(kBase, false);
    uint64_t value = 1;
    EXPECT_FALSE(reader.Read(L"v", value, 7));
    EXPECT_EQ(value, 7u);
    std::wstring document = L"<a/>";
    EXPECT_FALSE(reader.ExtractGroup(L"v", document));
    EXPECT_EQ(document, L"");
}

TEST_F(RegistryFiler, TheKeyFollowsFromRootViewAndCompany) {
    struct Row {
        hx::RegistryRoot root;
        bool view_32_bit;
        std::wstring company;  // of the reader
        std::wstring read_from;
        std::wstring written_to;
    };
    const std::wstring wow = L"Software\\Wow6432Node\\Orvel\\HXAPI4\\Test";
    for (const Row& row :
         {Row{kUserRoot, false, L"", kKey, kKey}, Row{kUserRoot, true, L"", kKey, kKey},
          Row{kMachineRoot, false, L"Orvel", kKey, kKey}, Row{kMachineRoot, true, L"", wow, wow},
          Row{kUserRoot, true, L"Romer", L"Software\\Romer\\HXAPI4\\Test", kKey},
          Row{kMachineRoot, true, L"Romer", L"Software\\Wow6432Node\\Romer\\HXAPI4\\Test", wow}}) {
        SCOPED_TRACE(testing::PrintToString(row.read_from));
        hx::SetRegistry(m_registry = hx::MakeMemoryRegistry());
        IOutFilerTaggedRegistry writer(kBase, row.view_32_bit);
        writer.SetRoot(row.root);
        EXPECT_TRUE(writer.Write(L"v", uint32_t{5}));
        EXPECT_EQ(Stored(row.root, row.written_to, L"V"), hx::RegistryValue(5u));

        Store(row.root, row.read_from, L"r", 6u);
        IInFilerTaggedRegistry reader(kBase, row.view_32_bit);
        reader.SetRoot(row.root);
        reader.SetCompanyKey(row.company);
        uint32_t value = 0;
        EXPECT_TRUE(reader.Read(L"R", value, 0));
        EXPECT_EQ(value, 6u);
    }
}

TEST_F(RegistryFiler, AGroupIsAKey) {
    IOutFilerTaggedRegistry out(kBase, false);
    hx::MFilerTaggedPair writer(out);
    EXPECT_TRUE(writer.BeginGroup(L"A") && writer.BeginGroup(L"B") && writer.Write(L"v", int32_t{1}));
    EXPECT_TRUE(writer.EndGroup() && writer.Write(L"v", int32_t{2}) && writer.EndGroup());
    EXPECT_TRUE(writer.EndGroup()) << "more groups left than entered";
    EXPECT_TRUE(writer.Write(L"v", int32_t{3}) && writer.BeginGroup(L"Empty") && writer.EndGroup());
    EXPECT_EQ(Stored(kUserRoot, kKey + L"\\A\\B", L"v"), hx::RegistryValue(1u));
    EXPECT_EQ(Stored(kUserRoot, kKey + L"\\A", L"v"), hx::RegistryValue(2u));
    EXPECT_EQ(Stored(kUserRoot, kKey, L"v"), hx::RegistryValue(3u));
    EXPECT_FALSE(HasKey(kUserRoot, kKey + L"\\Empty")) << "nothing was written in it";

    IInFilerTaggedRegistry in(kBase, false);
    hx::MFilerTaggedPair reader(in);
    int32_t value = 0;
    EXPECT_TRUE(reader.BeginGroup(L"missing")) << "nothing is opened before a value is read";
    EXPECT_FALSE(reader.Read(L"v", value, 9));
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(reader.EndGroup() && reader.BeginGroup(L"a\\b") && reader.Read(L"v", value, 9));
    EXPECT_EQ(value, 1) << "two keys in one name, in another case";
    EXPECT_TRUE(reader.EndGroup() && reader.EndGroup() && reader.Read(L"v", value, 9));
    EXPECT_EQ(value, 3);
}

TEST_F(RegistryFiler, OnlyAReaderThatIsToldToMakesTheKey) {
    int32_t value = 0;
    EXPECT_FALSE(IInFilerTaggedRegistry(kBase, false).Read(L"v", value, 9));
    EXPECT_FALSE(HasKey(kUserRoot, L"Software"));
    EXPECT_FALSE(IInFilerTaggedRegistry(kBase, false, true).Read(L"v", value, 9));
    EXPECT_EQ(value, 9);
    EXPECT_TRUE(HasKey(kUserRoot, kKey));
}

TEST_F(RegistryFiler, AStoreThatRefusesIsReadNevertheless) {
    Store(kUserRoot, kKey, L"v", 5u);
    RefuseWrites();
    int32_t value = 0;
    EXPECT_TRUE(IInFilerTaggedRegistry(kBase, false, true).Read(L"v", value, 9));
    EXPECT_EQ(value, 5);
    EXPECT_FALSE(IOutFilerTaggedRegistry(kBase, false).Write(L"v", int32_t{6}));
    EXPECT_EQ(Stored(kUserRoot, kKey, L"v"), hx::RegistryValue(5u));
}

}  // namespace
