#include "workflow/catalogue/feedback.h"

#include "net/transport/communication_detail.h"
#include "support/languages.h"
#include "support/temporary_folder.h"
#include "toolkit/control_styles.h"
#include "toolkit/language_tag.h"
#include "unit/workflow/catalogue/service_workflow_fixture.h"
#include "unit/workflow/without_memory.h"
#include "workflow/catalogue/connection_settings_views.h"
#include "workflow/catalogue/feedback_rows.h"
#include "workflow/catalogue/feedback_views.h"
#include "workflow/controls/my_prog_bar.h"
#include "workflow/platform/headless/control_class_recorder.h"
#include "workflow/platform/headless/drive_recorder.h"
#include "workflow/run_workflow.h"

#include <fstream>
#include <map>
#include <set>
#include <stdexcept>

namespace brixen::pvn::pvn_workflow {
namespace {

using namespace feedback;
using connection_settings::kHostField;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;

constexpr Status kDenied = 0x8501, kUnavailable = 0x8502;
constexpr std::intptr_t kListNoSpace = -2; // LB_ERRSPACE
constexpr std::uint16_t kNumberFields[] = {kPixelWidthField,  kResolutionField, kAspectRatioField,
                                           kFocalLengthField, kApertureField,   kExposureTimeField,
                                           kBrightnessField};

// The twin keeps no lists and no sliders: the test does.
class Feedback : public ServiceWorkFlow<PVNFeedbackWorkFlow> {
protected:
    Feedback() {
        platform::TheDriveRecorder().Reset();
        platform::TheControlClassRecorder().Reset();
        TheGaugeData() = {};
        TakeTemporaryFolder();
        System().answer = [this](const zeve::headless::Message& message) { return Answer(message); };
    }
    ~Feedback() override {
        platform::TheDriveRecorder().Reset();
        platform::TheControlClassRecorder().Reset();
    }

    // ServiceWorkFlow has set the twin of the frame anew.
    void TakeTemporaryFolder() { GetFrameTwin().temporaryFolder = (folder / "").u16string(); }
    void WriteLog(const std::string& text) { std::ofstream(folder / "pvn.log", std::ios::binary) << text; }

    std::optional<std::intptr_t> Answer(const zeve::headless::Message& message) {
        switch (message.number) {
        case kListResetContent: list.clear(); return 0;
        case kListAddString:
            if (rowsUntilRefusal-- == 0) return kListNoSpace;
            list.push_back(lyr::gen::ToUtf8(reinterpret_cast<const char16_t*>(message.lparam)));
            return 0;
        case kSliderSetLargest: largest = message.lparam; return 0;
        case kSliderSetPosition: position = message.lparam; return 0;
        case kSliderGetPosition: return position;
        case kGaugeSetRange: gaugeRange = message.lparam; return 0;
        case kGaugeSetPosition: gaugePosition = message.lparam; return 0;
        default: return std::nullopt;
        }
    }

    // The texts that the worker got, without those that are absent.
    std::map<std::string, std::string> TextsOfWorker() {
        std::map<std::string, std::string> texts;
        for (const char* const key :
             {PvnWFKey_FeedbackSubject, PvnWFKey_FeedbackCategory, PvnWFKey_FeedbackFrequency,
              PvnWFKey_FeedbackComment, PvnWFKey_FeedbackPixelWidth, PvnWFKey_FeedbackResolution,
              PvnWFKey_FeedbackFocalLength, PvnWFKey_FeedbackAspectRatio, PvnWFKey_FeedbackAperture,
              PvnWFKey_FeedbackExposureTime, PvnWFKey_FeedbackBrightness, PvnWFKey_FeedbackLog,
              PvnWFKey_PageLocale, PvnWFKey_ProductName, PvnWFKey_ServiceUrl, PvnWFKey_ProxyHost,
              PvnWFKey_ProxyUserName}) {
            std::string text;
            if (GetString(context->workerBag->values, key, text)) texts[key] = text;
        }
        return texts;
    }

    // --- What the user does

    void ThenFindDialog() {
        Then([this] {
            void* found = nullptr;
            GetPtr(bag, PvnWFKey_ZeveRef, found);
            dialog = static_cast<zeve::ZeveDialog*>(found);
        });
    }
    void ThenSelectCategory(std::string category) {
        Then([this, category] {
            zeve::EventRecord record;
            record.StorePointer(zeve::kKeySetValue, category.c_str());
            zeve::ZeveSetValue(dialog, kCategoryPopup, record);
        });
    }
    void ThenFillPicture() {
        ThenFindDialog();
        ThenType(kSubjectField, u" Gray sky ");
        ThenSelectCategory("quality");
        ThenType(kCommentField, u"Too gray.\r\nSee the corner.");
    }
    Window CheckBoxOf(std::uint16_t field) const { return zeve::ZeveSubControl(dialog, field); }
    // The check box reports it, and has changed by itself before.
    void ThenSetCheckBox(std::uint16_t field, bool isSet = true) {
        Then([this, field, isSet] {
            const Window check = CheckBoxOf(field);
            zeve::platform::Send(check, zeve::kButtonSetCheck, isSet ? zeve::kChecked : 0, 0);
            TellOf(check, kNotificationPressed);
        });
    }
    static void TellOf(Window control, std::uint16_t notification) {
        const std::uint16_t id = zeve::headless::FindWindow(control)->id;
        Tell(TopDialog(), zeve::kMessageCommand, std::uintptr_t{notification} << 16 | id,
             reinterpret_cast<std::intptr_t>(control));
    }
    void ThenTypeNumber(std::uint16_t field, std::u16string text) {
        ThenSetCheckBox(field);
        ThenType(field, std::move(text));
    }
    // On the page of the capture data: the number is taken, and its line ends with `sent`. Clears the field.
    void ThenTakeNumber(std::uint16_t field, std::u16string typed, std::string sent) {
        ThenTypeNumber(field, std::move(typed));
        ThenFindSent(field, std::move(sent));
    }
    void ThenFindSent(std::uint16_t field, std::string sent) {
        ThenPress(kContinueButton);
        ThenExpectPane("feedback/storage");
        Then([this, sent] { EXPECT_THAT(list, Contains(testing::EndsWith(": " + sent))); });
        ThenPress(kBackButton);
        ThenSetCheckBox(field, false);
    }
    // The number is corrected once, and what the field then shows is taken.
    void ThenCorrectNumber(std::uint16_t field, std::u16string typed, std::string shown, std::string sent) {
        Then([] { System().calls.clear(); });
        ThenTypeNumber(field, std::move(typed));
        ThenPress(kContinueButton);
        ThenExpectPane("feedback/capture");
        ThenExpectText(field, std::move(shown));
        ThenExpectFocus(field);
        ThenFindSent(field, std::move(sent));
        Then([] { EXPECT_EQ(zeve::headless::CallsOf("ShowErrorMessage").size(), 1u); });
    }
    // The text is refused in the pane's own words, and stays as it is.
    void ThenRefuseNumber(std::uint16_t field, std::u16string typed, const char* alert) {
        Then([] { System().calls.clear(); });
        ThenTypeNumber(field, typed);
        ThenPress(kContinueButton);
        ThenExpectAlert(alert, field);
        ThenExpectText(field, lyr::gen::ToUtf8(typed));
        Then([] { EXPECT_TRUE(zeve::headless::CallsOf("ShowErrorMessage").empty()); });
        ThenSetCheckBox(field, false);
    }
    void ThenEndOnCapture() {
        ThenExpectPane("feedback/capture");
        ThenPressEsc();
        EXPECT_EQ(Run(), kStatusUserCancel);
    }
    void ThenMoveSliderTo(std::intptr_t kib) {
        Then([this, kib] {
            position = kib;
            Tell(TopDialog(), kMessageHorizontalScroll, 4,
                 reinterpret_cast<std::intptr_t>(Control(kLogSlider)->handle));
        });
    }
    void ThenGoToCapture() {
        ThenFillPicture();
        ThenPress(kContinueButton);
    }
    void ThenGoToStorage() {
        ThenGoToCapture();
        ThenPress(kContinueButton);
    }
    void ThenSend() {
        ThenGoToStorage();
        ThenStart(kSendButton);
    }
    void ThenFail(Status status) {
        ThenSend();
        ThenEndWith(status);
    }
    void ThenReceive(std::uint32_t confirmedFields, std::uint32_t confirmedBytes) {
        ThenEndWith(kStatusSuccess, [=](T_StorageInterface& workerBag) {
            SetLong(workerBag, PvnWFKey_FeedbackSentFields, 6);
            SetLong(workerBag, PvnWFKey_FeedbackSentBytes, 300);
            SetLong(workerBag, PvnWFKey_FeedbackConfirmedFields, confirmedFields);
            SetLong(workerBag, PvnWFKey_FeedbackConfirmedBytes, confirmedBytes);
        });
    }
    // Does something on the page of the capture data, goes on, and returns the lines of the list.
    std::vector<std::string> ListAfter(const std::function<void()>& thenAct) {
        ThenGoToCapture();
        thenAct();
        ThenPress(kContinueButton);
        ThenExpectPane("feedback/storage");
        ThenPressEsc();
        EXPECT_EQ(Run(), kStatusUserCancel);
        return list;
    }
    // The same with one number, and returns the text of its line; "none" without one.
    std::string SentNumber(std::uint16_t field, std::u16string text, const std::string& word) {
        const std::string start =
            Word("feedback/field/" + word).substr(0, Word("feedback/field/" + word).find('^'));
        for (const std::string& line : ListAfter([&] { ThenTypeNumber(field, text); })) {
            if (line.starts_with(start)) return line.substr(start.size());
        }
        return "none";
    }

