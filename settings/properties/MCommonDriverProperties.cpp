#include "settings/properties/MCommonDriverProperties.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/ListType.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MCommonDriverProperties"};
const StreamedClasses kClasses(kNames);

using Driver = MCommonDriverProperties;
using F = FieldsOf<Driver>;

constexpr wchar_t kModel[] = L"Model";
constexpr wchar_t kFacet[] = L"Facet";

// An element that holds nothing but texts, all under one name. One that opens replaces the list, one that is
// absent leaves the defaults'.
template <auto kList, const wchar_t* kChild>
struct TextsOps {
    static FieldRef At(void* record) {
        return ListRef{&(static_cast<Driver*>(record)->*kList), &VectorType<std::wstring>::kType};
    }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        auto& texts = static_cast<Driver*>(record)->*kList;
        const auto read = [&] {
            texts.clear();
            std::wstring text;
            while (filer.Read(kChild, text, std::wstring()) && filer.Found()) texts.push_back(text);
            return true;
        };
        const auto absent = [&] {
            texts = static_cast<const Driver*>(fallback)->*kList;
            return false;
        };
        return InGroupOr(filer, field.child, read, absent);
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return InGroup(filer, field.child, [&] {
            for (const std::wstring& text : static_cast<const Driver*>(record)->*kList) {
                if (!filer.Write(kChild, text)) return false;
            }
            return true;
        });
    }
    static constexpr FieldOps kOps{TaggedType<std::wstring>::kWord, 0, &At, &Read, &Write};
};

constexpr Field kDriverFields[] = {
    F::Value<&Driver::InternalName>(L"InternalName", L""),
    F::Value<&Driver::DisplayName>(L"DisplayName", L""),
    F::Value<&Driver::DriverVersion>(L"DriverVersion", L""),
    {L"SupportedDevices", &TextsOps<&Driver::SupportedDevices, kModel>::kOps, {}, "each in a \"Model\""},
    Field{L"SupportedFacets", &TextsOps<&Driver::SupportedFacets, kFacet>::kOps, {}, "each in a \"Facet\""}
        .Optional(),
};
constexpr RecordType kCommonDriver{L"CommonDriverProperties",
                                   {RecordVersion::kUint, 2},
                                   kDriverFields,
                                   "What every driver tells.",
                                   nullptr,
                                   nullptr,
                                   nullptr};

constexpr Field kFields[] = {F::Element<kCommonDriver>(L"CommonDriverProperties")};

}  // namespace

constinit const RecordType MCommonDriverProperties::kType = RecordTypeOf<MCommonDriverProperties>(
    L"MCommonDriverProperties", {RecordVersion::kNone, 0}, kFields, "What a scanner driver tells of itself.");

MCommonDriverProperties::MCommonDriverProperties() {
    SetDefaults(*this);
}

bool MCommonDriverProperties::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                         const MCommonDriverProperties& defaults) {
    return ReadElement(kType, this, &defaults, filer, element);
}

bool MCommonDriverProperties::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
