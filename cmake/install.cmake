# Installs the store tool and an office without a company, which is copied for each working office. `cmake --install
# build/product` installs the existing build and builds nothing.

include(GNUInstallDirs)
set(office ${CMAKE_INSTALL_DATADIR}/orv/office)

# Sets the same permissions whatever the umask and the permissions of the source are.
set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(enterable ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)
set(explicit FILE_PERMISSIONS ${readable} DIRECTORY_PERMISSIONS ${enterable})

# New parent folders would get the umask's permissions; existing ones keep theirs.
install(CODE "
foreach(folder ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_DATADIR} ${CMAKE_INSTALL_MANDIR} ${CMAKE_INSTALL_MANDIR}/man1
               lib lib/systemd lib/systemd/system ${CMAKE_INSTALL_DATADIR}/orv ${office})
  set(place \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\${folder}\")
  if(NOT EXISTS \"\${place}\")
    file(MAKE_DIRECTORY \"\${place}\")
    file(CHMOD \"\${place}\" DIRECTORY_PERMISSIONS ${enterable})
  endif()
endforeach()")
install(TARGETS store_tool)
install(FILES packaging/orv-nightly@.service packaging/orv-nightly@.timer DESTINATION lib/systemd/system)
install(FILES docs/orv_store.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY sample/sql DESTINATION ${CMAKE_INSTALL_DATADIR}/orv ${explicit}
        FILES_MATCHING PATTERN *.sql PATTERN companies.sql EXCLUDE PATTERN locks.sql EXCLUDE)
install(DIRECTORY sample/C DESTINATION ${office} ${explicit}
        PATTERN .gitkeep EXCLUDE PATTERN *.jpg EXCLUDE)
install(DIRECTORY docs/ja/manual docs/pictures DESTINATION ${office}/C/ORV/HLP ${explicit})
install(FILES sample/registry.txt DESTINATION ${office})
install(DIRECTORY sample/search/ DESTINATION ${office}/C/ORV/BIN/DAT ${explicit})
install(PROGRAMS $<TARGET_FILE:company_information> DESTINATION ${office}/C/ORV/BIN RENAME KELT_COS.EXE)
install(TARGETS address_search line_search DESTINATION ${office}/C/ORV/BIN)
