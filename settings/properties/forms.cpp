#include "settings/properties/forms.h"

#include <cmath>

#include "core/log/ModuleLogger.h"
#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"Point2D", "Point3D", "CalendarDate", "Transform4x4"};
const StreamedClasses kClasses(kNames);

constexpr RecordVersion kNoVersion{RecordVersion::kNone, 0};

// An element that is absent leaves the defaults, as an absent value does.
template <class Form>
bool ReadForm(Form& form, MFilerTaggedPair& filer, std::wstring_view element, const Form& defaults) {
    form = defaults;
    return InGroup(filer, element,
                   [&] { return ReadFields(form, defaults, filer, 0, ReadRule::kUntilFailure); });
}

constexpr Field kPoint2DFields[] = {
    FieldsOf<Point2D>::Value<&Point2D::X>(L"X", 0.0, "mm"),
    FieldsOf<Point2D>::Value<&Point2D::Y>(L"Y", 0.0, "mm"),
};
constexpr Field kPoint3DFields[] = {
    FieldsOf<Point3D>::Value<&Point3D::X>(L"X", 0.0, "mm"),
    FieldsOf<Point3D>::Value<&Point3D::Y>(L"Y", 0.0, "mm"),
    FieldsOf<Point3D>::Value<&Point3D::Z>(L"Z", 0.0, "mm"),
};

// Drivers never agreed on the type of a date's parts. A reader leaves a value of another type where it is, so
// that it can be tried as the next.
template <auto kPart>
struct DatePartOps {
    using ValueOps = detail::ValueOps<CalendarDate, kPart, uint16_t>;

    template <class Stream>
    static bool ReadAs(const Field& field, uint16_t& part, MFilerTaggedPair& filer) {
        Stream value{};
        const bool read = filer.Read<Stream>(field.child, value, Stream{}) && filer.Found();
        if (read) part = static_cast<uint16_t>(value);
        return read;
    }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        return ReadAs<int16_t>(field, static_cast<CalendarDate*>(record)->*kPart, filer) ||
               ReadAs<uint8_t>(field, static_cast<CalendarDate*>(record)->*kPart, filer) ||
               ValueOps::Read(field, record, fallback, filer);
    }
    static constexpr FieldOps kOps{ValueOps::kOps.type, ValueOps::kOps.bits, &ValueOps::At, &Read,
                                   &ValueOps::Write};
};
constexpr Field kDateFields[] = {
    {L"Year", &DatePartOps<&CalendarDate::Year>::kOps, 0, "\"int\" and \"byte\" are read, too"},
    {L"Month", &DatePartOps<&CalendarDate::Month>::kOps, 0, "likewise"},
    {L"Day", &DatePartOps<&CalendarDate::Day>::kOps, 0, "likewise"},
};

// Names that begin with a digit are not well-formed XML; since version 2 they begin with a letter.
constexpr int32_t kNamesWithLetter = 2;
struct EntryName {
    EntryName(size_t entry, int32_t version) : with_letter(version >= kNamesWithLetter) {
        text[1] = static_cast<wchar_t>(L'0' + entry / 4);
        text[2] = static_cast<wchar_t>(L'0' + entry % 4);
    }
    operator std::wstring_view() const {
        return with_letter ? std::wstring_view(text, 3) : std::wstring_view(text + 1, 2);
    }

    wchar_t text[3] = {L'E'};
    bool with_letter;
};

}  // namespace

constinit const RecordType Point2D::kType =
    RecordTypeOf<Point2D>(L"Point2D", kNoVersion, kPoint2DFields, "A point of a plane.");
constinit const RecordType Point3D::kType =
    RecordTypeOf<Point3D>(L"Point3D", kNoVersion, kPoint3DFields, "A point in space.");
constinit const RecordType CalendarDate::kType =
    RecordTypeOf<CalendarDate>(L"CalendarDate", kNoVersion, kDateFields, "A day; 0, 0, 0 if none is known.");

bool Point2D::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const Point2D& defaults) {
    return ReadForm(*this, filer, element, defaults);
}
bool Point2D::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool Point3D::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const Point3D& defaults) {
    return ReadForm(*this, filer, element, defaults);
}
bool Point3D::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool CalendarDate::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                              const CalendarDate& defaults) {
    return ReadForm(*this, filer, element, defaults);
}
bool CalendarDate::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

constinit const ListType Transform4x4::kEntries{
    nullptr,
    TaggedType<double>::kWord,
    [](void* list, const EntryVisitor& visit) {
        for (double& entry : static_cast<Transform4x4*>(list)->m) visit({}, &entry);
    },
    [](void* list, size_t) { *static_cast<Transform4x4*>(list) = {}; },
};

bool Transform4x4::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                              const Transform4x4& defaults) {
    *this = defaults;
    return InGroup(filer, element, [&] {
        int32_t version = 0;
        bool all = ReadVersion(filer, version, 0);
        for (size_t i = 0; i < m.size(); ++i) all &= filer.Read(EntryName(i, version), m[i], double{m[i]});
        if (!HasRotation() && ModuleLogger().Writes(MLogSeverity::kWarning)) {
            ModuleLogger().Log(
                {MLogSeverity::kWarning, "forms", 60, "Transform4x4::ReadTagged",
                 L"The upper left 3x3 of a transform is no rotation: " + std::wstring(element)});
        }
        return all;
    });
}

bool Transform4x4::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] {
        bool all = filer.Write(kVersionChild, kNamesWithLetter);
        for (size_t i = 0; i < m.size() && all; ++i) all = filer.Write(EntryName(i, kNamesWithLetter), m[i]);
        return all;
    });
}

bool Transform4x4::HasRotation() const {
    constexpr double kTolerance = 0.01;
    for (size_t row = 0; row < 3; ++row) {
        for (size_t other = row; other < 3; ++other) {
            double product = 0;
            for (size_t i = 0; i < 3; ++i) product += m[4 * row + i] * m[4 * other + i];
            const bool fits =
                row == other ? std::fabs(product - 1) <= 2 * kTolerance : std::fabs(product) <= kTolerance;
            if (!fits) return false;
        }
    }
    return true;
}

}  // namespace hx
