#!/usr/bin/env bash
# artefacts.sh SOURCE PRODUCT...: the products of this build have the guards they should, and a program
# or a library without them is found out.
set -euo pipefail
check=$1/scripts/check-artefacts
shift
"$check" "$@"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
echo 'int main(void) { return 0; }' >bare.c
echo 'int puts(const char*); int shown(void) { return puts(""); }' >shown.c
without=(-fcf-protection=none -fno-stack-protector -Wl,-z,lazy -Wl,-z,norelro -Wl,-z,execstack)
cc -no-pie "${without[@]}" bare.c -o program
cc -shared -fPIC "${without[@]}" shown.c -o library.so
# expect PRODUCT COUNT: that many complaints.
expect() {
    if "$check" "$1" >complaints || [ "$(wc -l <complaints)" -ne "$2" ]; then
        echo "$1 has no guard, and these are the complaints:"
        cat complaints
        exit 1
    fi
}
expect program 7
expect library.so 6
cc -O1 "${without[@]}" -c bare.c && ar rc bare.a bare.o
expect bare.a 3
