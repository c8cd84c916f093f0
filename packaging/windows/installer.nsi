; The installer: makensis -INPUTCHARSET UTF8 -DVERSION=1.0.0 -DTREE=FOLDER -DSIZE=KILOBYTES -DICON=FILE -DOUTPUT=FILE
; installer.nsi
;
; FOLDER has two parts, which are copied to the install folder: programs, with this version's files in BIN and HLP, and
; office, an office without a company. Each entry of BIN and HLP, a file or a whole folder, is a unit. An update replaces
; all units or none. The units that it replaces stay in BKUP\programs as the previous version.

Unicode true
Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include texts.nsh

!define SUITE_KEY "SOFTWARE\ZENTHA\ORV"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\KELT_COS"
!define USUAL_FOLDER "C:\ORV"  ; also in the settings of the office without a company
!define UNINSTALLER "KELT_UNINST.EXE"
!define SHORTCUT "$SMPROGRAMS\${PRODUCT_JAPANESE}.lnk"
!define MAKER "Company Information maintainers"

; A list of units: the version in the first line, then a unit a line.
!define LIST "$INSTDIR\BIN\KELT_COS.LST"
; Folders with units, and the name of their lists.
!define NEW "$INSTDIR\BKUP\programs.new"
!define OLD "$INSTDIR\BKUP\programs.old"
!define PREVIOUS "$INSTDIR\BKUP\programs"
!define UNITS "units.txt"
; The version of units that this installer has not installed.
!define FOREIGN "foreign"

; Exit statuses, after those of NSIS: 1 if the user cancels, 2 if a file cannot be extracted.
!define EXIT_RUNNING 3
!define EXIT_FILES 4
!define EXIT_FOLDER 5
!define EXIT_NO_PREVIOUS 6

!define ATTEMPTS 20  ; while another program has a file open
!define PAUSE 100    ; milliseconds

Name "$(PRODUCT)"
OutFile "${OUTPUT}"
InstallDir ""
RequestExecutionLevel admin
ManifestDPIAware true
ManifestLongPathAware true
SetCompressor /SOLID lzma
BrandingText "${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_PRE skipIfInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_UNPAGE_FINISH
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese

Var Installed  ; the value of InstallKey, or ""
Var Name       ; of a program
Var Unit
Var Version
Var Source     ; the folder with the units that replace the present ones
Var From
Var To
Var Count
Var Tries

!insertmacro Texts

VIProductVersion "${VERSION}.0"
!macro VersionTexts LANGUAGE PRODUCT
    VIAddVersionKey /LANG=${LANGUAGE} ProductName "${PRODUCT}"
    VIAddVersionKey /LANG=${LANGUAGE} FileDescription "${PRODUCT}"
    VIAddVersionKey /LANG=${LANGUAGE} FileVersion "${VERSION}"
    VIAddVersionKey /LANG=${LANGUAGE} ProductVersion "${VERSION}"
    VIAddVersionKey /LANG=${LANGUAGE} CompanyName "${MAKER}"
    VIAddVersionKey /LANG=${LANGUAGE} LegalCopyright "${MAKER}"
!macroend
!insertmacro VersionTexts ${LANG_ENGLISH} "${PRODUCT_ENGLISH}"
!insertmacro VersionTexts ${LANG_JAPANESE} "${PRODUCT_JAPANESE}"

; Ends with an exit status and, unless the installer is silent, with a text.
!macro Refuse STATUS TEXT
    SetErrorLevel ${STATUS}
    MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
    Quit
!macroend

!macro RequireNotRunning un PROGRAM
    StrCpy $Name ${PROGRAM}
    ${If} ${FileExists} "$INSTDIR\BIN\$Name"
        Call ${un}requireNotRunning
    ${EndIf}
!macroend

; The functions of both the installer and the uninstaller.
!macro Common un

; A program cannot be opened for writing while a computer runs it.
Function ${un}requireNotRunning
    SetFileAttributes "$INSTDIR\BIN\$Name" NORMAL
    StrCpy $Tries ${ATTEMPTS}
    ${Do}
        ClearErrors
        FileOpen $0 "$INSTDIR\BIN\$Name" a
        ${IfNot} ${Errors}
            FileClose $0
            Return
        ${EndIf}
        Sleep ${PAUSE}
        IntOp $Tries $Tries - 1
    ${LoopUntil} $Tries = 0
    !insertmacro Refuse ${EXIT_RUNNING} "$(RUNNING)"
