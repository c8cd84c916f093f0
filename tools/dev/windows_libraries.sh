# Builds the libraries of the Windows program from Debian's own sources. Each is kept in the user's cache folder, by its
# version and the way it is built.

WINDOWS_CACHE="${XDG_CACHE_HOME:-$HOME/.cache}/orv-windows"
WINDOWS_HOST=x86_64-w64-mingw32
WINDOWS_CC=$WINDOWS_HOST-gcc-posix
WINDOWS_JOBS="${ORV_JOBS:-$(nproc)}"
WINDOWS_TOOLCHAIN="$PWD/cmake/windows.cmake"

# A library, and the Debian package for Linux that has the version to use.
declare -A WINDOWS_VERSION_OF=(
    [gtest]=googletest [sqlite]=libsqlite3-dev
    [jpeg]=libjpeg62-turbo-dev [png]=libpng-dev [tiff]=libtiff-dev [gif]=libgif-dev
    [curl]=libcurl4-openssl-dev [json]=nlohmann-json3-dev [cli]=libcli11-dev [archive]=libarchive-dev
    [qt]=qt6-base-dev [openssl]=libssl-dev [pq]=libpq-dev [http]=libcpp-httplib-dev
)
# A library that another one contains.
declare -A WINDOWS_PART_OF=([pq]=openssl [http]=openssl)
WINDOWS_CORE_LIBRARIES=(gtest sqlite json cli archive)
WINDOWS_ALL_LIBRARIES=("${WINDOWS_CORE_LIBRARIES[@]}" jpeg png tiff gif curl openssl http pq qt)

# Each build_NAME SOURCE BUILD PREFIX builds one library in the empty folder BUILD and installs it.

withCMake() {
    local source="$1" build="$2" prefix="$3"
    shift 3
    cmake -G Ninja -S "$source" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$WINDOWS_TOOLCHAIN" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF \
        -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache "$@"
    cmake --build "$build" -j "$WINDOWS_JOBS" --target install
}

withZlib() {
    withCMake "$@" -DZLIB_LIBRARY=/usr/$WINDOWS_HOST/lib/libz.a -DZLIB_INCLUDE_DIR=/usr/$WINDOWS_HOST/include
}

# Without the library's own build: a static library of the given files, compiled with the given options.
archive() {
    local prefix="$1" name="$2" source="$3" options="$4"
    shift 4
    mkdir -p "$prefix/lib"
    local file objects=()
    for file in "$@"; do
        ccache $WINDOWS_CC -O2 $options -c "$source/$file.c" -o "$file.o"
        objects+=("$file.o")
    done
    $WINDOWS_HOST-ar rcs "$prefix/lib/lib$name.a" "${objects[@]}"
}

build_gtest() { withCMake "$1" "$2" "$3" -Dgtest_force_shared_crt=ON; }

build_jpeg() { withCMake "$1" "$2" "$3" -DENABLE_SHARED=OFF -DWITH_TURBOJPEG=OFF; }

build_png() { withZlib "$1" "$2" "$3" -DPNG_SHARED=OFF -DPNG_TESTS=OFF; }

build_tiff() {
    local part off=()
    for part in tiff-tools tiff-tests tiff-contrib tiff-docs lzma zstd webp jbig lerc libdeflate; do
        off+=("-D$part=OFF")
    done
    withZlib "$1" "$2" "$3" "${off[@]}"
}

build_gif() {
    archive "$3" gif "$1" "" dgif_lib egif_lib gifalloc gif_err gif_font gif_hash openbsd-reallocarray quantize
    install -D -m 644 "$1/gif_lib.h" "$3/include/gif_lib.h"
}

build_sqlite() {
    "$1/configure" --disable-tcl
    make sqlite3.c
    archive "$3" sqlite3 . "-DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_COLUMN_METADATA" sqlite3
    install -D -m 644 sqlite3.h "$3/include/sqlite3.h"
}

# Certificates are checked against those of Windows.
build_curl() {
    local part off=()
    for part in CURL_USE_LIBSSH2 CURL_USE_LIBPSL CURL_BROTLI CURL_ZSTD CURL_ZLIB USE_NGHTTP2 USE_LIBIDN2 BUILD_CURL_EXE; do
        off+=("-D$part=OFF")
    done
    withCMake "$1" "$2" "$3" "${off[@]}" -DBUILD_SHARED_LIBS=ON -DCURL_USE_SCHANNEL=ON -DHTTP_ONLY=ON
}

# Ignores settings of OpenSSL on the machine, which could name other libraries to load.
build_openssl() {
    "$1/Configure" mingw64 --cross-compile-prefix=$WINDOWS_HOST- CC=gcc-posix --prefix="$3" --libdir=lib \
        --openssldir="C:/Program Files/Common Files/SSL" no-shared no-tests no-engine no-module no-autoload-config
    make -s -j "$WINDOWS_JOBS" build_libs
    make -s install_dev
}

build_pq() {
    local ssl; ssl=$(windowsLibrary openssl)
    "$1/configure" --host=$WINDOWS_HOST CC=$WINDOWS_CC --prefix="$3" --without-readline --without-zlib --disable-nls \
        --with-ssl=openssl CPPFLAGS="-I$ssl/include" LDFLAGS="-L$ssl/lib" LIBS="-lcrypt32 -lws2_32 -lgdi32"
    make -s -j "$WINDOWS_JOBS" -C src/interfaces/libpq all
    make -s -C src/interfaces/libpq install
    make -s -C src/include install
}

