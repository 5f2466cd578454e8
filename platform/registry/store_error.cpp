#include "platform/registry/store_error.h"

#include <cerrno>
#include <system_error>

namespace hx {

StoreFault FaultOfSystem(int system_error) {
    switch (system_error) {
        case ENOENT:
            return StoreFault::kMissing;
        case EACCES:
        case EPERM:
        case EROFS:
            return StoreFault::kNoAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return StoreFault::kDiskFull;
        default:
            return StoreFault::kIo;
    }
}

void ThrowSystemError(const std::string& path) {
    const int error = errno;
    throw StoreError(FaultOfSystem(error), path + ": " + std::generic_category().message(error));
}

RegistryResult ResultOf(StoreFault fault) {
    switch (fault) {
        case StoreFault::kDamage:
        case StoreFault::kNewer:
            return RegistryResult::kDamaged;
        case StoreFault::kMissing:
            return RegistryResult::kNotFound;
        case StoreFault::kNoAccess:
            return RegistryResult::kAccessDenied;
        case StoreFault::kDiskFull:
            return RegistryResult::kDiskFull;
        case StoreFault::kUnsettled:
        case StoreFault::kBusy:
            return RegistryResult::kBusy;
        case StoreFault::kTooBig:
            return RegistryResult::kInvalid;
        case StoreFault::kIo:
            break;
    }
    return RegistryResult::kIoFailed;
}

}  // namespace hx
