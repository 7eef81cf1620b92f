// The view ids of feedback.exv, besides those of its page of connection settings.
#pragma once

#include <cstdint>

namespace brixen::pvn::pvn_workflow::feedback {

// The buttons of one pane are in one row.
inline constexpr std::uint16_t kBackButton = 11;
inline constexpr std::uint16_t kContinueButton = 12;
inline constexpr std::uint16_t kSendButton = 13;
inline constexpr std::uint16_t kCancelButton = 14;
inline constexpr std::uint16_t kCancelSendingButton = 15; // of the busy pane
inline constexpr std::uint16_t kDoneButton = 16;
inline constexpr std::uint16_t kProblemBackButton = 17;
inline constexpr std::uint16_t kTryAgainButton = 18;
inline constexpr std::uint16_t kProblemCancelButton = 19;
inline constexpr std::uint16_t kSettingsBackButton = 20;
inline constexpr std::uint16_t kUseSettingsButton = 21;

inline constexpr std::uint16_t kPicturePage = 100;
inline constexpr std::uint16_t kSubjectField = 101;
inline constexpr std::uint16_t kCategoryPopup = 102;
inline constexpr std::uint16_t kOnceRadio = 103;
inline constexpr std::uint16_t kSometimesRadio = 104;
inline constexpr std::uint16_t kAlwaysRadio = 105;
inline constexpr std::uint16_t kCommentField = 106;

inline constexpr std::uint16_t kCapturePage = 200;
inline constexpr std::uint16_t kPixelWidthField = 201;
inline constexpr std::uint16_t kResolutionField = 202;
inline constexpr std::uint16_t kFocalLengthField = 203;
inline constexpr std::uint16_t kAspectRatioField = 204;
inline constexpr std::uint16_t kApertureField = 205;
inline constexpr std::uint16_t kExposureTimeField = 206;
inline constexpr std::uint16_t kBrightnessField = 207;
inline constexpr std::uint16_t kFocusFrame = 208; // made by the pane

inline constexpr std::uint16_t kStoragePage = 300;
inline constexpr std::uint16_t kDriveText = 301;
inline constexpr std::uint16_t kDrivePlace = 302; // of the gauge
inline constexpr std::uint16_t kLogSlider = 303;
inline constexpr std::uint16_t kLogText = 304;
inline constexpr std::uint16_t kSentList = 305;
inline constexpr std::uint16_t kDriveGauge = 306; // made by the pane

inline constexpr std::uint16_t kSendingPage = 400;
inline constexpr std::uint16_t kBusyBar = 401;
inline constexpr std::uint16_t kBusyText = 402;
inline constexpr std::uint16_t kCancelNote = 403;

inline constexpr std::uint16_t kReceivedPage = 500;
inline constexpr std::uint16_t kReceivedText = 501;

inline constexpr std::uint16_t kProblemPage = 600;
inline constexpr std::uint16_t kProblemText = 601;
inline constexpr std::uint16_t kProblemConnectionLink = 602;
inline constexpr std::uint16_t kErrorCodeField = 603;

} // namespace brixen::pvn::pvn_workflow::feedback
