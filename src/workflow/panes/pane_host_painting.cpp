// What a pane host paints: the backdrop, logo and label over it, and the colors of text controls.
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/controls/backdrop.h"
#include "workflow/controls/overlay.h"
#include "workflow/panes/pane.h"
#include "workflow/panes/pane_host.h"
#include "workflow/platform/painting.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr platform::Color kErrorColor = 255;     // red
constexpr platform::Color kSuccessColor = 46080; // green

} // namespace

// Brushes are made once, however often the message to initialize comes.
void PVNPaneHost::ArrangeBackdrop() {
    if (panel) return;
    panel = std::make_unique<PanelRenderer>(backgroundBitmap, kFirstPanelSize, kNoFrame);
    panelBitmap = RenderBackdrop(*panel, window);
    panelBrush = platform::MakePatternBrush(panelBitmap.get());
    zeve::platform::GrayCloseItem(window);
}

void PVNPaneHost::PaintBackdrop(zeve::NativeDrawing device) {
    const platform::Painting painting(callbackParams.window, device);
    // A bitmap that is a little smaller is centered and leaves a rim.
    const zeve::platform::Extent extent = platform::ExtentOf(panelBitmap.get());
    if (extent.width < painting.Area().Width() || extent.height < painting.Area().Height()) {
        platform::FillArea(painting.Device(), painting.Area(), platform::SystemColor(platform::kColorFace));
    }
    DrawBackdrop(painting.Device(), painting.Area(), panelBitmap.get());
    PaintOverlay(painting.Device());
}

void PVNPaneHost::PaintOverlay(zeve::NativeDrawing device) {
    ChooseLabel();
    if (platform::IsHighContrast()) return;
    DrawOverlay(device, zeve::platform::ClientArea(callbackParams.window), {logoBitmap, labelBitmap});
}

void PVNPaneHost::ChooseLabel() {
    std::string name;
    GetString(*activeContext, PvnWFKey_ProductLabelName, name);
    if (name.empty()) name = labelName;
    if (isLabelLoaded && name == labelName) return;
    ReleaseLabel();
    labelName = std::move(name);
    isLabelLoaded = true;
    labelBitmap = LoadHostBitmap(labelName);
}

// A name has one bitmap, which another part of the dialog may show too.
void PVNPaneHost::ReleaseLabel() noexcept {
    const zeve::NativeBitmap label = std::exchange(labelBitmap, nullptr);
    if (!label || label == backgroundBitmap || label == logoBitmap || pictures.Shows(label)) return;
    ReleaseBitmapResource(labelName.c_str());
}

bool PVNPaneHost::OnPaint(const WindowMessage& message, std::intptr_t&) {
    if (!platform::IsHighContrast()) return false;
    zeve::platform::PaintFace(message.window);
    return true;
}

bool PVNPaneHost::OnEraseBackground(const WindowMessage& message, std::intptr_t&) {
    const auto device = reinterpret_cast<zeve::NativeDrawing>(message.wparam);
    if (platform::IsHighContrast()) {
        zeve::platform::EraseFace(message.window, device);
    } else {
        PaintBackdrop(device);
    }
    return true;
}

bool PVNPaneHost::OnColorStatic(const WindowMessage& message, std::intptr_t& result) {
    if (platform::IsHighContrast()) return false;
    const auto device = reinterpret_cast<zeve::NativeDrawing>(message.wparam);
    const auto control = reinterpret_cast<zeve::NativeWindow>(message.lparam);
    const zeve::NativeBrush brush = BrushBehind(control, device, message.window, panelBrush.get());
    if (!brush) return false;
    platform::SetTransparentText(device, TextColorOf(control));
    result = reinterpret_cast<std::intptr_t>(brush);
    return true;
}

platform::Color PVNPaneHost::TextColorOf(zeve::NativeWindow control) const {
    if (currentPane) {
        const std::uint16_t id = zeve::platform::IdOf(control);
        for (const MarkedControl& marked : currentPane->MarkedControls()) {
            if (marked.viewId == id) return marked.mark == Mark::kError ? kErrorColor : kSuccessColor;
        }
    }
    return platform::SystemColor(platform::kColorWindowText);
}

} // namespace brixen::pvn::pvn_workflow
