# The libraries of the program, and the modules that use them.

find_package(SQLite3 REQUIRED)
find_package(PostgreSQL REQUIRED)
find_package(CURL REQUIRED)
find_package(JPEG REQUIRED)
find_package(Fontconfig REQUIRED)
find_package(PNG REQUIRED)
find_package(TIFF REQUIRED COMPONENTS CXX)
find_package(GIF REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)
find_package(Qt6 REQUIRED COMPONENTS Core Gui Widgets Network)

orv_module_uses(orv_adapters_sqlite PRIVATE SQLite::SQLite3)
# libpq and libcurl are loaded at first use.
orv_module_uses(orv_adapters_postgres PRIVATE ${CMAKE_DL_LIBS} Threads::Threads)
target_include_directories(orv_adapters_postgres SYSTEM PRIVATE ${PostgreSQL_INCLUDE_DIRS})
orv_module_uses(orv_adapters_http PRIVATE ${CMAKE_DL_LIBS} nlohmann_json::nlohmann_json)
target_include_directories(orv_adapters_http SYSTEM PRIVATE ${CURL_INCLUDE_DIRS})
orv_module_uses(orv_adapters_pictures PRIVATE JPEG::JPEG PNG::PNG TIFF::CXX GIF::GIF Qt6::Gui)
# The filter's loops benefit from the vector units, which -O2 hardly uses.
target_compile_options(orv_adapters_pictures PRIVATE $<$<CONFIG:Release>:-O3>)
orv_module_uses(orv_adapters_qt_views PUBLIC Qt6::Widgets PRIVATE PkgConfig::XCB)
orv_module_uses(orv_adapters_qt_manual PUBLIC Qt6::Widgets)
orv_module_uses(orv_adapters_qt PUBLIC Qt6::Widgets PRIVATE Fontconfig::Fontconfig Threads::Threads)
