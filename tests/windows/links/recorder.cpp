#include "windows/links/recorder.h"

namespace pavane_test {

namespace {

constexpr wchar_t kFileVariable[] = L"PAVANE_RECORDER_FILE";
constexpr wchar_t kBrowserKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\iexplore.exe";
constexpr DWORD kPatience = 60000; // milliseconds

std::wstring Variable(const wchar_t* name) {
    wchar_t text[MAX_PATH] = {};
    return GetEnvironmentVariableW(name, text, MAX_PATH) < MAX_PATH ? text : L"";
}

// The file appears complete: it is written under another name.
void WriteRecord(const std::wstring& file) {
    const std::wstring unfinished = file + L".part";
    STARTUPINFOW info = {};
    GetStartupInfoW(&info);
    const std::wstring text = std::to_wstring(info.wShowWindow) + L"\n" + GetCommandLineW();
    const HANDLE handle =
        CreateFileW(unfinished.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(handle, text.data(), static_cast<DWORD>(text.size() * sizeof(wchar_t)), &written, nullptr);
    CloseHandle(handle);
    MoveFileW(unfinished.c_str(), file.c_str());
}

// A test sets the variable for itself, and the programs that it starts inherit it. The test's own process has
// passed this place before.
const bool gIsRecorder = [] {
    const std::wstring file = Variable(kFileVariable);
    if (file.empty()) return false;
    WriteRecord(file);
    ExitProcess(0);
}();

std::optional<std::wstring> ReadText(HKEY root, const std::wstring& key) {
    wchar_t text[1024] = {};
    LONG size = sizeof text;
    if (RegQueryValueW(root, key.c_str(), text, &size) != ERROR_SUCCESS) return {};
    return text;
}

std::wstring OwnPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::wstring TemporaryFile() {
    wchar_t path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, path);
    return std::wstring(path) + L"pavane_started_" + std::to_wstring(GetCurrentProcessId());
}

std::wstring CommandOfAddresses() { return L"\"" + OwnPath() + L"\" url \"%1\""; }

} // namespace

RegisteredText::RegisteredText(HKEY itsRoot, std::wstring itsKey, const std::optional<std::wstring>& text)
    : root(itsRoot), key(std::move(itsKey)), former(ReadText(root, key)) {
    Set(text);
}

RegisteredText::~RegisteredText() { Set(former); }

void RegisteredText::Set(const std::optional<std::wstring>& text) const {
    if (!text) {
        RegDeleteKeyW(root, key.c_str());
        return;
    }
    HKEY opened = nullptr;
    RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr);
    const auto size = static_cast<DWORD>((text->size() + 1) * sizeof(wchar_t));
    RegSetValueExW(opened, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text->c_str()), size);
    RegCloseKey(opened);
}

Recorder::Recorder()
    : file(TemporaryFile()),
      addresses(HKEY_LOCAL_MACHINE, L"Software\\Classes\\http\\shell\\open\\command", CommandOfAddresses()),
      secureAddresses(HKEY_LOCAL_MACHINE, L"Software\\Classes\\https\\shell\\open\\command",
                      CommandOfAddresses()) {
    SetEnvironmentVariableW(kFileVariable, file.c_str());
    DeleteFileW(file.c_str());
    asBrowser.emplace(HKEY_LOCAL_MACHINE, kBrowserKey, std::nullopt);
}

Recorder::~Recorder() {
    SetEnvironmentVariableW(kFileVariable, nullptr);
    DeleteFileW(file.c_str());
}

void Recorder::ActAsBrowser() {
    asBrowser.reset();
    asBrowser.emplace(HKEY_LOCAL_MACHINE, kBrowserKey, OwnPath());
}

bool Recorder::HasAny() const { return GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::optional<StartedProgram> Recorder::Next() const {
    for (const DWORD start = GetTickCount(); !HasAny(); Sleep(10)) {
        if (GetTickCount() - start > kPatience) return {};
    }
    wchar_t text[2048] = {};
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD read = 0;
    ReadFile(handle, text, sizeof text - sizeof(wchar_t), &read, nullptr);
    CloseHandle(handle);
    DeleteFileW(file.c_str());
    const std::wstring all = text;
    const std::size_t line = all.find(L'\n');
    return StartedProgram{all.substr(line + 1), std::stoi(all.substr(0, line))};
}

} // namespace pavane_test
