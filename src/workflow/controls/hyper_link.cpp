#include "workflow/controls/hyper_link.h"

#include "toolkit/control_styles.h"
#include "toolkit/message_numbers.h"
#include "workflow/controls/anchor_color.h"
#include "workflow/controls/openable_target.h"
#include "workflow/controls/parent_background.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/platform/text_drawing.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace toolkit = zeve::platform;
using toolkit::Rectangle;

namespace {

constexpr std::int32_t kBoldWeight = 700;
constexpr char16_t kSettingsKey[] = u"Software\\Microsoft\\Internet Explorer\\Settings";
constexpr std::uint32_t kAlignsCenter = 1, kAlignsRight = 2; // of a window's style
constexpr std::uint32_t kKindOfStatic = 0xFF;                // the low byte of its style

// Pictures and frames have no text to paint.
bool IsPictureOrFrame(std::uint32_t kind) { return (kind >= 3 && kind <= 9) || (kind >= 13 && kind <= 15); }

zeve::NativeFont FontOf(zeve::NativeWindow window) {
    return reinterpret_cast<zeve::NativeFont>(toolkit::Send(window, kMessageGetFont, 0, 0));
}

zeve::NativeFont CopyOf(zeve::NativeFont font) noexcept {
    const auto record = platform::FontRecordOf(font);
    return record ? toolkit::MakeFont(*record) : nullptr;
}

zeve::NativeWindow MakeTooltip(zeve::NativeWindow control) {
    toolkit::WindowRequest request;
    request.className = kTooltipClass;
    request.left = request.top = request.width = request.height = kDefaultPlace;
    request.parent = control;
    request.instance = toolkit::LibraryModule();
    return toolkit::MakeWindow(request);
}

} // namespace

// --- Attaching ---

HyperLink::~HyperLink() { Detach(); }

void HyperLink::Detach() noexcept {
    if (window != nullptr) toolkit::DropLayer(window);
    toolkit::CloseWindow(std::exchange(toolTip, nullptr));
    if (window != nullptr) toolkit::Invalidate(window);
    Forget();
}

// Call it after the window has painted for the last time: fonts are deleted.
void HyperLink::Forget() noexcept {
    window = nullptr;
    accessible.Cut();
    isEnterDown = false;
    state &= ~kHovered;
    if (Is(kOwnsLinkFont)) toolkit::DeleteFont(std::exchange(linkFont, nullptr));
    state &= ~kOwnsLinkFont;
    if (ownsNormalFont) toolkit::DeleteFont(normalFont);
    normalFont = nullptr;
    ownsNormalFont = false;
}

bool HyperLink::Attach(zeve::NativeWindow control) {
    Detach();
    normalFont = CopyOf(FontOf(control));
    ownsNormalFont = normalFont != nullptr;
    if (!toolkit::TakeLayerProcedure(control, &HyperLink::LayerProcedure, this)) {
        Forget();
        return false;
    }
    window = control;
    TakeStyle();
    cursor = platform::HandCursor();
    if (Is(kPaintsLabel)) {
        if (normalFont == nullptr) normalFont = FontOf(toolkit::ParentOf(window));
        if (normalFont == nullptr) normalFont = platform::StockFont(platform::kStockSystemFont);
        if (linkFont == nullptr) MakeLinkFont();
    }
    toolTip = MakeTooltip(window);
    TakeFirstTexts();
    if (Is(kPaintsLabel)) ReadColors();
    Refresh();
    return true;
}

void HyperLink::MakeLinkFont() noexcept {
    auto record = platform::FontRecordOf(normalFont);
    if (!record) return;
    if (Has(kHasTags) && Has(kBoldLink)) {
        record->weight = kBoldWeight;
    } else if (!Has(kNeverUnderlined)) {
        record->underline = 1;
    }
    linkFont = toolkit::MakeFont(*record);
    if (linkFont != nullptr) state |= kOwnsLinkFont;
}

void HyperLink::TakeStyle() {
    if (!toolkit::IsOfClass(window, u"static")) return;
    const std::uint32_t style = toolkit::StyleOf(window);
    // A link is reached by Tab, which a label is not.
    toolkit::SetStyle(window, style | kStaticNotify | zeve::style::kTabStop);
    if (IsPictureOrFrame(style & kKindOfStatic)) state &= ~kPaintsLabel;
}

