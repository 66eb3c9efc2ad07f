; SPDX-License-Identifier: MIT
; The entries of the start menu, for the users of the scope. There is an entry for what is there.
!define MENU "$SMPROGRAMS\${PRODUCT}"

!macro MenuFunctions un
Function ${un}RemoveMenuEntries
    Delete "${MENU}\${PRODUCT} sample program.lnk"
    Delete "${MENU}\${PRODUCT} check (32-bit).lnk"
    Delete "${MENU}\${PRODUCT} check (64-bit).lnk"
    Delete "${MENU}\${PRODUCT} documents.lnk"
    RMDir "${MENU}"
    ClearErrors
FunctionEnd
!macroend
!insertmacro MenuFunctions ""
!insertmacro MenuFunctions "un."

; For the sake of `file`; without an icon of its own the program's is shown.
!macro MenuEntry name file program words icon show
    ${If} ${FileExists} "$INSTDIR\${file}"
        CreateDirectory "${MENU}"
        CreateShortcut "${MENU}\${PRODUCT} ${name}.lnk" "${program}" '${words}' "${icon}" 0 ${show}
    ${EndIf}
!macroend

; The window of a console program stays open in this way.
!macro CheckEntry arch bits
    !insertmacro MenuEntry "check (${bits}-bit)" "${arch}\vndesk-check.exe" "$SYSDIR\cmd.exe" \
        '/k ""$INSTDIR\${arch}\vndesk-check.exe""' "" SW_SHOWNORMAL
!macroend

; An entry that cannot be made is just missing; the setup goes on.
Function MakeMenuEntries
    Call RemoveMenuEntries
    ; A shortcut starts its program in this folder.
    SetOutPath "$INSTDIR"
    !insertmacro MenuEntry "sample program" "x86\vntour.exe" "$INSTDIR\samples\start.cmd" tour \
        "$INSTDIR\x86\vntour.exe" SW_SHOWMINIMIZED
    !insertmacro CheckEntry x86 32
    !insertmacro CheckEntry x64 64
    !insertmacro MenuEntry documents "docs\README.md" "$INSTDIR\docs" "" "" SW_SHOWNORMAL
    ClearErrors
    SetOutPath $TEMP
FunctionEnd