FunctionEnd

Function ${un}requireIdle
    !insertmacro RequireNotRunning "${un}" KELT_COS.EXE
    !insertmacro RequireNotRunning "${un}" KELT_ADD.EXE
    !insertmacro RequireNotRunning "${un}" KELT_LINE.EXE
    !insertmacro RequireNotRunning "${un}" ORV_STORE.EXE
FunctionEnd

; Opens the list $0 as $1 and reads its version. Without a list, $1 has no further line.
Function ${un}openList
    StrCpy $Version ${FOREIGN}
    ClearErrors
    FileOpen $1 $0 r
    ${IfNot} ${Errors}
        FileRead $1 $Version
        StrCpy $Version $Version -2
    ${EndIf}
FunctionEnd

Function ${un}readVersion
    Call ${un}openList
    FileClose $1
FunctionEnd

; Reads the next unit of the list $1 into $Unit, or "" and closes the list at its end. Skips lines that name anything
; but an entry of BIN or HLP, because other users might have written them.
Function ${un}readUnit
    ${Do}
        ClearErrors
        FileRead $1 $Unit
        ${If} ${Errors}
            FileClose $1
            ClearErrors
            StrCpy $Unit ""
            Return
        ${EndIf}
        StrCpy $Unit $Unit -2
        ${GetFileName} $Unit $2
        StrCpy $3 $2 1
        ${If} $Unit == "BIN\$2"
        ${OrIf} $Unit == "HLP\$2"
            ${If} $2 != ""
            ${AndIf} $3 != "."
                Return
            ${EndIf}
        ${EndIf}
    ${Loop}
FunctionEnd

; Renames $From to $To. A virus scanner can have a file open for a moment. Sets the error flag on failure.
Function ${un}move
    StrCpy $Tries ${ATTEMPTS}
    ${Do}
        ClearErrors
        Rename $From $To
        ${IfNot} ${Errors}
            Return
        ${EndIf}
        Sleep ${PAUSE}
        IntOp $Tries $Tries - 1
    ${LoopUntil} $Tries = 0
    SetErrors
FunctionEnd

; Moves the units of the list $0 that exist in the folder $4 to the folder $5 and counts them. Stops at a failure and
; sets the error flag.
Function ${un}moveUnits
    StrCpy $Count 0
    CreateDirectory "$5\BIN"
    CreateDirectory "$5\HLP"
    Call ${un}openList
    ${Do}
        Call ${un}readUnit
        ${If} $Unit == ""
            Return
        ${EndIf}
        ${If} ${FileExists} "$4\$Unit"
            StrCpy $From "$4\$Unit"
            StrCpy $To "$5\$Unit"
            Call ${un}move
            ${If} ${Errors}
                FileClose $1
                SetErrors
                Return
            ${EndIf}
            IntOp $Count $Count + 1
        ${EndIf}
    ${Loop}
FunctionEnd

; Removes a unit, but keeps one that an interrupted rollback has taken from PREVIOUS.
Function ${un}removeUnit
    ${If} ${FileExists} "${PREVIOUS}\${UNITS}"
    ${AndIfNot} ${FileExists} "${PREVIOUS}\$Unit"
        Rename "$INSTDIR\$Unit" "${PREVIOUS}\$Unit"
    ${ElseIf} ${FileExists} "$INSTDIR\$Unit\*"
        RMDir /r "$INSTDIR\$Unit"
    ${Else}
        Delete "$INSTDIR\$Unit"
    ${EndIf}
FunctionEnd

; Undoes an unfinished replacement, also one that was interrupted by a power failure. Ends if that is not possible.
Function ${un}restore
    StrCpy $0 "${OLD}\${UNITS}"
    Call ${un}openList
    ${Do}
        Call ${un}readUnit
        ${If} $Unit == ""
            ${ExitDo}
        ${EndIf}
        ${If} ${FileExists} "${OLD}\$Unit"
            Call ${un}removeUnit
            StrCpy $From "${OLD}\$Unit"
            StrCpy $To "$INSTDIR\$Unit"
            Call ${un}move
            ${If} ${Errors}
                !insertmacro Refuse ${EXIT_FILES} "$(NOT_RESTORED)"
            ${EndIf}
        ${EndIf}
    ${Loop}
    StrCpy $4 $Version
    StrCpy $0 "${LIST}"
    Call ${un}readVersion
    ${If} $4 != ${FOREIGN}
    ${AndIf} $4 != $Version
        Delete "${LIST}"
        Rename "${OLD}\${UNITS}" "${LIST}"
    ${EndIf}
    RMDir /r "${OLD}"
    ClearErrors
