; SPDX-License-Identifier: MIT
; The setup program: its pages and the order of its work. scripts/installer gives it VERSION, STAGE (the
; folder with the components) and OUTPUT.
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel highest
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include TextFunc.nsh
!include Sections.nsh
!include x64.nsh
!include nsDialogs.nsh

!define PRODUCT "VnDesk"
!define PUBLISHER "The VnDesk makers"
; The entry under "Add or remove programs", which also says where the installation is.
!define ENTRIES "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${ENTRIES}\${PRODUCT}"

!define EXIT_NO_RIGHTS 3
!define EXIT_IN_USE 4
!define EXIT_REGISTRATION 5
!define EXIT_FILES 6
!define EXIT_OTHER_INSTALLATION 7
!define EXIT_ARGUMENTS 8

Name "${PRODUCT} ${VERSION}"
Caption "$(Caption)"
UninstallCaption "$(UninstallCaption)"
BrandingText "${PRODUCT} ${VERSION}"
OutFile "${OUTPUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 ProductName "${PRODUCT}"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 CompanyName "${PUBLISHER}"
VIAddVersionKey /LANG=0 FileDescription "${PRODUCT} setup"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 LegalCopyright "MIT License"

!define MUI_ICON "${SOURCES}/src/forms/look/images/emblem.ico"
!define MUI_UNICON "${SOURCES}/src/forms/look/images/emblem.ico"
!define MUI_ABORTWARNING
!define MUI_LANGDLL_ALWAYSSHOW
!define MUI_LANGDLL_WINDOWTITLE "${PRODUCT} ${VERSION}"
!define MUI_LANGDLL_INFO "Language / Ngôn ngữ:"
!define MUI_WELCOMEPAGE_TEXT "$(WelcomeText)"

!include common.nsh
!include scope.nsh
!include menu.nsh
!include install.nsh

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${SOURCES}/LICENSE"
Page custom ScopePage ScopePageLeave
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_UNPAGE_FINISH

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Vietnamese"
!include texts.nsh

Function .onInit
    Call ReadSystem
    Call ChooseScope
    ${IfNot} ${Silent}
        !insertmacro MUI_LANGDLL_DISPLAY
    ${EndIf}
    Call ChooseComponents
FunctionEnd

; The sections follow one another; each that fails ends in .onInstFailed.
Section "-prepare"
    InitPluginsDir
    File "/oname=${NEW_LIST}" "${STAGE}/installed.txt"
    CopyFiles /SILENT "$INSTDIR\installed.txt" "${OLD_LIST}"
    Call CheckOtherInstallation
    Call CheckInUse
    Call SetFilesAside
SectionEnd

Section "$(LibraryName)" SectionLibrary
    SectionIn RO
    !insertmacro Component library
    ${If} $hasX64 == 1
        !insertmacro Component x64
    ${EndIf}
SectionEnd

Section "$(DeveloperName)" SectionDeveloper
    !insertmacro Component developer
    ${If} $hasX64 == 1
        !insertmacro Component developer64
    ${EndIf}
SectionEnd

Section "$(WineName)" SectionWine
    !insertmacro Component wine
    ${If} $hasX64 == 1
        !insertmacro Component wine64
    ${EndIf}
SectionEnd

Section "-finish"
    Call RegisterInstalled
    Call WriteEntry
    Call RemoveOldFiles
    Call RemoveOtherInstallations
    Call MakeMenuEntries
SectionEnd

Function .onInstFailed
    Call RollBack
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionLibrary} "$(LibraryText)"
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionDeveloper} "$(DeveloperText)"
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionWine} "$(WineText)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Only Wine needs the ADO bridge, and only for all users: Wine does not merge one user's classes.
Function ChooseComponents
    System::Call 'ntdll::wine_get_version() t .r0 ? c'
    ${If} $0 != "error"
    ${AndIf} $scope == machine
        !insertmacro SelectSection ${SectionWine}
        SectionSetText ${SectionWine} "$(WineName)"
    ${Else}
        !insertmacro UnselectSection ${SectionWine}
        SectionSetText ${SectionWine} ""
    ${EndIf}
FunctionEnd

!include uninstall.nsh
