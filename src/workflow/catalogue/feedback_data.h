// What a user tells the makers of the product, and what the service answers.
#pragma once

#include "workflow/worker/operation_context.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// Strings: what is sent. Written when the user goes on from its page; the log, when the user chooses how
// much, and absent without a choice.
inline constexpr char PvnWFKey_FeedbackSubject[] = "PvnWFKey_FeedbackSubject";
inline constexpr char PvnWFKey_FeedbackCategory[] = "PvnWFKey_FeedbackCategory";
inline constexpr char PvnWFKey_FeedbackFrequency[] = "PvnWFKey_FeedbackFrequency";
inline constexpr char PvnWFKey_FeedbackComment[] = "PvnWFKey_FeedbackComment";
inline constexpr char PvnWFKey_FeedbackPixelWidth[] = "PvnWFKey_FeedbackPixelWidth";
inline constexpr char PvnWFKey_FeedbackResolution[] = "PvnWFKey_FeedbackResolution";
inline constexpr char PvnWFKey_FeedbackFocalLength[] = "PvnWFKey_FeedbackFocalLength";
inline constexpr char PvnWFKey_FeedbackAspectRatio[] = "PvnWFKey_FeedbackAspectRatio";
inline constexpr char PvnWFKey_FeedbackAperture[] = "PvnWFKey_FeedbackAperture";
inline constexpr char PvnWFKey_FeedbackExposureTime[] = "PvnWFKey_FeedbackExposureTime";
inline constexpr char PvnWFKey_FeedbackBrightness[] = "PvnWFKey_FeedbackBrightness";
inline constexpr char PvnWFKey_FeedbackLog[] = "PvnWFKey_FeedbackLog";
// Longs: how many fields that are not empty were sent, and in how many bytes; the same as the service has
// confirmed them.
inline constexpr char PvnWFKey_FeedbackSentFields[] = "PvnWFKey_FeedbackSentFields";
inline constexpr char PvnWFKey_FeedbackSentBytes[] = "PvnWFKey_FeedbackSentBytes";
inline constexpr char PvnWFKey_FeedbackConfirmedFields[] = "PvnWFKey_FeedbackConfirmedFields";
inline constexpr char PvnWFKey_FeedbackConfirmedBytes[] = "PvnWFKey_FeedbackConfirmedBytes";

// The range of a number, as the service has it.
struct NumberLimits {
    double least, most;
    bool isWhole = false;
    bool isAboveLeast = false; // the least itself is out of range
};

// Returns a number as the service takes it, with a point and without groups and exponents, or a fraction of
// two whole numbers: `3:2` becomes `3/2`. `shown` has a point as its decimal sign. Returns nothing for a text
// that is no number.
[[nodiscard]] std::optional<std::string> SendableNumber(std::string_view shown);
// Whether such a number is written as a whole one, without a sign.
[[nodiscard]] bool IsWhole(std::string_view number);
// Whether a number that SendableNumber has returned is in the range.
[[nodiscard]] bool IsInLimits(std::string_view number, const NumberLimits& limits);

// A field that is sent.
struct FeedbackField {
    const char* element; // of the payload
    const char* label;   // a key: how the user reads the field, with ^0 in place of its text
    std::string text;    // UTF-8, of one line or more
};

// Returns what the bag has to send, in the order of the payload. A field without a text is not sent.
[[nodiscard]] std::vector<FeedbackField> FieldsOfFeedback(T_StorageInterface& bag);

// Sends what the bag has, and stores there what was sent and what the service has confirmed.
[[nodiscard]] Status SendFeedback(T_StorageInterface& workerBag, const WorkerNotifier& notifier);

extern const OperationTraits kSendFeedbackOperation;

class FeedbackContext final : public OperationContext {
public:
    using OperationContext::OperationContext;

    void FillWorkerBag(T_StorageInterface& workerValues) override;

protected:
    std::span<const OperationTraits> Operations() const override;
    void TakeResults(T_StorageInterface& workerValues) override;
};

} // namespace brixen::pvn::pvn_workflow
