// The messages of a hyperlink's control.
#include "toolkit/dialog/procedure_boundary.h"
#include "toolkit/message_numbers.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/platform/message_numbers.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace toolkit = zeve::platform;

struct HyperLink::Message {
    zeve::NativeWindow window = nullptr;
    std::uint32_t number = 0;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;

    // Of a mouse message.
    platform::Point Place() const {
        return {static_cast<std::int16_t>(lparam & 0xFFFF), static_cast<std::int16_t>(lparam >> 16 & 0xFFFF)};
    }
    bool IsHeldKey() const { return (lparam & kKeyRepeats) != 0; } // of a key message
    std::intptr_t AnswerOfControl() const {
        return toolkit::AnswerBelowLayer(window, number, wparam, lparam);
    }
    std::intptr_t AnswerOfSystem() const { return toolkit::DefaultAnswer(window, number, wparam, lparam); }
};

namespace {

bool Contains(const toolkit::Rectangle& area, platform::Point place) {
    return place.x >= area.left && place.x < area.right && place.y >= area.top && place.y < area.bottom;
}

} // namespace

std::intptr_t HyperLink::LayerProcedure(void* object, zeve::NativeWindow control, std::uint32_t number,
                                        std::uintptr_t wparam, std::intptr_t lparam) noexcept {
    auto& link = *static_cast<HyperLink*>(object);
    const auto answer = [&link](auto... message) { return link.Handle({message...}); };
    return zeve::KeepingExceptions(control, number, wparam, lparam, answer);
}

// A handler that can end the link is the last thing its message does.
std::intptr_t HyperLink::Handle(const Message& message) {
    std::intptr_t answer = 0;
    if (HandleMouse(message, answer) || HandleKey(message, answer)) return answer;
    if (Is(kPaintsLabel) && HandleLook(message, answer)) return answer;
    switch (message.number) {
    case zeve::kMessageEraseBackground: return 1;
    case kMessageGetFont: return reinterpret_cast<std::intptr_t>(normalFont);
    case zeve::kMessageSetFont: OnSetFont(message); return 0;
    case kMessageSize:
        Arrange();
        UpdateTooltip();
        Refresh();
        break;
    case platform::kMessageGetObject:
        if (const auto object = accessible.Answer(message.window, message.wparam, message.lparam))
            return *object;
        break;
    case kMessageDestroy: toolkit::CloseWindow(std::exchange(toolTip, nullptr)); break;
    case zeve::kMessageWindowGone:
        answer = message.AnswerOfControl();
        Forget();
        return answer;
    default: break;
    }
    return message.AnswerOfControl();
}

// --- Mouse ---

bool HyperLink::ReactsAt(platform::Point place) const { return HasTarget() && Contains(linkRect, place); }

bool HyperLink::HandleMouse(const Message& message, std::intptr_t& answer) {
    const bool isMouse = message.number >= kMessageMouseFirst && message.number <= kMessageMouseLast;
    if (isMouse && !Has(kNoTooltip)) {
        platform::RelayToTooltip(toolTip, window, message.number, message.wparam, message.lparam);
    }
    switch (message.number) {
    case kMessageMouseMove: OnMouseMove(message.Place()); return false;
    case kMessageMouseLeave: SetHover(false); return false;
    case kMessageSetCursor:
        if (!ReactsAt(platform::MouseIn(window))) return false;
        answer = 1;
        return true;
    // The control would send a click of its own to the parent for each of these two.
    case kMessageLeftButtonDown: OnButtonDown(message.Place()); return true;
    case kMessageLeftDoubleClick: return true;
    case kMessageLeftButtonUp: return OnButtonUp(message.Place());
    default: return false;
    }
}

void HyperLink::OnMouseMove(platform::Point place) {
    if (!ReactsAt(place)) return SetHover(false);
    platform::ShowCursor(cursor);
    if (!Has(kUnderlinedOnHover) || Is(kHovered)) return;
    SetHover(true);
    platform::AskForMouseLeave(window);
}

