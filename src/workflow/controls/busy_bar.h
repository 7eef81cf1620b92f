// A bar in which a cell runs from left to right while a worker is busy, and which is full when it has
// finished. It paints an existing control of a view. A screen reader learns of a progress bar without a value
// that is busy while the cell runs. Belongs to the thread of the dialog.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/platform/accessible.h"
#include "workflow/platform/painting.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::uintptr_t kBusyTimer = 12;        // of the bar's window
inline constexpr std::uint32_t kBusyPeriod = 100;       // milliseconds
inline constexpr std::int32_t kBusyStep = 9;            // pixels a period
inline constexpr std::int32_t kBusyRestart = -14;       // the position after the right edge: the cell enters
inline constexpr platform::Color kBusyColor = 15954971; // of the cell

class BusyBar final : private platform::AccessibleControl {
public:
    BusyBar() = default;
    BusyBar(const BusyBar&) = delete;
    BusyBar& operator=(const BusyBar&) = delete;
    // May outlive the control.
    ~BusyBar();

    // Paints that control from now on. Returns false if there is no such control, it has a layer already, or
    // the bar has a control.
    bool Attach(zeve::NativeWindow control);
    // Moves the cell by `pixelsATick` every kBusyPeriod.
    void Start(std::int32_t pixelsATick = kBusyStep);
    // Stops the cell and shows the full bar.
    void SetFinished();
    // Stops the cell where it is and shows no full bar.
    void Stop();

    zeve::NativeWindow Window() const { return window; } // null after its end
    std::int32_t Position() const { return position; }   // of the cell's left edge
    bool IsFinished() const { return finished; }

private:
    static std::intptr_t Procedure(void* bar, zeve::NativeWindow window, std::uint32_t message,
                                   std::uintptr_t wparam, std::intptr_t lparam) noexcept;
    std::intptr_t Answer(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam);

    std::intptr_t AnswerAsSystem(std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam);

    std::int32_t AccessibleRole() const override { return platform::kRoleProgressBar; }
    std::uint32_t AccessibleState() const override;

    void SetRunning(bool runs);
    void ReadColors();
    void Paint(const platform::Painting& painting);
    void BlendCell(zeve::NativeDrawing device, std::int32_t x) const;
    bool BuildCell();
    void Move();
    void OnDestroy();

    zeve::NativeWindow window = nullptr;
    std::int32_t step = kBusyStep;
    std::int32_t position = 0;
    platform::Color backColor = 0, frameColor = 0;
    platform::Color barColor = kBusyColor;
    platform::Color shadowColor = 0; // Kept: read with the others, and drawn nowhere
    zeve::platform::Rectangle clientRect;
    bool finished = false;
    bool isRunning = false;
    platform::AccessibleConnection accessible{*this};
    platform::OwnedBitmap cell;                                            // built at the first paint
    std::shared_ptr<const bool> life = std::make_shared<const bool>(true); // expires with this object
};

} // namespace brixen::pvn::pvn_workflow
