# Takes a picture of each page and dialog of the sample company, and makes a moving one of a save.

shots() {
    source tools/dev/run.sh
    local folder="${1:?./dev shots DIR}"
    buildPreset dev company_information searches suite_server ui_driver
    OFFICE=build/shots-office
    withServer
    tools/make_office.sh "$OFFICE" build/dev/src/app/company_information "$(cat "$OFFICE-server/port")"
    build/dev/tools/ui_driver/ui_driver shots "$OFFICE" "$folder"
    build/dev/tools/ui_driver/ui_driver saving "$OFFICE" "$folder/saving"
    convert -delay 180 "$folder"/saving/?.png -trim +repage -layers optimize "$folder/saving.gif"
}