FunctionEnd

; Undoes a replacement that failed at the unit $7, and ends.
Function ${un}giveUp
    Call ${un}restore
    RMDir /r "${NEW}"
    StrCpy $Unit $7
    !insertmacro Refuse ${EXIT_FILES} "$(NOT_REPLACED)"
FunctionEnd

; Appends the units of the list $0 to the open list $6.
Function ${un}appendUnits
    Call ${un}openList
    ${Do}
        Call ${un}readUnit
        ${If} $Unit == ""
            Return
        ${EndIf}
        FileWrite $6 "$Unit$\r$\n"
    ${Loop}
FunctionEnd

; Replaces the present units by those of $Source. They become the previous version.
Function ${un}replace
    CreateDirectory "${OLD}"
    FileOpen $6 "${OLD}\${UNITS}" w
    StrCpy $0 "${LIST}"
    Call ${un}readVersion
    FileWrite $6 "$Version$\r$\n"
    Call ${un}appendUnits
    StrCpy $0 "$Source\${UNITS}"
    Call ${un}appendUnits
    FileClose $6

    StrCpy $0 "${OLD}\${UNITS}"
    StrCpy $4 $INSTDIR
    StrCpy $5 "${OLD}"
    Call ${un}moveUnits
    ${If} ${Errors}
        StrCpy $7 $Unit
        Call ${un}giveUp
    ${EndIf}
    StrCpy $7 $Count

    StrCpy $0 "$Source\${UNITS}"
    StrCpy $4 $Source
    StrCpy $5 $INSTDIR
    Call ${un}moveUnits
    ${If} ${Errors}
        StrCpy $7 $Unit
        StrCpy $4 $INSTDIR
        StrCpy $5 $Source
        Call ${un}moveUnits
        Call ${un}giveUp
    ${EndIf}

    Delete "${LIST}"
    Rename "$Source\${UNITS}" "${LIST}"
    ${If} $7 > 0
        RMDir /r "${PREVIOUS}"
        Rename "${OLD}" "${PREVIOUS}"
    ${Else}
        RMDir /r "${OLD}"
    ${EndIf}
    RMDir /r "${NEW}"
FunctionEnd

; The uninstaller is not a unit, because the one that restores the previous version cannot be moved.
Function ${un}unregister
    Delete "${LIST}"
    Delete "$INSTDIR\BIN\${UNINSTALLER}"
    SetRegView 64
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    SetShellVarContext all
    Delete "${SHORTCUT}"
FunctionEnd

; Shows the present version in the list of programs, and the program in the start menu.
Function ${un}register
    StrCpy $0 "${LIST}"
    Call ${un}readVersion
    ${If} $Version == ${FOREIGN}
        Call ${un}unregister
        Return
    ${EndIf}
    SetRegView 64
    WriteRegStr HKLM "${UNINSTALL_KEY}" DisplayName "$(PRODUCT)"
    WriteRegStr HKLM "${UNINSTALL_KEY}" DisplayVersion $Version
    WriteRegStr HKLM "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\BIN\KELT_COS.EXE"
    WriteRegStr HKLM "${UNINSTALL_KEY}" Publisher "${MAKER}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" InstallLocation $INSTDIR
    WriteRegStr HKLM "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\BIN\${UNINSTALLER}"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\BIN\${UNINSTALLER}" /S'
    WriteRegStr HKLM "${UNINSTALL_KEY}" ModifyPath '"$INSTDIR\BIN\${UNINSTALLER}" /ROLLBACK'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" NoRepair 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" EstimatedSize ${SIZE}
    SetShellVarContext all
    SetOutPath "$INSTDIR\BIN"
    CreateShortcut "${SHORTCUT}" "$INSTDIR\BIN\KELT_COS.EXE" "---------,1,0"
    SetOutPath "$INSTDIR"
FunctionEnd

!macroend
!insertmacro Common ""
!insertmacro Common "un."

; Programs of the suite write InstallKey to the view of their own kind.
!macro ReadInstallKey VIEW
    ${If} $Installed == ""
        SetRegView ${VIEW}
        ReadRegStr $Installed HKLM "${SUITE_KEY}" InstallKey
    ${EndIf}
!macroend

