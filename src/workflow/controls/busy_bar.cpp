#include "workflow/controls/busy_bar.h"

#include "toolkit/dialog/procedure_boundary.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/controls/busy_bar_cell.h"
#include "workflow/controls/parent_background.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::int32_t kCorner = 3;
constexpr std::int32_t kCellTop = 3;
// Kept: the last column of the cell is not drawn.
constexpr std::int32_t kDrawnWidth = kBusyCellWidth - 1;
constexpr std::int32_t kFullLeft = 4, kFullRight = 8; // from the edges of the client area
constexpr std::int32_t kFullStep = kBusyCellWidth + 1;
constexpr std::uint8_t kOpaque = 255;

} // namespace

BusyBar::~BusyBar() {
    if (!window) return;
    zeve::platform::StopTimer(window, kBusyTimer);
    zeve::platform::DropLayer(window);
}

bool BusyBar::Attach(zeve::NativeWindow control) {
    if (window || !zeve::platform::TakeLayerProcedure(control, &Procedure, this)) return false;
    window = control;
    ReadColors();
    zeve::platform::Invalidate(window);
    return true;
}

void BusyBar::Start(std::int32_t pixelsATick) {
    step = pixelsATick;
    finished = false;
    // Without a timer the bar does not move. Everything else works.
    static_cast<void>(zeve::platform::StartTimer(window, kBusyTimer, kBusyPeriod));
    SetRunning(true);
}

void BusyBar::SetFinished() {
    zeve::platform::StopTimer(window, kBusyTimer);
    finished = true;
    zeve::platform::Invalidate(window);
    SetRunning(false);
}

void BusyBar::Stop() {
    zeve::platform::StopTimer(window, kBusyTimer);
    finished = false;
    zeve::platform::Invalidate(window);
    SetRunning(false);
}

void BusyBar::SetRunning(bool runs) {
    isRunning = runs;
    platform::Announce(window, platform::AccessibleChange::kState);
}

std::uint32_t BusyBar::AccessibleState() const {
    return platform::kStateReadOnly | (isRunning ? platform::kStateBusy : 0);
}

std::intptr_t BusyBar::Procedure(void* bar, zeve::NativeWindow window, std::uint32_t message,
                                 std::uintptr_t wparam, std::intptr_t lparam) noexcept {
    return zeve::KeepingExceptions(
        window, message, wparam, lparam,
        [bar](zeve::NativeWindow, std::uint32_t number, std::uintptr_t first, std::intptr_t second) {
            return static_cast<BusyBar*>(bar)->Answer(number, first, second);
        });
}

std::intptr_t BusyBar::Answer(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
    switch (message) {
    case zeve::kMessagePaint: Paint(platform::Painting(window)); return 0;
    case kMessagePrintClient:
        Paint(platform::Painting(window, reinterpret_cast<zeve::NativeDrawing>(wparam)));
        return 0;
    case zeve::kMessageEraseBackground: return 1;
    case kMessageEnable:
    case zeve::kMessageSetText:
    case zeve::kMessageSetFont:
    case kMessageUpdateUiState: return AnswerAsSystem(message, wparam, lparam);
    case zeve::kMessageTimer:
        if (wparam != kBusyTimer) break;
        Move();
        return 0;
    case kMessageSize:
    case kMessageSystemColors: ReadColors(); break;
    case platform::kMessageGetObject:
        if (const auto object = accessible.Answer(window, wparam, lparam)) return *object;
        break;
    case kMessageDestroy: OnDestroy(); break;
    case zeve::kMessageWindowGone: {
        const zeve::NativeWindow gone = window;
        window = nullptr;
        accessible.Cut();
        return zeve::platform::AnswerBelowLayer(gone, message, wparam, lparam);
    }
    default: break;
    }
    return zeve::platform::AnswerBelowLayer(window, message, wparam, lparam);
}

// The control would paint each of these changes itself, over the bar.
std::intptr_t BusyBar::AnswerAsSystem(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
    const std::intptr_t answer = zeve::platform::DefaultAnswer(window, message, wparam, lparam);
    zeve::platform::Invalidate(window);
    return answer;
}

void BusyBar::ReadColors() {
    backColor = platform::SystemColor(platform::kColorWindow);
    frameColor = platform::SystemColor(platform::kColorDarkShadow);
    shadowColor = platform::SystemColor(platform::kColorShadow);
    clientRect = zeve::platform::ClientArea(window);
}

void BusyBar::Paint(const platform::Painting& painting) {
    clientRect = painting.Area();
    const zeve::NativeDrawing device = painting.Device();
    const std::weak_ptr<const bool> here = life;
    FillAsParent(device, painting.Area(), window); // shows in the corners
    // The parent may have destroyed the control, or this bar.
    if (here.expired() || window == nullptr) return;
    platform::DrawRoundFrame(device, clientRect, kCorner, frameColor, backColor);
    if (!BuildCell()) return;
    if (!finished) return BlendCell(device, position);
    for (std::int32_t x = kFullLeft; x < clientRect.right - kFullRight; x += kFullStep) BlendCell(device, x);
}

void BusyBar::BlendCell(zeve::NativeDrawing device, std::int32_t x) const {
    platform::BlendBitmap(device, {x, kCellTop, x + kDrawnWidth, kCellTop + kBusyCellHeight}, cell.get(),
                          kOpaque);
}

bool BusyBar::BuildCell() {
    if (cell) return true;
    cell = platform::MakeBitmap({kBusyCellWidth, kBusyCellHeight});
    FillBusyCell(platform::PixelsOf(cell.get()), barColor);
    return cell != nullptr;
}

void BusyBar::Move() {
    position += step;
    if (position > clientRect.right) position = kBusyRestart;
    zeve::platform::Invalidate(window);
}

void BusyBar::OnDestroy() {
    zeve::platform::StopTimer(window, kBusyTimer);
    finished = isRunning = false;
}

} // namespace brixen::pvn::pvn_workflow