    const pavane_test::TemporaryFolder folder; // of the log
    std::vector<std::string> list;
    std::intptr_t largest = -1, position = 0; // of the slider
    std::intptr_t gaugeRange = -1, gaugePosition = -1;
    int rowsUntilRefusal = -1; // of the list; below 0 it refuses none
    zeve::ZeveDialog* dialog = nullptr;
};

TEST_F(Feedback, WalkedToItsEndIsASuccessWithWhatTheServiceConfirmed) {
    ThenExpectPane("feedback/picture");
    ThenExpectShown(
        {kSubjectField, kCategoryPopup, kOnceRadio, kCommentField, kContinueButton, kCancelButton});
    ThenExpectHidden({kBackButton, kSendButton, kPixelWidthField, kLogSlider, kBusyBar, kDoneButton});
    ThenGoToCapture();
    ThenExpectPane("feedback/capture");
    ThenExpectShown({kBackButton, kContinueButton, kCancelButton, kPixelWidthField, kBrightnessField});
    ThenExpectHidden({kSubjectField, kSendButton, kLogSlider});
    ThenPress(kContinueButton);
    ThenExpectPane("feedback/storage");
    ThenExpectShown({kBackButton, kSendButton, kCancelButton, kLogSlider, kSentList, kDriveGauge});
    ThenExpectHidden({kContinueButton, kPixelWidthField});
    ThenStart(kSendButton);
    ThenExpectPane("feedback/sending");
    ThenExpectShown({kBusyBar, kBusyText, kCancelSendingButton, kCancelNote});
    ThenExpectBusy(kBusyBar, kMessageStartWorker);
    ThenExpectHidden({kDriveGauge, kLogSlider, kSendButton, kCancelButton});
    ThenReceive(6, 300);
    ThenExpectPane("feedback/received");
    ThenExpectText(kReceivedText, "Thank you. The service has confirmed 6 fields and 300 bytes.\n\n" +
                                      Word("feedback/received/whole"));
    ThenExpectShown({kDoneButton});
    ThenExpectHidden({kBackButton, kCancelSendingButton});
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredLong(PvnWFKey_FeedbackConfirmedBytes), 300u);
}

TEST_F(Feedback, ALossIsShown) {
    for (const auto& [fields, bytes] : {std::pair{5u, 300u}, std::pair{6u, 299u}}) {
        ThenSend();
        ThenReceive(fields, bytes);
        ThenExpectText(kReceivedText,
                       "Thank you. The service has confirmed " + std::to_string(fields) + " fields and " +
                           std::to_string(bytes) +
                           " bytes.\n\nThat is not the same as what was sent: 6 fields and 300 bytes. "
                           "If it matters, send your feedback again later.");
        ThenPressEsc();
        EXPECT_EQ(Run(), kStatusSuccess);
    }
}

TEST_F(Feedback, TheWorkerGetsExactlyWhatTheListShows) {
    WriteLog("first\nlast\n");
    ThenGoToCapture();
    ThenSetCheckBox(kApertureField);
    ThenTypeNumber(kPixelWidthField, u"4000 px");
    ThenPress(kContinueButton);
    ThenMoveSliderTo(1);
    ThenStart(kSendButton);
    Then([this] {
        const std::map<std::string, std::string> expected = {
            {PvnWFKey_FeedbackSubject, "Gray sky"},
            {PvnWFKey_FeedbackCategory, "quality"},
            {PvnWFKey_FeedbackFrequency, "once"},
            {PvnWFKey_FeedbackComment, "Too gray.\nSee the corner."},
            {PvnWFKey_FeedbackPixelWidth, "4000"},
            {PvnWFKey_FeedbackResolution, ""},
            {PvnWFKey_FeedbackFocalLength, ""},
            {PvnWFKey_FeedbackAspectRatio, ""},
            {PvnWFKey_FeedbackAperture, "2.8"},
            {PvnWFKey_FeedbackExposureTime, ""},
            {PvnWFKey_FeedbackBrightness, ""},
            {PvnWFKey_FeedbackLog, "first\nlast\n"},
            {PvnWFKey_PageLocale, "en_US"},
            {PvnWFKey_ProductName, "Salt & Sugar"},
            {PvnWFKey_ServiceUrl, Word("service/url")},
        };
        EXPECT_EQ(TextsOfWorker(), expected);
    });
    ThenEndWith(kUnavailable);
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, ElementsAre("Subject: Gray sky", "Category: quality", "How often: once",
                                  "Comment: Too gray.", "    See the corner.", "Image width in pixels: 4000",
                                  "Aperture, f-number: 2.8", "Language of these pages: en_US",
                                  "Application: Salt & Sugar", "Log: first", "    last", "    "));
}

TEST_F(Feedback, ASubjectAndACategoryAreNeeded) {
    ThenFindDialog();
    ThenType(kSubjectField, u" \u3000\t");
    ThenPress(kContinueButton);
    ThenExpectAlert("subject_missing", kSubjectField);
    ThenType(kSubjectField, u"Gray");
    ThenPress(kContinueButton);
    ThenExpectAlert("category_missing", kCategoryPopup);
    ThenSelectCategory("wish");
    ThenPress(kContinueButton);
    ThenExpectPane("feedback/capture");
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusUserCancel);
}

TEST_F(Feedback, TheMarkedFrequencyIsSent) {
    for (const auto& [radio, word] : std::initializer_list<std::pair<std::uint16_t, std::string>>{
             {kOnceRadio, "once"}, {kSometimesRadio, "sometimes"}, {kAlwaysRadio, "always"}}) {
        ThenFillPicture();
        Then([radio = radio] {
            for (const std::uint16_t id : {kOnceRadio, kSometimesRadio, kAlwaysRadio})
                zeve::platform::Send(Control(id)->handle, zeve::kButtonSetCheck, id == radio, 0);
        });
        ThenPress(kContinueButton);
        ThenPress(kBackButton);
        ThenPress(kContinueButton);
        ThenPress(kContinueButton);
        ThenPressEsc();
        Run();
        EXPECT_THAT(list, Contains("How often: " + word)) << "the mark is still there after a step back";
    }
}

