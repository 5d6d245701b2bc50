; The installer, one for both bitnesses. ./package gives it what differs by version: PRODUCT, VERSION,
; DESCRIPTION, WHAT the installer is, DEVELOPERS, YEAR, OUTPUT, the folder GENERATED with files.nsh and side.bmp,
; and SIGN when it is signed.
; It is a 32-bit program, which every Windows runs, unless TARGET names another.
;
;   setup.exe [/S] [/CURRENTUSER] [/LIBRARY=PATH] [/LOG=FILE] [/D=FOLDER]
;
; A switch with blanks in it stands in quotes as a whole, or has them behind its =.
;
;   /S            asks nothing and shows nothing
;   /CURRENTUSER  installs for the user who runs it, also with administrator rights
;   /LIBRARY=     the DEVLNK.dll that decides the bitness; it is copied beside the program
;   /LOG=         writes what was decided and done into this file as well
;   /D=           the folder: the last, when it has blanks and no quotes
;
; Ends with 0, or with 1 when the user cancelled, 2 when files can't be written, 3 when the library, the
; folder or a switch is wrong, 4 when a program that is to be replaced runs.
Unicode true
!ifdef TARGET
  Target ${TARGET}
!endif
!define UNINSTALL_KEYS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL_KEY "${UNINSTALL_KEYS}\${PRODUCT}"
!define CANNOT_WRITE 2
!define CANNOT_INSTALL 3
!define IS_RUNNING 4

!pragma warning disable 6012  ; a label of LogicLib that nothing jumps to

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
RequestExecutionLevel highest
ManifestDPIAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
ShowInstDetails show
ShowUninstDetails show
AllowSkipFiles off

VIProductVersion ${VERSION}
VIFileVersion ${VERSION}
VIAddVersionKey "CompanyName" "${DEVELOPERS}"
VIAddVersionKey "FileDescription" "${WHAT}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "InternalName" "setup"
VIAddVersionKey "LegalCopyright" "Copyright (c) ${YEAR} ${DEVELOPERS}"
VIAddVersionKey "OriginalFilename" "${PRODUCT}-${VERSION}-setup.exe"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"

!include LogicLib.nsh
!include x64.nsh
!include FileFunc.nsh
!include nsDialogs.nsh
!include MUI2.nsh

Var Pointed      ; what the user pointed at as the library
Var LogFile      ; /LOG=, if given
Var PerMachine   ; 1 or 0
Var FolderGiven  ; 1 when the folder follows from /D= or from an earlier installation
Var Earlier      ; its folder
Var Unknown      ; a switch that is none
Var Made         ; the first of the folders above that one that did not exist, if any
Var Source       ; where the library is copied from
Var Copied       ; the stamp of the library that the installer has copied there

!include "device_library.nsh"
!include "${GENERATED}\files.nsh"

!ifdef SIGN
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${GENERATED}\side.bmp"
!define MUI_ABORTWARNING
Page custom ShowLibraryPage LeaveLibraryPage
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start ${PRODUCT}"
!define MUI_FINISHPAGE_RUN_FUNCTION StartPanel
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; --- What is said ---------------------------------------------------------------------------------

; A line of the details and of the log.
!macro Say text
  Push "${text}"
  Call Say
!macroend
!define Say "!insertmacro Say"

Function Say
  Exch $0
  Push $1
  DetailPrint "$0"
  FileOpen $1 "$PLUGINSDIR\setup.log" a
  FileSeek $1 0 END
  FileWriteUTF16LE /BOM $1 "$0$\r$\n"
  FileClose $1
  ${If} $LogFile != ""
    FileOpen $1 "$LogFile" a
    FileSeek $1 0 END
    FileWriteUTF16LE /BOM $1 "$0$\r$\n"
    FileClose $1
  ${EndIf}
  Pop $1
  Pop $0
FunctionEnd

; GiveUp CODE TEXT: says why, and ends.
!macro GiveUp code text
  ${Say} "${text}"
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define GiveUp "!insertmacro GiveUp"

; --- For whom, and where --------------------------------------------------------------------------

!macro UseScope
  ${If} $PerMachine = 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
!macroend

; One place in the registry for both bitnesses, so that either finds the other.
!macro UseRegistry
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
!macroend

; Whole: the path in $0 as seen from the folder in which the installer was started, whether it exists or not.
Function Whole
  System::Call 'kernel32::GetFullPathNameW(w r0, i ${NSIS_MAX_STRLEN}, w .r0, p 0)'
FunctionEnd

