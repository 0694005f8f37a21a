#!/usr/bin/env bash
# check.sh SOURCE BUILD CXX CXXFLAGS [TOOLCHAIN [EMULATOR...]]: installs the build below DESTDIR, as
# packagers do, then builds and runs each program that the README shows, through CMake and through
# pkg-config, with the shared and the static library. A cross build names its toolchain file, and what
# runs its programs.
set -euo pipefail
source=$1 build=$2 export_cxx=$3 flags=$4 toolchain=${5:-}
run=("${@:6}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

DESTDIR=$work cmake --install "$build" --prefix /tree >/dev/null
lib=$(dirname "$(find "$work/tree" -name libplaten_core.a)")
export PKG_CONFIG_PATH=$lib/pkgconfig LD_LIBRARY_PATH=$lib CXX=$export_cxx
options=(-DCMAKE_PREFIX_PATH="$work/tree" -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_BUILD_TYPE=None)
mkdir "$work/build"
if [ -n "$toolchain" ]; then
    # No package of the building machine serves another.
    export PKG_CONFIG_LIBDIR=$lib/pkgconfig
    options+=(-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH="$work/tree")
    # Windows finds DLLs beside the program: the library's, and those of GCC that are not linked static.
    cp "$work"/tree/bin/*.dll "$work/build"
    for name in libstdc++-6 libgcc_s_seh-1 libwinpthread-1 libssp-0; do
        cp "$("$CXX" -print-file-name=$name.dll)" "$work/build"
    done
fi

# A program stands in the README behind the line: <!-- program: NAME -->
awk -v work="$work" '
/^<!-- program: / { name = $3 }
/^```cpp/ && name { file = work "/" name ".cpp"; next }
/^```/ { if (file) close(file); file = ""; if (name) name = "" }
file { print > file }' "$source/README.md"

cat >"$work/CMakeLists.txt" <<'LISTS'
cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES CXX)
find_package(platen 0.1 REQUIRED)
file(GLOB programs *.cpp)
foreach(program IN LISTS programs)
    cmake_path(GET program STEM name)
    foreach(library platen core)
        add_executable(${name}-${library} ${program})
        target_link_libraries(${name}-${library} PRIVATE platen::${library})
    endforeach()
endforeach()
LISTS
cmake -S "$work" -B "$work/build" "${options[@]}" >/dev/null
cmake --build "$work/build" >/dev/null

# As wide as if its image were compressed: the engine's test of its size fails.
LC_ALL=C sed 's/\x00\x01\x03\x00\x01\x00\x00\x00\x18\x00/\x00\x01\x03\x00\x01\x00\x00\x00\x18\x0F/' \
    "$source/tests/data/gray.tif" >"$work/wide.tif"

# with_pkg_config PACKAGE OUT FILE...
with_pkg_config() {
    # shellcheck disable=SC2046,SC2086
    "$CXX" -std=c++20 $flags "${@:3}" -o "$2" $(pkg-config --cflags --libs "$1")
}

# Linux: a host's own functions, which have names of the library's, end the program when called.
if [ -z "$toolchain" ]; then
    sed -n '/^\[plain linux\]/,$ s/^\([A-Za-z_]\w*\)$/void \1(void) { abort(); }/p' \
        "$source/platen/exports/names" | sed '1i #include <stdlib.h>' >"$work/host.c"
    grep -q CloseHandle "$work/host.c"
    cc -c "$work/host.c" -o "$work/host.o"
fi

count=0
for program in "$work"/*.cpp; do
    name=$(basename "$program" .cpp)
    binaries=("$name-platen" "$name-core" "$name-by-name-platen" "$name-by-name-platen-core")
    for package in platen platen-core; do
        with_pkg_config $package "$work/build/$name-by-name-$package" "$program"
    done
    if [ -e "$work/host.o" ]; then
        with_pkg_config platen "$work/build/$name-host" "$program" "$work/host.o"
        binaries+=("$name-host")
    fi
    for binary in "${binaries[@]}"; do
        binary=$work/build/$binary
        [ -z "$toolchain" ] || binary=$binary.exe
        (cd "$work" && cp "$source/tests/data/gray.tif" scan.tif && "${run[@]}" "$binary" scan.tif |
            tr -d '\r' >"$name.out")
        [ "$name" != read ] ||
            (cd "$work" && "${run[@]}" "$binary" wide.tif | tr -d '\r' >>"$name.out")
        diff "$source/tests/package/$name.expected" "$work/$name.out" ||
            { echo "$binary prints something else"; exit 1; }
        count=$((count + 1))
    done
done
[ "$count" -gt 0 ] || { echo "the README shows no program"; exit 1; }
echo "$count consumer programs built and run"
