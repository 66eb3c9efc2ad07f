// SPDX-License-Identifier: MIT
#include "controls/picker/selection_boxes.h"

#include <utility>

#include "comkit/base/com_error.h"
#include "controls/picker/item_picker.h"
#include "controls/picker/text/captions.h"
#include "controls/picker/text/select_statements.h"
#include "data/connect/failure.h"
#include "data/connect/name_search.h"
#include "data/connect/plain_message.h"
#include "data/connect/recordset.h"
#include "data/connect/values.h"
#include "forms/look/common_controls.h"
#include "text/tcvn3.h"

namespace vndesk {

namespace {

// Posted to the code box when the focus has left it: no message box may be shown while the focus
// moves.
UINT ValidateMessage() {
    static const UINT message = RegisterWindowMessageW(L"VnDesk.ValidateCode");
    return message;
}

// Posted to the name box when Tab has led out of it.
UINT CommitMessage() {
    static const UINT message = RegisterWindowMessageW(L"VnDesk.CommitName");
    return message;
}

HWND FormOf(HWND window) {
    return GetAncestor(window, GA_ROOT);
}

// Unless the user works in another form meanwhile.
void GiveFocus(HWND window) {
    const HWND active = GetActiveWindow();
    if (window && (!active || active == FormOf(window)))
        SetFocus(window);
}

bool IsEnter(const MSG* message) {
    return message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

// True while one look-up runs: what its windows cause does not start another.
class Busy {
public:
    explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
    ~Busy() { flag_ = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& flag_;
};

} // namespace

// --- The windows ---

void SelectionBoxes::Box::Bind(HWND newWindow) {
    if (newWindow && GetWindowThreadProcessId(newWindow, nullptr) != GetCurrentThreadId())
        throw ComError(E_INVALIDARG, L"The text box is not a window of the calling thread.");
    Release();
    if (!newWindow)
        return;
    // Edit windows handle Unicode and ANSI text. One made by an ANSI host would stay ANSI under
    // SetWindowSubclass and lose letters; SetWindowLongPtrW makes it Unicode.
    if (!IsWindowUnicode(newWindow))
        SetWindowLongPtrW(newWindow, GWLP_WNDPROC, GetWindowLongPtrW(newWindow, GWLP_WNDPROC));
    if (!Controls6().SetWindowSubclass(newWindow, BoxProcedure, reinterpret_cast<UINT_PTR>(this),
                                       reinterpret_cast<DWORD_PTR>(this)))
        throw ComError(E_FAIL, L"The text box cannot be bound.");
    window = newWindow;
    moveOn.emplace(window);
}

void SelectionBoxes::Box::Release() {
    moveOn.reset();
    if (window)
        Controls6().RemoveWindowSubclass(window, BoxProcedure, reinterpret_cast<UINT_PTR>(this));
    window = nullptr;
}

std::wstring SelectionBoxes::Box::Text() const {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
    if (!text.empty())
        text.resize(static_cast<size_t>(
            GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

void SelectionBoxes::Box::Show(const std::wstring& text) const {
    if (window)
        SetWindowTextW(window, text.c_str());
}

LRESULT CALLBACK SelectionBoxes::BoxProcedure(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam, UINT_PTR, DWORD_PTR data) {
    Box& box = *reinterpret_cast<Box*>(data);
    const auto self = box.owner.shared_from_this();
    if (message == WM_NCDESTROY)
        box.Release();
    std::optional<LRESULT> result;
    Trap([&] {
        if (self->IsLookUpKey(message, wParam)) {
            self->PickFromAll({&box});
            result = 0;
        } else if (&box == &self->nameBox_)
            result = self->OnNameBox(message, wParam, lParam);
        else
            self->OnCodeBox(message, wParam);
    });
    return result ? *result : Controls6().DefSubclassProc(window, message, wParam, lParam);
}

std::optional<LRESULT> SelectionBoxes::OnNameBox(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        // Otherwise IsDialogMessage would press the default button.
        if (IsEnter(reinterpret_cast<const MSG*>(lParam)) && nameBox_.Text() != selName_)
            return Controls6().DefSubclassProc(nameBox_.window, message, wParam, lParam) |
                   DLGC_WANTMESSAGE;
        return std::nullopt;
    case WM_KEYDOWN:
        swallowEnter_ = wParam == VK_RETURN && nameBox_.Text() != selName_;
        if (!swallowEnter_)
            return std::nullopt;
        PickByName();
        return 0;
    case WM_CHAR:
        // The character of the Enter key that opened the picker would make the box beep.
        if (wParam != VK_RETURN || !swallowEnter_)
            return std::nullopt;
        swallowEnter_ = false;
        return 0;
    case WM_KILLFOCUS:
        if (FormOf(reinterpret_cast<HWND>(wParam)) == FormOf(nameBox_.window) &&
            nameBox_.Text().empty())
            Forget();
        if (IsLeftByTab(reinterpret_cast<HWND>(wParam)))
            PostMessageW(nameBox_.window, CommitMessage(), 0, 0);
        return std::nullopt;
    default:
        if (message == CommitMessage())
            CommitName();
        return std::nullopt;
    }
}

bool SelectionBoxes::IsLookUpKey(UINT message, WPARAM wParam) const {
    if (!lookUpKeys || GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0)
        return false;
    if (message == WM_SYSKEYDOWN)
        return wParam == VK_DOWN;
    return message == WM_KEYDOWN && (wParam == VK_F4 || wParam == VK_F2);
}

// Asked while the focus moves: the key that moves it is down in every host's loop.
bool SelectionBoxes::IsLeftByTab(HWND next) const {
    if (!tabCommits || FormOf(next) != FormOf(nameBox_.window) || GetKeyState(VK_TAB) >= 0 ||
        GetKeyState(VK_SHIFT) < 0)
        return false;
    const std::wstring typed = nameBox_.Text();
    return !typed.empty() && typed != selName_;
}

// The focus that goes to another form, a message or another program comes back: only a move within
// the form counts as leaving.
void SelectionBoxes::OnCodeBox(UINT message, WPARAM wParam) {
    if (message == WM_KILLFOCUS) {
        if (FormOf(reinterpret_cast<HWND>(wParam)) == FormOf(codeBox_.window))
            PostMessageW(codeBox_.window, ValidateMessage(), 0, 0);
    } else if (message == ValidateMessage()) {
        ValidateCode();
    }
}

// --- The entry ---

std::shared_ptr<SelectionBoxes> SelectionBoxes::Make(OnDatabase onDatabase) {
    return std::shared_ptr<SelectionBoxes>(new SelectionBoxes(onDatabase));
}

SelectionBoxes::~SelectionBoxes() {
    Unbind();
}

void SelectionBoxes::SetTextSel(HWND nameBox) {
    nameBox_.Bind(nameBox);
}

void SelectionBoxes::SetTextSelID(HWND codeBox) {
    codeBox_.Bind(codeBox);
}

void SelectionBoxes::Unbind() {
    nameBox_.Release();
    codeBox_.Release();
}

void SelectionBoxes::Forget() {
    selName_.clear();
    selID_.clear();
    previousID_.clear();
}

void SelectionBoxes::Clear() {
    Forget();
    nameBox_.Show(selName_);
}

void SelectionBoxes::Choose(const Entry& entry) {
    selName_ = entry.name;
    selID_ = entry.id;
    nameBox_.Show(selName_);
    codeBox_.Show(selID_);
}

void SelectionBoxes::FireChange() {
    // A copy: the handler may replace it.
    if (const auto change = Change; change && selID_ != previousID_)
        change();
}

bool SelectionBoxes::Pick(const std::wstring& beginning, const std::wstring& search,
                          const Return& afterwards) {
    if (busy_)
        return false;
    const Busy busy(busy_);
    previousID_ = selID_;
    bool chosen = false;
    if (onDatabase_(connectionString, settings(), [&](const Database& database) {
            chosen = Pick(database, beginning, search, afterwards);
        }))
        return chosen;
    GiveFocus(afterwards.Window());
    nameBox_.Show(selName_);
    return false;
}

bool SelectionBoxes::Pick(const Database& database, const std::wstring& beginning,
                          const std::wstring& search, const Return& afterwards) {
    const std::wstring code = PickItem(database,
                                       NamesBeginningStatement(SqlName, beginning, database.Style(),
                                                               NamePattern(database, beginning)),
                                       searchText.empty() ? search : searchText, beginning);
    // Messages may have come between, and not every form gives its focus back by itself.
    GiveFocus(afterwards.Window());
    if (!code.empty())
        return Take(database, code, afterwards);
    nameBox_.Show(selName_);
    return false;
}

bool SelectionBoxes::Take(const Database& database, const std::wstring& code,
                          const Return& afterwards) {
    std::wstring error;
    const std::optional<Entry> entry = LookUp(database, code, error);
    if (!entry) {
        PlainMessage(ToUncText(texts::kSelectNotOpened, kToUnicode) + ShownText(database, error));
        GiveFocus(afterwards.Window());
        return false;
    }
    Choose(*entry);
    if (afterwards.box && afterwards.box->moveOn)
        afterwards.box->moveOn->SendAfterClosing();
    FireChange();
    return true;
}

void SelectionBoxes::PickByName() {
    const std::wstring typed = nameBox_.Text();
    Pick(typed, typed, {&nameBox_});
}

// The entry's own name is no beginning that somebody looks for.
bool SelectionBoxes::PickFromAll(const Return& afterwards) {
    const std::wstring shown = nameBox_.window ? nameBox_.Text() : selName_;
    return Pick(shown == selName_ ? L"" : shown, shown, afterwards);
}

bool SelectionBoxes::ShowPicker() {
    return PickFromAll({nullptr, GetFocus()});
}

// After Tab: the keyboard is where that has led to, and stays there.
void SelectionBoxes::CommitName() {
    const HWND next = GetFocus();
    const std::wstring typed = nameBox_.Text();
    if (busy_ || typed.empty() || typed == selName_ || FormOf(next) != FormOf(nameBox_.window))
        return;
    std::vector<std::wstring> codes;
    {
        const Busy busy(busy_);
        previousID_ = selID_;
        if (!onDatabase_(connectionString, settings(), [&](const Database& database) {
                codes = CodesBeginning(database, typed);
                if (codes.size() == 1)
                    Take(database, codes.front(), {nullptr, next});
            })) {
            GiveFocus(nameBox_.window);
            nameBox_.Show(selName_);
            return;
        }
    }
    if (codes.size() > 1 && !Pick(typed, typed, {nullptr, next}))
        GiveFocus(nameBox_.window);
}

// The codes of the entries whose names begin so: none, the only one, or the first two.
std::vector<std::wstring> SelectionBoxes::CodesBeginning(const Database& database,
                                                         const std::wstring& typed) const {
    std::vector<std::wstring> codes;
    // The engine gives more than the rules take.
    const auto isMeant = [&, rules = NameRules(database.settings)](Recordset& rows) {
        return !rules ||
               Matches(NullToText(rows.Value(1L)), typed, rules->accents) >= Match::AtStart;
    };
    Trap([&] {
        Recordset rows;
        if (OpenRecordset(database, rows,
                          NamesBeginningStatement(SqlName, typed, database.Style(),
                                                  NamePattern(database, typed))) != 0)
            return;
        for (; !rows.Eof() && codes.size() < 2; rows.MoveNext())
            if (std::wstring code = NullToText(rows.Value(0L)); !code.empty() && isMeant(rows))
                codes.push_back(std::move(code));
        rows.Close();
    });
    return codes;
}

void SelectionBoxes::ValidateCode() {
    const HWND next = GetFocus();
    // Meanwhile another box may have taken the focus back, to report its own mistake.
    if (busy_ || FormOf(next) != FormOf(codeBox_.window))
        return;
    const Busy busy(busy_);
    const std::wstring code = codeBox_.Text();
    if (code != selID_) {
        previousID_ = selID_;
        std::optional<Entry> entry;
        const bool asked = onDatabase_(connectionString, settings(), [&](const Database& database) {
            std::wstring error;
            entry = LookUp(database, code, error);
        });
        GiveFocus(next);
        if (!asked) {
            codeBox_.Show(selID_);
        } else if (entry) {
            Choose(*entry);
            FireChange();
            if (codeBox_.moveOn)
                codeBox_.moveOn->Send();
        } else if (!code.empty()) {
            Refuse(code);
        }
    }
    if (codeBox_.window && codeBox_.Text().empty())
        Clear();
}

// The focus stays in the box, with the code ready to be typed anew.
void SelectionBoxes::Refuse(const std::wstring& code) {
    // The focus goes back first, so that the box that has it now is left while this one is busy.
    GiveFocus(codeBox_.window);
    PlainMessage(ToUncText(texts::kSelectCode, kToUnicode) + code +
                     ToUncText(texts::kSelectNotFound, kToUnicode),
                 ToUncText(texts::kSelectNotice, kToUnicode).c_str());
    GiveFocus(codeBox_.window);
    if (codeBox_.window)
        SendMessageW(codeBox_.window, EM_SETSEL, 0, -1);
}

std::optional<SelectionBoxes::Entry> SelectionBoxes::LookUp(const Database& database,
                                                            const std::wstring& code,
                                                            std::wstring& error) const {
    std::optional<Entry> entry;
    Trap([&] {
        Recordset rows;
        if (OpenRecordset(database, rows, CodeStatement(SqlID, code, database.Style()), &error) !=
            0)
            return;
        if (CountRecords(rows) > 0)
            entry = {NullToText(rows.Value(0L)), NullToText(rows.Value(1L))};
        rows.Close();
    });
    return entry;
}

} // namespace vndesk
