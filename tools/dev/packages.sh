# Installs the packages that a bare Debian 12 lacks, as root or through sudo. On other systems, lists them and stops.

PACKAGES=(
    g++ cmake ninja-build ccache pkg-config python3
    qt6-base-dev libsqlite3-dev libpq-dev mdbtools-dev libcurl4-openssl-dev libfontconfig-dev libxcb1-dev
    libjpeg62-turbo-dev libpng-dev libtiff-dev libgif-dev libarchive-dev zlib1g-dev
    libcpp-httplib-dev libcli11-dev libssl-dev nlohmann-json3-dev libgtest-dev libgmock-dev
    postgresql pgbouncer openssl
    fonts-noto-cjk qt6-translations-l10n mate-backgrounds
    at-spi2-core gir1.2-atspi-2.0 python3-gi
    fcitx5 fcitx5-mozc fcitx5-frontend-qt6 ibus ibus-mozc dbus-daemon x11-xkb-utils
    libxtst-dev libxdamage-dev
    sqlite3 xvfb openbox xdotool xclip x11-utils imagemagick curl
    clang-format clang-tidy
    lintian debootstrap
)

missingPackages() {
    local package
    for package in "${PACKAGES[@]}"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

needPackages() {
    local missing asRoot=()
    mapfile -t missing < <(missingPackages)
    [ ${#missing[@]} -eq 0 ] && return
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            echo "These Debian packages are missing; install them and start again:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            exit 1
        fi
        asRoot=(sudo)
    fi
    echo "Installing ${#missing[@]} packages: ${missing[*]}"
    "${asRoot[@]}" apt-get update -qq
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
}
