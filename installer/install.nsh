; SPDX-License-Identifier: MIT
; The steps of an installation and the way back. What an earlier installation left in the folder is set aside
; until the new one is registered, so that a failure leaves everything as it was.
Var step ; how far we are: empty, files, registration

!define ASIDE "$INSTDIR\~vndesk"
!define NEW_LIST "$PLUGINSDIR\new.txt"
!define OLD_LIST "$PLUGINSDIR\old.txt"

; Of two installations the one for the user would hide the other.
Function CheckOtherInstallation
    ${If} $otherFolder == ""
        Return
    ${EndIf}
    ${If} $scope == user
    ${AndIf} $isAdmin != 1
        ${Fail} ${EXIT_OTHER_INSTALLATION} "$(MachineStands)"
    ${EndIf}
    ; One list and one uninstaller cannot serve both.
    ${If} $otherFolder == $INSTDIR
        ${Fail} ${EXIT_OTHER_INSTALLATION} "$(SameFolder)"
    ${EndIf}
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION "$(OtherGoes)" /SD IDOK IDOK go
    SetErrorLevel 1
    Abort
go:
FunctionEnd

Function CheckInUse
again:
    Call FindInUse
    ${If} $failed != ""
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
        SetErrorLevel ${EXIT_IN_USE}
        Abort
    ${EndIf}
FunctionEnd

Function FindInUse
    ${Walk} TryToWrite "$INSTDIR" "${NEW_LIST}"
    ${If} $failed == ""
        ${Walk} TryToWrite "$INSTDIR" "${OLD_LIST}"
    ${EndIf}
    ${If} $failed == ""
    ${AndIf} $previousFolder != ""
        ${Walk} TryToWrite "$previousFolder" "$previousFolder\installed.txt"
    ${EndIf}
    ${If} $failed == ""
    ${AndIf} $otherFolder != ""
        ${Walk} TryToWrite "$otherFolder" "$otherFolder\installed.txt"
    ${EndIf}
FunctionEnd

Function SetFilesAside
    Call FindCreatedFolder
    StrCpy $step files
    RMDir /r "${ASIDE}"
    ClearErrors
    CreateDirectory "${ASIDE}"
    ${If} ${Errors}
        StrCpy $failed "$INSTDIR"
    ${Else}
        ${Walk} SetOneAside "$INSTDIR" "${NEW_LIST}"
        ${If} $failed == ""
            ${Walk} SetOneAside "$INSTDIR" "${OLD_LIST}"
        ${EndIf}
    ${EndIf}
    ${If} $failed != ""
        ${Fail} ${EXIT_FILES} "$(FilesFailed)"
    ${EndIf}
FunctionEnd

Function SetOneAside
    ${If} $R3 == "\"
        CreateDirectory "${ASIDE}\$R2"
    ${ElseIf} ${FileExists} "$R1\$R2\*.*"
        ; A folder in a file's place is not ours.
        SetErrors
    ${ElseIf} ${FileExists} "$R1\$R2"
        Rename "$R1\$R2" "${ASIDE}\$R2"
    ${EndIf}
FunctionEnd

Function PutOneBack
    ${If} $R3 == "\"
        CreateDirectory "$R1\$R2"
    ${ElseIf} ${FileExists} "${ASIDE}\$R2"
        Rename "${ASIDE}\$R2" "$R1\$R2"
    ${EndIf}
    ClearErrors
FunctionEnd

Function DeleteEmptyFolder
    ${If} $R3 == "\"
        RMDir "$R1\$R2"
    ${EndIf}
    ClearErrors
FunctionEnd

Function FindCreatedFolder
    StrCpy $createdFolder ""
    ${If} $previousFolder == $INSTDIR
        ReadRegStr $createdFolder SHCTX "${ENTRY}" "CreatedFolder"
    ${EndIf}
    StrCpy $0 $INSTDIR
    ${DoUntil} ${FileExists} "$0\*.*"
        StrCpy $createdFolder $0
        ${GetParent} $0 $0
        ${If} $0 == ""
            ${ExitDo}
        ${EndIf}
    ${Loop}
    ClearErrors
FunctionEnd

!macro Component name
    SetOutPath "$INSTDIR"
    StrCpy $failed "$INSTDIR"
    SetOverwrite try
    ClearErrors
    File /r "${STAGE}/${name}/*"
    ${If} ${Errors}
        ${Fail} ${EXIT_FILES} "$(FilesFailed)"
    ${EndIf}
!macroend

!macro RegisterOne arch dll
    !insertmacro RegSvr "" "" "$INSTDIR" ${arch} ${dll}
    ${If} $failed != ""
        ${Fail} ${EXIT_REGISTRATION} "$(RegistrationFailed)"
    ${EndIf}
