// SPDX-License-Identifier: MIT
#include "security/log_on.h"

#include "logon/logon_dialog.h"
#include "msgbox/message_box.h"
#include "msgbox/text/captions.h"
#include "security/text/captions.h"
#include "security/user_editor.h"

namespace vndesk {

long LogOn(const Operation& operation) {
    const LoggedOn user = ShowLogonDialog(operation.database);
    if (!user.mustChange)
        return user.userCode;
    ShowMsg(texts::kUserMustChange, kOkOnly, texts::kNotice);
    const Operation own = {operation.database, user.userCode, operation.askHost};
    const bool changed = ShowUserEditor(
        own,
        {.AllowChange = false, .EditMode = true, .OldName = user.userName, .MustChange = true});
    return changed ? user.userCode : 0;
}

} // namespace vndesk
