// What the frame asks of the system. Nothing throws but DescribeHostProgram. Any thread may call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <span>
#include <string>

namespace brixen::pvn {

inline constexpr std::size_t kPathLimit = 260; // UTF-16 units, including the terminator

// Writes the user's temporary folder, with its last separator and a NUL. Returns its length in UTF-16 units
// without the NUL. The length is 0 when there is no such folder and kPathLimit or more when it does not fit;
// the buffer is undefined then.
[[nodiscard]] std::size_t GetTemporaryFolder(std::span<char16_t, kPathLimit> folder) noexcept;
// Opens a text file that other processes may read and write at the same time; without `append` it is emptied.
// Returns null on failure. The caller closes it.
[[nodiscard]] std::FILE* OpenSharedFile(const char16_t* path, bool append) noexcept;
// Returns the size in bytes, or -1 when there is no such file.
[[nodiscard]] std::int64_t SizeOfFile(const char16_t* path) noexcept;

// Returns the milliseconds since the system started, wrapping at 32 bits.
[[nodiscard]] std::uint32_t TickCount() noexcept;
[[nodiscard]] std::uint32_t CurrentProcessNumber() noexcept;
// Returns all fields 0 for a time that the calendar does not have.
[[nodiscard]] std::tm LocalTime(std::time_t time) noexcept;

// Keeps the library loaded until the process ends, however often it is freed. Harmless when repeated.
void PinLibrary() noexcept;

using NativeThread = struct NativeThreadTag*;
using ThreadRoutine = unsigned long (*)(void* argument); // returns the exit code; must not throw

// Starts a thread. Returns null when the system refuses. The caller closes the handle, which neither stops
// nor waits for the thread.
[[nodiscard]] NativeThread StartThread(ThreadRoutine routine, void* argument) noexcept;
void CloseThread(NativeThread thread) noexcept;
// Waits until the thread has ended. Returns false, and leaves exitCode alone, when the time runs out first.
[[nodiscard]] bool WaitForThread(NativeThread thread, std::uint32_t milliseconds,
                                 unsigned long* exitCode) noexcept;
// Lets other threads run, for a loop that waits for one of them.
void YieldThread() noexcept;

// A Windows language identifier: the low 10 bits are the language, the others the country. 0 is none.
using LanguageIdentifier = std::uint16_t;

// Returns the language in which the system speaks to the user on the calling thread.
[[nodiscard]] LanguageIdentifier ThreadLanguage() noexcept;
// Writes the system's name of a language, such as "he-IL": ASCII, NUL-terminated; empty when it has none.
inline constexpr std::size_t kLocaleNameSize = 85;
void GetLocaleName(LanguageIdentifier language, std::span<char, kLocaleNameSize> name) noexcept;

// The names of the program that loaded the library, in UTF-8; a name that it lacks is empty.
struct HostProgram {
    std::string productName;     // from its version resource
    std::string fileDescription; // from its version resource
    std::string fileName;        // without folder
};
// Throws std::bad_alloc.
[[nodiscard]] HostProgram DescribeHostProgram();

} // namespace brixen::pvn
