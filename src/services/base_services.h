// The base service library, "svhservices.dll": the loader of the process, and the library's entry points as
// ordinary functions. Without the library each of them only shows a line to the debugger.
//
// Nothing here throws unless its comment says so. Any thread may call.
#pragma once

#include "services/service_loader.h"

#include <cstdarg>
#include <cstdint>
#include <string>
#include <type_traits>

namespace brixen::pvn {

inline constexpr char kBaseServices[] = "svhservices.dll";

// Returns the loader of the process, which is never destroyed. The first call searches for the base
// service library, once, in the folder of this library's file and then in the working directory. A working
// directory on the network or inside the user's temporary folder is not searched: anyone may have put files
// there. Another thread that calls meanwhile gets the loader before the search is over.
[[nodiscard]] ServiceLoader& GetServiceLoader() noexcept;

// Finds all entry points of this header, so that a worker finds them ready. Call it on the host's thread.
// Does nothing without the library, also if that was found and could not be loaded.
void ResolveBaseServices() noexcept;

// Returns the folder in which the base service library was found. Empty if it was not. Throws std::bad_alloc.
[[nodiscard]] std::string BaseServicesFolder();

// For tests: the next GetServiceLoader starts anew.
void ResetServiceLoader() noexcept;

// A thing that a service has made. Null is none; SVHRelease frees it.
using ServiceHandle = void*;

// Releases a handle that any service has returned.
void SVHRelease(ServiceHandle handle) noexcept;
// Writes a line of the logging service. See LogvFunction.
void SVHLogv(void* session, const char* component, int level, const char* argumentFormats, const char* format,
             std::va_list arguments) noexcept;
// Returns a handle to the service of error numbers, or null.
[[nodiscard]] ServiceHandle SVHErrnoServiceCreate() noexcept;
// Records an error number.
void SVHErrnoServiceSetErrno(ServiceHandle service, std::uint32_t number) noexcept;

// An entry point of the base service library, as a wrapper describes it. `Function` is its type.
template <class Function>
struct ServiceEntry {
    const char* symbol;
    const char* component; // of the line that says that it is missing
    const char* missing;   // the text of that line, without a line feed
};

// Returns null if the entry point cannot be had.
template <class Function>
[[nodiscard]] Function* FindServiceEntry(const ServiceEntry<Function>& service) noexcept {
    return reinterpret_cast<Function*>(FindSymbol(GetServiceLoader(), kBaseServices, service.symbol));
}

// Shows the debugger that an entry point is missing.
void ReportMissingService(const char* component, const char* missing) noexcept;
// The same for an entry point that creates a service. It first records error number 15 with the service of
// error numbers.
void ReportServiceNotCreated(const char* component, const char* missing) noexcept;

// Calls a function of a service. If that throws, returns 0, null or nothing.
template <class Result, class... Parameters>
Result CallGuarded(Result (*function)(Parameters...), Parameters... arguments) noexcept try {
    return function(arguments...);
} catch (...) {
    return Result();
}

// The form of all wrappers: calls the entry point and returns its result. Without it, or if it throws,
// returns 0, null or nothing.
template <class Result, class... Parameters>
Result CallServiceEntry(const ServiceEntry<Result(Parameters...)>& service,
                        std::type_identity_t<Parameters>... arguments) noexcept {
    if (const auto function = FindServiceEntry(service)) return CallGuarded(function, arguments...);
    ReportMissingService(service.component, service.missing);
    return Result();
}

// The form of a wrapper that creates a service. SVHErrnoServiceCreate is not one, or it would never end.
template <class... Parameters>
[[nodiscard]] ServiceHandle CreateServiceObject(const ServiceEntry<ServiceHandle(Parameters...)>& service,
                                                std::type_identity_t<Parameters>... arguments) noexcept {
    if (const auto function = FindServiceEntry(service)) return CallGuarded(function, arguments...);
    ReportServiceNotCreated(service.component, service.missing);
    return nullptr;
}

} // namespace brixen::pvn
