# Installs the store tool, orv-office and an office without a company, from which orv-office makes working offices.
# `cmake --install build/product` installs the existing build and builds nothing.

include(GNUInstallDirs)
set(office lib/orv/office)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/company-information)

# Sets the same permissions whatever the umask and the permissions of the source are.
set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
set(enterable ${readable} OWNER_EXECUTE GROUP_EXECUTE WORLD_EXECUTE)
set(explicit FILE_PERMISSIONS ${readable} DIRECTORY_PERMISSIONS ${enterable})

# New parent folders would get the umask's permissions; existing ones keep theirs.
install(CODE "
foreach(folder ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_DATADIR} ${CMAKE_INSTALL_DATADIR}/doc ${CMAKE_INSTALL_DATADIR}/orv
               ${CMAKE_INSTALL_MANDIR} ${CMAKE_INSTALL_MANDIR}/man1 ${CMAKE_INSTALL_MANDIR}/ja ${CMAKE_INSTALL_MANDIR}/ja/man1
               lib lib/systemd lib/systemd/system lib/orv ${office} ${documents})
  set(place \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\${folder}\")
  if(NOT EXISTS \"\${place}\")
    file(MAKE_DIRECTORY \"\${place}\")
    file(CHMOD \"\${place}\" DIRECTORY_PERMISSIONS ${enterable})
  endif()
endforeach()")

# Compresses a text at build time, without a time stamp, and installs it.
set(packed_texts "")
function(orv_install_packed source folder name)
  set(packed ${CMAKE_BINARY_DIR}/packed/${folder}/${name}.gz)
  get_filename_component(packed_folder ${packed} DIRECTORY)
  file(MAKE_DIRECTORY ${packed_folder})
  add_custom_command(OUTPUT ${packed} DEPENDS ${source} COMMAND gzip -9nc ${source} > ${packed} VERBATIM)
  set(packed_texts ${packed_texts} ${packed} PARENT_SCOPE)
  install(FILES ${packed} DESTINATION ${folder})
endfunction()

foreach(page orv_store.1 orv-office.1)
  orv_install_packed(${CMAKE_SOURCE_DIR}/docs/man/${page} ${CMAKE_INSTALL_MANDIR}/man1 ${page})
  orv_install_packed(${CMAKE_SOURCE_DIR}/docs/man/ja/${page} ${CMAKE_INSTALL_MANDIR}/ja/man1 ${page})
endforeach()
orv_install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${documents} changelog)
include(cmake/package.cmake)
add_custom_target(packed_texts ALL DEPENDS ${packed_texts})

install(TARGETS store_tool)
install(PROGRAMS packaging/orv-office DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES packaging/orv-nightly@.service packaging/orv-nightly@.timer DESTINATION lib/systemd/system)
install(DIRECTORY sample/sql DESTINATION ${CMAKE_INSTALL_DATADIR}/orv ${explicit}
        FILES_MATCHING PATTERN *.sql PATTERN companies.sql EXCLUDE PATTERN locks.sql EXCLUDE)

install(DIRECTORY sample/C DESTINATION ${office} ${explicit}
        PATTERN .gitkeep EXCLUDE PATTERN *.jpg EXCLUDE PATTERN KELT_MENU.EXE EXCLUDE)
install(PROGRAMS sample/C/ORV/BIN/KELT_MENU.EXE DESTINATION ${office}/C/ORV/BIN)
install(DIRECTORY docs/ja/manual docs/pictures DESTINATION ${office}/C/ORV/HLP ${explicit})
install(FILES sample/registry.txt DESTINATION ${office})
install(DIRECTORY sample/search/ DESTINATION ${office}/C/ORV/BIN/DAT ${explicit})
install(PROGRAMS $<TARGET_FILE:company_information> DESTINATION ${office}/C/ORV/BIN RENAME KELT_COS.EXE)
install(TARGETS address_search line_search DESTINATION ${office}/C/ORV/BIN)

install(FILES packaging/copyright DESTINATION ${documents})
install(DIRECTORY docs/ DESTINATION ${documents} ${explicit} FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN man EXCLUDE)
