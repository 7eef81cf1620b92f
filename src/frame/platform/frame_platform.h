// What the frame asks of the system. Nothing throws but DescribeHostProgram.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <span>
#include <string>

namespace brixen::pvn {

inline constexpr std::size_t kPathLimit = 260; // UTF-16 units, the terminator among them

// The user's temporary folder, with its last separator and a NUL. Returns its length in UTF-16 units without
// the NUL: 0 when it cannot be had, kPathLimit or more when it does not fit (the buffer is undefined in
// both).
std::size_t GetTemporaryFolder(std::span<char16_t, kPathLimit> folder) noexcept;
// Opens a text file that other processes may read and write at the same time. Null when that fails.
std::FILE* OpenSharedFile(const char16_t* path, bool append) noexcept;
// In bytes; -1 when there is no such file.
std::int64_t SizeOfFile(const char16_t* path) noexcept;

// Milliseconds since the system started, wrapping at 32 bits.
std::uint32_t TickCount() noexcept;
std::uint32_t CurrentProcessNumber() noexcept;
// All fields 0 when the time cannot be told.
std::tm LocalTime(std::time_t time) noexcept;

using NativeThread = struct NativeThreadTag*;
using ThreadRoutine = unsigned long (*)(void* argument); // returns the exit code; must not throw

// Null when the system refuses. The caller closes the handle; that neither stops nor waits for the thread.
NativeThread StartThread(ThreadRoutine routine, void* argument) noexcept;
void CloseThread(NativeThread thread) noexcept;
// Waits until the thread has ended. False, and exitCode as it was, when the time runs out first.
bool WaitForThread(NativeThread thread, std::uint32_t milliseconds, unsigned long* exitCode) noexcept;
// Lets other threads run, for a loop that waits for one of them.
void YieldThread() noexcept;

// Windows language identifiers: the low 10 bits are the language, the others the country. 0 is none.
using LanguageIdentifier = std::uint16_t;

// The language in which the system speaks to the user on the calling thread.
LanguageIdentifier ThreadLanguage() noexcept;
// The system's name for a language, such as "he-IL": ASCII, NUL-terminated. Empty when it has none.
inline constexpr std::size_t kLocaleNameSize = 85;
void GetLocaleName(LanguageIdentifier language, std::span<char, kLocaleNameSize> name) noexcept;

// What the program that loaded the library calls itself, in UTF-8; a text that it lacks is empty.
struct HostProgram {
    std::string productName;     // from its version resource
    std::string fileDescription; // from its version resource
    std::string fileName;        // without folder
};
// Throws std::bad_alloc.
HostProgram DescribeHostProgram();

} // namespace brixen::pvn
