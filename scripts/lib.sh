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
    "${as_root[@]}" apt-get update >"$log" 2>&1 || { tail -n 20 "$log" >&2; die "No list of packages; see $log"; }
    LC_ALL=C apt-get install --no-install-recommends --assume-no -o Debug::NoLocking=1 "${missing[@]}" 2>/dev/null |
        sed -nE 's/^.* ([0-9]+) newly installed.*/  \1 packages with what they need/p
                 s/^Need to get (.*) of archives\.$/  to download: \1/p' >&2 || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
        -o APT::Status-Fd=1 "${missing[@]}" 2>>"$log" | tee -a "$log" | show_apt_progress ||
        { grep -Ev '^(dl|pm)status:' "$log" | tail -n 20 >&2; die "Could not install them; see $log"; }
}

# Says how far something is: one line that is written over on a terminal, else a line every so often.
#   progress TEXT DONE-IN-PER-CENT
progress() {
    if [ -t 2 ]; then
        printf '\r  %s %3d %%\033[K' "$1" "$2" >&2
        [ "$2" -lt 100 ] || printf '\r\033[K' >&2
    elif [ "$1-$(($2 / 25))" != "${progress_said-}" ]; then
        progress_said=$1-$(($2 / 25))
        say "  $1 $2 %"
    fi
}

# Reads what apt-get says on its status descriptor.
show_apt_progress() {
    local line rest
    while IFS= read -r line; do
        case $line in
            dlstatus:*) rest=${line#dlstatus:*:}; progress downloading "${rest%%.*}" ;;
            pmstatus:*) rest=${line#pmstatus:*:}; progress installing "${rest%%.*}" ;;
        esac
    done
}

# Runs the command into a log; the log's errors and the end of the script if it fails. Lines "[12/110] ..." of a build
# are shown as progress.
logged() {
    local log=$1 line done_ all
    shift
    mkdir -p "$top/build"
    "$@" 2>&1 | tee "$log" | while IFS= read -r line; do
        [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
        done_=${BASH_REMATCH[1]} all=${BASH_REMATCH[2]}
        progress "built" $((100 * done_ / all))
    done || {
        { grep -E 'error|Error|FAILED' -A 5 "$log" || tail -n 20 "$log"; } | head -n 60 >&2 || true
        die "The build failed; see $log"
    }
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