Function .onInit
    !insertmacro ReadInstallKey 64
    !insertmacro ReadInstallKey 32
    StrCpy $0 $Installed 1 -1
    ${If} $0 == "\"
        StrCpy $Installed $Installed -1
    ${EndIf}
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR $Installed
    ${EndIf}
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR "${USUAL_FOLDER}"
    ${EndIf}
    ${If} $Installed != ""
    ${AndIf} $Installed != $INSTDIR
        !insertmacro Refuse ${EXIT_FOLDER} "$(OTHER_FOLDER)"
    ${EndIf}
FunctionEnd

Function skipIfInstalled
    ${If} $Installed != ""
        Abort
    ${EndIf}
FunctionEnd

; Sets $7 to 1 if the program $Name is a unit of the present version, and to 0 otherwise.
Function isOurs
    StrCpy $7 0
    StrCpy $0 "${LIST}"
    Call openList
    ${Do}
        Call readUnit
        ${If} $Unit == "BIN\$Name"
            StrCpy $7 1
        ${EndIf}
    ${LoopUntil} $Unit == ""
FunctionEnd

; The suite can have a search program of its own. That one stays.
!macro KeepSearchOfSuite PROGRAM
    StrCpy $Name ${PROGRAM}
    Call isOurs
    ${If} $7 = 0
    ${AndIf} ${FileExists} "$INSTDIR\BIN\$Name"
        Delete "${NEW}\BIN\$Name"
    ${EndIf}
!macroend

; Appends the entries of a folder of NEW to the open list $6.
!macro ListUnits FOLDER
    FindFirst $0 $1 "${NEW}\${FOLDER}\*"
    ${DoUntil} $1 == ""
        ${If} $1 != "."
        ${AndIf} $1 != ".."
            FileWrite $6 "${FOLDER}\$1$\r$\n"
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
!macroend

; Extracts the units of this version into NEW.
Function extract
    RMDir /r "${NEW}"
    SetOutPath "${NEW}"
    File /r "${TREE}/programs/*"
    !insertmacro KeepSearchOfSuite KELT_ADD.EXE
    !insertmacro KeepSearchOfSuite KELT_LINE.EXE
    ClearErrors
    FileOpen $6 "${NEW}\${UNITS}" w
    ${If} ${Errors}
        !insertmacro Refuse ${EXIT_FILES} "$(NOT_WRITTEN)"
    ${EndIf}
    FileWrite $6 "${VERSION}$\r$\n"
    !insertmacro ListUnits BIN
    !insertmacro ListUnits HLP
    FileClose $6
    SetOutPath "$INSTDIR"  ; the current folder cannot be moved
FunctionEnd

; Copies the settings $From to $To with the install folder instead of the usual one. They are in the code page of the
; suite and not in that of the system, so that only the folder is converted. The first byte of the usual folder occurs
; only once in it.
Function copySettings
    FileOpen $1 $From r
    FileOpen $2 $To w
    StrLen $4 "${USUAL_FOLDER}"
    StrCpy $3 0  ; the length of the beginning that has been read
    ${Do}
        ClearErrors
        FileReadByte $1 $0
        ${If} ${Errors}
            ${ExitDo}
        ${EndIf}
        IntFmt $5 "%c" $0
        StrCpy $6 "${USUAL_FOLDER}" 1 $3
        ${If} $5 S== $6
            IntOp $3 $3 + 1
        ${Else}
            StrCpy $6 "${USUAL_FOLDER}" $3
            FileWrite $2 $6
            StrCpy $3 0
            StrCpy $6 "${USUAL_FOLDER}" 1
            ${If} $5 S== $6
                StrCpy $3 1
            ${Else}
                FileWriteByte $2 $0
            ${EndIf}
        ${EndIf}
        ${If} $3 = $4
            FileWrite $2 $INSTDIR
            StrCpy $3 0
        ${EndIf}
    ${Loop}
    FileClose $1
    FileClose $2
FunctionEnd

; Creates an office without a company. Its settings come last: an office that has them is complete.
Function createOffice
    InitPluginsDir
    SetOutPath "$PLUGINSDIR"
    File "${TREE}/office/SYS/system.ini"
    SetOutPath "$INSTDIR"
    SetOverwrite off
    File /r /x system.ini "${TREE}/office/*"
    SetOverwrite on
    StrCpy $From "$PLUGINSDIR\system.ini"
    StrCpy $To "$INSTDIR\SYS\system.new"
    Call copySettings
    Rename "$INSTDIR\SYS\system.new" "$INSTDIR\SYS\system.ini"
