; The installer's own texts. Those of its pages are NSIS's.

!define PRODUCT_ENGLISH "Company Information"
!define PRODUCT_JAPANESE "お客様情報設定"

!macro Text NAME ENGLISH JAPANESE
    LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
    LangString ${NAME} ${LANG_JAPANESE} "${JAPANESE}"
!macroend

!macro Texts
    !insertmacro Text PRODUCT "${PRODUCT_ENGLISH}" "${PRODUCT_JAPANESE}"
    !insertmacro Text RUNNING \
        "$Name is running on this computer or on another one. Close it and start again. Nothing has been changed." \
        "$Name が、このコンピューターかほかのコンピューターで動いています。終了してからやり直してください。何も変更していません。"
    !insertmacro Text OTHER_FOLDER \
        "The suite is installed in $Installed (InstallKey in the registry). The program must be in the same folder." \
        "インストール先は $Installed です（レジストリの InstallKey）。プログラムは同じフォルダーに入れてください。"
    !insertmacro Text NOT_WRITTEN \
        "The files cannot be written to $INSTDIR\BKUP. Check the free space and your permissions. Nothing has been changed." \
        "$INSTDIR\BKUP にファイルを書き込めません。空き容量とアクセス権を確かめてください。何も変更していません。"
    !insertmacro Text NOT_REPLACED \
        "Another program has a file of $INSTDIR open: $Unit. The present version remains. Close the other program and start again." \
        "ほかのプログラムが $INSTDIR のファイルを開いています（$Unit）。今の版のままです。そのプログラムを終了してからやり直してください。"
    !insertmacro Text NOT_RESTORED \
        "An interrupted update cannot be undone, because another program has a file open: $Unit. Restart Windows and start again." \
        "中断した更新を元に戻せません。ほかのプログラムがファイルを開いています（$Unit）。Windows を再起動してからやり直してください。"
    !insertmacro Text NO_RIGHTS \
        "The permissions of $INSTDIR could not be set. Check who can write to the folder." \
        "$INSTDIR のアクセス権を設定できませんでした。フォルダーに書き込めるユーザーを確かめてください。"
    !insertmacro Text NO_PREVIOUS \
        "There is no previous version in $INSTDIR\BKUP\programs." \
        "$INSTDIR\BKUP\programs に前の版がありません。"
    !insertmacro Text ROLL_BACK \
        "Replace the present version by the previous one ($Version)? The data stays." \
        "今の版を前の版（$Version）に置き換えますか？データはそのままです。"
    !insertmacro Text ROLLED_BACK \
        "The previous version has been restored ($Version)." \
        "前の版に戻しました（$Version）。"
!macroend
