// The objects that screen readers hold, inside the program's own process; and what Windows is told of a text that
// changes by itself.
#include "ui/windows/accessible_control.h"

#include "app/windows/controls.h"
#include "kit/windows/own_window.h"
#include "kit/windows/replaced_import.h"
#include "kit/windows/spoken.h"

#include <gtest/gtest.h>

using CreateFunction = decltype(&CoCreateInstance);
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" CreateFunction __imp_CoCreateInstance;

namespace {

struct Annotation {
    HWND window = nullptr;
    DWORD object = 0;
    DWORD child = 1;
    GUID property{};
    VARIANT value{};
};

// Windows' service for annotations, which only notes what it is told.
class NotedAnnotations final : public IAccPropServices {
public:
    virtual ~NotedAnnotations() = default;

    std::vector<Annotation> notes;
    ULONG references = 0;

    HRESULT WINAPI SetHwndProp(HWND window, DWORD object, DWORD child, MSAAPROPID property, VARIANT value) override
    {
        notes.push_back({window, object, child, property, value});
        return S_OK;
    }

    HRESULT WINAPI QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG WINAPI AddRef() override { return ++references; }
    ULONG WINAPI Release() override { return --references; }

    HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndPropStr(HWND, DWORD, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*, AnnoScope) override
    {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override { return E_NOTIMPL; }
};

NotedAnnotations annotations;

// {B5F8350B-0548-48B1-A6EE-88BD00B4A5E7}
constexpr GUID kAnnotationService{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
// LiveSetting_Property_GUID of UI Automation
constexpr GUID kLiveSetting{0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};

HRESULT WINAPI give_annotations(REFCLSID service, IUnknown*, DWORD, REFIID, void** object)
{
    if (service != kAnnotationService) return REGDB_E_CLASSNOTREG;
    annotations.AddRef();
    *object = &annotations;
    return S_OK;
}

HRESULT WINAPI refuse(REFCLSID, IUnknown*, DWORD, REFIID, void**)
{
    return CO_E_NOTINITIALIZED;
}

IAccessible* windows_own(HWND control)
{
    void* object = nullptr;
    EXPECT_EQ(CreateStdAccessibleObject(control, OBJID_CLIENT, __uuidof(IAccessible), &object), S_OK);
    return static_cast<IAccessible*>(object);
}

}  // namespace

TEST(AccessibleControl, DiesWithItsLastReferenceAndLetsGoOfWindowsOwn)
{
    const TestFolder folder;
    const OwnWindow window;
    IAccessible* own = windows_own(window.control(kPublishButton));
    own->AddRef();
    auto* object = new AccessibleControl(window.control(kPublishButton), kAccessibleButton, own, SysAllocString);
    void* same = nullptr;
    EXPECT_EQ(object->QueryInterface(__uuidof(IDispatch), &same), S_OK);
    EXPECT_EQ(object->Release(), 1U);
    EXPECT_EQ(static_cast<IDispatch*>(same)->Release(), 0U);
    EXPECT_EQ(own->Release(), 0U);
}

TEST(AccessibleControl, IsTheInterfacesOfAWindowsObjectAndNoOther)
{
    const TestFolder folder;
    const OwnWindow window;
    const Accessible object(window.control(kPublishButton));
    for (const GUID& id : {__uuidof(IUnknown), __uuidof(IDispatch), __uuidof(IAccessible), __uuidof(IOleWindow)}) {
        void* found = nullptr;
        EXPECT_EQ(object.get()->QueryInterface(id, &found), S_OK);
        ASSERT_NE(found, nullptr);
        static_cast<IUnknown*>(found)->Release();
    }
    void* found = &annotations;
    EXPECT_EQ(object.get()->QueryInterface(__uuidof(IEnumVARIANT), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
}

TEST(AccessibleControl, OutlivesItsWindow)
{
    const TestFolder folder;
    OwnWindow window;
    const Accessible object(window.control(kSettingsButton));
    EXPECT_EQ(object.spoken().name, L"Settings");
    window.destroy();
    EXPECT_EQ(object.spoken().name, L"");
    EXPECT_FALSE(object.spoken().is(STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED));
    EXPECT_EQ(object.press(), DISP_E_MEMBERNOTFOUND);
}

TEST(AccessibleControl, OnlyTheControlItselfIsAnsweredFor)
{
    const TestFolder folder;
    const OwnWindow window;
    for (const LONG part : {OBJID_WINDOW, OBJID_HSCROLL, OBJID_NATIVEOM})
        EXPECT_EQ(SendMessageW(window.control(kPublishButton), WM_GETOBJECT, 0, part), 0) << part;
    EXPECT_NE(SendMessageW(window.control(kPublishButton), WM_GETOBJECT, 0, OBJID_CLIENT), 0);
}

TEST(AccessibleControl, IsNamedByItsTextAsItIsNow)
{
    const TestFolder folder;
    const OwnWindow window;
    const Accessible object(window.control(kPublishButton));
    show_waiting(kPublishButton);
    EXPECT_EQ(object.spoken().name, L"Wait...");
    show_idle(kPublishButton);
    EXPECT_EQ(object.spoken().name, L"Publish");
}

TEST(Announcement, MarksTheStatusLineAsATextToBeReadOutWhenThereIsNothingElseToRead)
{
    const TestFolder folder;
    const OwnWindow window;
    const ReplacedImport<CreateFunction> noted(__imp_CoCreateInstance, give_annotations);
    const HeardEvents reader(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED, [](DWORD, HWND) {});
    annotations.notes.clear();
    set_status(L"Connected.");
    ASSERT_EQ(annotations.notes.size(), 1U);
    const Annotation& note = annotations.notes.front();
    EXPECT_EQ(note.window, window.control(kStatusLine));
    EXPECT_EQ(note.object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(note.child, static_cast<DWORD>(CHILDID_SELF));
    EXPECT_TRUE(note.property == kLiveSetting);
    EXPECT_EQ(note.value.vt, VT_I4);
    EXPECT_EQ(note.value.lVal, 1);  // polite
    EXPECT_EQ(annotations.references, 0U);
}

TEST(Announcement, IsMadeAlsoWhereWindowsTakesNoAnnotations)
{
    const TestFolder folder;
    const OwnWindow window;
    const ReplacedImport<CreateFunction> refused(__imp_CoCreateInstance, refuse);
    int heard = 0;
    const HeardEvents reader(EVENT_OBJECT_LIVEREGIONCHANGED, EVENT_OBJECT_LIVEREGIONCHANGED,
                             [&](DWORD, HWND label) { heard += label == window.control(kStatusLine) ? 1 : 0; });
    set_status(L"Connected.");
    EXPECT_TRUE(comes_true([&] { return heard == 1; }));
    EXPECT_EQ(window.text(kStatusLine), L"Connected.");
}
