; SPDX-License-Identifier: MIT
; Every text of ours in both languages, and what is put right in those of NSIS.
!macro Text name english vietnamese
    LangString ${name} ${LANG_ENGLISH} "${english}"
    LangString ${name} ${LANG_VIETNAMESE} "${vietnamese}"
!macroend
!define Text "!insertmacro Text"

${Text} Caption "${PRODUCT} ${VERSION} Setup" "Cài đặt ${PRODUCT} ${VERSION}"
${Text} UninstallCaption "Uninstall ${PRODUCT}" "Gỡ bỏ ${PRODUCT}"

${Text} WelcomeText "${PRODUCT} is a library for programs with Vietnamese users.$\r$\n$\r$\nClose the programs that use it before you go on.$\r$\n$\r$\n$_CLICK" \
    "${PRODUCT} là thư viện cho các chương trình có người dùng Việt Nam.$\r$\n$\r$\nHãy đóng các chương trình đang dùng thư viện trước khi tiếp tục.$\r$\n$\r$\n$_CLICK"

${Text} ScopeTitle "Choose Users" "Chọn người dùng"
${Text} ScopeSubtitle "Choose for whom ${PRODUCT} is installed." "Chọn người sẽ dùng ${PRODUCT}."
${Text} ScopeQuestion "Programs of all users of this computer, or only your own, can use the library." \
    "Chương trình của mọi người dùng máy tính này, hoặc chỉ của riêng bạn, sẽ dùng được thư viện."
${Text} ScopeAllUsers "For &all users of this computer" "Cho &mọi người dùng máy tính này"
${Text} ScopeCurrentUser "Only for &me" "Chỉ cho &tôi"

${Text} LibraryName "Library" "Thư viện"
${Text} LibraryText "The library, registered for 32-bit and 64-bit programs." \
    "Thư viện, được đăng ký cho chương trình 32 bit và 64 bit."
${Text} DeveloperName "Documents and samples" "Tài liệu và ví dụ"
${Text} DeveloperText "Guides, a sample program to try, sample hosts in source form, database scripts, the IDL file and the header." \
    "Hướng dẫn, một chương trình để dùng thử, mã nguồn chương trình ví dụ, tập lệnh tạo cơ sở dữ liệu, tệp IDL và tệp tiêu đề."
${Text} WineName "ADO for Wine" "ADO cho Wine"
${Text} WineText "Databases under Wine, whose own ADO does not serve." \
    "Truy cập cơ sở dữ liệu trong Wine, vì ADO của Wine chưa dùng được."

${Text} TwoScopes "/AllUsers and /CurrentUser exclude each other." "Không dùng /AllUsers cùng với /CurrentUser."
${Text} NoRights "An administrator's rights are needed for an installation for all users." \
    "Cần có quyền quản trị khi cài đặt cho mọi người dùng."
${Text} InUse "A program uses this file:$\r$\n$failed$\r$\n$\r$\nClose that program and try again." \
    "Có chương trình đang dùng tệp này:$\r$\n$failed$\r$\n$\r$\nHãy đóng chương trình đó rồi thử lại."
${Text} FilesFailed "This cannot be written:$\r$\n$failed$\r$\n$\r$\nEverything is as it was before." \
    "Không ghi được:$\r$\n$failed$\r$\n$\r$\nMọi thứ đã trở lại như trước."
${Text} RegistrationFailed "The library could not be registered:$\r$\n$failed$\r$\n$\r$\nEverything is as it was before." \
    "Không đăng ký được thư viện:$\r$\n$failed$\r$\n$\r$\nMọi thứ đã trở lại như trước."
${Text} UnregistrationFailed "The registration could not be taken back:$\r$\n$failed" \
    "Không huỷ đăng ký được:$\r$\n$failed"
${Text} MachineStands "${PRODUCT} is installed for all users already:$\r$\n$otherFolder$\r$\n$\r$\nAn administrator has to remove it first." \
    "${PRODUCT} đã được cài đặt cho mọi người dùng:$\r$\n$otherFolder$\r$\n$\r$\nNgười quản trị phải gỡ bỏ bản đó trước."
${Text} SameFolder "${PRODUCT} is installed in this folder for other users than you have chosen:$\r$\n$otherFolder$\r$\n$\r$\nChoose another folder." \
    "${PRODUCT} đã được cài đặt trong thư mục này cho nhóm người dùng khác với lựa chọn của bạn:$\r$\n$otherFolder$\r$\n$\r$\nHãy chọn thư mục khác."
${Text} OtherGoes "${PRODUCT} is installed for other users of this computer than you have chosen:$\r$\n$otherFolder$\r$\n$\r$\nThat installation will be removed." \
    "${PRODUCT} đã được cài đặt cho nhóm người dùng khác với lựa chọn của bạn:$\r$\n$otherFolder$\r$\n$\r$\nBản đó sẽ được gỡ bỏ."
${Text} OtherStays "${PRODUCT} is installed, but an earlier installation could not be removed:$\r$\n$failed" \
    "${PRODUCT} đã được cài đặt, nhưng không gỡ bỏ được bản trước:$\r$\n$failed"