// The system moves the mark and the tab stop of automatic radio buttons.
TEST_F(Feedback, TheRadioButtonsAreAutomaticAndOneGroup) {
    Then([] {
        constexpr std::uint32_t kAutomatic = 9;
        for (const std::uint16_t id : {kOnceRadio, kSometimesRadio, kAlwaysRadio}) {
            EXPECT_EQ(Control(id)->style & 0xF, kAutomatic) << id;
            EXPECT_EQ((Control(id)->style & zeve::style::kGroup) != 0, id == kOnceRadio) << id;
            EXPECT_EQ((Control(id)->style & zeve::style::kTabStop) != 0, id == kOnceRadio) << id;
        }
        const Window next = zeve::platform::NextSibling(Control(kAlwaysRadio)->handle);
        EXPECT_NE(zeve::platform::StyleOf(next) & zeve::style::kGroup, 0u) << "the group ends";
    });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, TheFieldsBeginWithTheirUnitsAndAreLeftOut) {
    ThenGoToCapture();
    ThenExpectText(kPixelWidthField, "6000 px");
    ThenExpectText(kResolutionField, "300.0 ppi");
    ThenExpectText(kAspectRatioField, "3:2");
    ThenExpectText(kFocalLengthField, "50/1 mm");
    ThenExpectText(kApertureField, "f/2.8");
    ThenExpectText(kExposureTimeField, "1/250 s");
    ThenExpectText(kBrightnessField, "5.00 EV");
    ThenPress(kContinueButton);
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, Not(Contains(HasSubstr("Image width"))));
    EXPECT_EQ(list.size(), 7u);
}

TEST_F(Feedback, ValuesThatAreChosenAsTheyAreAreSentAsTheyAreShown) {
    const std::vector<std::string> lines = ListAfter([this] {
        for (const std::uint16_t field : kNumberFields) ThenSetCheckBox(field);
    });
    for (const char* line :
         {"Image width in pixels: 6000", "Resolution in pixels per inch: 300.0", "Aspect ratio: 3/2",
          "Focal length in millimeters: 50/1", "Aperture, f-number: 2.8", "Exposure time in seconds: 1/250",
          "Brightness in EV: 5.00"})
        EXPECT_THAT(lines, Contains(line));
}

TEST_F(Feedback, ANumberIsSentInTheFormOfTheService) {
    EXPECT_EQ(SentNumber(kResolutionField, u"72.5 ppi", "resolution"), "72.5");
    EXPECT_EQ(SentNumber(kApertureField, u"f/4", "aperture"), "4");
    EXPECT_EQ(SentNumber(kExposureTimeField, u"1/60", "exposure_time"), "1/60");
    EXPECT_EQ(SentNumber(kFocalLengthField, u"35", "focal_length"), "35");
    EXPECT_EQ(SentNumber(kAspectRatioField, u"16:9", "aspect_ratio"), "16/9");
    EXPECT_EQ(SentNumber(kAspectRatioField, u"1.85:1", "aspect_ratio"), "1.85");
    EXPECT_EQ(SentNumber(kBrightnessField, u"-0.5 EV", "brightness"), "-0.5");
    System().decimalSign = ",";
    EXPECT_EQ(SentNumber(kApertureField, u"f/3,5", "aperture"), "3.5");
}

TEST_F(Feedback, AFieldIsDisabledUntilItsCheckBoxIsSet) {
    ThenGoToCapture();
    Then([this] {
        for (const std::uint16_t field : kNumberFields) {
            EXPECT_FALSE(zeve::platform::IsEnabled(Control(field)->handle)) << field;
            EXPECT_TRUE(zeve::platform::IsEnabled(CheckBoxOf(field))) << field;
            EXPECT_EQ(zeve::platform::NextSibling(CheckBoxOf(field)), Control(field)->handle)
                << "the access key of the label leads to the check box";
        }
    });
    for (const std::uint16_t field : kNumberFields) {
        ThenSetCheckBox(field);
        ThenExpectFocus(field);
        Then([this, field] {
            EXPECT_TRUE(zeve::platform::IsEnabled(Control(field)->handle));
            const Window label = zeve::platform::NextSibling(CheckBoxOf(field));
            EXPECT_EQ(zeve::platform::NextSibling(label), Control(field)->handle)
                << "the access key of the label leads to the field";
            const auto last = zeve::headless::CallsOf("Send").back();
            EXPECT_EQ(last.window, Control(field)->handle);
            EXPECT_THAT(last.numbers, ElementsAre(zeve::kEditSetSelection, 0, -1)) << "an example to replace";
        });
        ThenSetCheckBox(field, false); // by its access key, with the focus in the field
        Then([this, field] {
            EXPECT_FALSE(zeve::platform::IsEnabled(Control(field)->handle));
            EXPECT_EQ(System().focus, CheckBoxOf(field)) << "not in a disabled field";
        });
    }
    ThenEndOnCapture();
}

TEST_F(Feedback, ACheckBoxThatOnlyGetsTheFocusChangesNothing) {
    ThenGoToCapture();
    Then([this] {
        zeve::platform::Send(CheckBoxOf(kApertureField), zeve::kButtonSetCheck, zeve::kChecked, 0);
        zeve::platform::Focus(CheckBoxOf(kApertureField));
        TellOf(CheckBoxOf(kApertureField), kNotificationButtonHasFocus);
        EXPECT_EQ(System().focus, CheckBoxOf(kApertureField));
        EXPECT_FALSE(zeve::platform::IsEnabled(Control(kApertureField)->handle));
    });
    ThenEndOnCapture();
}

// The system has no room for its own mark of the focus on them.
TEST_F(Feedback, ACheckBoxWithTheFocusHasAFrame) {
    ThenGoToCapture();
    ThenExpectHidden({kFocusFrame});
    for (const std::uint16_t field : kNumberFields) {
        Then([this, field] {
            TellOf(CheckBoxOf(field), kNotificationButtonHasFocus);
            EXPECT_TRUE(IsControlShown(kFocusFrame));
            const auto check = zeve::platform::FrameInParent(CheckBoxOf(field));
            const auto& frame = Control(kFocusFrame)->frame;
            EXPECT_EQ(frame.left, check.left - 2);
            EXPECT_EQ(frame.top, check.top - 2);
            EXPECT_EQ(frame.right, check.right + 2);
            EXPECT_EQ(frame.bottom, check.bottom + 2);
            TellOf(CheckBoxOf(field), kNotificationButtonLosesFocus);
            EXPECT_FALSE(IsControlShown(kFocusFrame));
        });
    }
    Then([this] { TellOf(CheckBoxOf(kApertureField), kNotificationButtonHasFocus); });
    ThenPress(kBackButton);
    ThenExpectHidden({kFocusFrame});
    Then([] {
        const auto isFrame = [](const auto& window) { return window->id == kFocusFrame; };
        EXPECT_EQ(std::ranges::count_if(System().windows, isFrame), 1);
    });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, WithoutTheFrameOfTheFocusTheRunGoesOn) {
    ThenGoToCapture();
    Then([this] {
        System().refuseWindow = 1;
        TellOf(CheckBoxOf(kApertureField), kNotificationButtonHasFocus);
        EXPECT_FALSE(IsControlShown(kFocusFrame));
    });
    ThenEndOnCapture();
}