; The command line as every program reads it: a switch may be in quotes as a whole. Of /D= without quotes
; NSIS has taken the rest of the line.
Function ReadSwitches
  System::Call 'kernel32::GetCommandLineW() p .r1'
  System::Call 'shell32::CommandLineToArgvW(p r1, *i .r2) p .r1'
  ${For} $3 1 $2  ; after the name of the program; one too many
    ${If} $3 = $2
      ${Break}
    ${EndIf}
    IntOp $4 $3 * ${NSIS_PTR_SIZE}
    System::Call '*$1(&v$4, p .r5)'
    System::Call 'kernel32::lstrcpynW(w .r0, p r5, i ${NSIS_MAX_STRLEN})'
    StrCpy $6 $0 9
    StrCpy $7 $0 5
    StrCpy $8 $0 3
    ${If} $6 == "/LIBRARY="
      StrCpy $0 $0 "" 9
      Call Whole
      StrCpy $Pointed $0
    ${ElseIf} $7 == "/LOG="
      StrCpy $0 $0 "" 5
      Call Whole
      StrCpy $LogFile $0
    ${ElseIf} $8 == "/D="
      ${If} $INSTDIR == ""
        StrCpy $0 $0 "" 3
        Call Whole
        StrCpy $4 $0 1 -1
        ${If} $4 == "\"
          StrCpy $0 $0 -1
        ${EndIf}
        StrCpy $INSTDIR $0
      ${EndIf}
      ${Break}
    ${ElseIf} $0 == "/CURRENTUSER"
      StrCpy $PerMachine 0
    ${ElseIf} $0 != "/S"
    ${AndIf} $0 != "/NCRC"
      StrCpy $Unknown $0
    ${EndIf}
  ${Next}
  System::Call 'kernel32::LocalFree(p r1)'
FunctionEnd

Function .onInit
  InitPluginsDir
  !insertmacro UseRegistry
  UserInfo::GetAccountType
  Pop $0
  StrCpy $PerMachine 0
  ${If} $0 == "Admin"
    StrCpy $PerMachine 1
  ${EndIf}
  Call ReadSwitches
  ${If} $LogFile != ""
    Delete "$LogFile"
  ${EndIf}
  ${If} $Unknown != ""
    ${GiveUp} ${CANNOT_INSTALL} "$Unknown is no switch: there are /S, /CURRENTUSER, /LIBRARY=, /LOG= and /D=."
  ${EndIf}
  !insertmacro UseScope
  ReadRegStr $Earlier SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $Copied SHCTX "${UNINSTALL_KEY}" "CopiedLibrary"
  StrCpy $FolderGiven 1
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR $Earlier
    ${If} $INSTDIR == ""
      StrCpy $FolderGiven 0
    ${EndIf}
  ${EndIf}
  Call Choose
FunctionEnd

; Where a library of an earlier installation may still lie.
Function FindFolder
  ${If} $FolderGiven = 1
    Return
  ${EndIf}
  ${If} $PerMachine = 0
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
    ${IfNot} ${FileExists} "$INSTDIR\DEVLNK.dll"
    ${AndIf} ${FileExists} "$PROGRAMFILES32\${PRODUCT}\DEVLNK.dll"
      StrCpy $INSTDIR "$PROGRAMFILES32\${PRODUCT}"
    ${EndIf}
  ${EndIf}
FunctionEnd

; The system's place for programs of the bitness, unless a folder is given or has the library already.
Function SettleFolder
  ${If} $FolderGiven = 0
  ${AndIf} $PerMachine = 1
  ${AndIf} $Library != "$INSTDIR\DEVLNK.dll"
    StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
    ${If} $Bits = 32
      StrCpy $INSTDIR "$PROGRAMFILES32\${PRODUCT}"
    ${EndIf}
  ${EndIf}
FunctionEnd

; In the folder lie files of somebody else, which the installer might replace and the uninstaller remove.
; What was installed there before is its own, and a DEVLNK.dll is no hindrance, nor what tracing left beside it.
!macro _IsForeign _a _b _t _f
  !insertmacro _LOGICLIB_TEMP
  Call IsForeign
  Pop $_LOGICLIB_TEMP
  StrCmp $_LOGICLIB_TEMP 1 `${_t}` `${_f}`
!macroend
!define IsForeign `"" IsForeign ""`

