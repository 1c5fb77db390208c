# Shell functions of ./check and ./demo; read with "source". Needs bash and $root, the top of the checkout.

# Debian packages by what needs them. A package stands in one list only.
packages_build=(cmake g++ libcli11-dev libgif-dev libjpeg-dev libpango1.0-dev libpng-dev libtiff-dev ninja-build pkg-config)
packages_viewer=(qt6-base-dev qt6-l10n-tools qt6-tools-dev qt6-tools-dev-tools qt6-translations-l10n)
packages_fonts=(fonts-dejavu-core fonts-noto-cjk)
packages_tests=(diffutils doctest-dev imagemagick libxtst-dev python3 util-linux xdotool xvfb)
packages_windows=(g++-mingw-w64-x86-64-posix wine64)
packages_bench=(libbenchmark-dev libcairo2-dev libfftw3-dev libkissfft-dev libopenblas-pthread-dev libopencv-dev libpixman-1-dev)

# Installs those of the named packages that are missing; asks the network for nothing if none is.
install_packages()
{
    if ! command -v dpkg-query >/dev/null; then
        echo "not a Debian system: taking what is installed ($* would be needed)"
        return 0
    fi
    local missing=() package
    for package in "$@"; do
        [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    ((${#missing[@]})) || return 0
    local as_root=()
    if ((EUID != 0)); then
        as_root=(sudo)
    fi
    echo "installing ${missing[*]}"
    local install=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive
        apt-get install --yes --no-install-recommends "${missing[@]}")
    # The package lists may be old or absent; fetching them takes a while, so it comes second.
    "${install[@]}" || { "${as_root[@]}" apt-get update && "${install[@]}"; }
}

# Configures and builds a preset: build_preset NAME [TARGET...]
build_preset()
{
    local preset=$1 targets=()
    shift
    (($# == 0)) || targets=(--target "$@")
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
    fi
    cmake -S "$root" --preset "$preset" &&
        cmake --build "$root/build/$preset" --parallel "$(nproc)" "${targets[@]}"
}

# Runs a step quietly and prints one line with its time; if it fails, what it said, and the script ends.
stage()
{
    local name=$1 log start=$EPOCHREALTIME
    shift
    mkdir -p "$root/build/log"
    log=$root/build/log/${name// /-}.txt
    printf '%-34s' "$name"
    if "$@" >"$log" 2>&1 </dev/null; then
        awk -v from="$start" -v to="$EPOCHREALTIME" 'BEGIN { printf "%7.1f s\n", to - from }'
    else
        echo " failed"
        cat "$log"
        echo "$name failed; its output is in $log" >&2
        exit 1
    fi
}
