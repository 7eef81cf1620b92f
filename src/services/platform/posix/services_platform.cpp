#include "services/platform/posix/services_twin.h"

#include <mutex>
#include <thread>

namespace brixen::pvn {
namespace {

std::mutex gRecordLock;

void Record(std::vector<std::string>& record, const std::string& text) {
    const std::lock_guard lock(gRecordLock);
    record.push_back(text);
}

// Returns what a test has set for `path`, or else `other`.
template <class Answer>
Answer AnswerFor(const std::map<std::string, Answer>& answers, const std::string& path, Answer other) {
    const auto found = answers.find(path);
    return found == answers.end() ? other : found->second;
}

} // namespace

ServicesTwin& GetServicesTwin() noexcept {
    static ServicesTwin twin;
    return twin;
}

void ResetServicesTwin() { GetServicesTwin() = {}; }

void WriteToDebugger(const char* text) noexcept try {
    Record(GetServicesTwin().debuggerTexts, text);
} catch (...) { // a debugger may miss a text
}

std::uint32_t CurrentThreadNumber() noexcept {
    return static_cast<std::uint32_t>(std::hash<std::thread::id>{}(std::this_thread::get_id()));
}

std::string ModuleFile() { return GetServicesTwin().moduleFile; }

std::string WorkingDirectory() { return GetServicesTwin().workingDirectory; }

std::string ResolvePath(const std::string& path) { return AnswerFor(GetServicesTwin().resolved, path, path); }

bool IsExistingFile(const std::string& path) {
    Record(GetServicesTwin().calls, "IsFile " + path);
    return GetServicesTwin().files.contains(path);
}

FolderPlace PlaceOf(const std::string& folder) {
    return AnswerFor(GetServicesTwin().places, folder, FolderPlace{folder, false});
}

NativeModule LoadModule(const std::string& path) {
    Record(GetServicesTwin().calls, "Load " + path);
    if (GetServicesTwin().duringLoad) GetServicesTwin().duringLoad();
    auto& modules = GetServicesTwin().modules;
    const auto found = modules.find(path);
    return found == modules.end() ? nullptr : reinterpret_cast<NativeModule>(&found->second);
}

EntryPoint FindEntry(NativeModule module, const char* name) noexcept try {
    Record(GetServicesTwin().calls, std::string("Find ") + name);
    return AnswerFor<EntryPoint>(*reinterpret_cast<const TwinEntries*>(module), name, nullptr);
} catch (...) {
    return nullptr;
}

} // namespace brixen::pvn
