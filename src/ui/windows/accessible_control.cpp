#include "ui/windows/accessible_control.h"

#include "ui/windows/keyboard.h"

#include <array>

namespace {

constexpr int kLongestName = 640;

// Enabled itself, and not behind a question either, which disables the window and leaves its controls as they are.
bool can_be_pressed(HWND control)
{
    return IsWindow(control) && IsWindowEnabled(control) && IsWindowEnabled(GetAncestor(control, GA_ROOT));
}

}  // namespace

AccessibleControl::AccessibleControl(HWND control, const AccessibleKind& kind, IAccessible* windows_own,
                                     MakeText make_text)
    : m_control(control), m_kind(kind), m_windows_own(windows_own), m_make_text(make_text)
{
}

AccessibleControl::~AccessibleControl()
{
    m_windows_own->Release();
}

HRESULT AccessibleControl::QueryInterface(REFIID id, void** object)
{
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible))
        *object = static_cast<IAccessible*>(this);
    if (id == __uuidof(IOleWindow)) *object = static_cast<IOleWindow*>(this);
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG AccessibleControl::AddRef()
{
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG AccessibleControl::Release()
{
    const LONG left = InterlockedDecrement(&m_references);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

// The answers that differ from Windows' own.

HRESULT AccessibleControl::get_accName(VARIANT, BSTR* name)
{
    std::array<wchar_t, kLongestName + 1> text{};
    const auto given = static_cast<const wchar_t*>(GetPropW(m_control, kAccessibleNameProperty));
    if (given == nullptr) GetWindowTextW(m_control, text.data(), static_cast<int>(text.size()));
    *name = m_make_text(given != nullptr ? given : text.data());
    return *name != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleControl::get_accRole(VARIANT, VARIANT* role)
{
    role->vt = VT_I4;
    role->lVal = m_kind.role;
    return S_OK;
}

HRESULT AccessibleControl::get_accState(VARIANT child, VARIANT* state)
{
    const HRESULT result = m_windows_own->get_accState(child, state);
    if (FAILED(result) || state->vt != VT_I4) return result;
    state->lVal |= m_kind.more_state;
    if (can_be_pressed(m_control))
        state->lVal |= STATE_SYSTEM_FOCUSABLE;
    else if (IsWindow(m_control))
        state->lVal = (state->lVal | STATE_SYSTEM_UNAVAILABLE) & ~STATE_SYSTEM_FOCUSABLE;
    if (GetFocus() == m_control) state->lVal |= STATE_SYSTEM_FOCUSED;
    return result;
}

HRESULT AccessibleControl::get_accDefaultAction(VARIANT, BSTR* action)
{
    *action = m_make_text(m_kind.action);
    return *action != nullptr ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleControl::accDoDefaultAction(VARIANT)
{
    if (!can_be_pressed(m_control)) return DISP_E_MEMBERNOTFOUND;
    // Later: what the control does may last, and may end this window.
    return post_press(m_control) ? S_OK : E_FAIL;
}

HRESULT AccessibleControl::GetWindow(HWND* window)
{
    *window = m_control;
    return IsWindow(m_control) ? S_OK : E_FAIL;
}

// The answers that Windows' own object gives.

HRESULT AccessibleControl::GetTypeInfoCount(UINT* count)
{
    return m_windows_own->GetTypeInfoCount(count);
}

HRESULT AccessibleControl::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info)
{
    return m_windows_own->GetTypeInfo(index, locale, info);
}

HRESULT AccessibleControl::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids)
{
    return m_windows_own->GetIDsOfNames(id, names, count, locale, ids);
}

HRESULT AccessibleControl::Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument)
{
    return m_windows_own->Invoke(member, id, locale, flags, parameters, result, exception, wrong_argument);
}

HRESULT AccessibleControl::get_accParent(IDispatch** parent)
{
    return m_windows_own->get_accParent(parent);
}

HRESULT AccessibleControl::get_accChildCount(LONG* count)
{
    return m_windows_own->get_accChildCount(count);
}

HRESULT AccessibleControl::get_accChild(VARIANT child, IDispatch** object)
{
    return m_windows_own->get_accChild(child, object);
}

HRESULT AccessibleControl::get_accValue(VARIANT child, BSTR* value)
{
    return m_windows_own->get_accValue(child, value);
}

HRESULT AccessibleControl::get_accDescription(VARIANT child, BSTR* description)
{
    return m_windows_own->get_accDescription(child, description);
}

HRESULT AccessibleControl::get_accHelp(VARIANT child, BSTR* help)
{
    return m_windows_own->get_accHelp(child, help);
}

HRESULT AccessibleControl::get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic)
{
    return m_windows_own->get_accHelpTopic(file, child, topic);
}

HRESULT AccessibleControl::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut)
{
    return m_windows_own->get_accKeyboardShortcut(child, shortcut);
}

HRESULT AccessibleControl::get_accFocus(VARIANT* child)
{
    return m_windows_own->get_accFocus(child);
}

HRESULT AccessibleControl::get_accSelection(VARIANT* children)
{
    return m_windows_own->get_accSelection(children);
}

HRESULT AccessibleControl::accSelect(LONG flags, VARIANT child)
{
    return m_windows_own->accSelect(flags, child);
}

HRESULT AccessibleControl::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child)
{
    return m_windows_own->accLocation(left, top, width, height, child);
}

HRESULT AccessibleControl::accNavigate(LONG direction, VARIANT start, VARIANT* end)
{
    return m_windows_own->accNavigate(direction, start, end);
}

HRESULT AccessibleControl::accHitTest(LONG left, LONG top, VARIANT* child)
{
    return m_windows_own->accHitTest(left, top, child);
}

HRESULT AccessibleControl::put_accName(VARIANT child, BSTR name)
{
    return m_windows_own->put_accName(child, name);
}

HRESULT AccessibleControl::put_accValue(VARIANT child, BSTR value)
{
    return m_windows_own->put_accValue(child, value);
}

HRESULT AccessibleControl::ContextSensitiveHelp(BOOL)
{
    return E_NOTIMPL;
}
