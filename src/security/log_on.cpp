// SPDX-License-Identifier: MIT
#include "security/log_on.h"

#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/text/captions.h"
#include "security/user_editor.h"

namespace vndesk {

LoggedOn LogOn(const Operation& operation, const LogonOptions& options, HWND owner) {
    const LoggedOn user = ShowLogonDialog(operation.database, options, owner);
    if (!user.mustChange)
        return user;
    ShowMsg(texts::kUserMustChange, kOkOnly, texts::kNotice);
    const Operation own = {operation.database, user.userCode, operation.askHost};
    const bool changed = ShowUserEditor(
        own, {.EditMode = true, .OldName = user.userName, .MustChange = true, .Owner = owner});
    return changed ? user : LoggedOn();
}

} // namespace vndesk
