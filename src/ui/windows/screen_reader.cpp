// The constants of oleacc.h are declared there and defined here.
#include <initguid.h>

#include "ui/windows/screen_reader.h"

#include "ui/windows/accessible_control.h"

#include <new>

namespace {

// UI Automation's name for how urgently changes of a control are to be read out, and its value for: when there is
// nothing else to read.
constexpr GUID kLiveSetting{0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr LONG kPolite = 1;

// Loaded when a screen reader asks for the first time: nobody else pays for it.
struct Accessibility {
    decltype(&CreateStdAccessibleObject) make_windows_own = nullptr;
    decltype(&LresultFromObject) answer_with = nullptr;
    AccessibleControl::MakeText make_text = nullptr;
};

template <typename Function>
void find(Function& function, const wchar_t* library, const char* name)
{
    const HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (loaded != nullptr) function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

const Accessibility& accessibility()
{
    static const Accessibility loaded = [] {
        Accessibility found;
        find(found.make_windows_own, L"oleacc.dll", "CreateStdAccessibleObject");
        find(found.answer_with, L"oleacc.dll", "LresultFromObject");
        find(found.make_text, L"oleaut32.dll", "SysAllocString");
        return found;
    }();
    return loaded;
}

// Says of `label` that its text changes by itself.
void mark_as_live(HWND label)
{
    IAccPropServices* services = nullptr;
    if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                reinterpret_cast<void**>(&services))))
        return;
    VARIANT polite{};
    polite.vt = VT_I4;
    polite.lVal = kPolite;
    services->SetHwndProp(label, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kLiveSetting, polite);
    services->Release();
}

}  // namespace

LRESULT answer_screen_reader(HWND control, WPARAM wparam, const AccessibleKind& kind)
{
    const Accessibility& system = accessibility();
    if (system.make_windows_own == nullptr || system.answer_with == nullptr || system.make_text == nullptr) return 0;
    void* windows_own = nullptr;
    if (FAILED(system.make_windows_own(control, OBJID_CLIENT, __uuidof(IAccessible), &windows_own))) return 0;

    auto* object =
        new (std::nothrow) AccessibleControl(control, kind, static_cast<IAccessible*>(windows_own), system.make_text);
    if (object == nullptr) return 0;
    const LRESULT answer = system.answer_with(__uuidof(IAccessible), wparam, static_cast<IAccessible*>(object));
    object->Release();
    return answer;
}

void set_accessible_name(HWND control, const wchar_t* name)
{
    SetPropW(control, kAccessibleNameProperty, const_cast<wchar_t*>(name));
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, control, OBJID_CLIENT, CHILDID_SELF);
}

void announce_text(HWND label)
{
    if (!IsWinEventHookInstalled(EVENT_OBJECT_LIVEREGIONCHANGED)) return;
    mark_as_live(label);
    NotifyWinEvent(EVENT_OBJECT_LIVEREGIONCHANGED, label, OBJID_CLIENT, CHILDID_SELF);
}
