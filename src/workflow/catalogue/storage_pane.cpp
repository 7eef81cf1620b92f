#include "workflow/catalogue/storage_pane.h"

#include "dictionaries/translation.h"
#include "frame/log.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/drive_gauge.h"
#include "workflow/catalogue/feedback_data.h"
#include "workflow/catalogue/feedback_rows.h"
#include "workflow/catalogue/feedback_views.h"
#include "workflow/catalogue/log_tail.h"
#include "workflow/context/workflow_context.h"
#include "workflow/controls/my_prog_bar.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/drive.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/service/service_text.h"

#include <algorithm>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow::feedback {

namespace {

namespace toolkit_platform = zeve::platform;

constexpr std::uint16_t kButtons[] = {kBackButton, kSendButton, kCancelButton};
constexpr PageTraits kTraits{"$$$/pvn/feedback/storage/window_title", kStoragePage, kButtons, kNoButton};

constexpr std::size_t kSliderPages = 8;
constexpr std::uint32_t kCaptionPercent = 84; // the rest of the width is enough for the longest number
constexpr std::size_t kListMargin = 8;        // pixels
constexpr std::intptr_t kNoLevel = -1;        // of the gauge, which then shows nothing

// With its last separator.
std::u16string FolderOf(const std::u16string& path) { return path.substr(0, path.find_last_of(u"\\/") + 1); }

// "C:" of a folder on a drive, and the whole folder of any other.
std::u16string DriveName(const std::u16string& folder) {
    const bool hasLetter = folder.size() > 1 && folder[1] == u':';
    return hasLetter ? folder.substr(0, 2) : folder;
}

std::intptr_t Send(zeve::NativeWindow control, std::uint32_t message, std::size_t wparam = 0,
                   std::intptr_t lparam = 0) {
    return toolkit_platform::Send(control, message, wparam, lparam);
}

// A list that shows less than what is sent would not be true: the run ends.
void AddToList(zeve::NativeWindow list, const std::u16string& row) {
    const std::intptr_t index = Send(list, kListAddString, 0, reinterpret_cast<std::intptr_t>(row.c_str()));
    if (index >= 0) return;
    PvnLog("%s: %s: The list of what is sent refuses a row(Answer: %d)\n", kLogComponent, kLogInfo,
           static_cast<int>(index));
    throw std::runtime_error("a list without room for its rows");
}

} // namespace

StoragePane::StoragePane() : FieldPane(kTraits) {}

void StoragePane::Enter() {
    ShowDrive();
    OfferLog();
    firstFocus = log.empty() ? kSentList : kLogSlider;
    FieldPane::Enter();
    SetEnabled(ref, kLogSlider, !log.empty());
    toolkit_platform::ShowOrHide(gauge, true);
}

void StoragePane::Leave() {
    toolkit_platform::ShowOrHide(gauge, false);
    FieldPane::Leave();
}

void StoragePane::ShowDrive() {
    const std::u16string folder = FolderOf(LogFilePath());
    const std::string name = TextForStatic(lyr::gen::ToUtf8(NeutralLine(DriveName(folder))));
    const std::optional<platform::DriveSpace> space = platform::SpaceOfDrive(folder);
    if (!space) {
        SetControlText(ref, kDriveText, zeve::ZeveTranslate("$$$/pvn/feedback/storage/unknown", 0, name));
        if (gauge) Send(gauge, kGaugeSetPosition, 0, kNoLevel); // not that of an earlier visit
        return;
    }
    const DriveGauge drive = GaugeOfDrive(*space);
    const std::string unit = zeve::ZeveTranslate(drive.unitKey);
    SetControlText(
        ref, kDriveText,
        zeve::ZeveTranslate("$$$/pvn/feedback/storage/drive",
                            {name, std::to_string(drive.used), std::to_string(drive.total), unit}));
    ShowGauge(drive.used, drive.total, unit);
}

// The gauge has the place of a control of the view, and follows the text for the keyboard and screen readers.
void StoragePane::ShowGauge(std::uint16_t used, std::uint16_t total, const std::string& unit) {
    const zeve::NativeWindow place = ControlOf(kDrivePlace);
    GaugeCaption caption;
    const std::u16string wide = lyr::gen::ToUtf16(unit, true);
    wide.copy(caption.text, GaugeCaption::kCopiedUnits - 1);
    caption.percent = kCaptionPercent;
    SetGaugeCaption(caption);
    if (!gauge) {
        gauge = MakeGauge(zeve::ZeveTopWindow(ref), kDriveGauge, toolkit_platform::FrameInParent(place));
        toolkit_platform::PutBefore(gauge, place);
    }
    SetVisible(ref, kDrivePlace, false); // it would paint over the gauge
    Send(gauge, kGaugeSetRange, 0, total);
    Send(gauge, kGaugeSetPosition, 0, used);
}

void StoragePane::OfferLog() {
    const zeve::NativeWindow slider = ControlOf(kLogSlider);
    log = ReadLogTail();
    const std::size_t kib = KiBOf(log), page = kib / kSliderPages + 1;
    AddTabStop(ref, kLogSlider);
    Send(slider, kSliderSetLargest, zeve::kPaintAnew, static_cast<std::intptr_t>(kib));
    Send(slider, kSliderSetPage, 0, static_cast<std::intptr_t>(page));
    Send(slider, kSliderSetTickDistance, page);
    TakeLog(std::min(kibOfLog, kib));
    Send(slider, kSliderSetPosition, zeve::kPaintAnew, static_cast<std::intptr_t>(kibOfLog));
}

void StoragePane::OnMessage(const WindowMessage& message) {
    FieldPane::OnMessage(message);
    if (message.number != kMessageHorizontalScroll) return;
    const auto kib = static_cast<std::size_t>(Send(ControlOf(kLogSlider), kSliderGetPosition));
    if (kib != kibOfLog) TakeLog(kib);
}

void StoragePane::TakeLog(std::size_t kib) {
    kibOfLog = kib;
    if (kib == 0) {
        context->Remove(PvnWFKey_FeedbackLog, kValueTypeString);
    } else {
        SetString(*context, PvnWFKey_FeedbackLog, lyr::gen::ToUtf8(TailOfLog(log, kib)));
    }
    SetControlText(ref, kLogText,
                   zeve::ZeveTranslate("$$$/pvn/feedback/storage/kib", 0, std::to_string(kib)));
    FillList();
}

void StoragePane::FillList() {
    const zeve::NativeWindow list = ControlOf(kSentList);
    const toolkit_platform::TextMeter meter(reinterpret_cast<zeve::NativeFont>(Send(list, kMessageGetFont)));
    std::int32_t width = 0;
    Send(list, kMessageSetRedraw, false);
    Send(list, kListResetContent);
    for (const std::u16string& row : RowsOfFeedback(*context)) {
        AddToList(list, row);
        width = std::max(width, meter.MeasureText(row).width);
    }
    Send(list, kListSetExtent, static_cast<std::size_t>(width) + kListMargin);
    Send(list, kMessageSetRedraw, true);
    toolkit_platform::Invalidate(list);
}

} // namespace brixen::pvn::pvn_workflow::feedback
