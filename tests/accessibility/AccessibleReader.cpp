// SPDX-License-Identifier: MIT
// Looks at the window of AccessibleControls as a screen reader does, through the interfaces for assistive
// technology, and clicks there what it is told to. Standard input has a line for each control that must be
// there, or come to be there, with role, name, states and action; and between them:
//
//     click NAME     does what a click on that control does
//     says REPORT    the program has told of that change
//     gone LINE      there is no such control any more
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

constexpr const wchar_t* TITLE = L"Accessible controls";
constexpr DWORD LIMIT = 15000; // milliseconds

using Names = std::vector<std::pair<LONG, const char*>>;

const Names ROLES = {{ROLE_SYSTEM_PUSHBUTTON, "push button"},
                     {ROLE_SYSTEM_BUTTONDROPDOWN, "drop-down button"},
                     {ROLE_SYSTEM_CHECKBUTTON, "check box"},
                     {ROLE_SYSTEM_STATICTEXT, "label"},
                     {ROLE_SYSTEM_LINK, "link"},
                     {ROLE_SYSTEM_GROUPING, "grouping"},
                     {ROLE_SYSTEM_CLIENT, "window"},
                     {ROLE_SYSTEM_WINDOW, "window"}};

const Names STATES = {{STATE_SYSTEM_PRESSED, "pressed"},     {STATE_SYSTEM_CHECKED, "checked"},
                      {STATE_SYSTEM_MIXED, "mixed"},         {STATE_SYSTEM_EXPANDED, "expanded"},
                      {STATE_SYSTEM_COLLAPSED, "collapsed"}, {STATE_SYSTEM_FOCUSABLE, "focusable"},
                      {STATE_SYSTEM_FOCUSED, "focused"},     {STATE_SYSTEM_UNAVAILABLE, "disabled"},
                      {STATE_SYSTEM_INVISIBLE, "hidden"}};

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

// What a window says of itself. What cannot be asked is left out.
class Control
{
public:
    explicit Control(HWND window)
    {
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

    std::string name() const
    {
        BSTR text = nullptr;
        return m_accessible != nullptr && m_accessible->get_accName(SELF, &text) == S_OK ? takeText(text)
                                                                                         : "";
    }

    std::string action() const
    {
        BSTR text = nullptr;
        return m_accessible != nullptr && m_accessible->get_accDefaultAction(SELF, &text) == S_OK
                   ? takeText(text)
                   : "";
    }

    void click() const { m_accessible->accDoDefaultAction(SELF); }

    std::string described() const
    {
        std::string line = roleName() + " \"" + name() + '"';
        const LONG states = number(&IAccessible::get_accState);
        for (const auto& [state, name] : STATES) {
            if ((states & state) != 0)
                line += std::string(" ") + name;
        }
        const std::string click = action();
        return click.empty() ? line : line + " [" + click + ']';
    }

private:
    using Question = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);

    static VARIANT self()
    {
        VARIANT id;
        VariantInit(&id);
        id.vt = VT_I4;
        id.lVal = CHILDID_SELF;
        return id;
    }

    LONG number(Question question) const
    {
        VARIANT answer;
        VariantInit(&answer);
        const bool answered = m_accessible != nullptr && (m_accessible->*question)(SELF, &answer) == S_OK;
        return answered && answer.vt == VT_I4 ? answer.lVal : 0;
    }

    std::string roleName() const
    {
        const LONG role = number(&IAccessible::get_accRole);
        const auto found =
            std::find_if(ROLES.begin(), ROLES.end(), [=](const auto& entry) { return entry.first == role; });
        return found != ROLES.end() ? found->second : "role " + std::to_string(role);
    }

    inline static const VARIANT SELF = self();
    IAccessible* m_accessible = nullptr;
};

std::vector<HWND> windowsWithin(HWND window)
{
    std::vector<HWND> result;
    const auto add = [](HWND child, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
    };
    EnumChildWindows(window, add, reinterpret_cast<LPARAM>(&result));
    return result;
}

HWND findWindow()
{
    return FindWindowW(nullptr, TITLE);
}

std::vector<std::string> lines()
{
    std::vector<std::string> result;
    for (HWND window : windowsWithin(findWindow()))
        result.push_back(Control(window).described());
    return result;
}

bool contains(const std::vector<std::string>& list, const std::string& line)
{
    return std::find(list.begin(), list.end(), line) != list.end();
}

// What the program has told of its own accord since the last click.
std::vector<std::string> reports;

void CALLBACK takeReport(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG, DWORD, DWORD)
{
    if (object != OBJID_CLIENT)
        return;
    const std::string kind = event == EVENT_OBJECT_NAMECHANGE ? "name " : "state ";
    reports.push_back(kind + Control(window).described());
}

// Controls of that name that cannot be clicked are labels.
bool click(const std::string& name)
{
    for (HWND window : windowsWithin(findWindow())) {
        const Control control(window);
        if (control.name() != name || control.action().empty())
            continue;
        reports.clear();
        control.click(); // what is disabled refuses
        return true;
    }
    return false;
}

bool holds(const std::string& expectation)
{
    const std::size_t space = std::min(expectation.find(' '), expectation.size() - 1);
    const std::string word = expectation.substr(0, space);
    const std::string rest = expectation.substr(space + 1);
    if (word == "click")
        return click(rest);
    if (word == "says")
        return contains(reports, rest);
    if (word == "gone")
        return !contains(lines(), rest);
    if (expectation == "ended")
        return findWindow() == nullptr;
    return contains(lines(), expectation);
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
    HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr,
                                         takeReport, 0, 0, WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
    const int status = readControls();
    UnhookWinEvent(hook);
    CoUninitialize();
    return status;
}