void HyperLink::OnButtonDown(platform::Point place) {
    if (!Contains(linkRect, place)) return;
    const zeve::NativeWindow control = window;
    toolkit::Focus(control);
    toolkit::CaptureMouse(control);
}

bool HyperLink::OnButtonUp(platform::Point place) {
    if (!toolkit::HasMouse(window)) return false;
    toolkit::ReleaseMouse(window);
    if (Contains(linkRect, place)) Click();
    return true;
}

// What the user does to a disabled link, or to a label without a link, has no effect.
void HyperLink::Click() {
    const bool hasLink = !Has(kHasTags) || !Parts().link.empty();
    if (hasLink && toolkit::IsEnabled(window)) Navigate();
}

// --- Keyboard ---

bool HyperLink::HandleKey(const Message& message, std::intptr_t& answer) {
    switch (message.number) {
    case kMessageDialogCode: answer = DialogCode(message); return true;
    case kMessageLosesFocus: isEnterDown = false; return false;
    case zeve::kMessageKeyDown:
        if (message.wparam == zeve::kKeyEnter && !message.IsHeldKey()) isEnterDown = true;
        return false;
    case zeve::kMessageKeyUp:
        if (message.wparam != zeve::kKeyEnter || !std::exchange(isEnterDown, false)) return false;
        answer = 1;
        Click();
        return true;
    case zeve::kMessageCharacter:
        if (message.wparam != zeve::kKeyEnter && message.wparam != kKeySpace) return false;
        isEnterDown = false; // its key up would open the link again
        if (!message.IsHeldKey()) Click();
        return true;
    case kButtonClick: {
        const std::weak_ptr<const bool> here = life;
        toolkit::Focus(window);
        if (!here.expired() && window != nullptr) Click();
        return true;
    }
    default: return false;
    }
}

// The keyboard rules of a dialog keep the press of Enter for themselves, and ask its control before that. An
// Enter that was pressed elsewhere, and is held or released here, must open nothing.
std::intptr_t HyperLink::DialogCode(const Message& message) {
    const bool isEnter = message.wparam == zeve::kKeyEnter && message.lparam != 0;
    if (isEnter && !platform::IsHeldKey(message.lparam)) isEnterDown = true;
    // The system finds the access key only of a control that calls itself a button.
    return kWantsCharacters | (HasAccessKey(label) ? kIsAButton : 0);
}

// --- Look ---

// The control would paint each of these changes itself, in its own way. Only for links with a label.
bool HyperLink::HandleLook(const Message& message, std::intptr_t& answer) {
    switch (message.number) {
    case zeve::kMessagePaint: Paint(platform::Painting(window)); return true;
    case kMessagePrintClient:
        Paint(platform::Painting(window, reinterpret_cast<zeve::NativeDrawing>(message.wparam)));
        return true;
    case zeve::kMessageSetText:
        answer = message.AnswerOfSystem();
        label = toolkit::TextOf(window);
        LabelChanged();
        return true;
    case kMessageEnable:
        answer = message.AnswerOfSystem();
        SetHover(false);
        Refresh();
        platform::Announce(window, platform::AccessibleChange::kState);
        return true;
    case kMessageUpdateUiState:
        answer = message.AnswerOfSystem();
        Refresh();
        return true;
    case zeve::kMessageSetFocus:
    case kMessageLosesFocus: Refresh(); return false;
    default: return false;
    }
}

void HyperLink::OnSetFont(const Message& message) {
    if (std::exchange(ownsNormalFont, false)) toolkit::DeleteFont(normalFont);
    normalFont = reinterpret_cast<zeve::NativeFont>(message.wparam);
    if (Is(kOwnsLinkFont)) {
        toolkit::DeleteFont(std::exchange(linkFont, nullptr));
        state &= ~kOwnsLinkFont;
        MakeLinkFont();
    }
    Arrange();
    UpdateTooltip();
    if ((message.lparam & 0xFFFF) != 0) Refresh();
}

} // namespace brixen::pvn::pvn_workflow
