# What goes onto a machine: the tool of who keeps the stores, and a whole office without a company, of which working ones are
# copies. `cmake --install build/product` takes what has been built and builds nothing.

include(GNUInstallDirs)
set(office ${CMAKE_INSTALL_DATADIR}/orv/office)

# The same rights whatever the umask of whoever installs, and whatever those of the source are.
set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(enterable ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)
set(explicit FILE_PERMISSIONS ${readable} DIRECTORY_PERMISSIONS ${enterable})

# Folders that are made on the way would take the umask; those that are there already stay as they are.
install(CODE "
foreach(folder ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_DATADIR} ${CMAKE_INSTALL_MANDIR} ${CMAKE_INSTALL_MANDIR}/man1
               ${CMAKE_INSTALL_DATADIR}/orv ${office})
  set(place \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\${folder}\")
  if(NOT EXISTS \"\${place}\")
    file(MAKE_DIRECTORY \"\${place}\")
    file(CHMOD \"\${place}\" DIRECTORY_PERMISSIONS ${enterable})
  endif()
endforeach()")
install(TARGETS store_tool)
install(FILES docs/orv_store.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY sample/sql DESTINATION ${CMAKE_INSTALL_DATADIR}/orv ${explicit}
        FILES_MATCHING PATTERN *.sql PATTERN companies.sql EXCLUDE PATTERN locks.sql EXCLUDE)
install(DIRECTORY sample/C DESTINATION ${office} ${explicit}
        PATTERN .gitkeep EXCLUDE PATTERN *.jpg EXCLUDE)
install(FILES sample/registry.txt DESTINATION ${office})
install(DIRECTORY sample/search/ DESTINATION ${office}/C/ORV/BIN/DAT ${explicit})
install(PROGRAMS $<TARGET_FILE:company_information> DESTINATION ${office}/C/ORV/BIN RENAME KELT_COS.EXE)
install(TARGETS address_search line_search DESTINATION ${office}/C/ORV/BIN)
