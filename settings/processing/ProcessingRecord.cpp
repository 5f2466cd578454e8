#include "settings/processing/ProcessingRecord.h"

namespace hx {

bool ReadProcessingRows(const RecordType& type, void* record, const void* defaults, MFilerTaggedPair& filer,
                        bool strict) {
    int32_t version = 0;
    const bool has_version = ReadVersion(filer, version, static_cast<int32_t>(type.version.current));
    const bool all =
        ReadFields(type.fields, record, strict ? record : defaults, filer, version, ReadRule::kAll);
    return has_version && (all || !strict);
}

}  // namespace hx
