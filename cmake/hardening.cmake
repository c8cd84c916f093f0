# Options that make a fault of the program hard to exploit, for the optimised build. The other builds have the
# sanitizers or are for a debugger.

add_compile_options("$<$<CONFIG:Release>:-fstack-protector-strong;-fcf-protection;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
if(WIN32)
  # Random addresses and data that cannot be executed are the default there.
  add_link_options("$<$<CONFIG:Release>:-fstack-protector-strong>")
else()
  add_link_options("$<$<CONFIG:Release>:-pie;-Wl,-z,relro,-z,now,-z,noexecstack>")
endif()

# Deletes a program of that build that lacks any of them. Programs of Windows have another form, which is not checked.
function(orv_require_hardening program)
  if(WIN32)
    return()
  endif()
  add_custom_command(TARGET ${program} POST_BUILD VERBATIM
                     COMMAND "$<IF:$<CONFIG:Release>,${CMAKE_SOURCE_DIR}/tools/checks/hardening.sh,true>"
                             "$<TARGET_FILE:${program}>")
endfunction()
