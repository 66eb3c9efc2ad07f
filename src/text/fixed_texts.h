// SPDX-License-Identifier: MIT
// The fixed Vietnamese texts, in TCVN3 (one byte per character, read in a Latin-1 way). They are
// converted with ToUncText when they are shown; joined data is not. The letter U+00AD is invisible
// in most editors and therefore always written as an escape.
#pragma once

namespace vndesk::texts {

// Title of notices, used by several forms.
inline constexpr wchar_t kNotice[] = L"Th«ng b¸o";

// Logon dialog.
inline constexpr wchar_t kLogonUser[] = L"Ng\u00ADêi sö dông";
inline constexpr wchar_t kLogonPassword[] = L"MËt khÈu";
inline constexpr wchar_t kLogonOk[] = L"§ång ý";
inline constexpr wchar_t kLogonExit[] = L"Tho¸t";
inline constexpr wchar_t kLogonHelp[] = L"H\u00ADíng dÉn";
inline constexpr wchar_t kLogonFailed[] = L"MËt khÈu hoÆc ng\u00ADêi sö dông kh«ng hîp lÖ ";

// Message box.
inline constexpr wchar_t kMsgOk[] = L"§å&ng ý";
inline constexpr wchar_t kMsgCancel[] = L"&Bá qua";
inline constexpr wchar_t kMsgAbort[] = L"Bá &dë";
inline constexpr wchar_t kMsgRetry[] = L"&Thö l¹i";
inline constexpr wchar_t kMsgIgnore[] = L"&B¸c bá";
inline constexpr wchar_t kMsgYes[] = L"&Cã";
inline constexpr wchar_t kMsgNo[] = L"&Kh«ng";

// Options.
inline constexpr wchar_t kOptionsNotSaved[] = L"Kh«ng thÓ l\u00ADu ®\u00ADîc kho¸";
inline constexpr wchar_t kOptionsErrorIs[] = L". Lçi lµ ";

// User editor.
inline constexpr wchar_t kUserNoGroup[] = L"B¹n ch\u00ADa chän bé phËn.";
inline constexpr wchar_t kUserExists[] = L"Ng\u00ADêi sö dông ®· tån t¹i";
inline constexpr wchar_t kUserBadPassword[] = L"MËt khÈu kh«ng hîp lÖ";
inline constexpr wchar_t kUserNotWritten[] =
    L"Kh«ng ghi hay xo¸ ®\u00ADîc: tªn hoÆc diÔn gi¶i cã dÊu nh¸y ®¬n (').";

// Group manager.
inline constexpr wchar_t kGroupCancelAdding[] = L"&Huû thªm";
inline constexpr wchar_t kGroupAdd[] = L"T&hªm";
inline constexpr wchar_t kGroupNotAdded[] = L"Kh«ng thÓ thªm d÷ liÖu vµo b¶ng";
inline constexpr wchar_t kGroupNotWritten[] = L"Kh«ng thÓ ghi d÷ liÖu vµo b¶ng";
inline constexpr wchar_t kGroupConfirmDelete[] = L"B¹n cã ch¾c ch¾n xo¸ c¸c nhãm ®· chän kh«ng?";
inline constexpr wchar_t kGroupsDeleted[] = L" danh môc ®· bÞ xo¸";

// Permission form.
inline constexpr wchar_t kPermissionGroupIs[] = L"Tªn nhãm lµ:";

// User list.
inline constexpr wchar_t kUserListName[] = L"Tªn";
inline constexpr wchar_t kUserListDescription[] = L"DiÔn gi¶i";
inline constexpr wchar_t kUserListCode[] = L"M· sè";
inline constexpr wchar_t kUserListNoDelete[] =
    L"B¹n kh«ng thÓ xo¸ ng\u00ADêi sö dông nµy mµ chØ cã thÓ ®æi tªn.";
inline constexpr wchar_t kUserListConfirmDelete[] = L"B¹n ch¾c ch¾n xo¸ ng\u00ADêi sö dông nµy";
inline constexpr wchar_t kUserListLastUser[] =
    L"B¹n kh«ng thÓ xo¸ ng\u00ADêi sö dông cßn l¹i cuèi cïng cña ch\u00AD¬ng tr×nh";

// Find dialog.
inline constexpr wchar_t kFindAnd[] = L"vµ";
inline constexpr wchar_t kFindOr[] = L"hoÆc";

// Item picker.
inline constexpr wchar_t kPickerTitle[] = L"Chän tõ danh môc";
inline constexpr wchar_t kPickerDetail[] = L"Danh môc";
inline constexpr wchar_t kPickerSearch[] = L"&T×m tªn";
inline constexpr wchar_t kPickerCode[] = L"M· sè: ";
inline constexpr wchar_t kPickerEmpty[] = L"Kh«ng cã môc nµo phï hîp";
inline constexpr wchar_t kPickerChoose[] = L"&Chän";
inline constexpr wchar_t kPickerQuit[] = L"Bá &qua";

// Selection boxes.
inline constexpr wchar_t kSelectNotOpened[] = L"M· danh môc kh«ng më ®\u00ADîc. Lçi lµ:";
inline constexpr wchar_t kSelectCode[] = L"M· sè ";
inline constexpr wchar_t kSelectNotFound[] = L" kh«ng tån t¹i";

} // namespace vndesk::texts