TEST_F(Feedback, FieldsStayEnabledOrDisabledAfterAStepBack) {
    ThenGoToCapture();
    ThenTypeNumber(kApertureField, u"f/8");
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    Then([] {
        for (const std::uint16_t field : kNumberFields)
            EXPECT_EQ(zeve::platform::IsEnabled(Control(field)->handle), field == kApertureField) << field;
    });
    ThenEndOnCapture();
}

// The keyboard rules take the frame away when the focus moves; without the report nothing brings it back.
TEST_F(Feedback, TheDefaultButtonKeepsItsFrameWhileACheckBoxOrARadioButtonHasTheFocus) {
    const auto expectFrame = [](Window control) {
        EXPECT_NE(zeve::platform::StyleOf(control) & zeve::style::kButtonNotifies, 0u);
        Tell(TopDialog(), zeve::kMessageNextDialogControl);
        const auto last = zeve::headless::CallsOf("Send").back();
        EXPECT_EQ(last.window, Control(kContinueButton)->handle);
        EXPECT_THAT(last.numbers, ElementsAre(zeve::kButtonSetStyle, 0, 1));
        System().posted.clear();
        TellOf(control, kNotificationButtonHasFocus);
        ASSERT_EQ(System().posted.size(), 1u);
        EXPECT_EQ(System().posted[0].window, Control(kContinueButton)->handle);
        EXPECT_EQ(System().posted[0].number, zeve::kButtonSetStyle);
        EXPECT_EQ(System().posted[0].wparam, zeve::style::kDefaultPushButton);
    };
    Then([expectFrame] { expectFrame(Control(kSometimesRadio)->handle); });
    ThenGoToCapture();
    Then([this, expectFrame] {
        for (const std::uint16_t field : kNumberFields) expectFrame(CheckBoxOf(field));
        for (const std::uint16_t button : {kBackButton, kContinueButton})
            EXPECT_EQ(Control(button)->style & zeve::style::kButtonNotifies, 0u)
                << "the dialog knows its buttons by their exact style";
    });
    ThenEndOnCapture();
}

TEST_F(Feedback, AValueWhoseCheckBoxIsClearedIsLeftOut) {
    const auto lines = ListAfter([this] {
        ThenTypeNumber(kPixelWidthField, u"0 nonsense");
        ThenSetCheckBox(kPixelWidthField, false);
    });
    EXPECT_THAT(lines, Not(Contains(HasSubstr("Image width"))));
}

TEST_F(Feedback, APixelWidthIsAWholeNumberFromOneToAMillion) {
    ThenGoToCapture();
    ThenTakeNumber(kPixelWidthField, u"1", "1");
    ThenTakeNumber(kPixelWidthField, u"1000000 px", "1000000");
    ThenTakeNumber(kPixelWidthField, u"4000px", "4000");
    ThenTakeNumber(kPixelWidthField, u"4 000 PX", "4000");
    ThenCorrectNumber(kPixelWidthField, u"0", "1 px", "1");
    ThenCorrectNumber(kPixelWidthField, u"1000001", "1000000 px", "1000000");
    ThenRefuseNumber(kPixelWidthField, u"", "number_missing");
    ThenRefuseNumber(kPixelWidthField, u" px", "number_missing");
    for (const char16_t* typed : {u"wide", u"-1", u"60.5", u"6/2", u"3:2", u"4,000", u"1e3", u"4000 mm"})
        ThenRefuseNumber(kPixelWidthField, typed, "number_not_whole");
    ThenEndOnCapture();
}

