; What the installer lets an administrator do.

; By their full paths, since the current folder is one that other programs may write to.
!define NETSH '$SYSDIR\netsh.exe advfirewall firewall'
!define NET '$SYSDIR\net.exe'
!define NO_FIREWALL_RULES '${NETSH} delete rule name="Vorlent"'
!define FIREWALL_RULES '${NO_FIREWALL_RULES} & for %p in (vorlent vorlentd vorlent-web) do \
  ${NETSH} add rule name="Vorlent" dir=in action=allow profile=private,domain program="$INSTDIR\%p.exe"'
!define NO_SHARE '${NET} share Vorlent /delete /yes'
; As the server does it by itself where it may.
!define SHARE_FOLDER '${NET} share Vorlent="$INSTDIR" /cache:no /users:8'

; elevated WHAT COMMANDS: runs the commands of the command line as an administrator, whom Windows asks
; for. $0 is empty then; it is "refused" when nobody agreed, which is told and costs nothing else.
; What the commands themselves say is not known here.
!macro elevated what commands
  DetailPrint "${what}: Windows asks for an administrator."
  StrCpy $0 ""
  ClearErrors
  ExecShellWait "runas" "$SYSDIR\cmd.exe" '/s /c "${commands}"' SW_HIDE
  ${If} ${Errors}
    StrCpy $0 "refused"
    MessageBox MB_OK|MB_ICONINFORMATION "${what} was left out: it needs an administrator." /SD IDOK
  ${EndIf}
!macroend
