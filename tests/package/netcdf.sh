#!/usr/bin/env bash
# netcdf.sh SOURCE BUILD: C programs that know platen alone, through CMake and through pkg-config, use
# netCDF through it, and set its option word.
set -euo pipefail
source=$1 build=$2
here=$source/tests/package
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/tree" >/dev/null
lib=$(dirname "$(find "$work/tree" -name 'libplaten.so')")
export PKG_CONFIG_PATH=$lib/pkgconfig LD_LIBRARY_PATH=$lib

cat >"$work/CMakeLists.txt" <<LISTS
cmake_minimum_required(VERSION 3.25)
project(consumer LANGUAGES C)
find_package(platen 0.1 REQUIRED)
add_executable(through-cmake $here/netcdf.c)
target_link_libraries(through-cmake PRIVATE platen::platen)
LISTS
cmake -S "$work" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/tree" >/dev/null
cmake --build "$work/build" >/dev/null
# shellcheck disable=SC2046
cc "$here/netcdf.c" -o "$work/build/through-pkg-config" $(pkg-config --cflags --libs platen)

# expect WANTED GOT
expect() { [ "$1" = "$2" ] || { echo "wanted: $1"; echo "got: $2"; exit 1; }; }

cd "$work"
for program in build/through-cmake build/through-pkg-config; do
    expect "text, 15, optical density" "$($program write scan.nc)"
    expect '		scan:units = "optical density" ;' "$(ncdump -h scan.nc | grep units)"
    expect "-1" "$($program quiet 2>&1)"
    # As netCDF starts, an error is told and ends the program.
    if $program missing >out 2>&1; then
        echo "an error did not end the program"
        exit 1
    fi
    grep -q ncopen out
done
cc "$here/dlsym.c" -o dlsym -ldl
expect 10 "$(./dlsym "$lib/libplaten.so")"
echo "netCDF works through CMake, pkg-config and dlsym"