Function IsForeign
  Push $0
  Push $1
  Push $2
  StrCpy $0 0
  ${If} $INSTDIR != $Earlier
    ${DisableX64FSRedirection}
    ClearErrors
    FindFirst $1 $2 "$INSTDIR\*.*"
    ${DoUntil} ${Errors}
      ${If} $2 != "."
      ${AndIf} $2 != ".."
        StrCpy $2 $2 7
        ${If} $2 != "DEVLNK."
          StrCpy $0 1
        ${EndIf}
      ${EndIf}
      FindNext $1 $2
    ${Loop}
    FindClose $1
    ${EnableX64FSRedirection}
  ${EndIf}
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; --- The pages ------------------------------------------------------------------------------------

Var PathField
Var Reason

Function ShowLibraryPage
  !insertmacro MUI_HEADER_TEXT "The device library" "${PRODUCT} reaches the box through the maker's DEVLNK.dll."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 34u "The library has 32 or 64 bits, and ${PRODUCT} must have as many. Point at your DEVLNK.dll: it is copied beside the program and stays where it is. Without a library you can go on, and put it there later."
  Pop $0
  ${NSD_CreateFileRequest} 0 40u 78% 13u "$Pointed"
  Pop $PathField
  ${NSD_CreateBrowseButton} 80% 39u 20% 15u "Browse..."
  Pop $0
  ${NSD_OnClick} $0 BrowseLibrary
  ${NSD_CreateLabel} 0 64u 100% 60u ""
  Pop $Reason
  ${NSD_OnChange} $PathField ReadLibraryField
  Call ShowReason
  nsDialogs::Show
FunctionEnd

Function ShowReason
  ${If} $Trouble == ""
    ${NSD_SetText} $Reason $Why
  ${Else}
    ${NSD_SetText} $Reason $Trouble
  ${EndIf}
FunctionEnd

Function BrowseLibrary
  Pop $0
  nsDialogs::SelectFileDialog open "$Pointed" "Device library (DEVLNK.dll)|DEVLNK.dll|Libraries (*.dll)|*.dll"
  Pop $0
  ${If} $0 != ""
    ${NSD_SetText} $PathField $0  ; which tells of the change
  ${EndIf}
FunctionEnd

Function ReadLibraryField
  Pop $0
  ${NSD_GetText} $PathField $Pointed
  Call Choose
  Call ShowReason
FunctionEnd

Function LeaveLibraryPage
  ${If} $Trouble != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION $Trouble
    Abort
  ${EndIf}
  Call SettleFolder
FunctionEnd

; In the chosen folder there may be what is somebody else's, and a library of the other bitness. A folder that
; is in use gets one for the program, and a library in it, such as the maker's own, is one that was pointed at.
Function LeaveFolderPage
  StrCpy $FolderGiven 1
  ${If} ${IsForeign}
    ${If} $Pointed == ""
    ${AndIf} ${FileExists} "$INSTDIR\DEVLNK.dll"
      StrCpy $Pointed "$INSTDIR\DEVLNK.dll"
    ${EndIf}
    StrCpy $INSTDIR "$INSTDIR\${PRODUCT}"
    ${If} ${IsForeign}
      MessageBox MB_OK|MB_ICONEXCLAMATION "$INSTDIR holds other files. Choose an empty folder, or a new one."
      Abort
    ${EndIf}
    FindWindow $0 "#32770" "" $HWNDPARENT
    GetDlgItem $0 $0 1019
    SendMessage $0 ${WM_SETTEXT} 0 "STR:$INSTDIR"
    MessageBox MB_OKCANCEL|MB_ICONINFORMATION "That folder holds other files: ${PRODUCT} goes into $INSTDIR." IDOK go_on
    Abort
    go_on:
  ${EndIf}
  Call Choose
  ${If} $Trouble != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION $Trouble
    Abort
  ${EndIf}
FunctionEnd

; By the shell, so that it does not run with the rights of the installer.
Function StartPanel
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\${PRODUCT}.exe"'
FunctionEnd

; --- Installing -----------------------------------------------------------------------------------

; A program that runs can't be replaced.
!macro Free un file
  ${If} ${FileExists} "$INSTDIR\${file}"
    Push "$INSTDIR\${file}"
    Call ${un}Free
  ${EndIf}
!macroend
!macro FreeFunctions un
Function ${un}Free
  Exch $0
  Push $1
  again:
  ClearErrors
  FileOpen $1 "$0" a
  ${If} ${Errors}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$0 runs, or may not be written. Close it, then try again." /SD IDCANCEL IDRETRY again
    !if "${un}" == ""
      ${Say} "$0 runs, or may not be written: nothing was changed."
    !endif
    SetErrorLevel ${IS_RUNNING}
    Quit
  ${EndIf}
  FileClose $1
  Pop $1
  Pop $0
