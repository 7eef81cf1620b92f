// Hyperlinks as a screen reader asks for them.
#include "windows/links/link_fixture.h"
#include "windows/toolkit/patched_import.h"
#include "workflow/controls/busy_bar.h"
#include "workflow/controls/my_prog_bar.h"
#include "workflow/platform/accessible.h"

#include <oleacc.h>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

namespace brixen::pvn::pvn_workflow {
namespace {

class SpokenLink : public LinkFixture {
protected:
    SpokenLink() { CoInitialize(nullptr); }
    ~SpokenLink() override {
        if (object != nullptr) object->Release();
        CoUninitialize();
    }

    void Ask() {
        if (object != nullptr) std::exchange(object, nullptr)->Release();
        ASSERT_EQ(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                             reinterpret_cast<void**>(&object)),
                  S_OK);
        ASSERT_NE(object, nullptr);
    }
    static VARIANT Self() {
        VARIANT self = {};
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        return self;
    }
    std::wstring Text(HRESULT (STDMETHODCALLTYPE IAccessible::*read)(VARIANT, BSTR*)) const {
        BSTR text = nullptr;
        if ((object->*read)(Self(), &text) != S_OK) return L"none";
        const std::wstring result = text != nullptr ? text : L"";
        SysFreeString(text);
        return result;
    }
    long Number(HRESULT (STDMETHODCALLTYPE IAccessible::*read)(VARIANT, VARIANT*)) const {
        VARIANT number = {};
        if ((object->*read)(Self(), &number) != S_OK || number.vt != VT_I4) return -1;
        return number.lVal;
    }

    IAccessible* object = nullptr;
};

TEST_F(SpokenLink, HasNameRoleDescriptionAndAction) {
    SetWindowTextW(control, L"Please <A>read &it</A> now");
    Attach(HyperLink::kCommandButton | HyperLink::kHasTags);
    Ask();
    EXPECT_EQ(Text(&IAccessible::get_accName), L"read it");
    EXPECT_EQ(Text(&IAccessible::get_accDescription), L"Please read it now");
    EXPECT_EQ(Number(&IAccessible::get_accRole), ROLE_SYSTEM_LINK);
    EXPECT_EQ(Text(&IAccessible::get_accDefaultAction), L"Jump");
    EXPECT_EQ(Text(&IAccessible::get_accValue), L"none");
}

TEST_F(SpokenLink, HasItsAddressAsValue) {
    link->url = u"http://example.com";
    Attach(0);
    Ask();
    EXPECT_EQ(Text(&IAccessible::get_accValue), L"http://example.com");
    EXPECT_EQ(Text(&IAccessible::get_accName), L"Read more");
    EXPECT_EQ(Text(&IAccessible::get_accDescription), L"none");
}

TEST_F(SpokenLink, HasItsState) {
    Attach(HyperLink::kCommandButton);
    Ask();
    long state = Number(&IAccessible::get_accState);
    EXPECT_TRUE(state & STATE_SYSTEM_LINKED);
    EXPECT_TRUE(state & STATE_SYSTEM_FOCUSABLE);
    EXPECT_FALSE(state & (STATE_SYSTEM_TRAVERSED | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_UNAVAILABLE));
    SetFocus(control);
    link->state |= HyperLink::kVisited;
    state = Number(&IAccessible::get_accState);
    EXPECT_TRUE(state & STATE_SYSTEM_TRAVERSED);
    EXPECT_TRUE(state & STATE_SYSTEM_FOCUSED);
    EnableWindow(control, FALSE);
    EXPECT_TRUE(Number(&IAccessible::get_accState) & STATE_SYSTEM_UNAVAILABLE);
}

TEST_F(SpokenLink, IsInvisibleWhenItsControlIsHidden) {
    Attach(HyperLink::kCommandButton);
    Ask();
    EXPECT_FALSE(Number(&IAccessible::get_accState) & STATE_SYSTEM_INVISIBLE);
    ShowWindow(control, SW_HIDE);
    EXPECT_TRUE(Number(&IAccessible::get_accState) & STATE_SYSTEM_INVISIBLE);
}

TEST_F(SpokenLink, IsWhereItsControlIs) {
    Attach(HyperLink::kCommandButton);
    Ask();
    long left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Self()), S_OK);
    RECT frame = {};
    GetWindowRect(control, &frame);
    EXPECT_EQ(left, frame.left);
    EXPECT_EQ(top, frame.top);
    EXPECT_EQ(width, frame.right - frame.left);
    IDispatch* parent = nullptr;
    EXPECT_EQ(object->get_accParent(&parent), S_OK);
    if (parent != nullptr) parent->Release();
}

TEST_F(SpokenLink, OpensByItsDefaultAction) {
    Attach(HyperLink::kCommandButton);
    Ask();
    EXPECT_EQ(object->accDoDefaultAction(Self()), S_OK);
    HandleMessages();
    EXPECT_EQ(Commands(kLinkId), 1);
}

