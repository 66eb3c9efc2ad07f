// SPDX-License-Identifier: MIT
// The name box and the code box of a host's form, tied to one entry of a catalogue. Enter in the
// name box opens the picker with the names beginning so; leaving the code box looks the code up.
// On demand the keys of a drop-down list open the picker, too, and Tab takes the only entry.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "comkit/base/module.h"
#include "data/connect/database.h"
#include "forms/keys/tab_stroke.h"

namespace vndesk {

class SelectionBoxes : public std::enable_shared_from_this<SelectionBoxes> {
public:
    // Runs one look-up on the database that a connection string names, as the settings ask. False
    // where there is no connection, and the user has been told so.
    using OnDatabase = bool (*)(const std::wstring& connectionString, Settings settings,
                                const std::function<void(const Database&)>& lookUp);

    // Shared, because a handler of the host may let the last reference go while a box is being
    // served.
    static std::shared_ptr<SelectionBoxes> Make(OnDatabase onDatabase);
    ~SelectionBoxes();
    SelectionBoxes(const SelectionBoxes&) = delete;
    SelectionBoxes& operator=(const SelectionBoxes&) = delete;

    // Binds an edit window of the calling thread, in place of the one before; null unbinds. A
    // window that is destroyed unbinds itself.
    void SetTextSel(HWND nameBox);
    void SetTextSelID(HWND codeBox);
    void Unbind();

    // Forgets the entry and empties the name box.
    void Clear();
    // Opens the picker, for a button of the host; true when an entry was chosen.
    bool ShowPicker();
    const std::wstring& SelName() const { return selName_; }
    const std::wstring& SelID() const { return selID_; }

    // Statements up to and with the column that is compared: the name's and the code's.
    std::wstring SqlName;
    std::wstring SqlID;
    // What the picker's search box starts with; empty stands for what was typed in the name box.
    std::wstring searchText;
    // F4, Alt+Down and F2 open the picker.
    bool lookUpKeys = false;
    // Tab out of the name box looks up what was typed.
    bool tabCommits = false;
    // Names the database of each look-up.
    std::wstring connectionString;
    // What the next look-up is asked for.
    std::function<Settings()> settings = [] { return Settings(); };

    // Another code was chosen. Clearing is not choosing.
    std::function<void()> Change;

private:
    struct Box {
        SelectionBoxes& owner;
        HWND window = nullptr;
        std::optional<TabStroke> moveOn = {};

        void Bind(HWND newWindow);
        void Release();
        std::wstring Text() const;
        void Show(const std::wstring& text) const;
    };
    struct Entry {
        std::wstring id;
        std::wstring name;
    };

    explicit SelectionBoxes(OnDatabase onDatabase) : onDatabase_(onDatabase) {}

    static LRESULT CALLBACK BoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR box);
    std::optional<LRESULT> OnNameBox(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCodeBox(UINT message, WPARAM wParam);
    bool IsLookUpKey(UINT message, WPARAM wParam) const;
    bool IsLeftByTab(HWND next) const;

    // Where the keyboard goes after the picker: to a box, and on from it after a choice, or to a
    // window where it stays.
    struct Return {
        Box* box = nullptr;
        HWND window = nullptr;

        HWND Window() const { return box ? box->window : window; }
    };
    // True when an entry was chosen.
    bool Pick(const std::wstring& beginning, const std::wstring& search, const Return& afterwards);
    bool Pick(const Database& database, const std::wstring& beginning, const std::wstring& search,
              const Return& afterwards);
    void PickByName();
    bool PickFromAll(const Return& afterwards);
    void CommitName();
    std::vector<std::wstring> CodesBeginning(const Database& database,
                                             const std::wstring& typed) const;
    bool Take(const Database& database, const std::wstring& code, const Return& afterwards);
    void ValidateCode();
    void Refuse(const std::wstring& code);
    std::optional<Entry> LookUp(const Database& database, const std::wstring& code,
                                std::wstring& error) const;
    void Choose(const Entry& entry);
    void FireChange();
    void Forget();

    const ModuleLock lock_;
    const OnDatabase onDatabase_;
    Box nameBox_{*this};
    Box codeBox_{*this};
    std::wstring selName_;
    std::wstring selID_;
    std::wstring previousID_;
    bool swallowEnter_ = false;
    bool busy_ = false;
};

} // namespace vndesk