void HyperLink::TakeFirstTexts() {
    isUrlOfLabel = isUrlOfLabel || !HasTarget();
    if (!label.empty()) return SetLabel(std::u16string(label));
    label = toolkit::TextOf(window);
    LabelChanged();
}

void HyperLink::ReadColors() noexcept {
    const auto read = [](const char16_t* name, platform::Color& color) {
        const auto setting = platform::ReadUserSetting(kSettingsKey, name);
        if (setting) color = ColorOfSetting(*setting).value_or(color);
    };
    read(u"Anchor Color", linkColor);
    read(u"Anchor Color Visited", visitedColor);
}

void HyperLink::SetLabel(const std::u16string& text) {
    label = text;
    if (window == nullptr) return;
    // The control's new text becomes the label, which changes then.
    if (Is(kPaintsLabel)) return toolkit::SetText(window, text.c_str());
    LabelChanged();
}

void HyperLink::SetHyperLink(std::u16string address) {
    url = std::move(address);
    isUrlOfLabel = false;
    if (window == nullptr) return;
    Arrange();
    UpdateTooltip();
    Refresh();
}

void HyperLink::Navigate() {
    const zeve::NativeWindow control = window;
    if (!Has(kCommandButton)) return OpenAddress();
    const std::uint16_t id = toolkit::IdOf(control);
    const zeve::NativeWindow parent = toolkit::ParentOf(control);
    // The parent may destroy the control and this link.
    if (Has(kSendsNotify)) {
        const platform::NotificationHeader header{control, id, kNotificationClick};
        toolkit::Send(parent, kMessageNotify, id, reinterpret_cast<std::intptr_t>(&header));
    } else {
        toolkit::Send(parent, zeve::kMessageCommand, id, reinterpret_cast<std::intptr_t>(control));
    }
}

void HyperLink::OpenAddress() {
    if (!IsOpenable(url)) return;
    // The shell may handle messages meanwhile, and one of them may end this link.
    const std::weak_ptr<const bool> here = life;
    const std::u16string target = url;
    if (!platform::OpenWithShell(target.c_str()) || here.expired()) return;
    state |= kVisited;
    Refresh();
    platform::Announce(window, platform::AccessibleChange::kState);
}

// --- State ---

LabelParts HyperLink::Parts() const {
    const std::u16string& shown = label.empty() ? url : label;
    return Has(kHasTags) ? SplitLabel(shown) : LabelParts{{}, shown, {}};
}

LabelAlignment HyperLink::Alignment() const {
    const std::uint32_t style = toolkit::StyleOf(window);
    if ((style & kAlignsCenter) != 0) return LabelAlignment::kCenter;
    const bool isMirrored = (toolkit::ExtendedStyleOf(window) & zeve::extended::kRight) != 0;
    return (style & kAlignsRight) != 0 || isMirrored ? LabelAlignment::kRight : LabelAlignment::kLeft;
}

bool HyperLink::IsReadFromRight() const {
    return (toolkit::ExtendedStyleOf(window) & zeve::extended::kRightToLeftReading) != 0;
}

LabelAreas HyperLink::MeasureParts(const Rectangle& client) const {
    const LabelParts parts = Parts();
    const std::uint32_t format = TextFormat();
    LabelAreas measured;
    Rectangle room = client;
    const auto measure = [this, &room, format](zeve::NativeFont font, std::u16string_view text) {
        const Rectangle area = platform::MeasureTextIn(window, font, text, room, format);
        room.left = area.right;
        return area;
    };
    measured.before = measure(normalFont, parts.before);
    measured.link = measure(LinkFont(), parts.link);
    measured.after = measure(normalFont, parts.after);
    return measured;
}

void HyperLink::Arrange() {
    const Rectangle client = toolkit::ClientArea(window);
    areas = Is(kPaintsLabel) ? AlignLabel(MeasureParts(client), client, Alignment(), IsReadFromRight())
                             : LabelAreas{{}, client, {}};
    linkRect = areas.link;
}

void HyperLink::UpdateTooltip() {
    if (toolTip == nullptr) return;
    // Without a target a tooltip would show the former one.
    toolkit::Send(toolTip, kTooltipActivate, HasTarget() ? 1 : 0, 0);
    if (!HasTarget()) return;
    platform::SetTooltip(toolTip, window, linkRect, url.c_str());
}

