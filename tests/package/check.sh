#!/usr/bin/env bash
# check.sh SOURCE BUILD CXX CXXFLAGS: installs the build, then builds and runs each program that the
# README shows, through CMake and through pkg-config, with the shared and the static library.
set -euo pipefail
source=$1 build=$2 export_cxx=$3 flags=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/tree" >/dev/null
lib=$(dirname "$(find "$work/tree" -name 'libplaten.so')")
export PKG_CONFIG_PATH=$lib/pkgconfig LD_LIBRARY_PATH=$lib CXX=$export_cxx

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
cmake -S "$work" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/tree" -DCMAKE_CXX_FLAGS="$flags" \
    >/dev/null
cmake --build "$work/build" >/dev/null

# As wide as if its image were compressed: the engine's test of its size fails.
LC_ALL=C sed 's/\x00\x01\x03\x00\x01\x00\x00\x00\x18\x00/\x00\x01\x03\x00\x01\x00\x00\x00\x18\x0F/' \
    "$source/tests/data/gray.tif" >"$work/wide.tif"

count=0
for program in "$work"/*.cpp; do
    name=$(basename "$program" .cpp)
    for package in platen platen-core; do
        # shellcheck disable=SC2046,SC2086
        "$CXX" -std=c++20 $flags "$program" -o "$work/$name-$package" \
            $(pkg-config --cflags --libs "$package")
    done
    for binary in "$work/build/$name-platen" "$work/build/$name-core" \
        "$work/$name-platen" "$work/$name-platen-core"; do
        (cd "$work" && cp "$source/tests/data/gray.tif" scan.tif && "$binary" scan.tif >"$name.out")
        [ "$name" != read ] || "$binary" "$work/wide.tif" >>"$work/$name.out"
        expected=$source/tests/package/$name.expected
        diff "$expected" "$work/$name.out" || { echo "$binary prints something else"; exit 1; }
        count=$((count + 1))
    done
done
[ "$count" -gt 0 ] || { echo "the README shows no program"; exit 1; }
echo "$count consumer programs built and run"
