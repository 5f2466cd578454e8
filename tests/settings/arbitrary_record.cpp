#include "tests/settings/arbitrary_record.h"

#include <rapidcheck.h>

#include <cstdlib>
#include <limits>

#include "core/records/ListType.h"

namespace {

using Doubles = std::numeric_limits<double>;

double ArbitraryDouble() {
    return *rc::gen::weightedOneOf<double>({
        {3, rc::gen::arbitrary<double>()},
        {1, rc::gen::element(0.0, -0.0, 0.1 + 0.2, 1e15, 123456789012345678.0, Doubles::max(),
                             -Doubles::max(), Doubles::min(), Doubles::denorm_min(), Doubles::infinity(),
                             -Doubles::infinity(), Doubles::quiet_NaN())},
    });
}

// Markup, quotes, white space, letters of several scripts.
const wchar_t* const kPieces[] = {L"a",    L"Z9", L" ",  L"<",   L">",      L"&",      L"'",     L"\"",
                                  L"\n",   L"\t", L"\r", L"]]>", L"<!--",   L"</x>",   L"&lt;",  L"&#65;",
                                  L"&#x;", L"\\", L"%s", L"$",   L"\u00E4", L"\u65E5", L"\uFFFD"};

std::wstring ArbitraryText() {
    const auto pieces =
        *rc::gen::container<std::vector<size_t>>(rc::gen::inRange<size_t>(0, std::size(kPieces)));
    std::wstring text;
    for (const size_t piece : pieces) text += kPieces[piece];
    constexpr size_t kLong = 100'000;
    const bool is_long = *rc::gen::weightedElement<bool>({{60, false}, {1, true}});
    if (is_long && !text.empty()) {
        text.reserve(kLong);
        while (text.size() < kLong) text += text;
    }
    return text;
}

const wchar_t* const kFragments[] = {
    L"/>",
    L">\n<Value type=\"int\">1</Value>\n</MFilerTaggedXml>",
    L">text &amp; &lt;markup&gt;</MFilerTaggedXml>",
    L"><!-- a > b --><A b='>'/></MFilerTaggedXml>",
    L"><DeviceSettings><DeviceSettings/></DeviceSettings></MFilerTaggedXml>",
    L"><![CDATA[<]]></MFilerTaggedXml>",
};

std::wstring ArbitraryFragment() {
    return std::wstring(L"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<MFilerTaggedXml") +
           kFragments[*rc::gen::inRange<size_t>(0, std::size(kFragments))] + L"\n";
}

// The cosine travels only instead of the angle, which the documents have here.
bool IsWritten(const hx::RecordType& type, const hx::Field& field) {
    return field.ops->at != nullptr && field.ops->write != nullptr &&
           field.versions.Contains(type.version.current) && field.child != L"CosOrientAngle";
}

class Filler {
public:
    explicit Filler(const hx::Field& field) : m_child(field.child), m_bits(field.ops->bits) {}
    Filler(std::wstring_view child, uint8_t bits) : m_child(child), m_bits(bits) {}

    void operator()(std::wstring* text) const {
        *text = ArbitraryText();
        // What others are found by.
        if (m_child == L"InternalName" && text->empty()) *text = L"-";
    }
    void operator()(hx::XmlFragment* fragment) const { fragment->text = ArbitraryFragment(); }
    void operator()(double* number) const {
        *number = m_child == L"LaserPower" ? *rc::gen::inRange(0, 1001) / 10.0 : ArbitraryDouble();
    }
    void operator()(bool* flag) const { *flag = *rc::gen::arbitrary<bool>(); }
    template <class T>
    void operator()(T* number) const {
        const T value = *rc::gen::weightedOneOf<T>({
            {3, rc::gen::arbitrary<T>()},
            {1, rc::gen::element(std::numeric_limits<T>::min(), std::numeric_limits<T>::max())},
        });
        // Some travel as a smaller type.
        const auto travels = m_bits == 0 || m_bits >= sizeof(T) * 8 ? ~0ull : (1ull << m_bits) - 1;
        *number = static_cast<T>(value & static_cast<T>(travels));
    }
    void operator()(hx::RecordRef record) const { FillArbitrarily(*record.type, record.record); }
    void operator()(hx::ListRef list) const {
        if (list.type->renew != nullptr) list.type->renew(list.list, *rc::gen::inRange<size_t>(1, 4));
        int32_t number = 0;
        list.type->each(list.list, [&](std::wstring_view key, hx::FieldRef entry) {
            std::visit(Filler({}, 0), entry);
            const auto* const record = std::get_if<hx::RecordRef>(&entry);
            if (record != nullptr) Identify(*record, key, number++);
        });
    }

private:
    // Entries are told apart by a name or a number.
    static void Identify(const hx::RecordRef& entry, std::wstring_view key, int32_t number) {
        for (const hx::Field& field : entry.type->fields) {
            if (field.ops->at == nullptr) continue;
            const hx::FieldRef at = field.ops->at(entry.record);
            if (field.child == L"InternalName" && !key.empty()) *std::get<std::wstring*>(at) = key;
            if (field.child == L"PlaneNumber") *std::get<int32_t*>(at) = number;
        }
    }

    std::wstring_view m_child;
    uint8_t m_bits;
};

struct Rounder {
    void operator()(double* number) const {
        char text[64];
        std::snprintf(text, sizeof text, "%.15e", *number);
        *number = std::strtod(text, nullptr);
    }
    void operator()(hx::RecordRef record) const { RoundAsWritten(*record.type, record.record); }
    void operator()(hx::ListRef list) const {
        list.type->each(list.list, [&](std::wstring_view, hx::FieldRef entry) { std::visit(*this, entry); });
    }
    template <class T>
    void operator()(T*) const {}
};

}  // namespace

void FillArbitrarily(const hx::RecordType& type, void* record) {
    for (const hx::Field& field : type.fields) {
        if (IsWritten(type, field)) std::visit(Filler(field), field.ops->at(record));
    }
}

void RoundAsWritten(const hx::RecordType& type, void* record) {
    for (const hx::Field& field : type.fields) {
        if (IsWritten(type, field)) std::visit(Rounder(), field.ops->at(record));
    }
}