TEST_F(Feedback, AResolutionIsFromATenthToAHundredThousand) {
    ThenGoToCapture();
    ThenTakeNumber(kResolutionField, u"0.1", "0.1");
    ThenTakeNumber(kResolutionField, u"100000", "100000");
    ThenTakeNumber(kResolutionField, u"72ppi", "72");
    ThenTakeNumber(kResolutionField, u"1/3", "1/3");
    ThenCorrectNumber(kResolutionField, u"0", "0.1 ppi", "0.1");
    ThenCorrectNumber(kResolutionField, u"0.09", "0.1 ppi", "0.1");
    ThenCorrectNumber(kResolutionField, u"100000.1", "100000.0 ppi", "100000.0");
    ThenRefuseNumber(kResolutionField, u"", "number_missing");
    ThenRefuseNumber(kResolutionField, u"fine", "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, AnAspectRatioIsAboveZeroAndUpToAThousand) {
    ThenGoToCapture();
    ThenTakeNumber(kAspectRatioField, u"0.001", "0.001");
    ThenTakeNumber(kAspectRatioField, u"1000:1", "1000");
    ThenTakeNumber(kAspectRatioField, u"2.39:1", "2.39");
    for (const char16_t* typed : {u"0", u"0:1", u"-1", u"1001:1", u"1000.1"})
        ThenRefuseNumber(kAspectRatioField, typed, "number_outside");
    ThenRefuseNumber(kAspectRatioField, u"", "number_missing");
    for (const char16_t* typed : {u"wide", u"3:2:1", u"3:0"})
        ThenRefuseNumber(kAspectRatioField, typed, "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, AFocalLengthIsFromATenthToAHundredThousand) {
    ThenGoToCapture();
    ThenTakeNumber(kFocalLengthField, u"1/10", "1/10");
    ThenTakeNumber(kFocalLengthField, u"100000", "100000");
    ThenTakeNumber(kFocalLengthField, u"50mm", "50");
    ThenTakeNumber(kFocalLengthField, u"18.5 MM", "18.5");
    ThenCorrectNumber(kFocalLengthField, u"0", "1/10 mm", "1/10");
    ThenCorrectNumber(kFocalLengthField, u"1/11", "1/10 mm", "1/10");
    ThenCorrectNumber(kFocalLengthField, u"-50mm", "1/10 mm", "1/10");
    ThenCorrectNumber(kFocalLengthField, u"100000.1", "100000/1 mm", "100000/1");
    ThenRefuseNumber(kFocalLengthField, u"mm", "number_missing");
    ThenRefuseNumber(kFocalLengthField, u"50cm", "number_malformed");
    ThenRefuseNumber(kFocalLengthField, u"long", "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, AnApertureIsAboveZeroAndUpToAThousand) {
    ThenGoToCapture();
    ThenTakeNumber(kApertureField, u"0.001", "0.001");
    ThenTakeNumber(kApertureField, u"f/1000", "1000");
    for (const char16_t* typed : {u"8", u"f/8", u"F/8", u"f / 8", u"F/ 8"})
        ThenTakeNumber(kApertureField, typed, "8");
    for (const char16_t* typed : {u"0", u"F/0", u"-1", u"1000.1"})
        ThenRefuseNumber(kApertureField, typed, "number_outside");
    ThenRefuseNumber(kApertureField, u"F/", "number_missing");
    for (const char16_t* typed : {u"wide", u"1e3", u"g/8"})
        ThenRefuseNumber(kApertureField, typed, "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, AnExposureTimeIsAboveZeroAndUpToAMillion) {
    ThenGoToCapture();
    ThenTakeNumber(kExposureTimeField, u"1/8000", "1/8000");
    ThenTakeNumber(kExposureTimeField, u"1000000 s", "1000000");
    ThenTakeNumber(kExposureTimeField, u"1/250s", "1/250");
    for (const char16_t* typed : {u"0", u"0/5", u"-1", u"1000000.1"})
        ThenRefuseNumber(kExposureTimeField, typed, "number_outside");
    ThenRefuseNumber(kExposureTimeField, u"  ", "number_missing");
    for (const char16_t* typed : {u"short", u"1/0"})
        ThenRefuseNumber(kExposureTimeField, typed, "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, ABrightnessIsFromMinusAThousandToAThousand) {
    ThenGoToCapture();
    ThenTakeNumber(kBrightnessField, u"-1000", "-1000");
    ThenTakeNumber(kBrightnessField, u"1000ev", "1000");
    ThenTakeNumber(kBrightnessField, u"0", "0");
    for (const char16_t* typed : {u"-1000.1", u"1000.1"})
        ThenRefuseNumber(kBrightnessField, typed, "number_outside");
    ThenRefuseNumber(kBrightnessField, u"", "number_missing");
    for (const char16_t* typed : {u"bright", u"--1"})
        ThenRefuseNumber(kBrightnessField, typed, "number_malformed");
    ThenEndOnCapture();
}

// With a comma as the decimal sign, as in German, a point is understood as one too.
TEST_F(Feedback, NumbersWithADecimalCommaHaveTheSameBorders) {
    System().decimalSign = ",";
    ThenGoToCapture();
    ThenTakeNumber(kPixelWidthField, u"1000000px", "1000000");
    ThenTakeNumber(kResolutionField, u"0,1 ppi", "0.1");
    ThenTakeNumber(kAspectRatioField, u"1,85:1", "1.85");
    ThenTakeNumber(kFocalLengthField, u"18,5mm", "18.5");
    ThenTakeNumber(kFocalLengthField, u"18.5mm", "18.5");
    ThenTakeNumber(kApertureField, u"F/2,8", "2.8");
    ThenTakeNumber(kExposureTimeField, u"0,125", "0.125");
    ThenTakeNumber(kExposureTimeField, u"0.125", "0.125");
    ThenTakeNumber(kBrightnessField, u"-999,9 EV", "-999.9");
    ThenCorrectNumber(kPixelWidthField, u"0", "1 px", "1");
    ThenCorrectNumber(kResolutionField, u"0,09", "0.1 ppi", "0.1");
    ThenCorrectNumber(kFocalLengthField, u"100000,1", "100000/1 mm", "100000/1");
    ThenRefuseNumber(kPixelWidthField, u"60,5", "number_not_whole");
    ThenRefuseNumber(kAspectRatioField, u"1000,1", "number_outside");
    ThenRefuseNumber(kApertureField, u"0,0", "number_outside");
    ThenRefuseNumber(kExposureTimeField, u"1000000,1", "number_outside");
    ThenRefuseNumber(kBrightnessField, u"-1000,1", "number_outside");
    for (const std::uint16_t field : kNumberFields) ThenRefuseNumber(field, u"", "number_missing");
    ThenEndOnCapture();
}

// Read as 1.2, it would be a value that the user did not mean.
TEST_F(Feedback, APointThatMaySeparateThousandsIsNotGuessed) {
    System().decimalSign = ",";
    ThenGoToCapture();
    for (const std::uint16_t field : kNumberFields) {
        ThenRefuseNumber(field, u"1.200", "number_grouped");
        ThenRefuseNumber(field, u"1.200,5", "number_grouped");
    }
    ThenTakeNumber(kResolutionField, u"1200", "1200");
    ThenTakeNumber(kResolutionField, u"1,200", "1.200");
    Then([] { System().decimalSign = "."; });
    ThenTakeNumber(kResolutionField, u"1.200", "1.200");
    ThenRefuseNumber(kResolutionField, u"1,200", "number_malformed");
    ThenEndOnCapture();
}

TEST_F(Feedback, ACorrectedNumberIsNotSentYet) {
    ThenGoToCapture();
    ThenTypeNumber(kPixelWidthField, u"2000000");
    ThenTypeNumber(kApertureField, u"wide");
    ThenPress(kContinueButton);
    ThenExpectText(kPixelWidthField, "1000000 px");
    ThenExpectFocus(kPixelWidthField);
    ThenPress(kContinueButton);
    ThenExpectAlert("number_malformed", kApertureField);
    ThenSetCheckBox(kApertureField, false);
    ThenPress(kContinueButton);
    ThenExpectPane("feedback/storage");
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, Contains("Image width in pixels: 1000000"));
}

TEST_F(Feedback, ValuesAreStillThereAfterAStepBack) {
    ThenGoToCapture();
    ThenTypeNumber(kApertureField, u"f/8");
    ThenPress(kBackButton);
    ThenExpectPane("feedback/picture");
    ThenExpectText(kSubjectField, " Gray sky ");
    ThenPress(kContinueButton);
    ThenExpectText(kApertureField, "f/8");
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    ThenExpectPane("feedback/capture");
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, Contains("Aperture, f-number: 8"));
}

TEST_F(Feedback, TheCheckBoxesHaveNamesAndAccessKeys) {
    for (const std::string& locale : pavane_test::Locales()) {
        SetLanguage(locale);
        ThenGoToCapture();
        Then([this, locale] {
            std::set<std::u16string> names;
            for (std::size_t i = 0; i < std::size(kNumberFields); ++i) {
                const std::u16string name =
                    zeve::platform::TextOf(zeve::ZeveSubControl(dialog, kNumberFields[i]));
                const std::u16string key = {u'&', static_cast<char16_t>(u'1' + i)};
                EXPECT_NE(name.find(key), name.npos) << locale << i;
                EXPECT_EQ(std::ranges::count(name, u'&'), 1) << locale << i;
                EXPECT_EQ(name.find(u"()"), name.npos) << locale << i;
                names.insert(name);
            }
            EXPECT_EQ(names.size(), std::size(kNumberFields)) << locale;
        });
        ThenPressEsc();
        Run();
    }
}

TEST_F(Feedback, TheCheckBoxesAreOnTheSideWhereReadingBegins) {
    for (const std::string& locale : pavane_test::Locales()) {
        SetLanguage(locale);
        ThenGoToCapture();
        Then([this, locale] {
            for (const std::uint16_t id : kNumberFields) {
                const auto check = zeve::platform::FrameInParent(CheckBoxOf(id));
                const auto field = zeve::platform::FrameInParent(Control(id)->handle);
                const bool isOnTheRight = check.left >= field.right;
                EXPECT_EQ(isOnTheRight, zeve::IsRightToLeftLanguage(locale)) << locale << " " << id;
                EXPECT_EQ(check.right <= field.left, !isOnTheRight) << locale << " " << id;
            }
        });
        ThenPressEsc();
        Run();
        ShutDownResources(); // and with them the language
    }
}

TEST_F(Feedback, TheLogIsSentOnlyAsFarAsTheUserChooses) {
    const std::string x(480, 'x');
    WriteLog("a" + x + "\nb" + x + "\nc" + x + "\nd" + x + "\nend");
    ThenGoToStorage();
    ThenExpectText(kLogText, "0 KB");
    ThenExpectFocus(kLogSlider);
    Then([this] {
        EXPECT_EQ(largest, 2);
        EXPECT_EQ(position, 0);
        EXPECT_THAT(list, Not(Contains(HasSubstr("Log:"))));
        EXPECT_EQ(StoredText(PvnWFKey_FeedbackLog), "none") << "no key at all";
    });
    ThenMoveSliderTo(1);
    ThenExpectText(kLogText, "1 KB");
    Then([this, x] {
        EXPECT_THAT(list, IsSupersetOf({"Log: c" + x, "    d" + x, std::string("    end")}));
        EXPECT_EQ(StoredText(PvnWFKey_FeedbackLog), "c" + x + "\nd" + x + "\nend");
    });
    ThenMoveSliderTo(2);
    Then([this, x] {
        EXPECT_THAT(list, IsSupersetOf({"Log: a" + x, "    b" + x, "    c" + x, std::string("    end")}));
    });
    ThenMoveSliderTo(0);
    ThenExpectText(kLogText, "0 KB");
    Then([this] { EXPECT_THAT(list, Not(Contains(HasSubstr("Log:")))); });
    ThenPressEsc();
    Run();
    EXPECT_EQ(StoredText(PvnWFKey_FeedbackLog), "none") << "no key at all";
}

TEST_F(Feedback, WithoutAChoiceTheWorkerGetsNoLog) {
    WriteLog("last line");
    ThenGoToStorage();
    ThenMoveSliderTo(1);
    ThenMoveSliderTo(0);
    ThenStart(kSendButton);
    Then([this] {
        std::string text;
        EXPECT_FALSE(GetString(context->workerBag->values, PvnWFKey_FeedbackLog, text));
    });
    ThenEndWith(kUnavailable);
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, TheTopOfTheSliderSendsAsMuchOfTheLogAsIsOffered) {
    const std::string line = std::string(63, 'x') + "\n"; // 16 in a KiB
    std::string log;
    for (int i = 0; i < 300 * 16; ++i) log += line;
    WriteLog("begin\n" + log);
    ThenGoToStorage();
    Then([this] { EXPECT_EQ(largest, 256); });
    ThenMoveSliderTo(256);
    ThenExpectText(kLogText, "256 KB");
    ThenStart(kSendButton);
    Then([this, log] {
        std::string text;
        GetString(context->workerBag->values, PvnWFKey_FeedbackLog, text);
        EXPECT_EQ(text, log.substr(0, 256 * 1024));
    });
    ThenEndWith(kUnavailable);
    ThenPressEsc();
    Run();
    EXPECT_EQ(list.size(), kMostRows);
    EXPECT_EQ(list.back(), "More lines that will be sent but are not shown here: 9") << "of 7 + 4096 + 1";
}

TEST_F(Feedback, TheListFollowsEveryFieldOfTheEarlierPages) {
    ThenGoToStorage();
    Then([this] { EXPECT_EQ(list.size(), 7u); });
    ThenPress(kBackButton);
    for (const std::uint16_t field : kNumberFields) ThenSetCheckBox(field);
    ThenPress(kContinueButton);
    Then([this] {
        EXPECT_EQ(list.size(), 14u);
        EXPECT_THAT(list, IsSupersetOf({"Image width in pixels: 6000", "Resolution in pixels per inch: 300.0",
                                        "Aspect ratio: 3/2", "Focal length in millimeters: 50/1",
                                        "Aperture, f-number: 2.8", "Exposure time in seconds: 1/250",
                                        "Brightness in EV: 5.00"}));
    });
    ThenPress(kBackButton);
    for (const std::uint16_t field : kNumberFields) ThenSetCheckBox(field, false);
    ThenPress(kBackButton);
    ThenType(kSubjectField, u"Blue sky");
    ThenSelectCategory("wish");
    ThenType(kCommentField, u"");
    Then([] {
        for (const std::uint16_t id : {kOnceRadio, kSometimesRadio, kAlwaysRadio})
            zeve::platform::Send(Control(id)->handle, zeve::kButtonSetCheck, id == kAlwaysRadio, 0);
    });
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenExpectPane("feedback/storage");
    Then([this] {
        EXPECT_THAT(list, ElementsAre("Subject: Blue sky", "Category: wish", "How often: always",
                                      "Language of these pages: en_US", "Application: Salt & Sugar"));
    });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, TheListNeutralizesWhatWouldHideOrReorder) {
    WriteLog("\u202Eend\x01\tGr\xFC\xDF\n");
    ThenFindDialog();
    ThenType(kSubjectField, u"a\u202Egpj.exe");
    ThenSelectCategory("quality");
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenMoveSliderTo(1);
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, IsSupersetOf({"Subject: a\uFFFDgpj.exe", "Log: \uFFFDend Gr\uFFFD\uFFFD", "    "}));
    EXPECT_EQ(StoredText(PvnWFKey_FeedbackSubject), "a\u202Egpj.exe") << "it is sent as it was typed";
}

TEST_F(Feedback, ANameOfTheHostThatMisleadsIsNeutralizedWhereverItGoes) {
    SetString(bag, PvnWFKey_ProductName, "Salt\n\u202EraguS\xFF");
    ThenSend();
    Then([this] {
        std::string product;
        GetString(context->workerBag->values, PvnWFKey_ProductName, product);
        EXPECT_EQ(product, "Salt \uFFFDraguS\uFFFD");
    });
    ThenEndWith(kUnavailable);
    ThenPressEsc();
    Run();
    EXPECT_THAT(list, Contains("Application: Salt \uFFFDraguS\uFFFD"));
}

TEST_F(Feedback, ARowThatTheListRefusesIsLoggedAndEndsTheRun) {
    for (const int rows : {0, 6}) {
        rowsUntilRefusal = rows;
        ThenGoToStorage();
        EXPECT_THROW(Run(), std::runtime_error) << rows;
        EXPECT_THAT(Logged(), HasSubstr("The list of what is sent refuses a row(Answer: -2)"));
        EXPECT_EQ(TopDialog(), nullptr);
    }
}

TEST_F(Feedback, ARowOfTheLogThatTheListRefusesEndsTheRun) {
    WriteLog("last line");
    ThenGoToStorage();
    Then([this] { rowsUntilRefusal = 7; });
    ThenMoveSliderTo(1);
    EXPECT_THROW(Run(), std::runtime_error);
    EXPECT_THAT(Logged(), HasSubstr("The list of what is sent refuses a row(Answer: -2)"));
}

TEST_F(Feedback, AScrollMessageWithoutAMoveLeavesTheListAlone) {
    WriteLog(std::string(3000, 'x'));
    ThenGoToStorage();
    Then([this] { list.clear(); });
    ThenMoveSliderTo(0);
    Then([this] { EXPECT_TRUE(list.empty()); });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, TheChoiceOfTheLogStaysAfterAStepBackAndTheLogIsReadAnew) {
    WriteLog(std::string(3000, 'x'));
    ThenGoToStorage();
    ThenMoveSliderTo(2);
    ThenPress(kBackButton);
    Then([this] { WriteLog("short"); });
    ThenPress(kContinueButton);
    ThenExpectText(kLogText, "1 KB");
    Then([this] {
        EXPECT_EQ(position, 1);
        EXPECT_THAT(list, Contains("Log: short"));
    });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, WithoutALogTheSliderIsDisabledAndTheListHasTheFocus) {
    ThenGoToStorage();
    Then([] { EXPECT_NE(Control(kLogSlider)->style & zeve::style::kDisabled, 0u); });
    ThenExpectFocus(kSentList);
    ThenExpectText(kLogText, "0 KB");
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, TheGaugeShowsTheDriveOfTheLog) {
    GetFrameTwin().temporaryFolder = u"C:\\Temp\\";
    platform::TheDriveRecorder().space = platform::DriveSpace{500ull << 30, 200ull << 30};
    ThenGoToStorage();
    ThenExpectText(kDriveText, "Temporary files and the log are on C:, where 300 of 500 GB are used:");
    Then([this] {
        EXPECT_EQ(platform::TheDriveRecorder().folder, u"C:\\Temp\\");
        EXPECT_EQ(gaugeRange, 500);
        EXPECT_EQ(gaugePosition, 300);
        EXPECT_EQ(std::u16string(TheGaugeData().caption), u"GB");
        EXPECT_EQ(Control(kDriveGauge)->frame, Control(kDrivePlace)->frame);
        EXPECT_EQ(zeve::platform::PreviousSibling(Control(kDriveGauge)->handle), Control(kDriveText)->handle);
    });
    ThenPress(kBackButton);
    ThenExpectHidden({kDriveGauge});
    Then([] { platform::TheDriveRecorder().space = platform::DriveSpace{500ull << 30, 100ull << 30}; });
    ThenPress(kContinueButton);
    ThenExpectShown({kDriveGauge});
    Then([this] { EXPECT_EQ(gaugePosition, 400); });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, ADriveThatCannotBeReadHasWordsAndNoGauge) {
    GetFrameTwin().temporaryFolder = u"/tm&p/";
    platform::TheDriveRecorder().space.reset();
    ThenGoToStorage();
    ThenExpectText(kDriveText, "Temporary files and the log are on /tm&&p/. Its free space cannot be read.");
    Then([] { EXPECT_EQ(Control(kDriveGauge), nullptr); });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, ADriveThatCannotBeReadAnyMoreEmptiesTheGauge) {
    GetFrameTwin().temporaryFolder = u"C:\\Temp\\";
    ThenGoToStorage();
    Then([this] { EXPECT_EQ(gaugePosition, 300); });
    ThenPress(kBackButton);
    Then([] { platform::TheDriveRecorder().space.reset(); });
    ThenPress(kContinueButton);
    ThenExpectText(kDriveText, "Temporary files and the log are on C:. Its free space cannot be read.");
    Then([this] { EXPECT_LT(gaugePosition, 0) << "a level that is neither painted nor spoken"; });
    ThenPress(kBackButton);
    Then([] { platform::TheDriveRecorder().Reset(); });
    ThenPress(kContinueButton);
    Then([this] { EXPECT_EQ(gaugePosition, 300); });
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, ThePlaceOfTheTemporaryFolderIsNamed) {
    for (const auto& [temporaryFolder, name] : {std::pair{u"D:\\Work\\Temp\\", "D:"},
                                                {u"\\\\server\\share\\temp\\", "\\\\server\\share\\temp\\"},
                                                {u"\\\\server\\a\u202Eb\\", "\\\\server\\a\uFFFDb\\"},
                                                {u"\xD83D:\\", "\uFFFD:"}}) {
        GetFrameTwin().temporaryFolder = temporaryFolder;
        ThenGoToStorage();
        ThenExpectText(kDriveText, std::string("Temporary files and the log are on ") + name +
                                       ", where 300 of 500 GB are used:");
        Then([temporaryFolder = temporaryFolder] {
            EXPECT_EQ(platform::TheDriveRecorder().folder, temporaryFolder);
        });
        ThenPressEsc();
        Run();
    }
}

TEST_F(Feedback, ThePagesHaveNoWindowOfTheirOwnOnScreen) {
    const auto thenExpectNoPage = [] {
        ThenExpectHidden({kPicturePage, kCapturePage, kStoragePage, kSendingPage, kReceivedPage, kProblemPage,
                          connection_settings::kPage, kDrivePlace});
    };
    thenExpectNoPage();
    ThenGoToCapture();
    thenExpectNoPage();
    ThenPress(kContinueButton);
    thenExpectNoPage();
    ThenPress(kBackButton);
    thenExpectNoPage();
    ThenPress(kContinueButton);
    ThenStart(kSendButton);
    thenExpectNoPage();
    ThenEndWith(kUnavailable);
    thenExpectNoPage();
    ThenPress(kProblemConnectionLink);
    thenExpectNoPage();
    ThenPressEsc();
    ThenStart(kTryAgainButton);
    ThenReceive(6, 300);
    thenExpectNoPage();
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, WithoutTheGaugesClassTheRunGoesOn) {
    platform::TheControlClassRecorder().refuseClass = true;
    ThenSend();
    ThenReceive(6, 300);
    ThenPressEnter();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Feedback, EnterNeverSendsAnything) {
    ThenGoToStorage();
    Then([] {
        for (const std::uint16_t id : {kBackButton, kSendButton, kCancelButton})
            EXPECT_EQ(Control(id)->style & 0xF, zeve::style::kPushButton) << id;
    });
    ThenPressEnter();
    ThenExpectPane("feedback/storage");
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusUserCancel);
    ThenFail(kUnavailable);
    ThenPressEnter();
    ThenExpectPane("feedback/storage");
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusUserCancel);
}

