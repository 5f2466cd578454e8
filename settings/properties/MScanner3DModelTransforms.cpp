#include "settings/properties/MScanner3DModelTransforms.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/properties/TransformField.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MScanner3DModelTransforms"};
const StreamedClasses kClasses(kNames);

using Transforms = MScanner3DModelTransforms;

constexpr Field kFields[] = {
    TransformField<Transforms, &Transforms::ReferenceFrameModelTransform>(L"ReferenceFrameModelTransform"),
    TransformField<Transforms, &Transforms::MountFrameModelTransform>(L"MountFrameModelTransform"),
};

}  // namespace

constinit const RecordType MScanner3DModelTransforms::kType =
    RecordTypeOf<MScanner3DModelTransforms>(L"MScanner3DModelTransforms", {RecordVersion::kUint, 1}, kFields,
                                            "Where the frames of a scanner lie in its 3D model.");

bool MScanner3DModelTransforms::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                           const MScanner3DModelTransforms& defaults) {
    const auto read = [&] {
        int64_t version = 0;
        return ReadVersion(filer, kType.version, version) &&
               ReadFields(*this, defaults, filer, version, ReadRule::kUntilFailure);
    };
    return InGroupOr(filer, element, read, [&] {
        *this = defaults;
        return false;
    });
}

bool MScanner3DModelTransforms::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
