// SPDX-License-Identifier: MIT
// Reads the window of AccessibleControls as a screen reader does, through the interfaces for assistive
// technology, and operates its controls. Standard input has a line for each control that must be there, or
// come to be there, with role, name, description, states, value and action. Between these lines there are
// commands:
//
//     click NAME     does the default action of the control
//     set N NAME     changes the value of the control to N
//     select N NAME  selects item N of the control, counted from 0
//     says REPORT    the program has told of that change
//     gone LINE      there is no such control any more
//     read TITLE     the following lines are about the window with that title, which has a line, too
//     ended          the program has ended
#include <windows.h>

#include <oleacc.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

std::wstring windowTitle = L"Accessible controls"; // of the window that is read
constexpr DWORD LIMIT = 15000;                     // milliseconds

using Names = std::vector<std::pair<LONG, const char*>>;

const Names ROLES = {{ROLE_SYSTEM_PUSHBUTTON, "push button"},
                     {ROLE_SYSTEM_BUTTONDROPDOWN, "drop-down button"},
                     {ROLE_SYSTEM_CHECKBUTTON, "check box"},
                     {ROLE_SYSTEM_STATICTEXT, "label"},
                     {ROLE_SYSTEM_LINK, "link"},
                     {ROLE_SYSTEM_GROUPING, "grouping"},
                     {ROLE_SYSTEM_GRAPHIC, "image"},
                     {ROLE_SYSTEM_SEPARATOR, "separator"},
                     {ROLE_SYSTEM_BORDER, "border"},
                     {ROLE_SYSTEM_TEXT, "text"},
                     {ROLE_SYSTEM_SPINBUTTON, "spin button"},
                     {ROLE_SYSTEM_COMBOBOX, "combo box"},
                     {ROLE_SYSTEM_LISTITEM, "list item"},
                     {ROLE_SYSTEM_MENUITEM, "menu item"},
                     {ROLE_SYSTEM_DIALOG, "window"},
                     {ROLE_SYSTEM_CLIENT, "window"},
                     {ROLE_SYSTEM_WINDOW, "window"}};

const Names STATES = {{STATE_SYSTEM_SELECTABLE, "selectable"}, {STATE_SYSTEM_SELECTED, "selected"},
                      {STATE_SYSTEM_PRESSED, "pressed"},       {STATE_SYSTEM_CHECKED, "checked"},
                      {STATE_SYSTEM_MIXED, "mixed"},           {STATE_SYSTEM_EXPANDED, "expanded"},
                      {STATE_SYSTEM_COLLAPSED, "collapsed"},   {STATE_SYSTEM_FOCUSABLE, "focusable"},
                      {STATE_SYSTEM_FOCUSED, "focused"},       {STATE_SYSTEM_READONLY, "read-only"},
                      {STATE_SYSTEM_UNAVAILABLE, "disabled"},  {STATE_SYSTEM_INVISIBLE, "hidden"}};

