# What goes onto a machine: the tool of who keeps the stores, and a whole office without a company, of which working ones are
# copies. `cmake --install build/product` takes what has been built and builds nothing.

include(GNUInstallDirs)
set(office ${CMAKE_INSTALL_DATADIR}/orv/office)

install(TARGETS store_tool)
install(FILES docs/orv_store.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY sample/sql DESTINATION ${CMAKE_INSTALL_DATADIR}/orv
        FILES_MATCHING PATTERN *.sql PATTERN companies.sql EXCLUDE PATTERN locks.sql EXCLUDE)
install(DIRECTORY sample/C DESTINATION ${office} USE_SOURCE_PERMISSIONS
        PATTERN .gitkeep EXCLUDE PATTERN *.jpg EXCLUDE)
install(FILES sample/registry.txt DESTINATION ${office})
install(DIRECTORY sample/search/ DESTINATION ${office}/C/ORV/BIN/DAT)
install(PROGRAMS $<TARGET_FILE:company_information> DESTINATION ${office}/C/ORV/BIN RENAME KELT_COS.EXE)
install(TARGETS address_search line_search DESTINATION ${office}/C/ORV/BIN)
