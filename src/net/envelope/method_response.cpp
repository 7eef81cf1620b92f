#include "net/envelope/method_response.h"

#include "frame/log.h"
#include "net/envelope/hexadecimal.h"
#include "values/markup/document.h"
#include "values/unicode/character_borders.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace brixen::pvn {
namespace {

using lyr::gen::CMarkupSTL;

// Each function that parses begins inside its element, before its first child. Its caller leaves the element.

// Moves to the next element with exactly this tag name.
bool FindNext(CMarkupSTL& markup, std::string_view tag) {
    while (markup.FindElem()) {
        if (markup.GetTagName() == tag) return true;
    }
    return false;
}

// Returns null when there is no value of a known type.
std::unique_ptr<PVN_RPCParam> ParseValue(CMarkupSTL& markup) {
    if (!markup.FindElem()) return nullptr;
    const std::string type = markup.GetTagName();
    std::unique_ptr<PVN_RPCParam> param;
    if (type == "utf8_string")
        param = std::make_unique<PVN_RPCUtf8Param>(nullptr, markup.GetData().c_str());
    else if (type == "integer")
        param = std::make_unique<PVN_RPCInt32Param>(nullptr, markup.GetData().c_str());
    if (param && !param->IsValid()) param.reset();
    return param;
}

int ParseParam(CMarkupSTL& markup, PVN_RPCParamVector& out) {
    std::string name;
    std::unique_ptr<PVN_RPCParam> param;
    while (markup.FindElem()) {
        const std::string tag = markup.GetTagName();
        if (tag == "name") {
            name = markup.GetData();
        } else if (tag == "value") {
            markup.IntoElem();
            param = ParseValue(markup);
            markup.OutOfElem();
            if (!param) break;
        }
    }
    if (!param) return kResponseBadParam;
    param->SetName(name.c_str());
    out.push_back(param.get());
    static_cast<void>(param.release()); // belongs to the vector now
    return kResponseParsed;
}

int ParseParams(CMarkupSTL& markup, PVN_RPCParamVector& out) {
    int result = kResponseParsed;
    while (result == kResponseParsed && FindNext(markup, "param")) {
        markup.IntoElem();
        result = ParseParam(markup, out);
        markup.OutOfElem();
    }
    return result;
}

// Replaces `out` by the bytes of a hexadecimal text. A payload is text, so it ends at its first zero byte.
void DecodePayload(std::string_view digits, std::string& out) {
    out.resize(digits.size() % 2 == 0 ? digits.size() / 2 : 0);
    // What cannot be decoded stays zero.
    static_cast<void>(DecodeHexadecimal(digits.data(), out.data(), out.size()));
    out.resize(std::strlen(out.c_str()));
}

} // namespace

int ParseMethodResponse(const char* text, PVN_RPCParamVector& out) {
    if (!text || !out.empty()) return kResponseBadCall;
    out.ownsItems = true;
    CMarkupSTL markup;
    markup.SetDoc(text);
    if (!markup.IsWellFormed()) return kResponseNotWellFormed;
    if (!markup.FindElem() || markup.GetTagName() != "methodResponse") return kResponseWrongRoot;
    markup.IntoElem();
    int result = kResponseParsed;
    while (result == kResponseParsed && FindNext(markup, "params")) {
        markup.IntoElem();
        result = ParseParams(markup, out);
        markup.OutOfElem();
    }
    return result;
}

Status ReadPayloadResponse(const char* responseText, const char* responseParamName, std::string& out) {
    out.clear();
    PVN_RPCParamVector params;
    // The vector holds what could be read.
    static_cast<void>(ParseMethodResponse(responseText, params));
    const std::string_view wanted = responseParamName ? responseParamName : "";
    const auto found = std::ranges::find_if(params, [wanted](const PVN_RPCParam* param) {
        return std::string_view(param->GetName()).starts_with(wanted);
    });
    if (found == params.end()) return kStatusUnexpectedContent;
    try {
        DecodePayload((*found)->GetValue(), out);
    } catch (const std::bad_alloc&) {
        out.clear();
    }
    return kStatusSuccess;
}

void LogUnknownResponse(const std::string& responseText) noexcept {
    std::string_view shown = lyr::gen::CutToBytes(responseText, kLongestLoggedResponse);
    // More bytes than a character has are none, and stay.
    constexpr std::size_t kLongestCharacter = 4;
    if (std::min(responseText.size(), kLongestLoggedResponse) - shown.size() >= kLongestCharacter) {
        shown = std::string_view(responseText).substr(0, kLongestLoggedResponse);
    }
    char rest[64] = "";
    const std::size_t hidden = responseText.size() - shown.size();
    if (hidden > 0) std::snprintf(rest, sizeof rest, "\n... and %zu more bytes", hidden);
    PvnLog("%s: %s: \n\n----- unknown rpc response -----\n%.*s%s\n---------------------\n\n", kLogComponent,
           kLogInfo, static_cast<int>(shown.size()), shown.data(), rest);
}

} // namespace brixen::pvn
