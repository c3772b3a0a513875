#include "kit/windows/spoken.h"

#include "platform/text_conversion.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <utility>

namespace {

VARIANT self()
{
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = CHILDID_SELF;
    return child;
}

std::wstring taken(BSTR text)
{
    std::wstring taken_text = text != nullptr ? std::wstring(text, SysStringLen(text)) : std::wstring();
    SysFreeString(text);
    return taken_text;
}

LONG number(const VARIANT& value)
{
    EXPECT_EQ(value.vt, VT_I4);
    return value.lVal;
}

std::string role_text(LONG role)
{
    wchar_t text[64] = {};
    GetRoleTextW(static_cast<DWORD>(role), text, static_cast<UINT>(std::size(text)));
    return narrow(text);
}

void print_line(HWND window, const char* indent)
{
    const Spoken heard = spoken(window);
    std::cout << indent << std::setw(4) << GetDlgCtrlID(window) << "  " << role_text(heard.role) << "  \""
              << narrow(heard.name) << '"';
    if (!heard.value.empty()) std::cout << " = \"" << narrow(heard.value) << '"';
    constexpr std::pair<LONG, const char*> kStates[] = {
        {STATE_SYSTEM_FOCUSABLE, "focusable"},     {STATE_SYSTEM_FOCUSED, "focused"},
        {STATE_SYSTEM_UNAVAILABLE, "unavailable"}, {STATE_SYSTEM_PROTECTED, "protected"},
        {STATE_SYSTEM_READONLY, "read only"},      {STATE_SYSTEM_LINKED, "linked"},
        {STATE_SYSTEM_INVISIBLE, "invisible"}};
    for (const auto& [flag, text] : kStates)
        if (heard.is(flag)) std::cout << ", " << text;
    if (!heard.action.empty()) std::cout << " (" << narrow(heard.action) << ')';
    std::cout << '\n';
}

HeardEvents::Heard listener;

void CALLBACK hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD)
{
    if (object == OBJID_CLIENT && child == CHILDID_SELF) listener(event, window);
}

}  // namespace

Accessible::Accessible(HWND window)
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* object = nullptr;
    EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &object),
              S_OK);
    m_object = static_cast<IAccessible*>(object);
}

Accessible::~Accessible()
{
    if (m_object != nullptr) m_object->Release();
    CoUninitialize();
}

Spoken Accessible::spoken() const
{
    Spoken heard;
    if (m_object == nullptr) return heard;
    BSTR text = nullptr;
    if (m_object->get_accName(self(), &text) == S_OK) heard.name = taken(std::exchange(text, nullptr));
    if (m_object->get_accValue(self(), &text) == S_OK) heard.value = taken(std::exchange(text, nullptr));
    if (m_object->get_accDefaultAction(self(), &text) == S_OK) heard.action = taken(std::exchange(text, nullptr));
    VARIANT value{};
    if (m_object->get_accRole(self(), &value) == S_OK) heard.role = number(value);
    if (m_object->get_accState(self(), &value) == S_OK) heard.state = number(value);
    return heard;
}

HRESULT Accessible::press() const
{
    return m_object->accDoDefaultAction(self());
}

Spoken spoken(HWND window)
{
    return Accessible(window).spoken();
}

void print_tree(HWND window)
{
    print_line(window, "");
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        print_line(child, "  ");
}

HeardEvents::HeardEvents(DWORD first, DWORD last, Heard heard)
{
    listener = std::move(heard);
    m_hook = SetWinEventHook(first, last, nullptr, hear, 0, 0, WINEVENT_OUTOFCONTEXT);
    EXPECT_NE(m_hook, nullptr);
}

HeardEvents::~HeardEvents()
{
    UnhookWinEvent(m_hook);
    listener = nullptr;
}