// A field of several lines keeps Esc from the dialog, and passes the key on.
TEST_F(Feedback, EscInTheCommentCancels) {
    const auto thenPressIn = [this](std::uint16_t field, std::uintptr_t key, std::intptr_t repeats = 0) {
        Then([=] {
            System().focus = Control(field)->handle;
            Tell(TopDialog(), zeve::kMessageKeyDown, key, repeats);
        });
        ThenExpectPane("feedback/picture");
    };
    Then([this] { SetLong(bag, PvnWFKey_WorkFlowResult, kDenied); }); // not what Cancel stores
    thenPressIn(kSubjectField, zeve::kKeyEscape);                     // the dialog's
    thenPressIn(kCommentField, zeve::kKeyEnter);
    thenPressIn(kCommentField, zeve::kKeyEscape, kKeyRepeats);
    Then([] { Tell(TopDialog(), zeve::kMessageKeyUp, zeve::kKeyEscape); });
    ThenExpectPane("feedback/picture");
    Then([] { Tell(TopDialog(), zeve::kMessageKeyDown, zeve::kKeyEscape); });
    EXPECT_EQ(Run(), 35074);
}

TEST_F(Feedback, TheFocusBeginsWhereTheFirstActIs) {
    ThenExpectFocus(kSubjectField);
    ThenGoToCapture();
    Then([this] { EXPECT_EQ(System().focus, CheckBoxOf(kPixelWidthField)) << "the field is disabled"; });
    ThenSetCheckBox(kPixelWidthField);
    ThenPress(kBackButton);
    ThenExpectFocus(kSubjectField);
    ThenPress(kContinueButton);
    ThenExpectFocus(kPixelWidthField);
    ThenPressEsc();
    Run();
}

