# Tests that need the libraries of the program. Most of them also need its tools.

find_package(Qt6 REQUIRED COMPONENTS Test)

# Writes the pictures of the tests.
add_library(made_pictures STATIC support/made_pictures.cpp)
target_include_directories(made_pictures PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(made_pictures PRIVATE orv_options PUBLIC sample_folder orv_adapters_pictures JPEG::JPEG TIFF::TIFF Qt6::Gui)

orv_add_tests(sqlite_tests adapters/sqlite orv_adapters_sqlite GTest::gtest_main)
orv_add_tests(pictures_tests adapters/pictures made_pictures orv_adapters_system GTest::gtest_main)
orv_add_tests(qt_tests adapters/qt orv_adapters_qt orv_adapters_qt_manual orv_adapters_system orv_adapters_text
              orv_adapters_pictures Qt6::Test)
orv_add_tests(window_tests app orv_app orv_adapters_qt orv_adapters_system
              orv_adapters_text Qt6::Test)
target_sources(window_tests PRIVATE adapters/qt/main.cpp)
if(TARGET suite_server_library)
  orv_add_tests(http_tests adapters/http orv_app orv_adapters_http orv_adapters_system suite_server_library
                nlohmann_json::nlohmann_json GTest::gtest_main)
  if(WIN32)
    orv_copy_library(http_tests $<TARGET_FILE:CURL::libcurl> http_tests)
  endif()
endif()
if(NOT ORV_TOOLS)
  return()
endif()

orv_add_one_test(postgres_tests adapters/postgres private_server orv_office_store GTest::gtest_main)
# Attacks by another user, a row of the store, a foreign file, a server or the network.
orv_add_one_test(security_tests security private_server suite_server_library jet_reading orv_app orv_office_store
                 orv_adapters_http orv_adapters_system orv_adapters_text made_pictures GTest::gtest_main)
target_sources(security_tests PRIVATE programs/store/tool_system_posix.cpp)
add_library(hostile_key MODULE hostile_key/hostile_key.cpp)
target_compile_definitions(security_tests PRIVATE INSTALL="${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR} --prefix"
                                                  STORE_TOOL="$<TARGET_FILE:store_tool>"
                                                  PROGRAM="$<TARGET_FILE:company_information>"
                                                  HOSTILE_KEY="$<TARGET_FILE:hostile_key>"
                                                  JET_WRITER="${CMAKE_CURRENT_SOURCE_DIR}/programs/store/jet_file.py")
add_dependencies(security_tests company_information store_tool address_search line_search packed_texts hostile_key)
orv_add_tests(audit_tests tools bench_audit GTest::gtest_main)
orv_add_tests(end_to_end_tests end_to_end orv_ui_driver private_server GTest::gtest_main)
orv_add_tests(input_method_tests input_method orv_ui_driver GTest::gtest_main)
orv_add_tests(screen_reader_tests screen_reader orv_ui_driver orv_version GTest::gtest_main)
target_compile_definitions(screen_reader_tests PRIVATE SCREEN_READER="${CMAKE_CURRENT_SOURCE_DIR}/screen_reader")

# Compares the pictures of the documents with the program. Skipped where letters look different.
add_test(NAME pictures COMMAND ${CMAKE_SOURCE_DIR}/tools/checks/pictures.sh $<TARGET_FILE:ui_driver>
                               $<TARGET_FILE:company_information>)
set_tests_properties(pictures PROPERTIES TIMEOUT 1800 LABELS pictures SKIP_RETURN_CODE 77)

# A part of `./dev crash`, which tests every call.
foreach(share "file 60" "server 60" "answers 1")
  separate_arguments(arguments UNIX_COMMAND ${share})
  list(GET arguments 0 part)
  add_test(NAME crash_${part} COMMAND ${CMAKE_SOURCE_DIR}/tools/crash_test/crash_test.sh $<TARGET_FILE:crash_test> ${arguments})
  set_tests_properties(crash_${part} PROPERTIES TIMEOUT 1800 LABELS crash_test)
endforeach()

add_subdirectory(fuzz)

# Every test program except those that work the real program on a screen.
add_custom_target(unit_tests)
get_property(programs DIRECTORY PROPERTY BUILDSYSTEM_TARGETS)
list(FILTER programs INCLUDE REGEX "_tests$")
list(REMOVE_ITEM programs unit_tests end_to_end_tests input_method_tests screen_reader_tests)
add_dependencies(unit_tests ${programs})
if(NOT ORV_FUZZ)
  add_dependencies(unit_tests fuzz_tests)
endif()
