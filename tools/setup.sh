# Shell functions of ./check and ./demo; read with "source". Needs bash and $root, the top of the checkout.

# Debian packages by what needs them. A package stands in one list only; docs/dependencies.md says why each is there.
packages_build=(cmake g++ libboost-dev libcli11-dev libgif-dev libjpeg-dev libpango1.0-dev libpng-dev libtiff-dev libwebp-dev ninja-build
                nlohmann-json3-dev pkg-config zlib1g-dev)
packages_viewer=(qt6-base-dev qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n)
packages_fonts=(fonts-dejavu-core fonts-noto-cjk)
packages_tests=(abigail-tools clang clang-format clang-tidy diffutils doctest-dev doxygen furo libclang-rt-14-dev
                librsvg2-bin libxtst-dev llvm mono-mcs mono-runtime mypy poppler-utils python3 python3-breathe
                python3-distributed python3-myst-parser python3-numpy python3-pandas python3-pip python3-setuptools
                python3-wheel util-linux valgrind xvfb)
# What the examples in hosts/examples are for, and, with Xlib, Qt and OpenCV of the other lists, what the public headers
# are compiled beside.
packages_toolkits=(libgtk-3-dev libgtk-4-dev libimgui-dev libsdl2-dev libwxgtk3.2-dev unixodbc-dev)
packages_windows=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64)
packages_long=(gdal-bin golang-1.19-src golang-golang-x-image-dev imagej imagemagick jbigkit-testdata libjxl-testdata
               librust-jpeg-decoder-dev librust-tiff-dev mmdebstrap python3-pil python3-shapely python3-skimage)
packages_bench=(gnuplot-nox libbenchmark-dev libcairo2-dev libfftw3-dev libkissfft-dev libopenblas-pthread-dev libopencv-dev libpixman-1-dev)

# Prints what the script's first comment says.
print_help()
{
    awk 'NR > 1 { if (!sub(/^# ?/, "")) exit; print }' "$0"
}

# Prints those of the named packages that are missing. Without dpkg nobody can tell, so none is.
missing_packages()
{
    command -v dpkg-query >/dev/null || return 0
    local package
    for package in "$@"; do
        [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            echo "$package"
    done
}

is_root()
{
    (($(id --user) == 0))
}

# Ends the script with one line that names what is missing, unless all of it is there or this user may install it.
# Asks for the password that sudo may want, before the steps hide what they print.
may_install()
{
    local missing
    command -v dpkg-query >/dev/null || echo "not a Debian system: taking what is installed ($* are needed)"
    missing=$(missing_packages "$@")
    if [[ -z $missing ]] || is_root || { command -v sudo >/dev/null && sudo -v; }; then
        return 0
    fi
    echo "packages are missing; install them as root: apt-get install" $missing >&2
    exit 1
}

# Installs those of the named packages that are missing; asks the network for nothing if none is.
install_packages()
{
    local missing as_root=() options=(-o APT::Status-Fd=1)
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    is_root || as_root=(sudo)
    # A container is made anew when its machine goes down, so nothing need reach its disk before the next package.
    if [[ -e /.dockerenv || -e /run/.containerenv ]] || ischroot; then
        options+=(-o Dpkg::Options::=--force-unsafe-io)
    fi
    local install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
        apt-get install --yes --no-install-recommends "${options[@]}" "${missing[@]}")
    # The package lists may be old or absent; fetching them takes a while, so it comes second.
    "${install[@]}" || { "${as_root[@]}" apt-get update && "${install[@]}"; }
}

# Configures a preset: configure_preset NAME [-D OPTION=VALUE...]
configure_preset()
{
    local preset=$1 fresh=()
    # A cache of older presets would keep what they said, and lose all of it where the compiler changes.
    [[ $root/build/$preset/CMakeCache.txt -nt $root/CMakePresets.json ]] || fresh=(--fresh)
    cmake "${fresh[@]}" -S "$root" --preset "$@"
}

# Configures and builds a preset: build_preset NAME [-D OPTION=VALUE...] [TARGET...]
build_preset()
{
    local preset=$1 settings=() targets=()
    shift
    while [[ ${1:-} == -D ]]; do
        settings+=(-D "$2")
        shift 2
    done
    (($# == 0)) || targets=(--target "$@")
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
        export CCACHE_SLOPPINESS=pch_defines,time_macros    # it refuses precompiled headers without
    fi
    configure_preset "$preset" "${settings[@]}" &&
        cmake --build "$root/build/$preset" --parallel "$(nproc)" "${targets[@]}"
}

# How far a step is, from the end of its output: what ninja or apt-get report of their share and work, else the last
# line.
progress_of()
{
    tail --bytes=4000 "$1" | tr --delete --complement '[:print:]\n' | awk '
        /^\[[0-9]+\/[0-9]+\] / {
            split(substr($1, 2), done, "/")
            sub(/^[^ ]+ (Building [A-Z]+ object .*\/[^\/]*\.dir\/)?/, "")
            share = sprintf("%3d %%  %s", 100 * done[1] / done[2], $0)
        }
        /^(dl|pm)status:/ {
            split($0, field, ":")
            share = sprintf("%3d %%  %s", field[3], field[4])
        }
        NF { text = $0 }
        END { print share ? share : text }'
}

# Whether a line can be written over again.
is_terminal()
{
    [[ -t 1 && ${TERM:-dumb} != dumb ]]
}

# Shows how far a step is as long as the script runs: in a line that changes, or where none can, in a line now and then.
show_progress()
{
    local name=$1 log=$2 script=$3 pause=${PROGRESS_SECONDS:-10} state
    ! is_terminal || pause=0.5
    while kill -0 "$script" 2>/dev/null; do
        sleep "$pause" >/dev/null 2>&1    # one that is left over must not hold the output open
        state=$(progress_of "$log")
        if is_terminal; then
            printf '\r%-34s%s\e[K' "$name" "${state:0:$(tput cols 2>/dev/null || echo 80) - 36}"
        else
            printf '  %s: %s\n' "$name" "${state:0:90}"
        fi
    done
}

# Runs a step and prints one line with its time; until then, how far it is. If it fails, what it said, and the
# script ends.
stage()
{
    local name=$1 log start=$EPOCHREALTIME result=0 watcher
    shift
    mkdir -p "$root/build/log"
    log=$root/build/log/${name// /-}.txt
    : >"$log"
    show_progress "$name" "$log" $$ &
    watcher=$!
    trap "kill $watcher" EXIT
    "$@" >"$log" 2>&1 </dev/null || result=$?
    trap - EXIT
    { kill "$watcher" && wait "$watcher"; } 2>/dev/null || true
    ! is_terminal || printf '\r\e[K'
    if ((result)); then
        cat "$log"
        echo "$name failed; its output is in $log" >&2
        exit 1
    fi
    awk -v name="$name" -v from="$start" -v to="$EPOCHREALTIME" 'BEGIN { printf "%-34s%7.1f s\n", name, to - from }'
}