TEST_F(SpokenLink, RefusesStrangeQuestions) {
    Attach(HyperLink::kCommandButton);
    Ask();
    VARIANT child = Self();
    child.lVal = 7;
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(child, &text), E_INVALIDARG);
    EXPECT_EQ(object->get_accName(Self(), nullptr), E_INVALIDARG);
    void* other = this;
    EXPECT_EQ(object->QueryInterface(__uuidof(IStream), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
}

// Everything that an object can be asked fails after its control or its link has ended.
void ExpectCutOff(IAccessible& object, VARIANT self) {
    BSTR text = nullptr;
    VARIANT number = {};
    IDispatch* parent = nullptr;
    long count = 0;
    EXPECT_EQ(object.get_accName(self, &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.get_accDescription(self, &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.get_accRole(self, &number), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.get_accState(self, &number), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.accDoDefaultAction(self), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.get_accParent(&parent), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object.get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
}

TEST_F(SpokenLink, AnObjectMayOutliveTheLink) {
    Attach(HyperLink::kCommandButton);
    Ask();
    link.reset();
    ExpectCutOff(*object, Self());
    Ask();
    EXPECT_NE(Number(&IAccessible::get_accRole), ROLE_SYSTEM_LINK) << "the control answers itself";
}

TEST_F(SpokenLink, AnObjectMayOutliveTheControl) {
    Attach(HyperLink::kCommandButton);
    Ask();
    DestroyWindow(control);
    ExpectCutOff(*object, Self());
}

IAccessible* gStandard = nullptr; // with a reference of the test's own

HRESULT WINAPI KeepStandardObject(HWND window, LONG part, REFIID id, void** object) {
    const auto make = reinterpret_cast<decltype(&CreateStdAccessibleObject)>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"oleacc.dll"), "CreateStdAccessibleObject")));
    const HRESULT status = make(window, part, id, object);
    if (status != S_OK) return status;
    gStandard = static_cast<IAccessible*>(*object);
    gStandard->AddRef();
    return S_OK;
}

TEST_F(SpokenLink, LeavesNoObjectBehind) {
    Attach(HyperLink::kCommandButton);
    const pavane_test::PatchedImport making("CreateStdAccessibleObject", &KeepStandardObject);
    ASSERT_TRUE(making.IsPatched());
    Ask();
    ASSERT_NE(gStandard, nullptr);
    std::exchange(object, nullptr)->Release();
    EXPECT_EQ(std::exchange(gStandard, nullptr)->Release(), 0u);
}

// --- Bars ---

TEST_F(SpokenLink, ABusyBarIsAProgressBarWithoutAValue) {
    BusyBar bar;
    ASSERT_TRUE(bar.Attach(Opaque(control)));
    Ask();
    EXPECT_EQ(Number(&IAccessible::get_accRole), ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(Text(&IAccessible::get_accValue), L"none");
    EXPECT_EQ(Text(&IAccessible::get_accName), L"Read more") << "the text of its control";
    EXPECT_EQ(object->accDoDefaultAction(Self()), DISP_E_MEMBERNOTFOUND);
    bar.Start();
    EXPECT_TRUE(Number(&IAccessible::get_accState) & STATE_SYSTEM_BUSY);
    bar.SetFinished();
    EXPECT_FALSE(Number(&IAccessible::get_accState) & STATE_SYSTEM_BUSY);
    DestroyWindow(control);
    ExpectCutOff(*object, Self());
}

TEST_F(SpokenLink, AGaugeIsAProgressBarWithAValue) {
    control = reinterpret_cast<HWND>(MakeGauge(Opaque(window), 90, {0, 0, 200, 60}));
    ASSERT_NE(control, nullptr);
    SendMessageW(control, kGaugeSetRange, 0, MAKELPARAM(200, 0));
    SendMessageW(control, kGaugeSetPosition, 0, 50);
    Ask();
    EXPECT_EQ(Number(&IAccessible::get_accRole), ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(Text(&IAccessible::get_accValue), L"25%");
    DestroyWindow(control);
    ExpectCutOff(*object, Self());
}

// --- Announcements ---

struct HeardEvent {
    DWORD event;
    HWND window;
};
std::vector<HeardEvent> gEvents;

void CALLBACK NoteEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG, DWORD, DWORD) {
    gEvents.push_back({event, window});
}

TEST_F(SpokenLink, AnnouncesItsChanges) {
    gEvents.clear();
    Attach(HyperLink::kCommandButton);
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr,
                                               &NoteEvent, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    const auto heard = [this](DWORD event) {
        return std::count_if(gEvents.begin(), gEvents.end(), [this, event](const HeardEvent& one) {
            return one.event == event && one.window == control;
        });
    };
    link->SetLabel(u"new");
    platform::Announce(Opaque(control), platform::AccessibleChange::kValue);
    for (int i = 0; i < 500 && heard(EVENT_OBJECT_VALUECHANGE) == 0; ++i) {
        HandleMessages();
        Sleep(10);
    }
    UnhookWinEvent(hook);
    EXPECT_EQ(heard(EVENT_OBJECT_VALUECHANGE), 1);
    EXPECT_EQ(heard(EVENT_OBJECT_NAMECHANGE), 1) << "the value's event came after it";
}

TEST_F(SpokenLink, AnswersOnlyOnTheThreadOfItsControl) {
    Attach(HyperLink::kCommandButton);
    Ask();
    HRESULT name = S_OK, action = S_OK;
    std::thread([&] {
        BSTR text = nullptr;
        name = object->get_accName(Self(), &text);
        action = object->accDoDefaultAction(Self());
    }).join();
    EXPECT_EQ(name, RPC_E_WRONG_THREAD);
    EXPECT_EQ(action, RPC_E_WRONG_THREAD);
    HandleMessages();
    EXPECT_EQ(Commands(kLinkId), 0);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
