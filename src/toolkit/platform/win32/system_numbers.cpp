// Compares the toolkit's numbers of styles, messages and their parameters with the system's own. It holds no
// code: a number that differs does not compile.
#define OEMRESOURCE // for the numbers of the system's icons
#include "toolkit/control_styles.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/win32/handles.h"
#include "toolkit/view_constants.h"

#include <commctrl.h>

namespace brixen::zeve {

// --- Styles

static_assert(style::kPopup == WS_POPUP);
static_assert(style::kChild == WS_CHILD);
static_assert(style::kVisible == WS_VISIBLE);
static_assert(style::kDisabled == WS_DISABLED);
static_assert(style::kClipSiblings == WS_CLIPSIBLINGS);
static_assert(style::kCaption == WS_CAPTION);
static_assert(style::kBorder == WS_BORDER);
static_assert(style::kDialogFrame == WS_DLGFRAME);
static_assert(style::kVerticalScroll == WS_VSCROLL);
static_assert(style::kSystemMenu == WS_SYSMENU);
static_assert(style::kTabStop == WS_TABSTOP && style::kGroup == WS_GROUP &&
              style::kClipChildren == WS_CLIPCHILDREN);

static_assert(style::kPushButton == BS_PUSHBUTTON);
static_assert(style::kDefaultPushButton == BS_DEFPUSHBUTTON);
static_assert(style::kAutoCheckBox == BS_AUTOCHECKBOX);
static_assert(style::kRadioButton == BS_RADIOBUTTON);
static_assert(style::kGroupBox == BS_GROUPBOX && style::kButtonNotifies == BS_NOTIFY);

static_assert(style::kStaticRight == SS_RIGHT);
static_assert(style::kStaticIcon == SS_ICON);
static_assert(style::kStaticFrame == SS_BLACKFRAME);
static_assert(style::kStaticBitmap == SS_BITMAP);
static_assert(style::kStaticEtchedLine == SS_ETCHEDHORZ);

static_assert(style::kEditMultiline == ES_MULTILINE);
static_assert(style::kEditPassword == ES_PASSWORD);
static_assert(style::kEditAutoVerticalScroll == ES_AUTOVSCROLL);
static_assert(style::kEditAutoHorizontalScroll == ES_AUTOHSCROLL);
static_assert(style::kEditReadOnly == ES_READONLY);
static_assert(style::kEditWantReturn == ES_WANTRETURN);

static_assert(style::kDropDownList == CBS_DROPDOWNLIST);
static_assert(style::kListNotify == LBS_NOTIFY);
static_assert(style::kListWantKeyboard == LBS_WANTKEYBOARDINPUT);
static_assert(style::kUpright == SBS_VERT);
static_assert(style::kSliderTicks == TBS_AUTOTICKS);
static_assert(style::kTreeDisableDragDrop == TVS_DISABLEDRAGDROP);
static_assert(style::kTreeHasButtons == TVS_HASBUTTONS);
static_assert(style::kTreeHasLines == TVS_HASLINES);
static_assert(style::kTreeLinesAtRoot == TVS_LINESATROOT);

static_assert(extended::kTopMost == WS_EX_TOPMOST);
static_assert(extended::kDialogModalFrame == WS_EX_DLGMODALFRAME);
static_assert(extended::kWindowEdge == WS_EX_WINDOWEDGE);
static_assert(extended::kClientEdge == WS_EX_CLIENTEDGE);
static_assert(extended::kRight == WS_EX_RIGHT);
static_assert(extended::kRightToLeftReading == WS_EX_RTLREADING);
static_assert(extended::kLeftScrollBar == WS_EX_LEFTSCROLLBAR);
static_assert(extended::kControlParent == WS_EX_CONTROLPARENT);

// --- Messages

static_assert(kMessageActivate == WM_ACTIVATE);
static_assert(kMessageSetFocus == WM_SETFOCUS);
static_assert(kMessageSetText == WM_SETTEXT && kMessageGetTextLength == WM_GETTEXTLENGTH);
static_assert(kMessagePaint == WM_PAINT);
static_assert(kMessageClose == WM_CLOSE);
static_assert(kMessageEraseBackground == WM_ERASEBKGND);
static_assert(kMessageNextDialogControl == WM_NEXTDLGCTL);
static_assert(kMessageSetFont == WM_SETFONT);
static_assert(kMessageWindowGone == WM_NCDESTROY);
static_assert(kMessageKeyDown == WM_KEYDOWN);
static_assert(kMessageKeyUp == WM_KEYUP);
static_assert(kMessageCharacter == WM_CHAR);
static_assert(kMessageSystemKeyDown == WM_SYSKEYDOWN);
static_assert(kMessageSystemKeyUp == WM_SYSKEYUP);
static_assert(kMessageInitDialog == WM_INITDIALOG);
static_assert(kMessageCommand == WM_COMMAND);
static_assert(kMessageTimer == WM_TIMER);
static_assert(kMessageChangeUiState == WM_CHANGEUISTATE);
// The six color messages are in a row, apart from the one of message boxes.
static_assert(kMessageColorEdit == WM_CTLCOLOREDIT && kMessageColorEdit == WM_CTLCOLORMSGBOX + 1);
static_assert(kMessageColorEdit + 1 == WM_CTLCOLORLISTBOX && kMessageColorEdit + 2 == WM_CTLCOLORBTN);
static_assert(kMessageColorEdit + 3 == WM_CTLCOLORDLG && kMessageColorEdit + 4 == WM_CTLCOLORSCROLLBAR);
static_assert(kMessageColorStatic == WM_CTLCOLORSTATIC && kMessageColorStatic == kMessageColorEdit + 5);

static_assert(kEditGetSelection == EM_GETSEL);
static_assert(kEditSetSelection == EM_SETSEL);
static_assert(kEditSetLimitText == EM_SETLIMITTEXT);
static_assert(kButtonGetCheck == BM_GETCHECK);
static_assert(kButtonSetCheck == BM_SETCHECK);
static_assert(kButtonSetStyle == BM_SETSTYLE);
static_assert(kComboAddString == CB_ADDSTRING);
static_assert(kComboGetSelection == CB_GETCURSEL);
static_assert(kComboResetContent == CB_RESETCONTENT);
static_assert(kComboSetSelection == CB_SETCURSEL);
static_assert(kStaticSetImage == STM_SETIMAGE);
static_assert(kStaticGetImage == STM_GETIMAGE);
static_assert(kMessageEditKeyUp > WM_USER);

// --- Parameters of messages

static_assert(kChecked == BST_CHECKED);
static_assert(kPaintAnew == TRUE);
static_assert(kImageBitmap == IMAGE_BITMAP);
static_assert(kImageIcon == IMAGE_ICON);
static_assert(kHideAccessKeysAtFirst == (UIS_INITIALIZE | UISF_HIDEACCEL << 16));
static_assert(kKeyTab == VK_TAB);
static_assert(kKeyEnter == VK_RETURN);
static_assert(kKeyAlt == VK_MENU);
static_assert(kKeyEscape == VK_ESCAPE);

static_assert(kBuiltinIconWarning == OIC_WARNING);
static_assert(kBuiltinIconAlert == OIC_INFORMATION);

} // namespace brixen::zeve
