; SPDX-License-Identifier: MIT
; What setup and uninstaller share: the system, lists of files, registration, failure.
Var hasX64    ; 1 where the 64-bit library serves
Var isAdmin   ; 1 with an administrator's rights
Var scope     ; machine or user
Var createdFolder ; the topmost folder that the installation had to make
Var failed    ; the file or DLL at which something failed; empty when all went well

; Ends with a message (also to be read in a log of a silent run) and an exit code.
!macro Fail code text
    SetErrorLevel ${code}
    DetailPrint "${text}"
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    Abort
!macroend
!define Fail "!insertmacro Fail"

; In .onInit Abort would give exit code 1: Quit keeps ours.
!macro Refuse code text
    SetErrorLevel ${code}
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    Quit
!macroend
!define Refuse "!insertmacro Refuse"

!macro CommonFunctions un
Function ${un}ReadSystem
    ; The 64-bit library cannot be loaded on ARM machines, where 32-bit programs run as well.
    ${If} ${IsNativeAMD64}
        StrCpy $hasX64 1
        SetRegView 64
    ${EndIf}
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        StrCpy $isAdmin 1
    ${EndIf}
FunctionEnd

; SHCTX is the registry of the scope from now on.
Function ${un}UseScope
    ${If} $scope == machine
        SetShellVarContext all
    ${Else}
        SetShellVarContext current
    ${EndIf}
FunctionEnd

; Walks a list of files ($R0) of the folder $R1: calls the function $R9 with each line in $R2, folders end
; with a backslash. Where the function leaves the error flag set, the walk ends, and $failed names the file.
Function ${un}WalkList
    StrCpy $failed ""
    ClearErrors
    FileOpen $R8 $R0 r
    ${If} ${Errors}
        ClearErrors
        Return
    ${EndIf}
    ${Do}
        FileRead $R8 $R2
        ${If} ${Errors}
            ClearErrors
            ${ExitDo}
        ${EndIf}
        ${${un}TrimNewLines} $R2 $R2
        StrCpy $R3 $R2 "" -1
        StrCpy $R4 $R2 "" -4
        ClearErrors
        Call $R9
        ${If} ${Errors}
            StrCpy $failed "$R1\$R2"
            ${ExitDo}
        ${EndIf}
    ${Loop}
    FileClose $R8
FunctionEnd

; A program or DLL in use cannot be opened for writing.
Function ${un}TryToWrite
    ${If} $R4 == ".dll"
    ${OrIf} $R4 == ".exe"
        ${If} ${FileExists} "$R1\$R2"
            SetFileAttributes "$R1\$R2" NORMAL
            ClearErrors
            FileOpen $R7 "$R1\$R2" a
            ; Without a file this does nothing, and the error stays.
            FileClose $R7
        ${EndIf}
    ${EndIf}
FunctionEnd

; Missing files are no error, and folders with files of others stay.
Function ${un}DeleteOne
    ${If} $R3 == "\"
        RMDir "$R1\$R2"
    ${Else}
        Delete "$R1\$R2"
    ${EndIf}
    ClearErrors
FunctionEnd

; The folder and those above it that the installation had to make, as far as they are empty.
Function ${un}RemoveFolders
    SetOutPath $TEMP
    StrCpy $0 $INSTDIR
    ${Do}
        ClearErrors
        RMDir $0
        ${If} ${Errors}
        ${OrIf} $createdFolder == ""
        ${OrIf} $0 == $createdFolder
            ${ExitDo}
        ${EndIf}
        ${${un}GetParent} $0 $0
    ${LoopUntil} $0 == ""
    ClearErrors
FunctionEnd

; regsvr32 of the right bitness for the DLL $R1\<$R3>\$R4, with the DLL's own way to register for one user
; or for all; $R5: "" or /u. What is not there is not registered.
Function ${un}RunRegSvr
    StrCpy $failed ""
    ${IfNot} ${FileExists} "$R1\$R3\$R4"
        Return
    ${EndIf}
    StrCpy $R6 "$SYSDIR\regsvr32.exe"
    ${If} $R3 == x64
        StrCpy $R6 "$WINDIR\sysnative\regsvr32.exe"
    ${EndIf}
    StrCpy $R7 ""
    ${If} $scope == user
        StrCpy $R7 "/n /i:user"
    ${EndIf}
    ClearErrors
    ExecWait '"$R6" /s $R5 $R7 "$R1\$R3\$R4"' $R8
    ${If} ${Errors}
    ${OrIf} $R8 <> 0
        StrCpy $failed "$R3\$R4 (regsvr32: $R8)"
    ${EndIf}
FunctionEnd

!macroend
!insertmacro CommonFunctions ""
!insertmacro CommonFunctions "un."

; Calls of the above with their arguments.
!macro Walk un step folder list
    StrCpy $R0 "${list}"
    StrCpy $R1 "${folder}"
    GetFunctionAddress $R9 "${un}${step}"
    Call ${un}WalkList
!macroend
!define Walk '!insertmacro Walk ""'
!define un.Walk '!insertmacro Walk "un."'

!macro RegSvr un option folder arch dll
    StrCpy $R1 "${folder}"
    StrCpy $R3 "${arch}"
    StrCpy $R4 "${dll}"
    StrCpy $R5 "${option}"
    Call ${un}RunRegSvr
!macroend

; Unregisters what can be unregistered; $R2 names what could not.
!macro UnregisterOne un folder arch dll
    !insertmacro RegSvr "${un}" /u "${folder}" ${arch} ${dll}
    ${If} $failed != ""
        StrCpy $R2 $failed
    ${EndIf}
!macroend
!macro UnregisterAll un folder
    StrCpy $R2 ""
    !insertmacro UnregisterOne "${un}" "${folder}" x64 adobridge.dll
    !insertmacro UnregisterOne "${un}" "${folder}" x86 adobridge.dll
    !insertmacro UnregisterOne "${un}" "${folder}" x64 vndesk.dll
    !insertmacro UnregisterOne "${un}" "${folder}" x86 vndesk.dll
    ${If} $scope == user
        ; A user may never have had these.
        DeleteRegKey /ifempty HKCU "Software\Classes\CLSID"
        DeleteRegKey /ifempty HKCU "Software\Classes\Wow6432Node\CLSID"
        DeleteRegKey /ifempty HKCU "Software\Classes\Wow6432Node"
    ${EndIf}
    StrCpy $failed $R2
!macroend