FunctionEnd

; A search program of this installer also needs its data in an office that has none.
!macro InstallSearchData PROGRAM DATA
    StrCpy $Name ${PROGRAM}
    Call isOurs
    ${If} $7 = 1
        SetOutPath "$INSTDIR\BIN\DAT"
        SetOverwrite off
        File "${TREE}/office/BIN/DAT/${DATA}"
        SetOverwrite on
        SetOutPath "$INSTDIR"
    ${EndIf}
!macroend

!macro Grant FOLDER RIGHTS
    nsExec::Exec 'icacls "$INSTDIR${FOLDER}" ${RIGHTS}'
    Pop $0
    ${If} $0 != 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(NO_RIGHTS)" /SD IDOK
    ${EndIf}
!macroend

; Lets users read the office and write only its data. The numbers are those of the system, administrators and users.
Function setRights
    !insertmacro Grant "" "/inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX"
    !insertmacro Grant "\MDB" "/grant *S-1-5-32-545:(OI)(CI)M"
    !insertmacro Grant "\IMG" "/grant *S-1-5-32-545:(OI)(CI)M"
    !insertmacro Grant "\TMP" "/grant *S-1-5-32-545:(OI)(CI)M"
    !insertmacro Grant "\LOG" "/grant *S-1-5-32-545:(OI)(CI)M"
FunctionEnd

Section
    AddSize ${SIZE}
    StrCpy $8 0  ; 1 if the folder is new
    ${IfNot} ${FileExists} "$INSTDIR\*"
        StrCpy $8 1
    ${EndIf}
    Call requireIdle
    Call restore
    Call extract
    StrCpy $Source "${NEW}"
    Call replace
    !insertmacro InstallSearchData KELT_ADD.EXE addresses.csv
    !insertmacro InstallSearchData KELT_LINE.EXE lines.csv
    ${IfNot} ${FileExists} "$INSTDIR\SYS\system.ini"
    ${AndIfNot} ${FileExists} "$INSTDIR\MDB\ORVESTATE.MDB"
        Call createOffice
    ${EndIf}
    ${If} $8 = 1
        Call setRights
    ${EndIf}
    ${If} $Installed == ""
        SetRegView 32
        WriteRegStr HKLM "${SUITE_KEY}" InstallKey $INSTDIR
    ${EndIf}
    WriteUninstaller "$INSTDIR\BIN\${UNINSTALLER}"
    Call register
SectionEnd

Function un.rollBack
    StrCpy $0 "${PREVIOUS}\${UNITS}"
    ${IfNot} ${FileExists} $0
        !insertmacro Refuse ${EXIT_NO_PREVIOUS} "$(NO_PREVIOUS)"
    ${EndIf}
    Call un.readVersion
    MessageBox MB_OKCANCEL|MB_ICONQUESTION "$(ROLL_BACK)" /SD IDOK IDOK confirmed
    Return
confirmed:
    Call un.requireIdle
    Call un.restore
    StrCpy $Source "${PREVIOUS}"
    Call un.replace
    Call un.register
    MessageBox MB_OK|MB_ICONINFORMATION "$(ROLLED_BACK)" /SD IDOK
FunctionEnd

; The uninstaller is in BIN. With /ROLLBACK it restores the previous version instead of removing the present one.
Function un.onInit
    GetFullPathName $INSTDIR "$INSTDIR\.."
    SetOutPath "$INSTDIR"
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/ROLLBACK" $1
    ${IfNot} ${Errors}
        SetErrorLevel 0
        Call un.rollBack
        Quit
    ${EndIf}
FunctionEnd

; Removes the programs, and keeps the office and InstallKey, which the suite uses.
Section un.
    Call un.requireIdle
    Call un.restore
    StrCpy $0 "${LIST}"
    Call un.openList
    ${Do}
        Call un.readUnit
        ${If} $Unit == ""
            ${ExitDo}
        ${EndIf}
        RMDir /r "$INSTDIR\$Unit"
        Delete "$INSTDIR\$Unit"
    ${Loop}
    StrCpy $0 "${PREVIOUS}\${UNITS}"
    Call un.readVersion
    ${If} $Version != ${FOREIGN}
        RMDir /r "${PREVIOUS}"
    ${EndIf}
    RMDir /r "${NEW}"
    Call un.unregister
SectionEnd
