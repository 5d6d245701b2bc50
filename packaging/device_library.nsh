; Which DEVLNK.dll decides between the 32-bit and the 64-bit program.

!define MACHINE_X86 332    ; IMAGE_FILE_MACHINE_I386
!define MACHINE_X64 34404  ; IMAGE_FILE_MACHINE_AMD64
!define DOS_SIGNATURE 23117  ; "MZ"
!define NT_SIGNATURE 17744   ; "PE", and two zeros

Var Library  ; the DEVLNK.dll that decides, empty without one
Var Bits     ; of what is installed: 32 or 64
Var Why      ; the reason, a sentence
Var Trouble  ; why nothing can be installed, empty when it can

; BitsOf PATH: leaves 32 or 64 on the stack, or nothing between quotes when the file is no program or
; library of either.
!macro BitsOf path result
  Push "${path}"
  Call BitsOf
  Pop ${result}
!macroend
!define BitsOf "!insertmacro BitsOf"

Function BitsOf
  Exch $0
  Push $1
  Push $2
  Push $3
  Push $4
  StrCpy $4 ""
  ; A 32-bit installer sees the folder of the 64-bit system as it is.
  ${DisableX64FSRedirection}
  ClearErrors
  FileOpen $1 "$0" r
  ${EnableX64FSRedirection}
  ${IfNot} ${Errors}
    FileReadWord $1 $2
    ${If} $2 = ${DOS_SIGNATURE}
      FileSeek $1 60
      FileReadWord $1 $2
      FileReadWord $1 $3
      IntOp $3 $3 << 16
      IntOp $2 $2 | $3
      FileSeek $1 $2
      FileReadWord $1 $2
      FileReadWord $1 $3
      ${If} $2 = ${NT_SIGNATURE}
      ${AndIf} $3 = 0
        FileReadWord $1 $2
        ${IfNot} ${Errors}
          ${If} $2 = ${MACHINE_X86}
            StrCpy $4 32
          ${ElseIf} $2 = ${MACHINE_X64}
            StrCpy $4 64
          ${EndIf}
        ${EndIf}
      ${EndIf}
    ${EndIf}
    FileClose $1
  ${EndIf}
  StrCpy $0 $4
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; The size and time of a file, by which it is known again; empty when there is none.
!macro StampOf un
Function ${un}StampOf
  Exch $0
  Push $1
  Push $2
  Push $3
  Push $4
  StrCpy $4 ""
  ${DisableX64FSRedirection}
  ClearErrors
  FileOpen $1 "$0" r
  ${EnableX64FSRedirection}
  ${IfNot} ${Errors}
    FileSeek $1 0 END $2
    FileClose $1
    ${DisableX64FSRedirection}
    GetFileTime "$0" $1 $3
    ${EnableX64FSRedirection}
    StrCpy $4 "$2 $1 $3"
  ${EndIf}
  StrCpy $0 $4
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd
!macroend
!insertmacro StampOf ""
!insertmacro StampOf "un."

; In the folder of the installation lies a DEVLNK.dll that the user put there. What the installer copied
; there itself, and nobody changed since, is not the user's.
!macro _IsUsersLibrary _a _b _t _f
  !insertmacro _LOGICLIB_TEMP
  Call IsUsersLibrary
  Pop $_LOGICLIB_TEMP
  StrCmp $_LOGICLIB_TEMP 1 `${_t}` `${_f}`
!macroend
!define IsUsersLibrary `"" IsUsersLibrary ""`

Function IsUsersLibrary
  Push $0
  Push $1
  Push "$INSTDIR\DEVLNK.dll"
  Call StampOf
  Pop $0
  ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "CopiedLibrary"
  ${If} $0 == ""
  ${OrIf} $0 == $1
    StrCpy $0 0
  ${Else}
    StrCpy $0 1
  ${EndIf}
  Pop $1
  Exch $0
FunctionEnd

; Sets Library, Bits and Why, or Trouble. $Pointed is what the user pointed at, if anything. A library in
; the folder of the installation is the one that the program will load, and is never replaced.
Function Choose
  StrCpy $Library ""
  StrCpy $Bits ""
  StrCpy $Trouble ""
  Call FindFolder
  ${If} $Pointed != ""
    StrCpy $Library $Pointed
    ${If} ${FileExists} "$Library\*.*"
      StrCpy $Library "$Library\DEVLNK.dll"
    ${EndIf}
    ${BitsOf} "$Library" $Bits
    ${If} $Bits == ""
      StrCpy $Trouble "$Library can't be read as a library for 32-bit or 64-bit Windows."
      Return
    ${EndIf}
    ${If} ${IsUsersLibrary}
      ${BitsOf} "$INSTDIR\DEVLNK.dll" $0
      ${If} $0 != $Bits
        StrCpy $Trouble "$Library is a $Bits-bit library, but $INSTDIR has another DEVLNK.dll, which ${PRODUCT} would load. Take that one away, or point at it."
        Return
      ${EndIf}
    ${EndIf}
  ${Else}
    ${BitsOf} "$INSTDIR\DEVLNK.dll" $Bits
    ${If} $Bits != ""
      StrCpy $Library "$INSTDIR\DEVLNK.dll"
    ${EndIf}
    ${If} $Bits == ""
    ${AndIf} $Earlier != ""
      ${BitsOf} "$Earlier\DEVLNK.dll" $Bits
      ${If} $Bits != ""
        StrCpy $Library "$Earlier\DEVLNK.dll"
      ${EndIf}
    ${EndIf}
    ${If} $Bits == ""
      ${BitsOf} "$EXEDIR\DEVLNK.dll" $Bits
      ${If} $Bits != ""
        StrCpy $Library "$EXEDIR\DEVLNK.dll"
      ${EndIf}
    ${EndIf}
  ${EndIf}
  ${If} $Library != ""
    StrCpy $Why "The $Bits-bit ${PRODUCT} is installed, because $Library is a $Bits-bit library."
    ${If} $Bits = 64
    ${AndIfNot} ${RunningX64}
      StrCpy $Trouble "$Library is a 64-bit library, which this 32-bit Windows can't load."
    ${EndIf}
    Return
  ${EndIf}
  StrCpy $Bits 32
  ${If} ${RunningX64}
    StrCpy $Bits 64
  ${EndIf}
  StrCpy $Why "The $Bits-bit ${PRODUCT} is installed, because this Windows has $Bits bits and no usable DEVLNK.dll was found beside the installer or in $INSTDIR."
FunctionEnd
