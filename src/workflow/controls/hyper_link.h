// A hyperlink on a control of a dialog: a label, or a part of it, that looks and acts like a link. It is
// painted by hand over the procedure of the control, which is usually a static.
//
//     HyperLink link;
//     link.extendedStyle = HyperLink::kCommandButton; // a click sends the control's id to the dialog
//     link.Attach(control);
//
// The link and its control may go in either order. Everything belongs to the thread of the dialog.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/controls/link_label.h"
#include "workflow/platform/accessible.h"
#include "workflow/platform/control_platform.h"
#include "workflow/platform/painting.h"

#include <cstdint>
#include <memory>
#include <string>

namespace brixen::pvn::pvn_workflow {

class HyperLink final : private platform::AccessibleControl {
public:
    // Bits of `extendedStyle`. Set them before Attach.
    static constexpr std::uint32_t kNeverUnderlined = 1;
    static constexpr std::uint32_t kUnderlinedOnHover = 2; // only while the mouse is over the link
    static constexpr std::uint32_t kCommandButton = 4;     // a click sends WM_COMMAND to the parent
    static constexpr std::uint32_t kSendsNotify = 8;       // with kCommandButton: WM_NOTIFY, code -2, instead
    static constexpr std::uint32_t kHasTags = 16;          // the label holds tags, see SplitLabel
    static constexpr std::uint32_t kBoldLink = 32;         // with kHasTags: bold instead of underlined
    static constexpr std::uint32_t kNoTooltip = 64;

    // Bits of `state`.
    static constexpr std::uint32_t kPaintsLabel = 1; // cleared by Attach for pictures and frames
    static constexpr std::uint32_t kVisited = 2;
    static constexpr std::uint32_t kHovered = 4;
    static constexpr std::uint32_t kOwnsLinkFont = 8;

    HyperLink() = default;
    HyperLink(const HyperLink&) = delete;
    HyperLink& operator=(const HyperLink&) = delete;
    ~HyperLink();

    // Makes the control a link. Without a `label` it takes the control's text; with neither `url` nor
    // kCommandButton the label, or its link part, is the address. A link that is attached leaves its former
    // control. Returns false if the control cannot be taken.
    bool Attach(zeve::NativeWindow control);
    // Sets the label, and the control's text, by which the system finds access keys.
    void SetLabel(const std::u16string& text);
    void SetHyperLink(std::u16string address);
    // Does what a click does: notifies the parent, or opens the address. An address that IsOpenable refuses
    // opens nothing. One that was opened makes the link visited. Throws what procedures of the host throw.
    void Navigate();

    // For everyone to read. A pane sets `extendedStyle`, and may set `linkFont` (it keeps that), before
    // Attach.
    zeve::NativeWindow window = nullptr; // the control; null before Attach and after its end
    std::u16string label, url;
    zeve::NativeCursor cursor = nullptr;
    zeve::NativeFont linkFont = nullptr;     // an underlined or bold copy of `normalFont`
    zeve::NativeFont normalFont = nullptr;   // of the label's other parts
    zeve::platform::Rectangle linkRect;      // the part that reacts to the mouse, in the client area
    zeve::NativeWindow toolTip = nullptr;    // shows `url`; owned
    platform::Color linkColor = 0xFF0000;    // blue
    platform::Color visitedColor = 0x800080; // purple
    std::uint32_t extendedStyle = 0;
    std::uint32_t state = kPaintsLabel;

private:
    // --- Attaching
    void Detach() noexcept;
    void Forget() noexcept;
    void MakeLinkFont() noexcept;
    void TakeStyle();
    void TakeFirstTexts();
    void ReadColors() noexcept;

    // --- State
    bool Has(std::uint32_t style) const { return (extendedStyle & style) != 0; }
    bool Is(std::uint32_t bit) const { return (state & bit) != 0; }
    bool HasTarget() const { return !url.empty() || Has(kCommandButton); }
    bool ReactsAt(platform::Point place) const;
    LabelParts Parts() const;
    zeve::NativeFont LinkFont() const { return linkFont != nullptr ? linkFont : normalFont; }
    LabelAlignment Alignment() const;
    bool IsReadFromRight() const;
    std::uint32_t TextFormat() const;
    LabelAreas MeasureParts(const zeve::platform::Rectangle& client) const;
    void Arrange();
    void UpdateTooltip();
    void LabelChanged();
    void SetHover(bool isHovered);
    void Refresh() noexcept;

    // --- Assistive technology: a link, named by its link part
    std::int32_t AccessibleRole() const override { return platform::kRoleLink; }
    std::u16string AccessibleName() const override;
    std::u16string AccessibleDescription() const override;
    std::u16string AccessibleValue() const override;
    std::uint32_t AccessibleState() const override;
    std::u16string DefaultActionName() const override;
    void DoDefaultAction() override;

    // --- Painting
    void Paint(const platform::Painting& painting);
    void DrawLabel(zeve::NativeDrawing device, const zeve::platform::Rectangle& client) const;
    platform::Color LinkColor() const noexcept;
    std::uint32_t DrawingFormat() const;

    // --- Messages
    struct Message;
    static std::intptr_t LayerProcedure(void* object, zeve::NativeWindow control, std::uint32_t number,
                                        std::uintptr_t wparam, std::intptr_t lparam) noexcept;
    std::intptr_t Handle(const Message& message);
    bool HandleMouse(const Message& message, std::intptr_t& answer);
    bool HandleKey(const Message& message, std::intptr_t& answer);
    bool HandleLook(const Message& message, std::intptr_t& answer);
    std::intptr_t DialogCode(const Message& message);
    void OnMouseMove(platform::Point place);
    void OnButtonDown(platform::Point place);
    bool OnButtonUp(platform::Point place);
    void OnSetFont(const Message& message);
    void Click();
    void OpenAddress();

    LabelAreas areas;
    bool ownsNormalFont = false;
    bool isUrlOfLabel = false;
    bool isEnterDown = false; // and the press was this link's
    platform::AccessibleConnection accessible{*this};
    std::shared_ptr<const bool> life = std::make_shared<const bool>(true); // expires with this object
};

} // namespace brixen::pvn::pvn_workflow
