; SPDX-License-Identifier: MIT
; The uninstaller. It takes away what the list of its folder names, and nothing that others have put there.
Function un.onInit
    Call un.ReadSystem
    Call un.FindScope
    Call un.UseScope
    ReadRegStr $0 SHCTX "${ENTRY}" "Language"
    ${If} $0 != ""
        StrCpy $LANGUAGE $0
    ${EndIf}
    ${If} $scope == machine
    ${AndIf} $isAdmin != 1
        ${Refuse} ${EXIT_NO_RIGHTS} "$(NoRights)"
    ${EndIf}
FunctionEnd

Function un.FindScope
    ${un.GetParameters} $0
    ClearErrors
    ${un.GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
        StrCpy $scope machine
        Return
    ${EndIf}
    ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
    StrCpy $scope user
    ${If} $0 == $INSTDIR
        StrCpy $scope machine
    ${EndIf}
FunctionEnd

Section "un.VnDesk"
    InitPluginsDir
    Call un.CheckInUse
    SetOutPath $TEMP
    !insertmacro UnregisterAll "un." "$INSTDIR"
    StrCpy $1 $failed
    ReadRegStr $0 SHCTX "${ENTRY}" "InstallLocation"
    ${If} $0 == $INSTDIR
        ReadRegStr $createdFolder SHCTX "${ENTRY}" "CreatedFolder"
        Call un.RemoveMenuEntries
        DeleteRegKey SHCTX "${ENTRY}"
        DeleteRegKey /ifempty HKCU "${ENTRIES}"
    ${EndIf}
    CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\installed.txt"
    ${un.Walk} DeleteOne "$INSTDIR" "$PLUGINSDIR\installed.txt"
    Call un.RemoveFolders
    StrCpy $failed $1
    ${If} $failed != ""
        SetErrorLevel ${EXIT_REGISTRATION}
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(UnregistrationFailed)" /SD IDOK
    ${EndIf}
SectionEnd

Function un.CheckInUse
again:
    ${un.Walk} TryToWrite "$INSTDIR" "$INSTDIR\installed.txt"
    ${If} $failed != ""
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
        SetErrorLevel ${EXIT_IN_USE}
        Abort
    ${EndIf}
FunctionEnd