!macroend

Function RegisterInstalled
    SetOutPath $TEMP
    StrCpy $step registration
    !insertmacro RegisterOne x86 vndesk.dll
    !insertmacro RegisterOne x64 vndesk.dll
    !insertmacro RegisterOne x86 adobridge.dll
    !insertmacro RegisterOne x64 adobridge.dll
FunctionEnd

Function WriteEntry
    StrCpy $failed "$INSTDIR\uninstall.exe"
    ClearErrors
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        ${Fail} ${EXIT_FILES} "$(FilesFailed)"
    ${EndIf}
    StrCpy $0 "/CurrentUser"
    ${If} $scope == machine
        StrCpy $0 "/AllUsers"
    ${EndIf}
    ; This clears the error flag.
    ${GetSize} "$INSTDIR" "/S=0B" $1 $2 $3
    ${GetSize} "${ASIDE}" "/S=0B" $2 $3 $4
    IntOp $1 $1 - $2
    IntOp $1 $1 / 1024
    WriteRegStr SHCTX "${ENTRY}" "DisplayName" "${PRODUCT}"
    WriteRegStr SHCTX "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${ENTRY}" "Publisher" "${PUBLISHER}"
    WriteRegStr SHCTX "${ENTRY}" "DisplayIcon" "$INSTDIR\uninstall.exe"
    WriteRegStr SHCTX "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe" $0'
    WriteRegStr SHCTX "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S $0'
    WriteRegStr SHCTX "${ENTRY}" "Language" "$LANGUAGE"
    WriteRegStr SHCTX "${ENTRY}" "CreatedFolder" "$createdFolder"
    WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" $1
    WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
    WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1
    ${If} ${Errors}
        ${Fail} ${EXIT_FILES} "$(FilesFailed)"
    ${EndIf}
    StrCpy $step ""
FunctionEnd

Function RemoveOldFiles
    ${Walk} DeleteEmptyFolder "$INSTDIR" "${OLD_LIST}"
    RMDir /r "${ASIDE}"
FunctionEnd

; Its own uninstaller takes care that nothing of the new one goes. A copy of it can be waited for and deletes
; the original too.
!macro RemoveInstallation folder scope
    ${If} "${folder}" != ""
    ${AndIf} "${folder}" != $INSTDIR
        StrCpy $0 1
        ClearErrors
        CopyFiles /SILENT "${folder}\uninstall.exe" "$PLUGINSDIR\uninstall.exe"
        ${IfNot} ${Errors}
            ExecWait '"$PLUGINSDIR\uninstall.exe" /S ${scope} _?=${folder}' $0
        ${EndIf}
        ${If} $0 <> 0
            StrCpy $failed "${folder}"
            SetErrorLevel ${EXIT_OTHER_INSTALLATION}
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(OtherStays)" /SD IDOK
        ${EndIf}
    ${EndIf}
!macroend

Function RemoveOtherInstallations
    ${If} $scope == machine
        !insertmacro RemoveInstallation $previousFolder /AllUsers
        !insertmacro RemoveInstallation $otherFolder /CurrentUser
    ${Else}
        !insertmacro RemoveInstallation $previousFolder /CurrentUser
        !insertmacro RemoveInstallation $otherFolder /AllUsers
    ${EndIf}
FunctionEnd

Function RollBack
    ${If} $step == ""
        Return
    ${EndIf}
    ${If} $step == registration
        !insertmacro UnregisterAll "" "$INSTDIR"
        ${If} $previousFolder == ""
            DeleteRegKey SHCTX "${ENTRY}"
        ${EndIf}
    ${EndIf}
    ${Walk} DeleteOne "$INSTDIR" "${NEW_LIST}"
    ${Walk} PutOneBack "$INSTDIR" "${OLD_LIST}"
    ${Walk} PutOneBack "$INSTDIR" "${NEW_LIST}"
    ${Walk} DeleteEmptyFolder "$INSTDIR" "${OLD_LIST}"
    ${Walk} DeleteEmptyFolder "$INSTDIR" "${NEW_LIST}"
    RMDir /r "${ASIDE}"
    ${If} $previousFolder != ""
        !insertmacro RegSvr "" "" "$previousFolder" x86 vndesk.dll
        !insertmacro RegSvr "" "" "$previousFolder" x64 vndesk.dll
        !insertmacro RegSvr "" "" "$previousFolder" x86 adobridge.dll
        !insertmacro RegSvr "" "" "$previousFolder" x64 adobridge.dll
    ${EndIf}
    ; A folder that was there before stays, even if it is empty.
    ${If} $createdFolder != ""
        Call RemoveFolders
    ${EndIf}
FunctionEnd
