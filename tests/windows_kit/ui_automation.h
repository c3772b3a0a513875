// The client's side of UI Automation, by which today's screen readers ask. Brasslet itself speaks IAccessible, and
// Windows translates.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
using ComObject = std::unique_ptr<IUnknown, ReleaseObject>;

// A control, a window or a part of one.
class Element {
public:
    explicit Element(ComObject object) : m_object(std::move(object)) {}

    bool is_there() const { return m_object != nullptr; }
    IUnknown* get() const { return m_object.get(); }
    std::wstring name() const;
    long number(int property) const;  // of a property that is a number
    bool truth(int property) const;   // of a property that is yes or no
    HWND window() const;              // null for a part that has none
    HRESULT press() const;            // by the invoke pattern

private:
    VARIANT value(int property) const;

    ComObject m_object;
};

// For the life of this, which must be in a thread that has not chosen how it uses COM.
class UiAutomation {
public:
    UiAutomation();
    UiAutomation(const UiAutomation&) = delete;
    UiAutomation& operator=(const UiAutomation&) = delete;
    ~UiAutomation();

    bool is_there() const { return m_object != nullptr; }
    Element element_of(HWND window) const;
    std::vector<Element> children(const Element& parent) const;  // of the control view, in its order
    IUnknown* get() const { return m_object.get(); }

private:
    ComObject m_object;
};

// Counts how often the live region `label` says that it has changed, for the life of this.
class HeardChanges {
public:
    HeardChanges(const UiAutomation& automation, const Element& label);
    HeardChanges(const HeardChanges&) = delete;
    HeardChanges& operator=(const HeardChanges&) = delete;
    ~HeardChanges();

    int count() const;

private:
    const UiAutomation& m_automation;
    const Element& m_label;
    ComObject m_handler;
};
