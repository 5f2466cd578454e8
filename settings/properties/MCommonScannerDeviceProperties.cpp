#include "settings/properties/MCommonScannerDeviceProperties.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/properties/TransformField.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MCommonScannerDeviceProperties"};
const StreamedClasses kClasses(kNames);

using Scanner = MCommonScannerDeviceProperties;
using F = FieldsOf<Scanner>;

// The record of the planes is nothing but their list.
struct PlanesOps : detail::RecordOps<Scanner, &Scanner::Planes> {
    static FieldRef At(void* record) {
        return ListRef{&static_cast<Scanner*>(record)->Planes.Planes, &VectorType<MLaserPlane>::kType};
    }
    static constexpr FieldOps kOps{L"MLaserPlanes", 0, &At, &Read, &Write};
};

// Without planes there is nothing that the joint could refer to.
struct JointOps : TransformOps<Scanner, &Scanner::ReferenceToAutoJoint> {
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        return static_cast<Scanner*>(record)->Planes.Planes.empty() ||
               Form::Read(field, record, fallback, filer);
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return static_cast<const Scanner*>(record)->Planes.Planes.empty() ||
               Form::Write(field, record, filer);
    }
    static constexpr FieldOps kOps{L"transform", 0, &At, &Read, &Write};
};

// Kept as it is if it is absent, whatever the defaults say.
struct PoweredOps : detail::ValueOps<Scanner, &Scanner::Powered, bool> {
    static bool Read(const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
        auto& scanner = *static_cast<Scanner*>(record);
        return !scanner.PoweredSupported || filer.Read<bool>(field.child, scanner.Powered, scanner.Powered);
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return !static_cast<const Scanner*>(record)->PoweredSupported ||
               ValueOps::Write(field, record, filer);
    }
    static constexpr FieldOps kOps{TaggedType<bool>::kWord, 0, &At, &Read, &Write};
};

constexpr Field kScannerFields[] = {
    F::Value<&Scanner::QualificationTolerance>(L"QualificationTolerance", 0.015, "mm"),
    {L"Planes", &PlanesOps::kOps, {}, {}},
    {L"ReferenceToAutoJoint", &JointOps::kOps, {}, "16 numbers, row by row; only with planes"},
    Field{L"Powered", &PoweredOps::kOps, false, "only of devices that can be switched off"}.Optional(),
    F::Record<&Scanner::Scanner3DModelTransforms>(L"Scanner3DModelTransforms").Optional(),
};
constexpr Field kFields[] = {
    F::Element<Scanner::kCommon, MCommonDeviceProperties>(L"CommonDeviceProperties"),
    F::Element<Scanner::kCommonScanner>(L"CommonScannerDeviceProperties"),
};

}  // namespace

constinit const RecordType MCommonScannerDeviceProperties::kCommonScanner{L"CommonScannerDeviceProperties",
                                                                          {RecordVersion::kUint, 1},
                                                                          kScannerFields,
                                                                          "What is told of every scanner.",
                                                                          nullptr,
                                                                          nullptr,
                                                                          nullptr};

constinit const RecordType MCommonScannerDeviceProperties::kType =
    RecordTypeOf<MCommonScannerDeviceProperties>(L"MCommonScannerDeviceProperties", {RecordVersion::kNone, 0},
                                                 kFields, "A scanner that is attached to a driver.");

MCommonScannerDeviceProperties::MCommonScannerDeviceProperties() {
    SetDefaults(*this);
}

bool MCommonScannerDeviceProperties::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                                const MCommonDeviceProperties& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MCommonScannerDeviceProperties::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MCommonScannerDeviceProperties::ReadImpTagged(MFilerTaggedPair& filer,
                                                   const MCommonDeviceProperties& defaults) {
    return MCommonDeviceProperties::ReadImpTagged(filer, defaults) &&
           ReadElement(kCommonScanner, this, &DefaultsAs<MCommonScannerDeviceProperties>(defaults), filer,
                       kCommonScanner.name);
}

}  // namespace hx
