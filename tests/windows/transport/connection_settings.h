// The proxy settings of the current user, set for one test and restored after it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace pavane_test {

class ConnectionSettings {
public:
    // Empty texts are not set. Without any the way is direct.
    explicit ConnectionSettings(const std::string& proxy = "", const std::string& scriptUrl = "") {
        RegCreateKeyExW(HKEY_CURRENT_USER,
                        L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections", 0,
                        nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        DWORD size = 0;
        if (RegQueryValueExW(key, kValue, nullptr, nullptr, nullptr, &size) == ERROR_SUCCESS) {
            earlier.resize(size);
            RegQueryValueExW(key, kValue, nullptr, nullptr, earlier.data(), &size);
        }
        Write(proxy, scriptUrl);
    }
    ConnectionSettings(const ConnectionSettings&) = delete;
    ConnectionSettings& operator=(const ConnectionSettings&) = delete;
    ~ConnectionSettings() {
        if (earlier.empty())
            RegDeleteValueW(key, kValue);
        else
            Store(earlier);
        RegCloseKey(key);
    }

    void Write(const std::string& proxy, const std::string& scriptUrl, bool detectsScript = false) const {
        const std::uint32_t flags =
            1u | (proxy.empty() ? 0 : 2) | (scriptUrl.empty() ? 0 : 4) | (detectsScript ? 8 : 0);
        std::vector<BYTE> bytes;
        for (const std::uint32_t number : {0x46u, 0u, flags}) PutNumber(bytes, number);
        for (const std::string& text : {proxy, std::string(), scriptUrl}) {
            PutNumber(bytes, static_cast<std::uint32_t>(text.size()));
            bytes.insert(bytes.end(), text.begin(), text.end());
        }
        bytes.resize(bytes.size() + 32);
        Store(bytes);
    }

private:
    static constexpr wchar_t kValue[] = L"DefaultConnectionSettings";

    static void PutNumber(std::vector<BYTE>& bytes, std::uint32_t number) {
        for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<BYTE>(number >> shift));
    }
    void Store(const std::vector<BYTE>& bytes) const {
        RegSetValueExW(key, kValue, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
    }

    HKEY key = nullptr;
    std::vector<BYTE> earlier;
};

} // namespace pavane_test
