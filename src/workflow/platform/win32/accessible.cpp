#include "workflow/platform/accessible.h"

#include <windows.h>

#include <oleacc.h>

#include <new>
#include <utility>

namespace brixen::pvn::pvn_workflow::platform {

static_assert(kMessageGetObject == WM_GETOBJECT);
static_assert(kRoleLink == ROLE_SYSTEM_LINK && kRoleProgressBar == ROLE_SYSTEM_PROGRESSBAR);
static_assert(kStateUnavailable == STATE_SYSTEM_UNAVAILABLE && kStateFocused == STATE_SYSTEM_FOCUSED &&
              kStateReadOnly == STATE_SYSTEM_READONLY && kStateBusy == STATE_SYSTEM_BUSY &&
              kStateFocusable == STATE_SYSTEM_FOCUSABLE && kStateLinked == STATE_SYSTEM_LINKED &&
              kStateTraversed == STATE_SYSTEM_TRAVERSED);
static_assert(static_cast<DWORD>(AccessibleChange::kState) == EVENT_OBJECT_STATECHANGE &&
              static_cast<DWORD>(AccessibleChange::kName) == EVENT_OBJECT_NAMECHANGE &&
              static_cast<DWORD>(AccessibleChange::kValue) == EVENT_OBJECT_VALUECHANGE);

namespace {

HWND Handle(zeve::NativeWindow window) { return reinterpret_cast<HWND>(window); }

bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

HRESULT GiveText(const std::u16string& text, BSTR* result) {
    if (text.empty()) return S_FALSE;
    *result =
        SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
    return *result != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT GiveNumber(std::int32_t number, VARIANT* result) {
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
}

// The object of one control, over the standard one of its window. It counts its users itself and nobody
// deletes it as what it derives from.
class ControlObject final : private IAccessible {
public:
    // Takes the reference to `standard` over.
    ControlObject(HWND ofWindow, IAccessible* itsStandard, std::shared_ptr<AccessibleControl*> itsControl)
        : window(ofWindow), standard(itsStandard), control(std::move(itsControl)) {}
    ControlObject(const ControlObject&) = delete;
    ControlObject& operator=(const ControlObject&) = delete;

    IAccessible* Interface() { return this; }

    // --- IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
        if (result == nullptr) return E_POINTER;
        *result = nullptr;
        if (id != __uuidof(IUnknown) && id != __uuidof(IDispatch) && id != __uuidof(IAccessible))
            return E_NOINTERFACE;
        *result = Interface();
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&references));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&references);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    // --- IDispatch, for scripts, which never see this object
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    // --- What the control answers
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* result) override {
        const HRESULT status = AskText(child, result, &AccessibleControl::AccessibleName);
        return status == S_FALSE ? standard->get_accName(child, result) : status;
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* result) override {
        return AskText(child, result, &AccessibleControl::AccessibleDescription);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* result) override {
        return AskText(child, result, &AccessibleControl::AccessibleValue);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* result) override {
        return AskText(child, result, &AccessibleControl::DefaultActionName);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* result) override {
        return Ask(child, result, [result](const AccessibleControl& asked) {
            return GiveNumber(asked.AccessibleRole(), result);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* result) override {
        return Ask(child, result, [this, child, result](const AccessibleControl& asked) {
            VARIANT ofWindow{};
            const bool isNumber = standard->get_accState(child, &ofWindow) == S_OK && ofWindow.vt == VT_I4;
            const std::int32_t bits = isNumber ? ofWindow.lVal : 0;
            return GiveNumber(bits | static_cast<std::int32_t>(asked.AccessibleState()), result);
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
        return Ask(child, this, [](AccessibleControl& asked) {
            if (asked.DefaultActionName().empty()) return DISP_E_MEMBERNOTFOUND;
            asked.DoDefaultAction();
            return S_OK;
        });
    }

    // --- What the standard object answers
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accParent(result);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accChildCount(result);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accChild(child, result);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accHelp(child, result);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accKeyboardShortcut(child, result);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accFocus(result);
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->get_accSelection(result);
    }
    HRESULT STDMETHODCALLTYPE accSelect(long how, VARIANT child) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->accSelect(how, child);
    }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height,
                                          VARIANT child) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->accNavigate(direction, start, result);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long x, long y, VARIANT* result) override {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        return standard->accHitTest(x, y, result);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return E_NOTIMPL; }

private:
    ~ControlObject() { standard->Release(); }

    // An object that is asked on another thread would race with its control. The system brings questions to
    // the thread of the window unless the application has made that thread free-threaded.
    HRESULT Refusal() const {
        if (GetCurrentThreadId() != thread) return RPC_E_WRONG_THREAD;
        return *control == nullptr || !IsWindow(window) ? CO_E_OBJNOTCONNECTED : S_OK;
    }

    template <class Question>
    HRESULT Ask(const VARIANT& child, const void* result, Question question) noexcept try {
        if (const HRESULT refusal = Refusal(); refusal != S_OK) return refusal;
        if (result == nullptr || !IsSelf(child)) return E_INVALIDARG;
        return question(**control);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
    HRESULT AskText(const VARIANT& child, BSTR* result,
                    std::u16string (AccessibleControl::*text)() const) noexcept {
        if (result != nullptr) *result = nullptr;
        return Ask(child, result, [result, text](const AccessibleControl& asked) {
            return GiveText((asked.*text)(), result);
        });
    }

    LONG references = 1;
    HWND window;
    DWORD thread = GetCurrentThreadId(); // of the window
    IAccessible* standard;               // owned
    std::shared_ptr<AccessibleControl*> control;
};

} // namespace

AccessibleConnection::AccessibleConnection(AccessibleControl& itsControl)
    : control(itsControl), shared(std::make_shared<AccessibleControl*>(&itsControl)) {}

AccessibleConnection::~AccessibleConnection() { Cut(); }

std::optional<std::intptr_t> AccessibleConnection::Answer(zeve::NativeWindow window, std::uintptr_t wparam,
                                                          std::intptr_t lparam) noexcept try {
    if (static_cast<DWORD>(lparam) != static_cast<DWORD>(OBJID_CLIENT)) return {};
    if (!shared) shared = std::make_shared<AccessibleControl*>(&control);
    IAccessible* standard = nullptr;
    const HRESULT status = CreateStdAccessibleObject(Handle(window), OBJID_CLIENT, __uuidof(IAccessible),
                                                     reinterpret_cast<void**>(&standard));
    if (FAILED(status) || standard == nullptr) return {};
    auto* const object = new (std::nothrow) ControlObject(Handle(window), standard, shared);
    if (object == nullptr) {
        standard->Release();
        return {};
    }
    const LRESULT answer = LresultFromObject(__uuidof(IAccessible), wparam, object->Interface());
    object->Release(); // the system has a reference of its own
    if (FAILED(answer)) return {};
    return answer;
} catch (const std::bad_alloc&) {
    return {};
}

void AccessibleConnection::Cut() noexcept {
    if (shared) *shared = nullptr;
    shared.reset();
}

void Announce(zeve::NativeWindow window, AccessibleChange change) noexcept {
    if (window != nullptr) {
        NotifyWinEvent(static_cast<DWORD>(change), Handle(window), OBJID_CLIENT, CHILDID_SELF);
    }
}

} // namespace brixen::pvn::pvn_workflow::platform
