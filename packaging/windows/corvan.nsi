; The installer: for one user, without administrator's rights; what the user may choose is chosen on the page of components.
; Given by build.sh: VERSION, OUTPUT, ICON, LICENCE, and two lists of commands: INSTALLED (what is copied), REMOVED.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
SetCompressorDictSize 64 ; the second program repeats much of the first
ManifestDPIAware true
ManifestSupportedOS Win10
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!include WinMessages.nsh
!include FileFunc.nsh
!include Sections.nsh

!define REMOVAL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvan"
!define CLASSES "Software\Classes"
!define PROJECT "Corvan.Project"

Name "Corvan"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Corvan"
InstallDirRegKey HKCU "${REMOVAL}" "InstallLocation"
BrandingText "Corvan ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Corvan"
VIAddVersionKey "FileDescription" "Corvan installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "The Corvan developers"
VIAddVersionKey "LegalCopyright" "Copyright 2026 The Corvan developers"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/side.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\corvan.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Corvan"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT

!insertmacro MUI_PAGE_LICENSE "${LICENCE}"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!macro FreeProgram un
; Leaves with a word while a program that is to be replaced or removed runs: half an installation helps nobody.
Function ${un}RequireStopped
  ${For} $R0 1 2
    StrCpy $R1 "$INSTDIR\corvan.exe"
    ${If} $R0 == 2
      StrCpy $R1 "$INSTDIR\corvan-cli.exe"
    ${EndIf}
    ${If} ${FileExists} "$R1"
      ClearErrors
      FileOpen $R2 "$R1" a
      ${If} ${Errors}
        MessageBox MB_OK|MB_ICONEXCLAMATION "Corvan is running: $R1 cannot be changed.$\n$\nClose it and start again." /SD IDOK
        SetErrorLevel 1
        Quit
      ${EndIf}
      FileClose $R2
    ${EndIf}
  ${Next}
FunctionEnd
!macroend
!insertmacro FreeProgram ""
!insertmacro FreeProgram "un."

!macro FolderOnPath un
; Takes the folder out of the user's PATH and, for "add", puts it at the end: Push what, Call. The list may be longer than a
; text of this language can hold (1023 characters), so it is changed in memory of its own; cut short it would be lost.
Function ${un}ChangePath
  Pop $9
  System::Call 'advapi32::RegOpenKeyExW(p 0x80000001, w "Environment", i 0, i 0x2001F, *p .r0) i .r8'
  ${If} $8 != 0
    Return
  ${EndIf}
  StrCpy $1 2 ; REG_EXPAND_SZ where there is no list yet
  StrCpy $2 0
  System::Call 'advapi32::RegQueryValueExW(p r0, w "Path", p 0, *i .r1, p 0, *i .r2) i .r8'
  ${If} $8 != 0
    StrCpy $1 2
    StrCpy $2 0
  ${EndIf}
  ; The list between two semicolons, so that a folder always stands between two as well.
  StrLen $3 "$INSTDIR"
  IntOp $4 $3 * 2
  IntOp $4 $4 + $2
  IntOp $4 $4 + 32
  System::Alloc $4 ; filled with zeros
  Pop $5
  System::Call 'kernel32::lstrcpyW(p r5, w ";")'
  ${If} $2 > 0
    IntPtrOp $6 $5 + 2
    System::Call 'advapi32::RegQueryValueExW(p r0, w "Path", p 0, p 0, p r6, *i r2)'
    System::Call 'kernel32::lstrcatW(p r5, w ";")'
  ${EndIf}
  IntOp $3 $3 + 1
  IntOp $3 $3 * 2 ; bytes of the folder and one semicolon
  ${Do}
    System::Call 'shlwapi::StrStrIW(p r5, w ";$INSTDIR;") p .r6'
    ${If} $6 P= 0
      ${Break}
    ${EndIf}
    IntPtrOp $7 $6 + $3
    System::Call 'kernel32::lstrlenW(p r7) i .r4'
    IntOp $4 $4 + 1
    IntOp $4 $4 * 2
    System::Call 'ntdll::memmove(p r6, p r7, p r4)'
  ${Loop}
  ${If} $9 == "add"
    System::Call 'kernel32::lstrcatW(p r5, w "$INSTDIR;")'
  ${EndIf}
  System::Call 'kernel32::lstrlenW(p r5) i .r4'
  ${If} $4 < 2
    System::Call 'advapi32::RegDeleteValueW(p r0, w "Path")'
  ${Else}
    IntPtrOp $6 $5 + 2
    IntOp $4 $4 - 1
    IntOp $7 $4 * 2
    IntPtrOp $7 $5 + $7
    System::Call 'kernel32::lstrcpyW(p r7, w "")' ; the last semicolon
    IntOp $4 $4 * 2
    System::Call 'advapi32::RegSetValueExW(p r0, w "Path", i 0, i r1, p r6, i r4)'
  ${EndIf}
  System::Call 'advapi32::RegCloseKey(p r0)'
  System::Free $5
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=2000
FunctionEnd
!macroend
!insertmacro FolderOnPath ""
!insertmacro FolderOnPath "un."

