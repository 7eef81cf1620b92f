// Reads any bytes as an answer: the result is one of the documented ones, and each parameter is whole. Then
// sends the bytes as a payload and reads them back.
#include "net/envelope/method_call.h"
#include "net/envelope/method_response.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using namespace brixen::pvn;

void ReadAsAnswer(const std::string& text) {
    PVN_RPCParamVector params;
    const int result = ParseMethodResponse(text.c_str(), params);
    if (result > kResponseParsed || result < kResponseBadParam || result == -2) std::abort();
    for (const PVN_RPCParam* const param : params) {
        if (!param->IsValid() || std::strlen(param->GetName()) > 40) std::abort();
        std::string payload;
        const Status status = ReadPayloadResponse(text.c_str(), param->GetName(), payload);
        if (status != kStatusSuccess || payload.find('\0') != payload.npos) std::abort();
    }
}

void SendAndReadBack(const std::string& bytes) {
    std::string text;
    if (BuildPayloadCall(bytes.c_str(), "method", "reply", text) != kStatusSuccess) std::abort();
    text.replace(text.find("<methodCall>"), 12, "<methodResponse>");
    text.replace(text.find("</methodCall>"), 13, "</methodResponse>");
    std::string payload;
    if (ReadPayloadResponse(text.c_str(), "reply", payload) != kStatusSuccess) std::abort();
    if (payload != bytes.substr(0, bytes.find('\0'))) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length) {
    const std::string text(reinterpret_cast<const char*>(bytes), length);
    ReadAsAnswer(text);
    SendAndReadBack(text);
    return 0;
}