build_json() { withCMake "$1" "$2" "$3" -DJSON_BuildTests=OFF; }

# With TLS, for the tests.
build_http() {
    withCMake "$1" "$2" "$3" -DHTTPLIB_COMPILE=ON -DHTTPLIB_REQUIRE_OPENSSL=ON \
        -DHTTPLIB_USE_ZLIB_IF_AVAILABLE=OFF -DHTTPLIB_USE_BROTLI_IF_AVAILABLE=OFF
}

# Only the parts that write a compressed tar archive. CMake cannot run the program that would find ZLIB_WINAPI.
build_archive() {
    local part off=()
    for part in TEST TAR CPIO CAT OPENSSL LZMA ZSTD BZip2 LIBXML2 EXPAT LZ4 LZO LIBB2 ICONV ACL XATTR CNG WERROR PCREPOSIX; do
        off+=("-DENABLE_$part=OFF")
    done
    withZlib "$1" "$2" "$3" "${off[@]}" -DZLIB_WINAPI=OFF -DZLIB_WINAPI_WITH_LIB=/usr/$WINDOWS_HOST/lib/libz.a
    mv "$3/lib/libarchive_static.a" "$3/lib/libarchive.a"
    rm "$3/lib/libarchive.dll.a"
}

build_cli() { withCMake "$1" "$2" "$3" -DCLI11_BUILD_TESTS=OFF -DCLI11_BUILD_EXAMPLES=OFF -DCLI11_BUILD_DOCS=OFF; }

# Without a feature that the program does not use. Debian's source has no files for tablets. Without direct2d the plug-in
# for the screen does not link.
build_qt() {
    local feature settings=()
    for feature in dbus network sql xml concurrent printsupport vulkan pkg_config glib icu zstd system_zlib system_png system_jpeg \
        system_freetype system_harfbuzz system_pcre2 system_doubleconversion pdf tabletevent graphicsview textodfwriter \
        textmarkdownwriter style_windowsvista wizard mdiarea dockwidget sessionmanager systemtrayicon; do
        settings+=("-DFEATURE_$feature=OFF")
    done
    withCMake "$1" "$2" "$3" "${settings[@]}" -DINPUT_opengl=no -DFEATURE_testlib=ON -DBUILD_SHARED_LIBS=ON \
        -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_WHEN_CROSSCOMPILING=OFF
}

# The name and the version of the source of a library.
windowsSource() { dpkg-query -W -f='${source:Package} ${source:Version}' "${WINDOWS_VERSION_OF[$1]}"; }

windowsLibrary() {
    local key
    local part="${WINDOWS_PART_OF[$1]:-}"
    key=$({ windowsSource "$1"; declare -f "build_$1" withCMake withZlib archive; $WINDOWS_CC --version
        [ -z "$part" ] || windowsLibrary "$part"; } | sha256sum)
    echo "$WINDOWS_CACHE/$1-${key:0:16}"
}

# Runs an apt program with lists of sources of its own, so that the machine's settings remain.
withSourceLists() {
    local apt="$WINDOWS_CACHE/apt" program="$1"
    shift
    mkdir -p "$apt/lists/partial" "$apt/archives/partial"
    "$program" -qq -o Dir::Etc::sourcelist="$apt/sources.list" -o Dir::Etc::sourceparts=/dev/null \
        -o Dir::State::lists="$apt/lists" -o Dir::Cache="$apt" -o APT::Sandbox::User=root "$@"
}

updateSourceLists() {
    mkdir -p "$WINDOWS_CACHE/apt"
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' |
        sort -u >"$WINDOWS_CACHE/apt/sources.list"
    withSourceLists apt-get update
}

# Prints the version of the machine's own package, then all that Debian has, the newest first.
sourceVersions() {
    echo "$2"
    withSourceLists apt-cache showsrc "$1" | sed -n 's/^Version: //p' | sort -rV
}

# Unpacks a source, with Debian's changes, as the folder `source` in the current one. Debian does not keep each version of
# a library with security updates, so that of the machine can be missing.
fetchSource() {
    local name="$1" version
    updateSourceLists
    for version in $(sourceVersions "$1" "$2"); do
        if withSourceLists apt-get source --download-only "$name=$version"; then
            dpkg-source --no-check -x ./*.dsc source
            return
        fi
        find . -maxdepth 1 -type f -delete
    done
    return 1
}

# Builds a library unless it is in the cache. An interrupted build leaves nothing that passes for a finished one.
needWindowsLibrary() {
    local name="$1" place log
    place=$(windowsLibrary "$name")
    [ -d "$place" ] && return
    local work="$place.new"
    log="$WINDOWS_CACHE/$name.log"
    echo "Building $name for Windows (log: $log)"
    rm -rf "$work"
    mkdir -p "$work/build"
    # In the background a failing command ends the subshell; in a condition it would not.
    (
        cd "$work"
        fetchSource $(windowsSource "$name")
        cd build
        "build_$name" "$work/source" "$work/build" "$work/prefix"
    ) >"$log" 2>&1 &
    wait $! || { tail -n 30 "$log" >&2; exit 1; }
    mv "$work/prefix" "$place"
    rm -rf "$work"
}

# Builds those that are missing, and names all to the toolchain. One can use those before it.
needWindowsLibraries() {
    local name
    export ORV_WINDOWS_LIBRARIES=""
    for name in "$@"; do
        needWindowsLibrary "$name"
        ORV_WINDOWS_LIBRARIES+="${ORV_WINDOWS_LIBRARIES:+;}$(windowsLibrary "$name")"
    done
}
