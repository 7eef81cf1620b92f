#include "services/base_services.h"

#include "frame/platform/frame_platform.h"
#include "services/folder_rules.h"
#include "values/unicode/lenient_text.h"

#include <cstdio>
#include <memory>
#include <new>
#include <utility>

namespace brixen::pvn {
namespace {

constexpr std::uint32_t kServiceNotCreated = 15; // the number that it records
constexpr std::size_t kMessageSize = 256;

// The type that a parameter std::va_list has: with one compiler that is an array, with another it has
// attributes, and neither can be part of the type of an entry.
template <class List>
List AsParameter(List list);
using ArgumentList = decltype(AsParameter(std::declval<std::va_list&>()));

constexpr ServiceEntry<void(ServiceHandle)> kRelease = {"C_SVHRelease", "ServiceLoader",
                                                        "failed to find C_SVHRelease"};
constexpr ServiceEntry<void(void*, const char*, int, const char*, const char*, ArgumentList)> kLogv = {
    "C_SVHLogv", "Logging", "failed to find C_SVHLogv"};
// Kept: the texts of these two name their symbols without the prefix "C_".
constexpr ServiceEntry<ServiceHandle()> kErrnoServiceCreate = {"C_SVHErrnoServiceCreate", "Errno Service",
                                                               "failed to find SVHErrnoServiceCreate"};
constexpr ServiceEntry<void(ServiceHandle, std::uint32_t)> kErrnoServiceSetErrno = {
    "C_SVHErrnoServiceSetErrno", "Errno Service", "failed to find SVHErrnoServiceSetErrno"};

// Storage without a destructor: a worker may still log while the process ends.
ServiceLoader& TheServiceLoader() noexcept {
    alignas(ServiceLoader) static std::byte storage[sizeof(ServiceLoader)];
    static ServiceLoader* const loader = new (storage) ServiceLoader(&SVHLogv);
    return *loader;
}

std::string TemporaryFolder() {
    char16_t folder[kPathLimit] = {};
    const std::size_t length = GetTemporaryFolder(folder);
    return length > 0 && length < kPathLimit ? lyr::gen::LenientUtf8(folder) : std::string();
}

// A folder that the system does not name is empty, and ignored.
void AddFirstSearchPaths(ServiceLoader& loader) try {
    AddSearchPath(loader, FolderOfFile(ModuleFile()));
    const std::string directory = WorkingDirectory();
    if (IsOnServer(directory)) return; // its place may be a path of a disk, and the server may not answer
    if (IsTrusted(PlaceOf(directory), PlaceOf(TemporaryFolder()))) AddSearchPath(loader, directory);
} catch (const std::bad_alloc&) { // as a path that the system refuses
}

void Start(ServiceLoader& loader) noexcept {
    AddFirstSearchPaths(loader);
    loader.baseLoaded = AddLibrary(loader, kBaseServices, "");
    if (loader.baseLoaded) {
        loader.useLoggingService = true;
        LoaderLog(loader, kLoaderLevelProgress, "", "using logging service now");
    } else {
        LoaderLog(loader, kLoaderLevelFailure, "", "ERROR: base services library failed to load");
    }
}

} // namespace

ServiceLoader& GetServiceLoader() noexcept {
    ServiceLoader& loader = TheServiceLoader();
    if (!loader.isStarted.exchange(true)) Start(loader);
    return loader;
}

void ResolveBaseServices() noexcept {
    ServiceLoader& loader = GetServiceLoader();
    // The first message has loaded it. A file that could not be loaded then may have taken long to fail.
    if (!IsLoaded(loader, kBaseServices)) return;
    for (const char* symbol :
         {kLogv.symbol, kRelease.symbol, kErrnoServiceCreate.symbol, kErrnoServiceSetErrno.symbol}) {
        static_cast<void>(FindSymbol(loader, kBaseServices, symbol));
    }
}

std::string BaseServicesFolder() { return FolderOfLibrary(GetServiceLoader(), kBaseServices); }

void ResetServiceLoader() noexcept {
    ServiceLoader& loader = TheServiceLoader();
    std::destroy_at(&loader);
    new (&loader) ServiceLoader(&SVHLogv);
}

void SVHRelease(ServiceHandle handle) noexcept { CallServiceEntry(kRelease, handle); }

void SVHLogv(void* session, const char* component, int level, const char* argumentFormats, const char* format,
             std::va_list arguments) noexcept {
    CallServiceEntry(kLogv, session, component, level, argumentFormats, format, arguments);
}

ServiceHandle SVHErrnoServiceCreate() noexcept { return CallServiceEntry(kErrnoServiceCreate); }

void SVHErrnoServiceSetErrno(ServiceHandle service, std::uint32_t number) noexcept {
    CallServiceEntry(kErrnoServiceSetErrno, service, number);
}

void ReportMissingService(const char* component, const char* missing) noexcept {
    char message[kMessageSize];
    std::snprintf(message, sizeof message, "%s\n", missing);
    ShowToDebugger(component, message);
}

void ReportServiceNotCreated(const char* component, const char* missing) noexcept {
    const ServiceHandle errors = SVHErrnoServiceCreate();
    SVHErrnoServiceSetErrno(errors, kServiceNotCreated);
    char message[kMessageSize];
    std::snprintf(message, sizeof message, "%s, (Errno = %d)", missing, static_cast<int>(kServiceNotCreated));
    ShowToDebugger(component, message);
}

} // namespace brixen::pvn