std::string toUtf8(const wchar_t* text, int length)
{
    std::string result(static_cast<std::size_t>(length) * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(),
                                         static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

std::string takeText(BSTR text)
{
    const std::string result =
        text != nullptr ? toUtf8(text, static_cast<int>(SysStringLen(text))) : std::string();
    SysFreeString(text);
    return result;
}

// A window or an item of a window. Questions without an answer are left out of the line.
class Control
{
public:
    explicit Control(HWND window, LONG item = CHILDID_SELF)
    {
        VariantInit(&m_id);
        m_id.vt = VT_I4;
        m_id.lVal = item;
        void* object = nullptr;
        if (SUCCEEDED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                                 __uuidof(IAccessible), &object)))
            m_accessible = static_cast<IAccessible*>(object);
    }

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ~Control()
    {
        if (m_accessible != nullptr)
            m_accessible->Release();
    }

    std::string name() const { return text(&IAccessible::get_accName); }

    std::string action() const { return text(&IAccessible::get_accDefaultAction); }

    std::string value() const { return text(&IAccessible::get_accValue); }

    // A disabled control refuses the action.
    void click() const { m_accessible->accDoDefaultAction(m_id); }

    void setValue(const std::string& number) const
    {
        BSTR const text = SysAllocString(std::wstring(number.begin(), number.end()).c_str());
        m_accessible->put_accValue(m_id, text);
        SysFreeString(text);
    }

    void select() const { m_accessible->accSelect(SELFLAG_TAKESELECTION, m_id); }

    // Child windows, which have objects of their own, are not counted: only these two have items here.
    LONG itemCount() const
    {
        LONG count = 0;
        const LONG role = number(&IAccessible::get_accRole);
        const bool isList = role == ROLE_SYSTEM_COMBOBOX || role == ROLE_SYSTEM_BUTTONDROPDOWN;
        return isList && m_accessible->get_accChildCount(&count) == S_OK ? count : 0;
    }

    std::string described() const
    {
        std::string line = roleName() + " \"" + name() + '"';
        if (const std::string more = text(&IAccessible::get_accDescription); !more.empty())
            line += " (" + more + ')';
        const LONG states = number(&IAccessible::get_accState);
        for (const auto& [state, name] : STATES) {
            if ((states & state) != 0)
                line += std::string(" ") + name;
        }
        if (!value().empty())
            line += " value \"" + value() + '"';
        const std::string click = action();
        return click.empty() ? line : line + " [" + click + ']';
    }

private:
    using Question = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);

    using TextQuestion = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

    std::string text(TextQuestion question) const
    {
        BSTR answer = nullptr;
        return m_accessible != nullptr && (m_accessible->*question)(m_id, &answer) == S_OK ? takeText(answer)
                                                                                           : "";
    }

    LONG number(Question question) const
    {
        VARIANT answer;
        VariantInit(&answer);
        const bool answered = m_accessible != nullptr && (m_accessible->*question)(m_id, &answer) == S_OK;
        return answered && answer.vt == VT_I4 ? answer.lVal : 0;
    }

    std::string roleName() const
    {
        const LONG role = number(&IAccessible::get_accRole);
        const auto found =
            std::find_if(ROLES.begin(), ROLES.end(), [=](const auto& entry) { return entry.first == role; });
        return found != ROLES.end() ? found->second : "role " + std::to_string(role);
    }

    VARIANT m_id;
    IAccessible* m_accessible = nullptr;
};

std::vector<HWND> windowsWithin(HWND window)
{
    std::vector<HWND> result{window};
    const auto add = [](HWND child, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
    };
    EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&result));
    return result;
}

HWND findWindow()
{
    return FindWindowW(nullptr, windowTitle.c_str());
}

// Visits the controls and their items until `visit` returns true; returns whether it did.
template<typename Visit>
bool anyControl(Visit&& visit)
{
    for (HWND window : windowsWithin(findWindow())) {
        const LONG items = Control(window).itemCount();
        for (LONG item = CHILDID_SELF; item <= items; ++item) {
            if (visit(Control(window, item), window))
                return true;
        }
    }
    return false;
}

// Every question crosses the border between two processes, so only controls of the name in the line are asked
// for the rest.
bool isThere(const std::string& line)
{
    return anyControl([&line](const Control& control, HWND) {
        return line.find('"' + control.name() + '"') != std::string::npos && control.described() == line;
    });
}

std::vector<std::string> lines()
{
    std::vector<std::string> result;
    anyControl([&result](const Control& control, HWND) {
        result.push_back(control.described());
        return false;
    });
    return result;
}

bool contains(const std::vector<std::string>& list, const std::string& line)
{
    return std::find(list.begin(), list.end(), line) != list.end();
}

// The changes that the program has reported since the last command.
std::vector<std::string> reports;

