// The constants of uiautomationclient.h are declared there and defined here.
#include <initguid.h>

#include "windows_kit/ui_automation.h"

#include <uiautomationclient.h>

#include <atomic>
#include <utility>

namespace {

// The toolchain's header has the constants of UI Automation and not its interfaces: their methods are called by their
// places in Microsoft's uiautomationclient.h, counted from IUnknown's first one.
enum IUIAutomationMethod {
    ElementFromHandle = 6,
    ControlViewWalker = 14,
    AddEventHandler = 32,
    RemoveEventHandler = 33
};
enum IUIAutomationElementMethod { GetCurrentPropertyValue = 10, GetCurrentPatternAs = 14 };
enum IUIAutomationTreeWalkerMethod { GetFirstChildElement = 4, GetNextSiblingElement = 6 };
enum IUIAutomationInvokePatternMethod { Invoke = 3 };

constexpr CLSID kAutomationClass{0xff48dba4, 0x60ef, 0x4201, {0xaa, 0x87, 0x54, 0x10, 0x3e, 0xef, 0x59, 0x4e}};
constexpr IID kAutomation{0x30cbe57d, 0xd9d0, 0x452a, {0xab, 0x13, 0x7a, 0xc5, 0xac, 0x48, 0x25, 0xee}};
constexpr IID kInvokePattern{0xfb377fbe, 0x8ea6, 0x46d5, {0x9c, 0x73, 0x64, 0x99, 0x64, 0x2d, 0x30, 0x59}};
constexpr IID kEventHandler{0x146c3c17, 0xf12e, 0x4e22, {0x8c, 0x27, 0xf8, 0x94, 0xb9, 0xb7, 0x9c, 0x69}};

constexpr int kThisElement = 1;            // TreeScope_Element
constexpr int kLiveRegionChanged = 20024;  // UIA_LiveRegionChangedEventId

template <typename Place, typename... Arguments>
HRESULT call(IUnknown* object, Place place, Arguments... arguments)
{
    using Method = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
    return (*reinterpret_cast<Method**>(object))[place](object, arguments...);
}

// The object that a method returns; none when it returns an error.
template <typename Place, typename... Arguments>
ComObject object_from(IUnknown* object, Place place, Arguments... arguments)
{
    IUnknown* answer = nullptr;
    if (object == nullptr || FAILED(call(object, place, arguments..., &answer))) return nullptr;
    return ComObject(answer);
}

// As IUIAutomationEventHandler has it.
class ChangeHandler : public IUnknown {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        *object = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, kEventHandler) ? this : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_users; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG users = --m_users;
        if (users == 0) delete this;
        return users;
    }
    virtual HRESULT STDMETHODCALLTYPE HandleAutomationEvent(IUnknown*, int event)
    {
        if (event == kLiveRegionChanged) ++m_changes;
        return S_OK;
    }
    int changes() const { return m_changes; }

private:
    virtual ~ChangeHandler() = default;

    std::atomic<ULONG> m_users{1};
    std::atomic<int> m_changes{0};
};

}  // namespace

VARIANT Element::value(int property) const
{
    VARIANT value{};
    if (m_object) call(m_object.get(), GetCurrentPropertyValue, property, &value);
    return value;
}

std::wstring Element::name() const
{
    VARIANT answer = value(UIA_NamePropertyId);
    const std::wstring text = answer.vt == VT_BSTR && answer.bstrVal != nullptr ? answer.bstrVal : L"";
    VariantClear(&answer);
    return text;
}

long Element::number(int property) const
{
    const VARIANT answer = value(property);
    return answer.vt == VT_I4 ? answer.lVal : 0;
}

bool Element::truth(int property) const
{
    const VARIANT answer = value(property);
    return answer.vt == VT_BOOL && answer.boolVal != VARIANT_FALSE;
}

HWND Element::window() const
{
    return reinterpret_cast<HWND>(static_cast<INT_PTR>(number(UIA_NativeWindowHandlePropertyId)));
}

HRESULT Element::press() const
{
    const ComObject pattern =
        object_from(m_object.get(), GetCurrentPatternAs, int{UIA_InvokePatternId}, &kInvokePattern);
    return pattern ? call(pattern.get(), Invoke) : E_NOINTERFACE;
}

UiAutomation::UiAutomation()
{
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    void* object = nullptr;
    if (SUCCEEDED(CoCreateInstance(kAutomationClass, nullptr, CLSCTX_INPROC_SERVER, kAutomation, &object)))
        m_object.reset(static_cast<IUnknown*>(object));
}

UiAutomation::~UiAutomation()
{
    m_object.reset();
    CoUninitialize();
}

Element UiAutomation::element_of(HWND window) const
{
    return Element(object_from(m_object.get(), ElementFromHandle, window));
}

std::vector<Element> UiAutomation::children(const Element& parent) const
{
    std::vector<Element> all;
    const ComObject walker = object_from(m_object.get(), ControlViewWalker);
    ComObject child = object_from(walker.get(), GetFirstChildElement, parent.get());
    while (child) {
        IUnknown* const last = child.get();
        all.emplace_back(std::move(child));
        child = object_from(walker.get(), GetNextSiblingElement, last);
    }
    return all;
}

HeardChanges::HeardChanges(const UiAutomation& automation, const Element& label)
    : m_automation(automation), m_label(label), m_handler(new ChangeHandler)
{
    call(m_automation.get(), AddEventHandler, kLiveRegionChanged, m_label.get(), kThisElement,
         static_cast<IUnknown*>(nullptr), m_handler.get());
}

HeardChanges::~HeardChanges()
{
    call(m_automation.get(), RemoveEventHandler, kLiveRegionChanged, m_label.get(), m_handler.get());
}

int HeardChanges::count() const
{
    return static_cast<const ChangeHandler*>(m_handler.get())->changes();
}
