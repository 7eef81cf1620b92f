#include "tools/compile_command.h"

#include "tools/dictionary_compiler.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace pavane_tools {
namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kBadSource = 1;
constexpr int kFailed = 2; // wrong usage, or a file that cannot be read or written

std::optional<std::string> ReadFile(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad()) return std::nullopt;
    return bytes;
}

// Writes a file beside the target first, so that no other program reads half a file.
bool WriteFile(const fs::path& path, const std::string& bytes) {
    std::error_code error;
    if (path.has_parent_path()) fs::create_directories(path.parent_path(), error);
    fs::path fresh = path;
    fresh += ".new";
    std::ofstream file(fresh, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (file) fs::rename(fresh, path, error);
    if (file && !error) return true;
    fs::remove(fresh, error);
    return false;
}

void PrintRemarks(const std::string& source, const CompiledDictionary& compiled, std::ostream& messages) {
    for (const LineRemark& remark : compiled.remarks) {
        messages << source << ':' << remark.line << (remark.isError ? ": error: " : ": warning: ")
                 << remark.message << '\n';
    }
}

} // namespace

int RunCompileCommand(const std::vector<std::string>& arguments, std::ostream& messages) {
    if (arguments.size() != 2) {
        messages << "usage: pavane-compile SOURCE TARGET\n";
        return kFailed;
    }
    const std::string& source = arguments[0];
    const std::string& target = arguments[1];
    const auto text = ReadFile(source);
    if (!text) {
        messages << source << ": cannot be read\n";
        return kFailed;
    }
    const CompiledDictionary compiled = CompileDictionary(*text);
    PrintRemarks(source, compiled, messages);
    if (!compiled.IsGood()) return kBadSource;
    if (WriteFile(target, compiled.bytes)) return kDone;
    messages << target << ": cannot be written\n";
    return kFailed;
}

} // namespace pavane_tools
