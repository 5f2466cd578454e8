// Where the frames of a scanner lie in its 3D model. Held by the scanner's properties; on their thread.
#pragma once

#include "settings/properties/forms.h"

namespace hx {

class MScanner3DModelTransforms {
public:
    static const RecordType kType;

    // Reads group `element` up to the first child that is missing.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const MScanner3DModelTransforms& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    Transform4x4 ReferenceFrameModelTransform;
    Transform4x4 MountFrameModelTransform;
};

}  // namespace hx