Section "Corvan" Programs
  SectionIn RO
  Call RequireStopped
  ; An earlier version's files that this one has no more go first; the list is the earlier installation's own.
  ReadRegStr $0 HKCU "${REMOVAL}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\uninstall.exe"
    ExecWait '"$0\uninstall.exe" /S _?=$0'
  ${EndIf}
  SetOutPath "$INSTDIR"
  !include "${INSTALLED}"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${REMOVAL}" "DisplayName" "Corvan"
  WriteRegStr HKCU "${REMOVAL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REMOVAL}" "DisplayIcon" "$INSTDIR\corvan.exe"
  WriteRegStr HKCU "${REMOVAL}" "Publisher" "The Corvan developers"
  WriteRegStr HKCU "${REMOVAL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REMOVAL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REMOVAL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REMOVAL}" "NoModify" 1
  WriteRegDWORD HKCU "${REMOVAL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${REMOVAL}" "EstimatedSize" $0
SectionEnd

Section "Entry in the Start menu" StartMenu
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\Corvan.lnk" "$INSTDIR\corvan.exe"
SectionEnd

Section "Offer Corvan for project files (.corvan)" Association
  WriteRegStr HKCU "${CLASSES}\${PROJECT}" "" "Corvan project"
  WriteRegStr HKCU "${CLASSES}\${PROJECT}\DefaultIcon" "" "$INSTDIR\corvan.exe,0"
  WriteRegStr HKCU "${CLASSES}\${PROJECT}\shell\open\command" "" '"$INSTDIR\corvan.exe" "%1"'
  ; Among "Open with"; it becomes the default only where nothing else is.
  WriteRegStr HKCU "${CLASSES}\.corvan\OpenWithProgids" "${PROJECT}" ""
  ReadRegStr $0 HKCR ".corvan" ""
  ${If} $0 == ""
    WriteRegStr HKCU "${CLASSES}\.corvan" "" "${PROJECT}"
  ${EndIf}
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

Section /o "corvan-cli in every command prompt (PATH)" OnPath
  Push "add"
  Call ChangePath
  WriteRegDWORD HKCU "${REMOVAL}" "OnPath" 1
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Programs} "The window, the command line, the manual and a sample survey."
  !insertmacro MUI_DESCRIPTION_TEXT ${StartMenu} "Corvan among the programs of the Start menu."
  !insertmacro MUI_DESCRIPTION_TEXT ${Association} "A double click on a project opens it, unless another program was chosen for it."
  !insertmacro MUI_DESCRIPTION_TEXT ${OnPath} "corvan-cli can be called by its name alone."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  ${IfNot} ${RunningX64}
    MessageBox MB_OK|MB_ICONSTOP "Corvan needs a 64-bit Windows." /SD IDOK
    SetErrorLevel 1
    Quit
  ${EndIf}
  ; What an earlier installation had chosen, and /PATH for those who install silently.
  ReadRegDWORD $0 HKCU "${REMOVAL}" "OnPath"
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/PATH" $2
  ${IfNot} ${Errors}
    StrCpy $0 1
  ${EndIf}
  ${If} $0 == 1
    !insertmacro SelectSection ${OnPath}
  ${EndIf}
FunctionEnd

; Only what was installed, name by name: surveys and outputs that somebody keeps in the folder stay.
Section "Uninstall"
  Call un.RequireStopped
  !include "${REMOVED}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Corvan.lnk"

  ReadRegStr $0 HKCU "${CLASSES}\${PROJECT}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\corvan.exe" "%1"'
    DeleteRegKey HKCU "${CLASSES}\${PROJECT}"
    DeleteRegValue HKCU "${CLASSES}\.corvan\OpenWithProgids" "${PROJECT}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.corvan\OpenWithProgids"
    ReadRegStr $0 HKCU "${CLASSES}\.corvan" ""
    ${If} $0 == "${PROJECT}"
      DeleteRegValue HKCU "${CLASSES}\.corvan" ""
    ${EndIf}
    DeleteRegKey /ifempty HKCU "${CLASSES}\.corvan"
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
  ${EndIf}

  Push "remove"
  Call un.ChangePath
  DeleteRegKey HKCU "${REMOVAL}"
SectionEnd
