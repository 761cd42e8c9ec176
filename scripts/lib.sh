# Shared by ./run, ./test and the scripts beside this file: what they need, and how they get and build it. Sourced, not
# run.

say() { printf '%s\n' "$*" >&2; }
die() { say "$*"; exit 1; }

# Prints the comment at the head of the script and ends it.
show_help() { sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$1"; exit 0; }

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libxcb1-dev libfmt-dev robin-map-dev libcli11-dev)
run_packages=(swi-prolog-nox fontconfig fonts-dejavu-core fonts-dejavu-extra fonts-liberation fonts-wqy-microhei
    fonts-lohit-deva)
virtual_packages=(xvfb openbox xdotool imagemagick x11-utils)
test_packages=(libgtest-dev libx11-dev libxtst-dev xvfb openbox python3 procps)
bench_packages=(libbenchmark-dev)
fuzz_packages=(clang libclang-rt-dev)
package_packages=(dpkg-dev file)

# Installs those of the named Debian packages that are missing.
install_missing() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "Please install first (as root): apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing: ${missing[*]}"
    mkdir -p "$top/build"
    local log=$top/build/install.log
    { "${as_root[@]}" apt-get update && DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y \
        --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 || { tail -n 20 "$log" >&2; die "Could not install them; see $log"; }
}

# Runs the command into a log; the log's errors and the end of the script if it fails.
logged() {
    local log=$1
    shift
    mkdir -p "$top/build"
    "$@" >"$log" 2>&1 ||
        { grep -E 'error|Error|FAILED' -A 5 "$log" | head -n 60 >&2; die "The build failed; see $log"; }
}

# Builds one preset; further arguments go to the configuration. Quiet unless something is wrong.
build_preset() {
    local preset=$1
    shift
    say "Building ($preset) ..."
    logged "$top/build/$preset-configure.log" cmake --preset "$preset" "$@"
    logged "$top/build/$preset.log" cmake --build --preset "$preset"
}

# Builds the named targets of one preset, tests among them.
build_targets() {
    local preset=$1
    shift
    say "Building ($preset) ..."
    logged "$top/build/$preset-configure.log" cmake --preset "$preset" -DBRINDLE_TESTS=ON
    logged "$top/build/$preset.log" cmake --build --preset "$preset" --target "$@"
}
