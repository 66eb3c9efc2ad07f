// SPDX-License-Identifier: MIT
#include "reliability/soak_actions.h"

#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <vector>

#include "reliability/soak_texts.h"
#include "support/keys.h"
#include "support/text.h"
#include "support/ui_windows.h"

namespace vndesk::test {
namespace {

constexpr wchar_t kReceipt[] = L"Phiếu thu"; // the program's own form

constexpr DWORD kTypingPause = 8;

struct Action {
    int weight;
    std::wstring name;
    std::function<void()> run;
};
using Actions = std::vector<Action>;

Action Key(int weight, const wchar_t* name, WORD key, unsigned modifiers = 0) {
    return {weight, std::wstring(L"key ") + name, [=] { PressKey(key, modifiers); }};
}

std::wstring Run(const Actions& actions, Dice& dice) {
    int sum = 0;
    for (const Action& action : actions)
        sum += action.weight;
    int place = dice.Roll(sum);
    for (const Action& action : actions) {
        place -= action.weight;
        if (place < 0) {
            action.run();
            return action.name;
        }
    }
    throw std::logic_error("no action");
}

// --- the mouse ---

POINT RandomPoint(const RECT& area, Dice& dice) {
    const int width = std::max<int>(1, area.right - area.left);
    const int height = std::max<int>(1, area.bottom - area.top);
    return {area.left + dice.Roll(width), area.top + dice.Roll(height)};
}

// Only where the window itself would get the click.
void ClickInside(HWND window, POINT point, int times, bool right = false) {
    const HWND hit = WindowFromPoint(point);
    if (!hit || GetAncestor(hit, GA_ROOT) != GetAncestor(window, GA_ROOT))
        return;
    for (int i = 0; i < times; ++i)
        right ? RightClickAt(point) : ClickAt(point);
}

void Wheel(HWND window, int clicks) {
    RECT area;
    GetWindowRect(window, &area);
    MoveMouseTo({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    TurnWheel(clicks);
}

void AddMouse(Actions& actions, HWND window, Dice& dice, bool list) {
    RECT area;
    GetWindowRect(window, &area);
    const POINT point = RandomPoint(area, dice);
    const std::wstring at = L" " + WindowName(window) + L" at " +
                            std::to_wstring(point.x - area.left) + L"," +
                            std::to_wstring(point.y - area.top);
    actions.push_back({6, L"click" + at, [=] { ClickInside(window, point, 1); }});
    actions.push_back({1, L"right click" + at, [=] { ClickInside(window, point, 1, true); }});
    if (!list)
        return;
    actions.push_back({2, L"double click" + at, [=] { ClickInside(window, point, 2); }});
    actions.push_back({2, L"wheel" + at, [=] { Wheel(window, -3); }});
    actions.push_back({1, L"wheel back" + at, [=] { Wheel(window, 3); }});
}

// --- the controls of a form ---

BOOL CALLBACK CollectControl(HWND window, LPARAM list) {
    if (IsWindowVisible(window) && IsWindowEnabled(window) && !WindowName(window).empty())
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> Controls(HWND form) {
    std::vector<HWND> controls;
    EnumChildWindows(form, CollectControl, reinterpret_cast<LPARAM>(&controls));
    return controls;
}

std::vector<HWND> OfClass(const std::vector<HWND>& controls, std::wstring_view className) {
    std::vector<HWND> found;
    for (const HWND control : controls)
        if (ClassName(control) == className)
            found.push_back(control);
    return found;
}

void Focus(HWND control) {
    RECT area;
    GetWindowRect(control, &area);
    ClickInside(control, {area.left + 6, (area.top + area.bottom) / 2}, 1);
}

void ReplaceText(HWND box, const std::wstring& text) {
    Focus(box);
    PressKey(VK_HOME);
    PressKey(VK_END, kShift);
    TypeText(text, kTypingPause);
}

void AddTyping(Actions& actions, HWND box, Dice& dice) {
    const bool secret = GetWindowLongW(box, GWL_STYLE) & ES_PASSWORD;
    const std::wstring text = secret ? dice.Pick(kPasswords) : dice.Pick(kTexts);
    actions.push_back(
        {14, L"type '" + text + L"' into " + WindowName(box), [=] { ReplaceText(box, text); }});
    actions.push_back({2, L"append '" + text + L"' to " + WindowName(box), [=] {
                           Focus(box);
                           PressKey(VK_END);
                           TypeText(text, kTypingPause);
                       }});
    actions.push_back({2, L"empty " + WindowName(box), [=] {
                           Focus(box);
                           PressKey(VK_HOME);
                           PressKey(VK_END, kShift);
                           PressKey(VK_DELETE);
                       }});
}

// The letters behind Alt that the form offers.
void AddLetters(Actions& actions, HWND form) {
    for (const HWND control : Controls(form)) {
        if (ClassName(control) == L"Edit")
            continue;
        const std::wstring text = TextOf(control);
        const size_t mark = text.find(L'&');
        if (mark == std::wstring::npos || mark + 1 >= text.size())
            continue;
        const wchar_t letter = static_cast<wchar_t>(towupper(text[mark + 1]));
        if (letter < L'A' || letter > L'Z')
            continue;
        actions.push_back({2, std::wstring(L"key Alt+") + letter,
                           [=] { PressKey(static_cast<WORD>(letter), kAlt); }});
    }
}

void AddFormKeys(Actions& actions) {
    for (const Action& key : {Key(6, L"Tab", VK_TAB),
                              Key(2, L"Shift+Tab", VK_TAB, kShift),
                              Key(5, L"Enter", VK_RETURN),
                              Key(1, L"Escape", VK_ESCAPE),
                              Key(3, L"Space", VK_SPACE),
                              Key(5, L"Down", VK_DOWN),
                              Key(3, L"Up", VK_UP),
                              Key(1, L"Left", VK_LEFT),
                              Key(1, L"Right", VK_RIGHT),
                              Key(1, L"Home", VK_HOME),
                              Key(1, L"End", VK_END),
                              Key(1, L"PageDown", VK_NEXT),
                              Key(1, L"PageUp", VK_PRIOR),
                              Key(2, L"Shift+Down", VK_DOWN, kShift),
                              Key(1, L"Delete", VK_DELETE),
                              Key(1, L"Backspace", VK_BACK),
                              Key(1, L"F1", VK_F1),
                              Key(3, L"F2", VK_F2),
                              Key(2, L"F4", VK_F4),
                              Key(1, L"F10", VK_F10),
                              Key(1, L"Ctrl+A", 'A', kControl),
                              Key(1, L"Ctrl+C", 'C', kControl),
                              Key(1, L"Ctrl+V", 'V', kControl),
                              Key(1, L"Ctrl+Z", 'Z', kControl),
                              Key(1, L"letter N", 'N'),
                              Key(1, L"letter K", 'K')})
        actions.push_back(key);
}

// A logon that works: without one there is little to do.
void LogOnAsAdministrator(HWND form) {
    ReplaceText(Control(form, L"TxtUser"), L"Admin");
    ReplaceText(Control(form, L"TxtPass"), L"abc");
    PressKey(VK_RETURN);
    PressKey(VK_SPACE);
}

// The editor filled in as it should be, so that users are added and changed, too.
void FillUser(HWND form, const std::wstring& name) {
    if (IsEnabled(form, L"TxtUser"))
        ReplaceText(Control(form, L"TxtUser"), name);
    if (IsEnabled(form, L"TxtIdGroup")) {
        // By way of another box: a second click on one box in short time is a double click.
        Focus(Control(form, L"TxtDes"));
        PressKey(VK_TAB);
        PressKey(VK_DOWN);
    }
    ReplaceText(Control(form, L"TxtPass"), L"abc");
    ReplaceText(Control(form, L"txtConfirm"), L"ABC");
    PressKey(VK_RETURN);
    PressKey(VK_SPACE);
}

void AddWholeForms(Actions& actions, HWND form, Dice& dice) {
    const std::wstring name = WindowName(form);
    if (name == L"FrmLogon")
        actions.push_back({60, L"log on as Admin", [=] { LogOnAsAdministrator(form); }});
    if (name == L"FrmInput") {
        const std::wstring user = dice.Pick(kTexts) + std::to_wstring(dice.Roll(1000));
        actions.push_back({14, L"fill in the user '" + user + L"'", [=] { FillUser(form, user); }});
    }
}

std::wstring ActOnForm(HWND form, Dice& dice) {
    Actions actions;
    AddFormKeys(actions);
    AddLetters(actions, form);
    AddWholeForms(actions, form, dice);
    const std::vector<HWND> controls = Controls(form);
    if (!controls.empty()) {
        const HWND control = controls[dice.Roll(static_cast<int>(controls.size()))];
        const std::wstring kind = ClassName(control);
        AddMouse(actions, control, dice, kind == WC_LISTVIEWW || kind == L"ListBox");
    }
    std::vector<HWND> boxes = OfClass(controls, L"Edit");
    // What may be typed into, and once in a while what may not.
    if (!dice.OneIn(10))
        std::erase_if(boxes, [](HWND box) { return GetWindowLongW(box, GWL_STYLE) & ES_READONLY; });
    if (!boxes.empty())
        AddTyping(actions, boxes[dice.Roll(static_cast<int>(boxes.size()))], dice);
    return Run(actions, dice);
}

std::wstring ActOnBox(HWND box, Dice& dice) {
    Actions actions = {Key(5, L"Enter", VK_RETURN),  Key(5, L"Space", VK_SPACE),
                       Key(2, L"Escape", VK_ESCAPE), Key(2, L"Tab", VK_TAB),
                       Key(1, L"Right", VK_RIGHT),   Key(1, L"F10", VK_F10)};
    AddLetters(actions, box);
    const std::vector<HWND> controls = Controls(box);
    if (!controls.empty())
        AddMouse(actions, controls[dice.Roll(static_cast<int>(controls.size()))], dice, false);
    return Run(actions, dice);
}

// --- the program's own window ---

std::wstring ActOnMain(HWND window, Dice& dice) {
    if (IsIconic(window)) {
        PostMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0);
        return L"restore the window";
    }
    Actions actions = {Key(3, L"Ctrl+L", 'L', kControl),
                       Key(4, L"Ctrl+M", 'M', kControl),
                       Key(12, L"Ctrl+U", 'U', kControl),
                       Key(12, L"Ctrl+G", 'G', kControl),
                       Key(12, L"Ctrl+F", 'F', kControl),
                       Key(3, L"Alt+H", 'H', kAlt),
                       Key(2, L"Alt+D", 'D', kAlt),
                       Key(2, L"Alt+B", 'B', kAlt),
                       Key(3, L"Alt+K", 'K', kAlt),
                       Key(2, L"Alt+T", 'T', kAlt),
                       Key(1, L"F10", VK_F10),
                       Key(1, L"Escape", VK_ESCAPE),
                       Key(1, L"Alt+Space", VK_SPACE, kAlt),
                       Key(1, L"Down", VK_DOWN),
                       Key(1, L"End", VK_END),
                       Key(1, L"Tab", VK_TAB)};
    if (dice.OneIn(15))
        actions.push_back(Key(10, L"Alt+F4", VK_F4, kAlt));
    POINT bar = {0, 0};
    ClientToScreen(window, &bar);
    bar = {bar.x + dice.Roll(380), bar.y - GetSystemMetrics(SM_CYMENU) / 2};
    actions.push_back({6, L"click the menu bar", [=] { ClickInside(window, bar, 1); }});
    const HWND list = FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr);
    if (IsWindowVisible(list))
        AddMouse(actions, list, dice, true);
    return Run(actions, dice);
}

std::wstring ActOnMenu(HWND window, Dice& dice) {
    Actions actions = {
        Key(8, L"Down", VK_DOWN), Key(3, L"Up", VK_UP),        Key(3, L"Right", VK_RIGHT),
        Key(2, L"Left", VK_LEFT), Key(8, L"Enter", VK_RETURN), Key(3, L"Escape", VK_ESCAPE),
        Key(1, L"Home", VK_HOME), Key(1, L"End", VK_END),      Key(2, L"letter N", 'N'),
        Key(2, L"letter K", 'K'), Key(1, L"letter G", 'G'),    Key(1, L"letter S", 'S'),
        Key(1, L"letter C", 'C'), Key(1, L"letter M", 'M')};
    RECT area;
    if (ClassName(window) == L"#32768" && GetWindowRect(window, &area)) {
        const POINT point = RandomPoint(area, dice);
        actions.push_back({6, L"click in the menu", [=] { ClickInside(window, point, 1); }});
        actions.push_back({2, L"point into the menu", [=] { MoveMouseTo(point); }});
    }
    return Run(actions, dice);
}

std::wstring ActOnMove(Dice& dice) {
    return Run({Key(3, L"Right", VK_RIGHT), Key(3, L"Down", VK_DOWN), Key(3, L"Up", VK_UP),
                Key(3, L"Enter", VK_RETURN), Key(2, L"Escape", VK_ESCAPE)},
               dice);
}

} // namespace

Scene LookAt(HWND mainWindow) {
    using enum Scene::Kind;
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(mainWindow, nullptr), &info);
    if (info.flags & GUI_INMOVESIZE)
        return {kMoving, mainWindow};
    for (const HWND window : TopWindows()) {
        const std::wstring kind = ClassName(window);
        if (kind == L"#32768")
            return {kMenu, window};
        if (!IsWindowEnabled(window) || kind == L"ComboLBox" || kind == TOOLTIPS_CLASSW)
            continue;
        if (info.flags & GUI_INMENUMODE)
            return {kMenu, window};
        if (window == mainWindow)
            return {kMain, window};
        const std::wstring name = WindowName(window);
        if (name == L"MessageBox" || name == L"NoticeBox")
            return {kMessage, window};
        if (!name.empty())
            return {kForm, window};
        if (kind == L"#32770")
            return {TextOf(window) == kReceipt ? kForm : kPlainBox, window};
    }
    return {};
}

std::wstring Describe(const Scene& scene) {
    static constexpr const wchar_t* kKinds[] = {L"nothing", L"main window", L"menu",     L"moving",
                                                L"form",    L"message",     L"plain box"};
    return std::wstring(kKinds[static_cast<int>(scene.kind)]) + L" " + WindowName(scene.window);
}

std::wstring ActAtRandom(const Scene& scene, Dice& dice) {
    switch (scene.kind) {
    case Scene::Kind::kMain:
        return ActOnMain(scene.window, dice);
    case Scene::Kind::kMenu:
        return ActOnMenu(scene.window, dice);
    case Scene::Kind::kMoving:
        return ActOnMove(dice);
    case Scene::Kind::kForm:
        return ActOnForm(scene.window, dice);
    case Scene::Kind::kMessage:
    case Scene::Kind::kPlainBox:
        return ActOnBox(scene.window, dice);
    case Scene::Kind::kNone:
        break;
    }
    return L"wait";
}

std::wstring StepBack(const Scene& scene, int attempt) {
    const bool box = scene.kind == Scene::Kind::kMessage || scene.kind == Scene::Kind::kPlainBox;
    if (attempt % 2 == 0 || !box) {
        PressKey(VK_ESCAPE);
        return L"back by Escape";
    }
    PressKey(VK_RETURN); // a question without a cancel button
    PressKey(VK_SPACE);
    return L"back by the button";
}

} // namespace vndesk::test
