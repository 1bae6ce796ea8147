; The setup program: installs for one user, without an administrator. makensis gets VERSION, VERSION4 (with four numbers), FOLDER (what is to be
; installed) and OUTPUT. /S installs without a question, /D=C:\Path (the last argument) there.
Unicode true
Target amd64-unicode ; as the programs
!include MUI2.nsh
!include FileFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\ZOVA"

Name "ZOVA"
OutFile "${OUTPUT}"
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
InstallDir "$LOCALAPPDATA\Programs\ZOVA"
InstallDirRegKey HKCU "Software\ZOVA" "Folder"
AllowSkipFiles off
BrandingText "ZOVA ${VERSION}"
VIProductVersion "${VERSION4}"
VIAddVersionKey "ProductName" "ZOVA"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Setup of ZOVA"
VIAddVersionKey "CompanyName" "ZOVA maintainers"
VIAddVersionKey "LegalCopyright" "GNU General Public License, version 3 or later"

!define MUI_ICON "windows/zova.ico"
!define MUI_UNICON "windows/zova.ico"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\zova.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start ZOVA"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "The program will be removed. Your data stay: projects, the directory Param, the Sample Data and what you made of them."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Explorer keeps what it knows of file types until it is told.
!macro TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Windows keeps the file of a program that runs. Nothing is touched before that has ended, and in silence nothing at all.
!macro RequireEndOfZova
try:
  IfFileExists "$INSTDIR\zova.exe" 0 ended
  ClearErrors
  FileOpen $0 "$INSTDIR\zova.exe" a
  IfErrors running
  FileClose $0
  Goto ended
running:
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "ZOVA is still running. Close it, then select 'Retry'." /SD IDCANCEL IDRETRY try
  Abort "ZOVA is still running."
ended:
!macroend

Section "ZOVA"
  SetShellVarContext current
  !insertmacro RequireEndOfZova
  SetOutPath "$INSTDIR"
  File "${FOLDER}/*.exe"
  File "${FOLDER}/ZOVA2.hlp"
  File "${FOLDER}/LICENSE.txt"
  SetOutPath "$INSTDIR\Licences"
  File "${FOLDER}/Licences/*.txt"
  ; What the user made of the example stays, and what was removed of it stays removed.
  SetOutPath "$INSTDIR"
  IfFileExists "$INSTDIR\Sample Data\*.*" sampled
  File /r "${FOLDER}/Sample Data"
sampled:
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  CreateShortcut "$SMPROGRAMS\ZOVA.lnk" "$INSTDIR\zova.exe" "" "$INSTDIR\zova.exe" 0

  WriteRegStr HKCU "Software\Classes\ZOVA.Project" "" "ZOVA project"
  WriteRegStr HKCU "Software\Classes\ZOVA.Project\DefaultIcon" "" "$INSTDIR\zova.exe,0"
  WriteRegStr HKCU "Software\Classes\ZOVA.Project\shell\open\command" "" '"$INSTDIR\zova.exe" "%1"'
  WriteRegStr HKCU "Software\Classes\.prm\OpenWithProgids" "ZOVA.Project" ""
  ; Another program that opens .prm files keeps them; ZOVA stands under "Open with" then.
  ReadRegStr $0 HKCR ".prm" ""
  StrCmp $0 "" 0 +2
    WriteRegStr HKCU "Software\Classes\.prm" "" "ZOVA.Project"

  WriteRegStr HKCU "Software\ZOVA" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "ZOVA"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\zova.exe,0"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "ZOVA maintainers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
  !insertmacro TellExplorer
SectionEnd

; Only what the setup brought, by name. Param and the Sample Data may hold what was worked for, and so may the settings
; that say where Param lies: a later setup goes on with them.
Section "Uninstall"
  SetShellVarContext current
  !insertmacro RequireEndOfZova
  Delete "$INSTDIR\zova.exe"
  Delete "$INSTDIR\zova-master.exe"
  Delete "$INSTDIR\zova-import.exe"
  Delete "$INSTDIR\zova-compare.exe"
  Delete "$INSTDIR\ZOVA2.hlp"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\Licences\*.txt"
  RMDir "$INSTDIR\Licences"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\ZOVA.lnk"
  DeleteRegValue HKCU "Software\Classes\.prm\OpenWithProgids" "ZOVA.Project"
  DeleteRegKey /ifempty HKCU "Software\Classes\.prm\OpenWithProgids"
  ReadRegStr $0 HKCU "Software\Classes\.prm" ""
  StrCmp $0 "ZOVA.Project" 0 +2
    DeleteRegValue HKCU "Software\Classes\.prm" ""
  DeleteRegKey /ifempty HKCU "Software\Classes\.prm"
  DeleteRegKey HKCU "Software\Classes\ZOVA.Project"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\ZOVA"
  !insertmacro TellExplorer
SectionEnd
