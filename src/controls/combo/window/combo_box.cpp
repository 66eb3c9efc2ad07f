// SPDX-License-Identifier: MIT
#include "controls/combo/window/combo_box.h"

#include "comkit/base/com_error.h"

namespace vndesk {

long ComboBox::Count() const {
    return static_cast<long>(Send(CB_GETCOUNT));
}

long ComboBox::Index() const {
    return static_cast<long>(Send(CB_GETCURSEL));
}

void ComboBox::Select(long index) {
    Send(CB_SETCURSEL, static_cast<WPARAM>(static_cast<LONG_PTR>(index)));
}

std::wstring ComboBox::Text(long index) const {
    const LRESULT length = index < 0 ? CB_ERR : Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length == CB_ERR)
        return {};
    std::wstring text(static_cast<size_t>(length), L'\0');
    Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

long ComboBox::Insert(long index, const std::wstring& text) {
    const long selected = Index();
    const LRESULT place = Send(CB_INSERTSTRING, static_cast<WPARAM>(static_cast<LONG_PTR>(index)),
                               reinterpret_cast<LPARAM>(text.c_str()));
    if (place < 0)
        throw ComError(E_OUTOFMEMORY);
    if (selected >= 0)
        Select(selected < place ? selected : selected + 1);
    return static_cast<long>(place);
}

// No CB_ message changes an item's text: insert it anew, then delete the old item.
void ComboBox::Replace(long index, const std::wstring& text) {
    const long selected = Index();
    Insert(index, text);
    Send(CB_DELETESTRING, static_cast<WPARAM>(index) + 1);
    Select(selected);
}

void ComboBox::Remove(long index) {
    const long selected = Index();
    Send(CB_DELETESTRING, static_cast<WPARAM>(index));
    if (selected >= 0)
        Select(selected == index ? -1 : selected < index ? selected : selected - 1);
}

void ComboBox::Clear() {
    Send(CB_RESETCONTENT);
}

long ComboBox::Find(std::wstring_view text) const {
    long similar = -1;
    for (long i = 0; i < Count(); ++i) {
        const std::wstring item = Text(i);
        if (item == text)
            return i;
        if (similar < 0 &&
            CompareStringOrdinal(item.data(), static_cast<int>(item.size()), text.data(),
                                 static_cast<int>(text.size()), TRUE) == CSTR_EQUAL)
            similar = i;
    }
    return similar;
}

} // namespace vndesk