TEST_F(Feedback, AFailureHasWordsItsCodeAndWaysOn) {
    for (const auto& [status, words, code] :
         {std::tuple{kDenied, "feedback_denied", "133:1"}, std::tuple{kUnavailable, "unavailable", "133:2"},
          std::tuple{kStatusCallTimedOut, "timed_out", "208:2"},
          std::tuple{kStatusUnexpectedContent, "content", "208:3"}}) {
        ThenFail(status);
        ThenExpectPane("feedback/problem");
        const std::string key = std::string("failure/") + words;
        ThenExpectText(kProblemText, Word(key + "/what") + "\n\n" + Word(key + "/try") + "\n\n" +
                                         Word("feedback/problem/kept"));
        ThenExpectText(kErrorCodeField, std::string("Error code ") + code);
        ThenExpectShown({kProblemBackButton, kTryAgainButton, kProblemCancelButton, kProblemConnectionLink});
        ThenExpectHidden({kCancelSendingButton, kBackButton, kDriveGauge});
        ThenExpectFocus(kProblemBackButton);
        ThenPressEsc();
        EXPECT_EQ(Run(), status) << "Esc keeps the failure";
    }
}

// Back leads to the list of what was sent, which is one page after the numbers.
TEST_F(Feedback, AfterARefusalTheWordsNameThePageOfTheNumbers) {
    for (const std::string& locale : pavane_test::Locales()) {
        const Words words = ReadWords(kSources / "dictionaries" / locale / "service.txt");
        EXPECT_THAT(words.at("$$$/pvn/failure/feedback_denied/try"),
                    HasSubstr(words.at("$$$/pvn/feedback/capture/title")))
            << locale;
    }
}

TEST_F(Feedback, EveryFailureLeadsToTheProblem) {
    ExpectEveryFailureToLeadTo("feedback/problem", [this] { ThenSend(); });
}

