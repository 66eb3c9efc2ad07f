; SPDX-License-Identifier: MIT
; For all users or for one: command line, page, and where the installation goes.
Var givenFolder    ; of /D
Var previousFolder ; an installation of the same scope
Var otherFolder    ; an installation of the other scope
Var allUsersButton

Function ChooseScope
    ; There is no InstallDir, so that only /D sets it.
    StrCpy $givenFolder $INSTDIR
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
        StrCpy $scope machine
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/CurrentUser" $1
    ${IfNot} ${Errors}
        ${If} $scope == machine
            ${Refuse} ${EXIT_ARGUMENTS} "$(TwoScopes)"
        ${EndIf}
        StrCpy $scope user
    ${EndIf}
    ${If} $scope == machine
    ${AndIf} $isAdmin != 1
        ${Refuse} ${EXIT_NO_RIGHTS} "$(NoRights)"
    ${EndIf}
    ${If} $scope == ""
        Call DefaultScope
    ${EndIf}
    Call ChooseFolder
FunctionEnd

; The scope of an existing installation, else the widest that the rights allow.
Function DefaultScope
    StrCpy $scope user
    ${If} $isAdmin == 1
        ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
        ReadRegStr $1 HKCU "${ENTRY}" "InstallLocation"
        ${If} $0 != ""
        ${OrIf} $1 == ""
            StrCpy $scope machine
        ${EndIf}
    ${EndIf}
FunctionEnd

Function ChooseFolder
    Call UseScope
    ${If} $scope == machine
        ReadRegStr $otherFolder HKCU "${ENTRY}" "InstallLocation"
        StrCpy $0 $PROGRAMFILES32
        ${If} $hasX64 == 1
            StrCpy $0 $PROGRAMFILES64
        ${EndIf}
    ${Else}
        ReadRegStr $otherFolder HKLM "${ENTRY}" "InstallLocation"
        StrCpy $0 "$LOCALAPPDATA\Programs"
    ${EndIf}
    ReadRegStr $previousFolder SHCTX "${ENTRY}" "InstallLocation"
    ${If} $givenFolder != ""
        StrCpy $INSTDIR $givenFolder
    ${ElseIf} $previousFolder != ""
        StrCpy $INSTDIR $previousFolder
    ${Else}
        StrCpy $INSTDIR "$0\${PRODUCT}"
    ${EndIf}
FunctionEnd

; A user without a choice is not asked.
Function ScopePage
    ${If} $isAdmin != 1
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "$(ScopeTitle)" "$(ScopeSubtitle)"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 24u "$(ScopeQuestion)"
    Pop $0
    ${NSD_CreateRadioButton} 10u 32u -10u 12u "$(ScopeAllUsers)"
    Pop $allUsersButton
    ${NSD_CreateRadioButton} 10u 50u -10u 12u "$(ScopeCurrentUser)"
    Pop $1
    ${If} $scope == machine
        ${NSD_Check} $allUsersButton
        ${NSD_SetFocus} $allUsersButton
    ${Else}
        ${NSD_Check} $1
        ${NSD_SetFocus} $1
    ${EndIf}
    nsDialogs::Show
FunctionEnd

Function ScopePageLeave
    ${NSD_GetState} $allUsersButton $0
    StrCpy $1 user
    ${If} $0 = ${BST_CHECKED}
        StrCpy $1 machine
    ${EndIf}
    ; A folder already chosen stays with its scope.
    ${If} $1 != $scope
        StrCpy $scope $1
        Call ChooseFolder
        Call ChooseComponents
    ${EndIf}
FunctionEnd
