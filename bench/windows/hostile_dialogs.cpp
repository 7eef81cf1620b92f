// The worst descriptions of one megabyte in real windows: made, shown and deleted, each in a process of its
// own. Each must end in under ten seconds and 512 MB.
//   hostile_dialogs            all of them
//   hostile_dialogs NAME...    these
#include "bench/hostile_views.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"

#include <windows.h>

#include <psapi.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>

namespace bench {
namespace {

using namespace brixen::zeve;

constexpr double kMostSeconds = 10;
constexpr double kMostMegabytes = 512;
constexpr char kChild[] = "--child";

double Now() { // seconds
    LARGE_INTEGER ticks, frequency;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double PeakMegabytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PeakWorkingSetSize) / (1 << 20);
}

std::uint64_t Hear(std::int32_t, EventRecord&, void*) { return kAnswerDefault; }

std::string MakeAndShow(ZeveDialog* dialog, const std::string& text) {
    try {
        ZeveAddViewText(dialog, text.c_str());
        const auto window = reinterpret_cast<HWND>(ZeveMakeDialog(dialog, nullptr));
        ShowWindow(window, SW_SHOW);
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        return "made";
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

int Run(const HostileView& view) {
    ZeveInitialize();
    const std::string text = view.text();
    ZeveInitRecord record;
    record.callback = Hear;
    record.instance = platform::LibraryModule();
    const double begin = Now();
    ZeveDialog* const dialog = ZeveNew(&record);
    const std::string end = MakeAndShow(dialog, text);
    const double made = Now();
    ZeveDelete(dialog);
    const double deleted = Now();
    const double peak = PeakMegabytes();
    const bool isMet = deleted - begin < kMostSeconds && peak < kMostMegabytes;
    std::printf("%-30s made and shown %6.2f s, deleted %5.2f s, peak %4.0f MB   %-6s %s\n", view.name,
                made - begin, deleted - made, peak, isMet ? "met" : "MISSED", end.c_str());
    return isMet ? 0 : 1;
}

int RunInChild(const char* program, const HostileView& view) {
    std::string command = std::string("\"") + program + "\" " + kChild + " " + view.name;
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION child = {};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &child))
        return 1;
    WaitForSingleObject(child.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(child.hProcess, &code);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return static_cast<int>(code);
}

bool IsNamed(const HostileView& view, int count, char** names) {
    for (int n = 0; n < count; ++n) {
        if (std::strcmp(names[n], view.name) == 0) return true;
    }
    return false;
}

int RunAll(int argumentCount, char** arguments) {
    const bool isChild = argumentCount > 1 && std::strcmp(arguments[1], kChild) == 0;
    int missed = 0;
    for (const HostileView& view : HostileViews()) {
        if (argumentCount > 1 && !IsNamed(view, argumentCount - 1, arguments + 1)) continue;
        missed += isChild ? Run(view) : RunInChild(arguments[0], view);
    }
    return missed == 0 ? 0 : 1;
}

} // namespace
} // namespace bench

int main(int argumentCount, char** arguments) { return bench::RunAll(argumentCount, arguments); }