FunctionEnd

; All that may keep a file of the folder.
Function ${un}FreeAll
  !insertmacro Free "${un}" "${PRODUCT}.exe"
  !insertmacro Free "${un}" "simulator\BoxBench.exe"
  !insertmacro Free "${un}" "simulator\boxctl.exe"
  !insertmacro Free "${un}" "simulator\DEVLNK.dll"
  !insertmacro Free "${un}" "trace\DEVLNK.dll"
FunctionEnd
!macroend
!insertmacro FreeFunctions ""
!insertmacro FreeFunctions "un."

; Which folders the installer makes, so that the uninstaller takes them away again.
Function NoteMadeFolders
  ${If} $Earlier == $INSTDIR
    ReadRegStr $Made SHCTX "${UNINSTALL_KEY}" "MadeFolder"
    Return
  ${EndIf}
  StrCpy $Made ""
  StrCpy $0 $INSTDIR
  ${DoUntil} ${FileExists} "$0\*.*"
    StrCpy $Made $0
    ${GetParent} $0 $0
    ${If} $0 == ""
      ${Break}
    ${EndIf}
  ${Loop}
FunctionEnd

; From the folder in $0 up to the one in $1, which the installer had made, as far as nobody else has come to
; use them.
!macro RemoveMadeFolders un
Function ${un}RemoveMadeFolders
  RMDir "$0"
  ${If} $1 == ""
    Return
  ${EndIf}
  ${DoUntil} $0 == $1
    ${GetParent} $0 $0
    ${If} $0 == ""
      ${Break}
    ${EndIf}
    RMDir "$0"
  ${Loop}
FunctionEnd
!macroend
!insertmacro RemoveMadeFolders ""
!insertmacro RemoveMadeFolders "un."

; What was installed before goes first, with its own list of files. It leaves the library in the folder,
; when that is the same.
Function RemoveEarlier
  StrCpy $Source $Library
  ${If} $Earlier == ""
  ${OrIfNot} ${FileExists} "$Earlier\uninstall.exe"
    Return
  ${EndIf}
  StrCpy $0 "/S"
  ${If} $Earlier == $INSTDIR
    StrCpy $0 "/S /UPGRADE"
  ${EndIf}
  ${If} $Library == "$Earlier\DEVLNK.dll"
    CopyFiles /SILENT "$Library" "$PLUGINSDIR"
    StrCpy $Source "$PLUGINSDIR\DEVLNK.dll"
  ${EndIf}
  ReadRegStr $3 SHCTX "${UNINSTALL_KEY}" "MadeFolder"
  ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
  ${Say} "Removing version $1 from $Earlier"
  ExecWait '"$Earlier\uninstall.exe" $0 _?=$Earlier' $2
  ${If} $2 <> 0
    ${GiveUp} $2 "Version $1 in $Earlier could not be removed."
  ${EndIf}
  Delete "$Earlier\uninstall.exe"  ; which did not end itself
  ${If} $Earlier != $INSTDIR
    StrCpy $Copied ""  ; which went with it
    StrCpy $0 $Earlier
    StrCpy $1 $3
    Call RemoveMadeFolders
  ${EndIf}
FunctionEnd

; The library beside the program, unless the user has put one there.
Function CopyLibrary
  ${If} $Library == ""
    ${Say} "Put the maker's DEVLNK.dll of $Bits bits into $INSTDIR."
    Return
  ${EndIf}
  ${If} $Library == "$INSTDIR\DEVLNK.dll"
    ${Say} "$Library stays as it is."
    Return
  ${EndIf}
  ${If} ${IsUsersLibrary}
    ${Say} "$INSTDIR\DEVLNK.dll stays as it is."
    Return
  ${EndIf}
  ${DisableX64FSRedirection}
  SetFileAttributes "$INSTDIR\DEVLNK.dll" NORMAL  ; a copy from a disc can't be written
  System::Call 'kernel32::CopyFileW(w "$Source", w "$INSTDIR\DEVLNK.dll", i 0) i .r0'
  SetFileAttributes "$INSTDIR\DEVLNK.dll" NORMAL
  ${EnableX64FSRedirection}
  ${If} $0 = 0
    ${Say} "$Library could not be copied: put it into $INSTDIR."
    MessageBox MB_OK|MB_ICONEXCLAMATION "$Library could not be copied: put it into $INSTDIR." /SD IDOK
    SetErrorLevel ${CANNOT_WRITE}
    Return
  ${EndIf}
  Push "$INSTDIR\DEVLNK.dll"
  Call StampOf
  Pop $Copied
  ${Say} "$Library was copied beside the program."
