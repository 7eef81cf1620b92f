#include "net/transport/transport_error.h"

#include "frame/log.h"

namespace brixen::pvn {
namespace {

// Numbers of the system.
constexpr std::uint32_t kErrorNoMemory = 8;
constexpr std::uint32_t kFirstHttpError = 12001;
constexpr std::uint32_t kLastHttpError = 12185;
constexpr std::uint32_t kErrorInvalidUrl = 12005;
constexpr std::uint32_t kErrorNameNotResolved = 12007;
constexpr std::uint32_t kErrorSecureFailure = 12175;

} // namespace

Status MapTransportError(std::uint32_t systemError) noexcept {
    switch (systemError) {
    case 0: return kStatusSuccess;
    case kErrorNoMemory: return kStatusCallNoMemory;
    case kErrorInvalidUrl: return kStatusInvalidUrl;
    case kErrorNameNotResolved: return kStatusNameNotResolved;
    case kErrorSecureFailure: return kStatusSecureFailure;
    default: break;
    }
    const bool isHttpError = systemError >= kFirstHttpError && systemError <= kLastHttpError;
    return isHttpError ? kStatusHttpError : kStatusSystemError;
}

Status LogTransportError(std::uint32_t systemError) noexcept {
    PvnLog("%s: %s: windows error: %ld\n", kLogComponent, kLogInfo, static_cast<long>(systemError));
    return MapTransportError(systemError);
}

} // namespace brixen::pvn
