// Catches what the shell starts, in a system folder without a browser of its own. This program itself is
// registered as the browser and as the handler of web addresses; started so, it writes its command line into
// a file and ends before any test.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace pavane_test {

// The text of a key's value without a name, for as long as this lives. Without a text the key is missing.
class RegisteredText {
public:
    RegisteredText(HKEY root, std::wstring key, const std::optional<std::wstring>& text);
    RegisteredText(const RegisteredText&) = delete;
    RegisteredText& operator=(const RegisteredText&) = delete;
    ~RegisteredText();

private:
    void Set(const std::optional<std::wstring>& text) const;

    HKEY root;
    std::wstring key;
    std::optional<std::wstring> former;
};

// What a started program was given.
struct StartedProgram {
    std::wstring commandLine;
    int showCommand = 0;
};

class Recorder {
public:
    Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;
    ~Recorder();

    // Registers this program as "iexplore.exe", which nothing else is.
    void ActAsBrowser();
    // Waits for the next program that the shell starts. Nothing if none comes within a minute.
    std::optional<StartedProgram> Next() const;
    // Whether a program was started that Next has not returned.
    bool HasAny() const;

private:
    std::wstring file;
    RegisteredText addresses, secureAddresses;
    std::optional<RegisteredText> asBrowser;
};

} // namespace pavane_test
