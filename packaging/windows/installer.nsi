; The installer for Windows: for one user, in a folder of his own, without an administrator.
;
;   makensis -DVERSION=0.1 -DFOLDER=what/to/install -DLICENCE=file -DINSTALLER=made.exe installer.nsi
;
; With -DSIGN=command the command is given the finished installer and the uninstaller, each in quotes
; behind it, to sign. With -DQUICK it is made faster and larger.
;
; Switches of the installer: /S shows nothing, /D=folder (the last one, without quotes) says where to,
; /FIREWALL and /SHARE choose what is not chosen by default. Its status is 2 when it did nothing because
; a program of an older version runs there, or the folder cannot be written to.

Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel user
!ifdef QUICK
  SetCompressor zlib
!else
  SetCompressor /SOLID lzma
!endif

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include elevated.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorlent"

Name "Vorlent"
OutFile "${INSTALLER}"
InstallDir "$LOCALAPPDATA\Programs\Vorlent"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Vorlent ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "Vorlent"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Vorlent installer"
VIAddVersionKey LegalCopyright "Its authors"
!ifdef SIGN
  !finalize '${SIGN} "%1"'
  !uninstfinalize '${SIGN} "%1"'
!endif

!define MUI_ICON vorlent.ico
!define MUI_UNICON vorlent.ico
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_LICENSEPAGE_BUTTON "Next >"
!define MUI_LICENSEPAGE_TEXT_BOTTOM "Press Next to go on."
!insertmacro MUI_PAGE_LICENSE "${LICENCE}"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Tells it, and ends with status 2 before anything has changed.
!macro refuse text
  MessageBox MB_OK|MB_ICONEXCLAMATION "${text}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend

; A program that runs cannot be opened for writing.
!macro refuseWhatRuns
  ClearErrors
  FindFirst $0 $1 "$INSTDIR\vorlent*.exe"
  ${DoWhile} $1 != ""
    ClearErrors
    FileOpen $2 "$INSTDIR\$1" a
    ${If} ${Errors}
      !insertmacro refuse "$1 in $INSTDIR is running, or must not be changed. End it and try again."
    ${EndIf}
    FileClose $2
    ClearErrors
    FindNext $0 $1
  ${Loop}
  FindClose $0
!macroend

; entry NAME PROGRAM: a line in the Start menu, if the program is part of this version.
!macro entry name program
  ${If} ${FileExists} "$INSTDIR\${program}"
    CreateShortcut "$SMPROGRAMS\Vorlent\${name}.lnk" "$INSTDIR\${program}"
  ${EndIf}
!macroend

Section "Vorlent" Programs
  SectionIn RO
  !insertmacro refuseWhatRuns
  ClearErrors
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro refuse "Nothing can be written in $INSTDIR. Choose another folder."
  ${EndIf}

  SetOverwrite on
  File "${FOLDER}/*.exe"
  SetOutPath "$INSTDIR\Docs"
  File /r "${FOLDER}/Docs/*"
  ; Whatever else is there already is the user's own by now, and stays.
  SetOverwrite off
  SetOutPath "$INSTDIR"
  File /r /x *.exe /x Docs "${FOLDER}/*"

  ; The Start menu opens each program in this folder.
  SetShellVarContext current
  RMDir /r "$SMPROGRAMS\Vorlent"
  CreateDirectory "$SMPROGRAMS\Vorlent"
  !insertmacro entry "Vorlent" "vorlent.exe"
  !insertmacro entry "Vorlent (keeps running)" "vorlent-keeper.exe"
  !insertmacro entry "Simulator" "vorlent-sim.exe"
  !insertmacro entry "Manual" "Docs\manual.htm"
  !insertmacro entry "Uninstall" "uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Vorlent"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\vorlent.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The authors of Vorlent"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

SectionGroup /e "Needs an administrator" NeedsAdministrator
  Section /o "Firewall rule" Firewall
    !insertmacro elevated "The firewall rule" '${FIREWALL_RULES}'
    ${If} $0 == ""
      WriteRegDWORD HKCU "${UNINSTALL_KEY}" "FirewallRule" 1
    ${EndIf}
  SectionEnd

  Section /o "Network share" Share
    !insertmacro elevated "The network share" '${SHARE_FOLDER}'
    ${If} $0 == ""
      WriteRegDWORD HKCU "${UNINSTALL_KEY}" "Share" 1
    ${EndIf}
  SectionEnd
SectionGroupEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Programs} \
    "The programs, the manual, and the files as shipped. Files of an older version that are yours stay."
  !insertmacro MUI_DESCRIPTION_TEXT ${NeedsAdministrator} \
    "Windows asks for an administrator when one of these is installed. Vorlent works without them."
  !insertmacro MUI_DESCRIPTION_TEXT ${Firewall} \
    "Lets displays on other PCs of a private network reach Vorlent. Without it, Windows asks when \
    Vorlent runs for the first time."
  !insertmacro MUI_DESCRIPTION_TEXT ${Share} \
    "Shares this folder in the network under the name Vorlent, to be read, so that displays find it."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; choose SWITCH SECTION: chooses the section when the installer was started with the switch.
!macro choose switch section
  ClearErrors
  ${GetOptions} $0 "${switch}" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${section}
  ${EndIf}
!macroend

Function .onInit
  ${GetParameters} $0
  !insertmacro choose "/FIREWALL" ${Firewall}
  !insertmacro choose "/SHARE" ${Share}
FunctionEnd

; Settings, cockpits, log and all other files that a user may have changed stay.
Section "Uninstall"
  !insertmacro refuseWhatRuns
  ReadRegDWORD $1 HKCU "${UNINSTALL_KEY}" "FirewallRule"
  ReadRegDWORD $2 HKCU "${UNINSTALL_KEY}" "Share"
  ${IfNot} ${Silent}
    ${If} $1 = 1
      !insertmacro elevated "The firewall rule" '${NO_FIREWALL_RULES}'
    ${EndIf}
    ${If} $2 = 1
      !insertmacro elevated "The network share" '${NO_SHARE}'
    ${EndIf}
  ${EndIf}

  Delete "$INSTDIR\vorlent*.exe"
  Delete "$INSTDIR\uninstall.exe"
  Delete "$INSTDIR\Docs\manual.htm"
  RMDir "$INSTDIR\Docs"
  RMDir "$INSTDIR"
  SetShellVarContext current
  RMDir /r "$SMPROGRAMS\Vorlent"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${If} ${FileExists} "$INSTDIR\*.*"
    MessageBox MB_OK|MB_ICONINFORMATION \
      "Your settings and cockpits are still in $INSTDIR. Delete the folder if you no longer need them." \
      /SD IDOK
  ${EndIf}
SectionEnd