FunctionEnd

; One for all users and one for this user alone don't know each other.
Function TellOfOther
  ${If} $PerMachine = 1
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 != ""
      ${Say} "There is another one for this user alone, in $0, which stays as it is."
    ${EndIf}
  ${Else}
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 != ""
      ${Say} "There is another one for all users, in $0, which stays as it is."
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  ${If} ${Silent}
    Call Choose
    ${If} $Trouble == ""
      Call SettleFolder
      StrCpy $FolderGiven 1
    ${EndIf}
    ${If} $Trouble == ""
    ${AndIf} ${IsForeign}
      StrCpy $Trouble "$INSTDIR holds other files: give an empty folder, or a new one."
    ${EndIf}
  ${EndIf}
  ${If} $Trouble != ""
    ${GiveUp} ${CANNOT_INSTALL} "$Trouble"
  ${EndIf}
  ${Say} "${PRODUCT} ${VERSION}"
  ${Say} "$Why"
  ${If} $PerMachine = 1
    ${Say} "It is installed for all users, in $INSTDIR."
  ${Else}
    ${Say} "It is installed for this user alone, in $INSTDIR."
  ${EndIf}
  Call TellOfOther
  Call FreeAll
  Call NoteMadeFolders
  Call RemoveEarlier
  ; Kept over an upgrade, so that the library is still known as a copy.
  ${If} $Copied != ""
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "CopiedLibrary" "$Copied"
  ${EndIf}
  ${If} $Bits = 64
    !insertmacro InstallX64
  ${Else}
    !insertmacro InstallX86
  ${EndIf}
  SetOutPath "$INSTDIR"
  Call CopyLibrary
  WriteUninstaller "$INSTDIR\uninstall.exe"

  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk" "$INSTDIR\${PRODUCT}.exe" "" "" "" "" "" "${DESCRIPTION}"
  SetOutPath "$INSTDIR\simulator"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT} BoxBench.lnk" "$INSTDIR\simulator\BoxBench.exe" "" "" "" "" "" "The simulated box, worked in a window"
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT} guide.lnk" "$INSTDIR\guide\index.html"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PRODUCT}.exe,0"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${DEVELOPERS}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Comments" "$Why"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  ${If} $Copied != ""
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "CopiedLibrary" "$Copied"
  ${EndIf}
  ${If} $Made != ""
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "MadeFolder" "$Made"
  ${EndIf}
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
  ${Say} "Done."
  CopyFiles /SILENT "$PLUGINSDIR\setup.log" "$INSTDIR"
SectionEnd

; --- Uninstalling ---------------------------------------------------------------------------------

Function un.onInit
  !insertmacro UseRegistry
  StrCpy $PerMachine 0
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    StrCpy $PerMachine 1
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
      MessageBox MB_OK|MB_ICONSTOP "${PRODUCT} was installed for all users: an administrator can remove it." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
  ${EndIf}
  !insertmacro UseScope
FunctionEnd

; What the installer made, by name: what else lies in the folder is somebody's.
Section "Uninstall"
  Call un.FreeAll
  SetOutPath "$TEMP"
  !insertmacro Remove
  Delete "$INSTDIR\setup.log"
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/UPGRADE" $0
  ${If} ${Errors}
    Push "$INSTDIR\DEVLNK.dll"
    Call un.StampOf
    Pop $0
    ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "CopiedLibrary"
    ${If} $0 != ""
      ${If} $0 == $1
        Delete "$INSTDIR\DEVLNK.dll"
      ${Else}
        DetailPrint "$INSTDIR\DEVLNK.dll stays: it was not put there by the installer."
      ${EndIf}
    ${EndIf}
  ${EndIf}
  Delete "$INSTDIR\uninstall.exe"
  StrCpy $0 $INSTDIR
  ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "MadeFolder"
  Call un.RemoveMadeFolders
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT} BoxBench.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT} guide.lnk"
  RMDir "$SMPROGRAMS\${PRODUCT}"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  ${If} $PerMachine = 0
    DeleteRegKey /ifempty HKCU "${UNINSTALL_KEYS}"  ; which a new user does not have
  ${EndIf}
  ; The uninstaller runs as a copy among the temporary files, which goes with the next start of the system.
  ; That copy is noted already, but after its folder, which stays then.
  ${If} $EXEDIR != $INSTDIR
    RMDir /REBOOTOK "$EXEDIR"
    SetRebootFlag false
  ${EndIf}
SectionEnd
