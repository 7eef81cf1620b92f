#include "workflow/catalogue/feedback_panes.h"

#include "dictionaries/translation.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/kept_exception.h"
#include "toolkit/language_tag.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/feedback_data.h"
#include "workflow/catalogue/feedback_views.h"
#include "workflow/catalogue/text_checks.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/number_fields.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/panes/radio_group.h"
#include "workflow/platform/message_numbers.h"

#include <algorithm>
#include <vector>

namespace brixen::pvn::pvn_workflow::feedback {

namespace {

constexpr std::uint16_t kPictureButtons[] = {kContinueButton, kCancelButton};
constexpr std::uint16_t kCaptureButtons[] = {kBackButton, kContinueButton, kCancelButton};
constexpr std::uint16_t kReceivedButtons[] = {kDoneButton};
constexpr std::uint16_t kProblemButtons[] = {kProblemBackButton, kTryAgainButton, kProblemCancelButton};
constexpr std::uint16_t kSettingsButtons[] = {kSettingsBackButton, kUseSettingsButton};

constexpr PageTraits kPictureTraits{"$$$/pvn/feedback/picture/window_title", kPicturePage, kPictureButtons,
                                    kContinueButton};
constexpr PageTraits kCaptureTraits{"$$$/pvn/feedback/capture/window_title", kCapturePage, kCaptureButtons,
                                    kContinueButton};
constexpr PageTraits kReceivedTraits{"$$$/pvn/feedback/received/window_title", kReceivedPage,
                                     kReceivedButtons, kDoneButton};

constexpr FieldAlert kSubjectMissing{"$$$/pvn/alert/subject_missing/title",
                                     "$$$/pvn/alert/subject_missing/text"};
constexpr FieldAlert kCategoryMissing{"$$$/pvn/alert/category_missing/title",
                                      "$$$/pvn/alert/category_missing/text"};
constexpr FieldAlert kNumberMissing{"$$$/pvn/alert/number_missing/title",
                                    "$$$/pvn/alert/number_missing/text"};
constexpr FieldAlert kNumberMalformed{"$$$/pvn/alert/number_malformed/title",
                                      "$$$/pvn/alert/number_malformed/text"};
constexpr FieldAlert kNumberNotWhole{"$$$/pvn/alert/number_not_whole/title",
                                     "$$$/pvn/alert/number_not_whole/text"};
constexpr FieldAlert kNumberGrouped{"$$$/pvn/alert/number_grouped/title",
                                    "$$$/pvn/alert/number_grouped/text"};
constexpr FieldAlert kNumberOutside{"$$$/pvn/alert/number_outside/title",
                                    "$$$/pvn/alert/number_outside/text"};

constexpr std::uint16_t kFrequencies[] = {kOnceRadio, kSometimesRadio, kAlwaysRadio};

constexpr std::int32_t kFocusGap = 2; // between a check box and the frame around it, and for the frame

// In the words of the service.
const char* FrequencyOf(std::uint16_t radio) {
    switch (radio) {
    case kSometimesRadio: return "sometimes";
    case kAlwaysRadio: return "always";
    default: return "once";
    }
}

// The number fields of the page, in its order.
constexpr struct NumberRow {
    std::uint16_t field;
    const char* key;     // of the bag
    const char* label;   // a key
    const char* usual;   // a photographic field takes a logarithm
    NumberLimits limits; // of the service
} kNumbers[] = {
    {kPixelWidthField,
     PvnWFKey_FeedbackPixelWidth,
     "$$$/pvn/feedback/capture/pixel_width",
     "6000",
     {.least = 1, .most = 1'000'000, .isWhole = true}},
    {kResolutionField,
     PvnWFKey_FeedbackResolution,
     "$$$/pvn/feedback/capture/resolution",
     "300",
     {.least = 0.1, .most = 100'000}},
    {kAspectRatioField,
     PvnWFKey_FeedbackAspectRatio,
     "$$$/pvn/feedback/capture/aspect_ratio",
     "3:2",
     {.least = 0, .most = 1'000, .isAboveLeast = true}},
    {kFocalLengthField,
     PvnWFKey_FeedbackFocalLength,
     "$$$/pvn/feedback/capture/focal_length",
     "50/1",
     {.least = 0.1, .most = 100'000}},
    {kApertureField,
     PvnWFKey_FeedbackAperture,
     "$$$/pvn/feedback/capture/aperture",
     "3",
     {.least = 0, .most = 1'000, .isAboveLeast = true}},
    {kExposureTimeField,
     PvnWFKey_FeedbackExposureTime,
     "$$$/pvn/feedback/capture/exposure_time",
     "8",
     {.least = 0, .most = 1'000'000, .isAboveLeast = true}},
    {kBrightnessField,
     PvnWFKey_FeedbackBrightness,
     "$$$/pvn/feedback/capture/brightness",
     "5",
     {.least = -1'000, .most = 1'000}},
};

// Returns what is wrong with the text of a chosen field as a number, whatever its range.
std::optional<FieldAlert> AlertAboutForm(const zeve::ShownNumber& shown, const NumberLimits& limits) {
    if (shown.text.empty()) return kNumberMissing;
    if (shown.mayBeGrouped) return kNumberGrouped;
    const std::optional<std::string> number = SendableNumber(shown.text);
    if (limits.isWhole) return number && IsWhole(*number) ? std::nullopt : std::optional(kNumberNotWhole);
    return number ? std::nullopt : std::optional(kNumberMalformed);
}

// Some languages have the key in parentheses after the words.
std::string WithoutAccessKey(std::string label) {
    const std::size_t key = label.find('&');
    if (key == label.npos) return label;
    const bool isAdded = key > 0 && label[key - 1] == '(' && label.find(')', key) == key + 2;
    return isAdded ? label.erase(key - 1, 4) : label.erase(key, 1);
}

std::uint32_t LongOf(PVNWorkFlowContext& context, const char* key) {
    std::uint32_t number = 0;
    GetLong(context, key, number);
    return number;
}

} // namespace

constexpr PageTraits kSettingsTraits{"$$$/pvn/connection/settings/window_title", connection_settings::kPage,
                                     kSettingsButtons, kUseSettingsButton};
constexpr PageTraits kSendingTraits{"$$$/pvn/feedback/sending/window_title", kSendingPage, {}, kNoButton};
constexpr BusyTraits kSendingBusy{kSendFeedbackOperation, kBusyBar,    kBusyText,
                                  kCancelSendingButton,   kCancelNote, kMessageStartWorker};
constexpr ProblemTraits kProblemTraits{
    .page = {"$$$/pvn/feedback/problem/window_title", kProblemPage, kProblemButtons, kProblemBackButton},
    .text = kProblemText,
    .errorCode = kErrorCodeField,
    .denied = {"$$$/pvn/failure/feedback_denied/what", "$$$/pvn/failure/feedback_denied/try"},
    .kept = "$$$/pvn/feedback/problem/kept",
    .settingsLink = kProblemConnectionLink,
};

PicturePane::PicturePane() : FieldPane(kPictureTraits, kSubjectField) {}

void PicturePane::Enter() {
    if (!isFrequencyMarked) MarkRadioButton(ref, kFrequencies, kOnceRadio);
    isFrequencyMarked = true;
    FieldPane::Enter();
}

bool PicturePane::TakeEntries() {
    if (const std::optional<FieldFault> fault = FaultOfEntries()) {
        ShowFault(*fault);
        return false;
    }
    const std::u16string comment = SendableText(zeve::platform::TextOf(ControlOf(kCommentField)));
    SetString(*context, PvnWFKey_FeedbackSubject, Subject());
    SetString(*context, PvnWFKey_FeedbackCategory, Category());
    SetString(*context, PvnWFKey_FeedbackFrequency, FrequencyOf(MarkedRadioButton(ref, kFrequencies)));
    SetString(*context, PvnWFKey_FeedbackComment, lyr::gen::ToUtf8(comment));
    return true;
}

std::optional<FieldFault> PicturePane::FaultOfEntries() const {
    if (Subject().empty()) return FieldFault{kSubjectField, kSubjectMissing};
    if (Category().empty()) return FieldFault{kCategoryPopup, kCategoryMissing};
    return std::nullopt;
}

std::string PicturePane::Subject() const {
    return lyr::gen::ToUtf8(SendableLine(zeve::platform::TextOf(ControlOf(kSubjectField))));
}

std::string PicturePane::Category() const {
    return zeve::ZeveGetValue(ref, kCategoryPopup, false).text.value_or("");
}

CapturePane::CapturePane() : FieldPane(kCaptureTraits, kPixelWidthField) {}

void CapturePane::Enter() {
    if (!isFilled) ShowUsualValues();
    FieldPane::Enter();
    ShowCheckBoxes(true);
    for (const NumberRow& row : kNumbers) FollowSubCheck(ref, row.field);
}

void CapturePane::Leave() {
    HideFocusFrame();
    ShowCheckBoxes(false);
    FieldPane::Leave();
}

void CapturePane::ShowCheckBoxes(bool visible) {
    for (const NumberRow& row : kNumbers) {
        zeve::platform::ShowOrHide(zeve::ZeveSubControl(ref, row.field), visible);
    }
}

void CapturePane::ShowUsualValues() {
    std::string language;
    GetString(*context, PvnWFKey_Language, language);
    const bool isRightToLeft = zeve::IsRightToLeftLanguage(language);
    for (const NumberRow& row : kNumbers) {
        SetControlText(ref, row.field, row.usual);
        NameSubCheck(ref, row.field,
                     zeve::ZeveTranslate("$$$/pvn/feedback/capture/send",
                                         {std::to_string(&row - kNumbers + 1),
                                          WithoutAccessKey(zeve::ZeveTranslate(row.label))}));
        PlaceSubCheck(ref, row.field, isRightToLeft);
    }
    isFilled = true;
}

zeve::NativeWindow CapturePane::FirstControl() const {
    return IsSubCheckSet(ref, firstFocus) ? ControlOf(firstFocus) : zeve::ZeveSubControl(ref, firstFocus);
}

void CapturePane::OnMessage(const WindowMessage& message) {
    FieldPane::OnMessage(message);
    if (message.number != zeve::kMessageCommand || message.lparam == 0) return;
    for (const NumberRow& row : kNumbers) {
        const zeve::NativeWindow check = zeve::ZeveSubControl(ref, row.field);
        if (reinterpret_cast<std::intptr_t>(check) != message.lparam) continue;
        return OnCheckBox(row.field, NotificationOf(message.wparam).code);
    }
}

void CapturePane::OnCheckBox(std::uint16_t field, std::uint16_t notification) {
    switch (notification) {
    case kNotificationPressed:
        FollowSubCheck(ref, field);
        if (IsSubCheckSet(ref, field)) FocusWhole(field);
        break;
    case kNotificationButtonHasFocus: ShowFocusFrame(field); break;
    case kNotificationButtonLosesFocus: HideFocusFrame(); break;
    default: break;
    }
}

// The system marks the focus of a check box around its text, for which these have no room.
void CapturePane::ShowFocusFrame(std::uint16_t field) {
    if (!ControlOf(kFocusFrame)) {
        zeve::platform::WindowRequest request;
        request.className = u"static";
        request.style = zeve::style::kChild | zeve::style::kStaticFrame;
        request.parent = zeve::ZeveTopWindow(ref);
        request.id = kFocusFrame;
        static_cast<void>(zeve::platform::MakeWindow(request));
    }
    const zeve::platform::Rectangle check = zeve::platform::FrameInParent(zeve::ZeveSubControl(ref, field));
    const zeve::NativeWindow frame = ControlOf(kFocusFrame);
    zeve::platform::MoveTo(frame, check.left - kFocusGap, check.top - kFocusGap,
                           check.Width() + 2 * kFocusGap, check.Height() + 2 * kFocusGap);
    zeve::platform::ShowOrHide(frame, true);
    zeve::ThrowKeptException();
}

void CapturePane::HideFocusFrame() { zeve::platform::ShowOrHide(ControlOf(kFocusFrame), false); }

bool CapturePane::TakeEntries() {
    NumberFieldReader fields(ref);
    std::vector<std::string> numbers; // of the rows, empty for those that are left out
    for (const NumberRow& row : kNumbers) {
        std::string& number = numbers.emplace_back();
        if (!IsSubCheckSet(ref, row.field)) continue;
        const zeve::ShownNumber shown = zeve::ZeveShownNumber(ref, row.field).value_or(zeve::ShownNumber{});
        std::optional<FieldAlert> alert = AlertAboutForm(shown, row.limits);
        if (!alert) {
            static_cast<void>(fields.Read(row.field)); // for its correction
            if (fields.HasCorrected()) return false;
            number = SendableNumber(shown.text).value_or("");
            if (!IsInLimits(number, row.limits)) alert = kNumberOutside;
        }
        if (alert) {
            ShowFault({row.field, *alert});
            return false;
        }
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) SetString(*context, kNumbers[i].key, numbers[i]);
    return true;
}

ReceivedPane::ReceivedPane() : FieldPane(kReceivedTraits) {}

void ReceivedPane::Enter() {
    const std::uint32_t sentFields = LongOf(*context, PvnWFKey_FeedbackSentFields);
    const std::uint32_t sentBytes = LongOf(*context, PvnWFKey_FeedbackSentBytes);
    const std::uint32_t fields = LongOf(*context, PvnWFKey_FeedbackConfirmedFields);
    const std::uint32_t bytes = LongOf(*context, PvnWFKey_FeedbackConfirmedBytes);
    const bool isWhole = fields == sentFields && bytes == sentBytes;
    SetControlText(ref, kReceivedText,
                   zeve::ZeveTranslate("$$$/pvn/feedback/received/confirmed",
                                       {std::to_string(fields), std::to_string(bytes)}) +
                       "\n\n" +
                       zeve::ZeveTranslate(isWhole ? "$$$/pvn/feedback/received/whole"
                                                   : "$$$/pvn/feedback/received/parts",
                                           {std::to_string(sentFields), std::to_string(sentBytes)}));
    FieldPane::Enter();
}

} // namespace brixen::pvn::pvn_workflow::feedback
