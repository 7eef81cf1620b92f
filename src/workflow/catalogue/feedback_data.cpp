#include "workflow/catalogue/feedback_data.h"

#include "values/unicode/ascii.h"
#include "workflow/context/context_keys.h"
#include "workflow/service/payload.h"
#include "workflow/service/service_call.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr struct {
    const char* element; // of the payload
    const char* key;     // of its text in the bag
    const char* label;
} kFields[] = {
    {"subject", PvnWFKey_FeedbackSubject, "$$$/pvn/feedback/field/subject"},
    {"category", PvnWFKey_FeedbackCategory, "$$$/pvn/feedback/field/category"},
    {"frequency", PvnWFKey_FeedbackFrequency, "$$$/pvn/feedback/field/frequency"},
    {"comment", PvnWFKey_FeedbackComment, "$$$/pvn/feedback/field/comment"},
    {"pixelWidth", PvnWFKey_FeedbackPixelWidth, "$$$/pvn/feedback/field/pixel_width"},
    {"resolution", PvnWFKey_FeedbackResolution, "$$$/pvn/feedback/field/resolution"},
    {"focalLength", PvnWFKey_FeedbackFocalLength, "$$$/pvn/feedback/field/focal_length"},
    {"aspectRatio", PvnWFKey_FeedbackAspectRatio, "$$$/pvn/feedback/field/aspect_ratio"},
    {"aperture", PvnWFKey_FeedbackAperture, "$$$/pvn/feedback/field/aperture"},
    {"exposureTime", PvnWFKey_FeedbackExposureTime, "$$$/pvn/feedback/field/exposure_time"},
    {"brightness", PvnWFKey_FeedbackBrightness, "$$$/pvn/feedback/field/brightness"},
    {"locale", PvnWFKey_PageLocale, "$$$/pvn/feedback/field/locale"},
    {"product", PvnWFKey_ProductName, "$$$/pvn/feedback/field/product"},
    {"log", PvnWFKey_FeedbackLog, "$$$/pvn/feedback/field/log"},
};

constexpr std::size_t kDigitsOfDecimal = 15; // in all, so that no two numbers are the same double
constexpr std::size_t kDigitsOfWhole = 9;
constexpr std::size_t kDigitsOfCount = 9;

bool IsDigits(std::string_view text, std::size_t most) {
    return !text.empty() && text.size() <= most && std::ranges::all_of(text, lyr::gen::IsAsciiDigit<char>);
}

bool IsDecimal(std::string_view text) {
    const std::size_t point = text.find('.');
    if (point == text.npos) return IsDigits(text, kDigitsOfDecimal);
    return text.size() <= kDigitsOfDecimal + 1 && IsDigits(text.substr(0, point), kDigitsOfDecimal) &&
           IsDigits(text.substr(point + 1), kDigitsOfDecimal);
}

bool IsFraction(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == text.npos) return false;
    const std::string_view divisor = text.substr(slash + 1);
    return IsDigits(text.substr(0, slash), kDigitsOfWhole) && IsDigits(divisor, kDigitsOfWhole) &&
           divisor.find_first_not_of('0') != divisor.npos;
}

double ValueOf(std::string_view text) {
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return value;
}

// Of a text of digits alone.
bool ReadCount(const std::string& answer, const char* field, std::uint32_t& count) {
    std::string text;
    if (!ReadPayloadField(answer, "received", field, text) || !IsDigits(text, kDigitsOfCount)) return false;
    std::from_chars(text.data(), text.data() + text.size(), count);
    return true;
}

} // namespace

constexpr OperationTraits kSendFeedbackOperation{"PvnWF_SendFeedback", &SendFeedback, "FeedbackReceived"};

std::optional<std::string> SendableNumber(std::string_view shown) {
    std::string number(shown);
    if (number.starts_with('+')) number.erase(0, 1);
    const std::size_t colon = number.find(':');
    if (colon != number.npos && number.substr(colon) == ":1") number.resize(colon);
    std::ranges::replace(number, ':', '/');
    if (number.starts_with('.') && number.size() > 1) number.insert(0, 1, '0');
    if (number.ends_with('.')) number.pop_back();
    const std::string_view digits = std::string_view(number).substr(number.starts_with('-') ? 1 : 0);
    if (IsDecimal(digits) || IsFraction(number)) return number;
    return std::nullopt;
}

bool IsWhole(std::string_view number) { return IsDigits(number, number.npos); }

bool IsInLimits(std::string_view number, const NumberLimits& limits) {
    if (limits.isWhole && !IsDigits(number, kDigitsOfWhole)) return false;
    const std::size_t slash = number.find('/');
    double value = ValueOf(number.substr(0, slash));
    if (slash != number.npos) value /= ValueOf(number.substr(slash + 1));
    const bool isEnough = limits.isAboveLeast ? value > limits.least : value >= limits.least;
    return isEnough && value <= limits.most;
}

std::vector<FeedbackField> FieldsOfFeedback(T_StorageInterface& bag) {
    std::vector<FeedbackField> fields;
    for (const auto& field : kFields) {
        std::string text = StringOf(bag, field.key);
        if (!text.empty()) fields.push_back({field.element, field.label, std::move(text)});
    }
    return fields;
}

Status SendFeedback(T_StorageInterface& workerBag, const WorkerNotifier& notifier) {
    PayloadWriter payload("feedback");
    const std::vector<FeedbackField> fields = FieldsOfFeedback(workerBag);
    for (const FeedbackField& field : fields) payload.Add(field.element, field.text);
    std::string answer;
    const Status status = CallService(workerBag, "sendFeedback", payload.Text(), answer, notifier);
    if (status != kStatusSuccess) return status;
    std::uint32_t confirmedFields = 0, confirmedBytes = 0;
    if (!ReadCount(answer, "fields", confirmedFields) || !ReadCount(answer, "bytes", confirmedBytes)) {
        return RefuseAnswer(answer);
    }
    SetLong(workerBag, PvnWFKey_FeedbackSentFields, static_cast<std::uint32_t>(fields.size()));
    SetLong(workerBag, PvnWFKey_FeedbackSentBytes, static_cast<std::uint32_t>(payload.Text().size()));
    SetLong(workerBag, PvnWFKey_FeedbackConfirmedFields, confirmedFields);
    SetLong(workerBag, PvnWFKey_FeedbackConfirmedBytes, confirmedBytes);
    return kStatusSuccess;
}

void FeedbackContext::FillWorkerBag(T_StorageInterface& workerValues) {
    OperationContext::FillWorkerBag(workerValues);
    for (const auto& field : kFields) CopyString(*this, workerValues, field.key);
}

std::span<const OperationTraits> FeedbackContext::Operations() const { return {&kSendFeedbackOperation, 1}; }

void FeedbackContext::TakeResults(T_StorageInterface& workerValues) {
    for (const char* key : {PvnWFKey_FeedbackSentFields, PvnWFKey_FeedbackSentBytes,
                            PvnWFKey_FeedbackConfirmedFields, PvnWFKey_FeedbackConfirmedBytes}) {
        CopyLong(workerValues, *this, key);
    }
}

} // namespace brixen::pvn::pvn_workflow
