#include "workflow/platform/resource_platform.h"

#include "values/unicode/text_conversion.h"
#include "workflow/platform/headless/painting_recorder.h"
#include "workflow/platform/headless/resource_recorder.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace brixen::pvn::pvn_workflow::platform {

namespace {

// A file counts as a picture if its signature and the start of its first chunk are those of a PNG.
constexpr std::array<unsigned char, 16> kPngStart = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                     0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t kPngHeaderBytes = 33;

bool IsPng(const char16_t* path) {
    std::string name = lyr::gen::ToUtf8(path, true);
    std::replace(name.begin(), name.end(), '\\', '/');
    std::ifstream file(name, std::ios::binary);
    std::array<char, kPngHeaderBytes> head{};
    file.read(head.data(), head.size());
    return file && std::memcmp(head.data(), kPngStart.data(), kPngStart.size()) == 0;
}

} // namespace

ResourceRecorder& TheResourceRecorder() {
    static ResourceRecorder recorder;
    return recorder;
}

std::u16string LibraryFolder() {
    // Where the system does not name the program, the tests are started in its folder.
    std::error_code problem;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", problem);
    const auto folder = problem ? std::filesystem::current_path() : program.parent_path();
    return folder.generic_u16string().substr(0, kPathUnits - 1);
}

bool StartDecoder() noexcept {
    ResourceRecorder& recorder = TheResourceRecorder();
    if (recorder.refuseDecoder) return false;
    ++recorder.decoderStarts;
    return recorder.decoderRuns = true;
}

void StopDecoder() noexcept { TheResourceRecorder().decoderRuns = false; }

DecodedBitmap DecodeBitmap(const char16_t* path) {
    ResourceRecorder& recorder = TheResourceRecorder();
    if (!recorder.decoderRuns || !IsPng(path)) return {};
    if (++recorder.bitmapsMade == recorder.refuseBitmap) return {};
    const auto bitmap = reinterpret_cast<zeve::NativeBitmap>(recorder.bitmapsMade);
    recorder.liveBitmaps.insert(bitmap);
    return {bitmap, 0};
}

void DeleteBitmap(zeve::NativeBitmap bitmap) noexcept {
    TheResourceRecorder().liveBitmaps.erase(bitmap);
    ThePaintingRecorder().bitmaps.erase(bitmap);
}

} // namespace brixen::pvn::pvn_workflow::platform
