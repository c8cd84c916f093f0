# Installs the parts of the installer for Windows that are not built: the manual, and an office without a company.

find_program(SQLITE3 sqlite3 REQUIRED)
set(empty_store ${CMAKE_BINARY_DIR}/generated/ORVESTATE.MDB)
set(statements ${CMAKE_SOURCE_DIR}/sample/sql/schema.sql ${CMAKE_SOURCE_DIR}/sample/sql/masters.sql)
list(TRANSFORM statements REPLACE "(.+)" ".read '\\1'" OUTPUT_VARIABLE commands)
add_custom_command(OUTPUT ${empty_store} DEPENDS ${statements} VERBATIM
                   COMMAND ${CMAKE_COMMAND} -E rm -f ${empty_store}
                   COMMAND ${SQLITE3} -bail ${empty_store} ${commands})
add_custom_target(empty_store ALL DEPENDS ${empty_store})

install(DIRECTORY docs/ja/manual docs/pictures DESTINATION programs/HLP)
install(FILES packaging/windows/licences.txt DESTINATION programs/HLP/licences)

install(DIRECTORY sample/C/ORV/ DESTINATION office
        PATTERN .gitkeep EXCLUDE PATTERN *.jpg EXCLUDE PATTERN KELT_MENU.EXE EXCLUDE)
install(PROGRAMS $<TARGET_FILE:suite_menu> DESTINATION office/BIN)
install(DIRECTORY sample/search/ DESTINATION office/BIN/DAT)
install(FILES ${empty_store} DESTINATION office/MDB)