const Names EVENTS = {{EVENT_OBJECT_NAMECHANGE, "name"},
                      {EVENT_OBJECT_STATECHANGE, "state"},
                      {EVENT_OBJECT_VALUECHANGE, "value"},
                      {EVENT_OBJECT_SELECTION, "selection"},
                      {EVENT_OBJECT_REORDER, "items"}};

void CALLBACK takeReport(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG item, DWORD, DWORD)
{
    if (object != OBJID_CLIENT)
        return;
    for (const auto& [code, name] : EVENTS) {
        if (code == static_cast<LONG>(event))
            reports.push_back(std::string(name) + ' ' + Control(window, item).described());
    }
}

// Operates the first control of that name that fits. Another control, such as a label, may have the same
// name.
template<typename Fits, typename Operation>
bool operate(const std::string& name, Fits&& fits, Operation&& operation)
{
    return anyControl([&](const Control& control, HWND window) {
        if (control.name() != name || !fits(control))
            return false;
        reports.clear();
        operation(control, window);
        return true;
    });
}

bool click(const std::string& name)
{
    return operate(
        name, [](const Control& control) { return !control.action().empty(); },
        [](const Control& control, HWND) { control.click(); });
}

bool setValue(const std::string& number, const std::string& name)
{
    return operate(
        name, [](const Control& control) { return !control.value().empty(); },
        [&number](const Control& control, HWND) { control.setValue(number); });
}

bool select(const std::string& number, const std::string& name)
{
    return operate(
        name, [](const Control& control) { return control.itemCount() > 0; },
        [&number](const Control&, HWND window) { Control(window, std::stoi(number) + 1).select(); });
}

bool holds(const std::string& expectation)
{
    const std::size_t space = std::min(expectation.find(' '), expectation.size() - 1);
    const std::string word = expectation.substr(0, space);
    const std::string rest = expectation.substr(space + 1);
    if (word == "click")
        return click(rest);
    const std::size_t next = std::min(rest.find(' '), rest.size());
    if (word == "set" || word == "select") {
        const std::string number = rest.substr(0, next);
        const std::string name = rest.substr(std::min(next + 1, rest.size()));
        return word == "set" ? setValue(number, name) : select(number, name);
    }
    if (word == "read") {
        windowTitle.assign(rest.begin(), rest.end());
        return findWindow() != nullptr;
    }
    if (word == "says")
        return contains(reports, rest);
    if (word == "gone")
        return !isThere(rest);
    if (expectation == "ended")
        return findWindow() == nullptr;
    return isThere(expectation);
}

void takeMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0)
        DispatchMessageW(&message);
}

template<typename Condition>
bool holdsInTime(Condition&& condition)
{
    const ULONGLONG end = GetTickCount64() + LIMIT;
    while (GetTickCount64() < end) {
        if (condition())
            return true;
        takeMessages();
        Sleep(20);
    }
    return false;
}

void print(const char* title, const std::vector<std::string>& list)
{
    std::printf("%s\n", title);
    for (const std::string& line : list)
        std::printf("  %s\n", line.c_str());
}

std::vector<std::string> readLines()
{
    std::vector<std::string> result;
    for (std::string line; std::getline(std::cin, line);) {
        if (!line.empty())
            result.push_back(line);
    }
    return result;
}

int readControls()
{
    const std::vector<std::string> expectations = readLines();
    if (expectations.empty() || !holdsInTime([] { return findWindow() != nullptr; })) {
        std::printf("no expectations, or no window\n");
        return 1;
    }
    for (const std::string& line : expectations) {
        if (!holdsInTime([&] { return holds(line); })) {
            std::printf("never: %s\n", line.c_str());
            print("reports:", reports);
            print("controls:", lines());
            return 1;
        }
    }
    return 0;
}

} // namespace

int main()
{
    CoInitialize(nullptr);
    HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_VALUECHANGE, nullptr, takeReport,
                                         0, 0, WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
    const int status = readControls();
    UnhookWinEvent(hook);
    CoUninitialize();
    return status;
}
