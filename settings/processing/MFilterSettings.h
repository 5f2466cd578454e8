// The filters of the measured points. Held by MProcessingSettings; on its thread.
#pragma once

#include "core/records/ReferenceCopy.h"
#include "settings/processing/MSpeckle3DSettings.h"

namespace hx {

class MFilterSettings final : public ProcessingRecord<MFilterSettings> {
public:
    static const RecordType kType;

    void SetStrict(bool strict) override;
    void DropReference() { m_reference.Drop(); }

    MSpeckle3DSettings Speckle3DSettings;

protected:
    // Keeps a copy of `defaults`.
    bool ReadImpTagged(MFilerTaggedPair& filer, const MFilterSettings& defaults) override;

private:
    ReferenceCopy<MFilterSettings> m_reference;
};

}  // namespace hx
