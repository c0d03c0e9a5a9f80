#!/usr/bin/env bash
#
# Builds the library, the tests and the command for other machines, compilers and standard libraries,
# and runs the tests there: cross.sh [MACHINE...]
#
# MACHINE is one of
#   s390x    big-endian, 64 bits, by qemu-user
#   armhf    32 bits, char without a sign, by qemu-user
#   windows  x86-64, mingw-w64, by wine
#   libcxx   this machine, clang++ and libc++ in place of g++ and libstdc++
#   cxx23    this machine, clang++ 19 and C++23, where every warning is an error
# or all of them. What the environment lacks is said, and is a failure.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
machines=("$@")
if [[ $# -eq 0 ]]; then
    machines=(s390x armhf windows libcxx cxx23)
fi

# Sets what a machine is built and run with.
choose() {
    flags= options=() warnings=
    case $1 in
    s390x)
        triplet=s390x-linux-gnu system=Linux suffix=
        runner=(qemu-s390x -L /usr/s390x-linux-gnu)
        ;;
    armhf)
        triplet=arm-linux-gnueabihf system=Linux suffix=
        runner=(qemu-arm -L /usr/arm-linux-gnueabihf)
        warnings=-Werror=sign-compare # std::size_t has 32 bits here
        ;;
    windows)
        triplet=x86_64-w64-mingw32 system=Windows suffix=.exe
        runner=(wine)
        ;;
    libcxx | cxx23)
        system=Linux suffix=
        runner=(env)
        ;;
    *)
        echo "There is no machine $1. Take one of: s390x, armhf, windows, libcxx, cxx23." >&2
        exit 2
        ;;
    esac
    case $1 in
    windows) c_compiler=$triplet-gcc-posix compiler=$triplet-g++-posix ;;
    libcxx) c_compiler=clang compiler=clang++ flags=-stdlib=libc++ ;;
    cxx23)
        c_compiler=clang-19 compiler=clang++-19 options=(-DCMAKE_CXX_STANDARD=23)
        # What C++23 calls deprecated is inside of libstdc++ 12: std::stable_sort asks for a buffer.
        warnings="-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Werror"
        warnings+=" -Wno-error=deprecated-declarations"
        ;;
    *) c_compiler=$triplet-gcc compiler=$triplet-g++ ;;
    esac
}

configure() {
    cmake -G Ninja -S "$1" -B "$2" -DCMAKE_SYSTEM_NAME="$system" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_C_COMPILER="$c_compiler" -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$build/gtest;$build/headers" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF \
        "${@:3}"
}

# The command's libraries are headers for any machine, and lie among those of this one.
copy_headers() {
    mkdir -p "$build/headers/include" "$build/headers/share/cmake"
    cp -r /usr/include/CLI /usr/include/nlohmann "$build/headers/include/"
    cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$build/headers/share/cmake/"
}

# GoogleTest has no packages for other machines; Debian has its sources.
build_googletest() {
    if [[ ! -e $build/gtest/.built ]]; then
        configure /usr/src/googletest "$build/gtest-build" -DBUILD_GMOCK=OFF \
            -DCMAKE_INSTALL_PREFIX="$build/gtest" -DCMAKE_CXX_FLAGS="-w $flags" &&
            cmake --build "$build/gtest-build" --target install -- --quiet -j2 &&
            touch "$build/gtest/.built"
    fi
}

build_rosetag() {
    local link=
    if [[ $system == Windows ]]; then
        link="-static-libgcc -static-libstdc++ -static"
    fi
    configure "$root" "$build" -DROSETAG_INSTALL=OFF -DROSETAG_TABLES=OFF \
        -DCMAKE_CXX_FLAGS="$flags $warnings" "${options[@]}" \
        -DCMAKE_EXE_LINKER_FLAGS="$link" &&
        cmake --build "$build" --target unit_tests contract_tests -- --quiet -j2
}

build_command() {
    cmake --build "$build" --target rosetag_command -- --quiet -j2
}

run_tests() {
    local program
    for program in unit_tests contract_tests; do
        LD_BIND_NOW=1 WINEDEBUG=-all WINEPREFIX="$build/wine" WINEPATH="Z:$build" \
            "${runner[@]}" "$build/tests/$program$suffix" --gtest_brief=1 || return 1
    done
}

# Runs a step into a log of its own, and says what it comes to.
step() {
    local name=$1 log=$build/$1.log
    if "${@:2}" >"$log" 2>&1; then
        echo "$machine: $name: good"
    else
        grep -E -m 5 'error:|Failure|FAILED' "$log" || tail -n 5 "$log"
        echo "$machine: $name: FAILS, see $log"
        return 1
    fi
}

build_library_and_tests() {
    copy_headers && build_googletest && build_rosetag
}

status=0
for machine in "${machines[@]}"; do
    choose "$machine"
    build=$root/build/cross-$machine
    mkdir -p "$build"
    for tool in "$compiler" "${runner[0]}"; do
        if ! command -v "$tool" >/dev/null; then
            echo "$machine: $tool is not installed" >&2
            status=1
            continue 2
        fi
    done
    if step build build_library_and_tests; then
        step tests run_tests || status=1
        sed -n 's/.*\[==========\] \(.* ran\)\..*/    \1/p' "$build/tests.log"
        # The command's algorithms over ranges came to libc++ with version 15; Debian 12 has 14.
        [[ $machine == libcxx ]] || step command build_command || status=1
    else
        status=1
    fi
done
exit $status