void HyperLink::LabelChanged() {
    if (isUrlOfLabel) url = WithoutAccessMarks(Parts().link);
    Arrange();
    UpdateTooltip();
    Refresh();
    platform::Announce(window, platform::AccessibleChange::kName);
}

void HyperLink::SetHover(bool isHovered) {
    if (Is(kHovered) == isHovered) return;
    state ^= kHovered;
    Refresh();
}

void HyperLink::Refresh() noexcept { toolkit::Invalidate(window); }

// --- Assistive technology ---

std::u16string HyperLink::AccessibleName() const { return WithoutAccessMarks(Parts().link); }

std::u16string HyperLink::AccessibleDescription() const {
    if (!Has(kHasTags)) return {}; // the name says it all
    const LabelParts parts = Parts();
    std::u16string whole = WithoutAccessMarks(parts.before);
    whole += WithoutAccessMarks(parts.link);
    return whole += WithoutAccessMarks(parts.after);
}

std::u16string HyperLink::AccessibleValue() const { return Has(kCommandButton) ? std::u16string() : url; }

std::uint32_t HyperLink::AccessibleState() const {
    std::uint32_t states = platform::kStateLinked | platform::kStateFocusable;
    if (Is(kVisited)) states |= platform::kStateTraversed;
    if (toolkit::FocusedWindow() == window) states |= platform::kStateFocused;
    if (!toolkit::IsEnabled(window)) states |= platform::kStateUnavailable;
    return states;
}

std::u16string HyperLink::DefaultActionName() const { return u"Jump"; }

void HyperLink::DoDefaultAction() { toolkit::Post(window, kButtonClick, 0, 0); }

// --- Painting ---

void HyperLink::Paint(const platform::Painting& painting) {
    const zeve::NativeDrawing device = painting.Device();
    const std::weak_ptr<const bool> here = life;
    FillAsParent(device, painting.Area(), window);
    if (here.expired() || window == nullptr) return; // the parent has ended it meanwhile
    DrawLabel(device, painting.Area());
    if (toolkit::FocusedWindow() == window) platform::DrawFocusFrame(device, linkRect);
}

void HyperLink::DrawLabel(zeve::NativeDrawing device, const Rectangle& client) const {
    const LabelParts parts = Parts();
    const bool isPlain = Has(kUnderlinedOnHover) && !Is(kHovered);
    platform::TextLook look{isPlain ? normalFont : LinkFont(), LinkColor(), DrawingFormat()};
    if (!Has(kHasTags)) {
        // The system aligns each line of it.
        if (Alignment() == LabelAlignment::kCenter) look.format |= platform::kTextCenter;
        if (Alignment() == LabelAlignment::kRight) look.format |= platform::kTextRight;
        return platform::DrawTextIn(device, parts.link, client, look);
    }
    platform::DrawTextIn(device, parts.link, areas.link, look);
    // The parent has set the color of plain text.
    const platform::TextLook plain{normalFont, platform::TextColorOf(device), look.format};
    platform::DrawTextIn(device, parts.before, areas.before, plain);
    platform::DrawTextIn(device, parts.after, areas.after, plain);
}

platform::Color HyperLink::LinkColor() const noexcept {
    if (!toolkit::IsEnabled(window)) return platform::SystemColor(platform::kColorGrayText);
    // Links of the user's own scheme, which can be read on its background.
    if (platform::IsHighContrast()) return platform::SystemColor(platform::kColorHotLight);
    return Is(kVisited) ? visitedColor : linkColor;
}

std::uint32_t HyperLink::TextFormat() const {
    std::uint32_t format = platform::kTextBreaksLines;
    if (IsReadFromRight()) format |= platform::kTextRightToLeft;
    return label.empty() ? format | platform::kTextShowsAmpersands : format; // an address has its own
}

std::uint32_t HyperLink::DrawingFormat() const {
    std::uint32_t format = TextFormat();
    const std::intptr_t hidden = toolkit::Send(window, kMessageQueryUiState, 0, 0);
    if ((hidden & kHidesAccessKeys) != 0) format |= platform::kTextHidesPrefix;
    return format;
}

} // namespace brixen::pvn::pvn_workflow
