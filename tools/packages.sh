# The Debian packages that the project needs, and a function that installs the missing ones. Sourced.

# Building the DLL and the sample hosts, and running them under Wine without a display.
run_packages=(
    cmake ninja-build
    g++ g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix
    wine wine64
    libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 libxxf86vm1  # Wine opens these
    libcups2 libgnutls30                                                                          # at run time
    xvfb openbox x11-utils
    fonts-liberation locales
    python3
)
# The tests on top: GoogleTest as source, clang with libFuzzer, the sanitizers and readable traces.
test_packages=(
    googletest
    clang libclang-rt-14-dev llvm-14
    lld                        # a program linked as the Microsoft linker would
    rustc libstd-rust-dev-windows golang-go mono-mcs fp-compiler  # hosts in other languages
    valgrind                   # counts the instructions of the engine
    pkgconf                    # a program that finds the installed control by pkg-config
)

as_root()
{
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "root or sudo is needed for: $*" >&2
        return 1
    fi
}

missing_packages()
{
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || echo "$package"
    done
}

apt_install()
{
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@"
}

# install_packages LOG PACKAGE...: installs what is missing. The lists of a system may be old or absent, so a first
# failure is answered with an update of them.
install_packages()
{
    local log=$1 missing
    shift
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" = 0 ] && return 0
    echo "    installing: ${missing[*]}"
    quietly "$log" apt_install "${missing[@]}" 2>/dev/null && return 0
    quietly "$log.update" as_root apt-get update || return 1
    quietly "$log" apt_install "${missing[@]}"
}

# The programs run in a Russian environment: code page 1251, Russian common dialogs.
install_locale()
{
    locale -a 2>/dev/null | grep -qix 'ru_RU\.utf-\?8' && return 0
    as_root localedef -i ru_RU -f UTF-8 ru_RU.UTF-8
}