TEST_F(Feedback, TryAgainSendsTheSameOnceMore) {
    WriteLog("last line");
    ThenGoToCapture();
    for (const std::uint16_t field : kNumberFields) ThenSetCheckBox(field);
    ThenPress(kContinueButton);
    ThenMoveSliderTo(1);
    ThenStart(kSendButton);
    std::map<std::string, std::string> sent;
    Then([this, &sent] { sent = TextsOfWorker(); });
    ThenEndWith(kUnavailable);
    Then([this] { WriteLog("a later line"); });
    ThenStart(kTryAgainButton);
    ThenExpectPane("feedback/sending");
    Then([this, &sent] {
        EXPECT_EQ(sent.size(), 15u) << "every field and the address";
        EXPECT_EQ(TextsOfWorker(), sent);
    });
    ThenReceive(6, 300);
    ThenPressEsc();
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Feedback, CancelHasAStatusOfItsOwnOnEveryPaneThatOffersIt) {
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074);
    ThenGoToCapture();
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074);
    ThenGoToStorage();
    ThenPress(kCancelButton);
    EXPECT_EQ(Run(), 35074);
    ThenFail(kUnavailable);
    ThenPress(kProblemCancelButton);
    EXPECT_EQ(Run(), 35074) << "not the failure";
    ThenFail(kUnavailable);
    ThenPress(kProblemBackButton);
    ThenPressEsc();
    EXPECT_EQ(Run(), 35074) << "not the failure";
}

TEST_F(Feedback, ACanceledCallLeadsBackToTheListWithWhatWasEntered) {
    WriteLog("last line");
    for (const std::uint16_t cancel : {kCancelSendingButton, kIdEscape}) {
        position = 0;
        ThenGoToStorage();
        ThenMoveSliderTo(1);
        std::vector<std::string> sent;
        Then([this, &sent] { sent = list; });
        ThenStart(kSendButton);
        ThenPress(cancel);
        ThenExpectPane("feedback/sending");
        Then([] { EXPECT_TRUE(gProgressCancel); });
        ThenExpectText(kBusyText, Word("busy/canceling"));
        ThenEndWith(kStatusCallCanceled);
        ThenExpectPane("feedback/storage");
        ThenExpectText(kLogText, "1 KB");
        Then([this, &sent] {
            EXPECT_THAT(sent, Contains("Log: last line"));
            EXPECT_EQ(list, sent);
            EXPECT_EQ(position, 1);
        });
        ThenPress(kCancelButton);
        EXPECT_EQ(Run(), 35074);
    }
}

TEST_F(Feedback, WithoutTheHostsLeaveThereIsNoCancel) {
    SetLong(bag, PvnWFKey_AllowCancel, 0);
    ThenSend();
    ThenExpectHidden({kCancelSendingButton, kCancelNote});
    ThenPress(kCancelSendingButton);
    ThenPressEsc();
    Then([] { EXPECT_FALSE(gProgressCancel); });
    ThenReceive(6, 300);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Feedback, AHiddenButtonChangesNothing) {
    const auto thenPressAllBut = [](std::vector<std::uint16_t> shown) {
        for (std::uint16_t id = kBackButton; id <= kUseSettingsButton; ++id)
            if (std::ranges::find(shown, id) == shown.end()) ThenPress(id);
    };
    thenPressAllBut({kContinueButton, kCancelButton, kProblemCancelButton});
    ThenExpectPane("feedback/picture");
    ThenGoToCapture();
    thenPressAllBut({kBackButton, kContinueButton, kCancelButton, kProblemCancelButton, kProblemBackButton});
    ThenExpectPane("feedback/capture");
    ThenPress(kContinueButton);
    thenPressAllBut({kBackButton, kSendButton, kCancelButton, kProblemCancelButton, kProblemBackButton});
    ThenExpectPane("feedback/storage");
    ThenStart(kSendButton);
    Then([this] { SetLong(bag, PvnWFKey_WorkFlowResult, kDenied); }); // what no button stores
    thenPressAllBut({kCancelSendingButton});
    ThenExpectPane("feedback/sending");
    Then([this] { EXPECT_EQ(StoredLong(PvnWFKey_WorkFlowResult), kDenied); });
    ThenEndWith(kUnavailable);
    thenPressAllBut({kProblemBackButton, kTryAgainButton, kProblemCancelButton, kBackButton, kCancelButton});
    ThenExpectPane("feedback/problem");
    Then([this] { EXPECT_EQ(StoredLong(PvnWFKey_WorkFlowResult), kUnavailable); });
    ThenPress(kProblemConnectionLink);
    thenPressAllBut({kSettingsBackButton, kUseSettingsButton});
    ThenExpectPane("connection/settings");
    ThenPress(kSettingsBackButton);
    ThenPressEsc();
    EXPECT_EQ(Run(), kUnavailable);
}

TEST_F(Feedback, SettingsThatAreUsedReachTheWorkerAndLeadBackToTheProblem) {
    ThenFail(kStatusNameNotResolved);
    ThenPress(kProblemConnectionLink);
    ThenExpectPane("connection/settings");
    ThenPress(connection_settings::kOwnProxy);
    ThenType(kHostField, u"proxy.example.com");
    ThenType(connection_settings::kPortField, u"8080");
    ThenPress(kUseSettingsButton);
    ThenExpectPane("feedback/problem");
    ThenStart(kTryAgainButton);
    Then([this] {
        std::uint32_t port = 0;
        GetLong(context->workerBag->values, PvnWFKey_ProxyPort, port);
        EXPECT_EQ(port, 8080u);
    });
    ThenEndWith(kUnavailable);
    ThenPress(kProblemConnectionLink);
    ThenPressEsc();
    ThenExpectPane("feedback/problem");
    ThenPressEsc();
    Run();
    EXPECT_EQ(StoredText(PvnWFKey_ProxyHost), "proxy.example.com");
}

TEST_F(Feedback, ATourVisitsThePanesInOrderAndStartsNoWorker) {
    GetFrameTwin().startsUntilRefusal = 1;
    for (const auto& [pane, button] : std::initializer_list<std::pair<const char*, std::uint16_t>>{
             {"feedback/picture", kContinueButton},
             {"feedback/capture", kContinueButton},
             {"feedback/storage", kSendButton},
             {"feedback/sending", kCancelSendingButton},
             {"feedback/received", kDoneButton},
             {"feedback/problem", kTryAgainButton},
             {"connection/settings", kUseSettingsButton}}) {
        ThenExpectPane(pane);
        ThenPress(button);
    }
    EXPECT_EQ(Run(true), kStatusSuccess);
    EXPECT_EQ(GetFrameTwin().startsUntilRefusal, 1) << "no worker was started";
}

TEST_F(Feedback, RunsFromABagInEveryLanguage) {
    for (const std::string& locale : pavane_test::Locales()) {
        SetLanguage(locale);
        ThenGoToStorage();
        ThenExpectPane("feedback/storage");
        ThenPress(kCancelButton);
        EXPECT_EQ(RunWorkFlowFromBag<PVNFeedbackWorkFlow>(bag), 35074) << locale;
        EXPECT_TRUE(System().script.empty());
        ShutDownResources();
    }
}

// Over every page, with a failure in the middle of the run.
class FeedbackWithoutMemory : public WithoutMemory<Feedback, PVNFeedbackWorkFlow> {
protected:
    FeedbackWithoutMemory() { WriteLog("first line\nlast line\n"); }
    void WriteScript() override {
        position = 0;
        ThenGoToCapture();
        ThenTypeNumber(kPixelWidthField, u"4000 px");
        ThenPress(kContinueButton);
        ThenMoveSliderTo(1);
        ThenRunWorker(kSendButton, kUnavailable);
        ThenRunWorker(kTryAgainButton, kStatusSuccess);
        ThenPress(kDoneButton);
    }
};

TEST_F(FeedbackWithoutMemory, EndsInAStatusLeavesNothingAndRunsAgain) {
    constexpr std::size_t kStride = 53;
    ExpectToHoldOut({kStatusUserCancel}, kStride);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
