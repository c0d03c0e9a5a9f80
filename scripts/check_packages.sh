#!/usr/bin/env bash
#
# Checks what `./dev package` made, as root:
#   - built once more by another user, in another folder, under another time zone and mask, and at
#     another time, the packages are the same byte for byte;
#   - installed in a root of their own that has nothing else, they work: the command by itself, the
#     library and the toolkit by CMake and by pkg-config;
#   - the Conan package builds, and a project uses it.
#
# usage: check_packages.sh PACKAGE_DIR ROOT_DIR
set -euo pipefail

source_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
packages=$(cd "$1" && pwd)
clean_root=$2
readonly source_dir packages clean_root
readonly hex=3074257BF7194E4000001A85
readonly uri=urn:epc:tag:sgtin-96:3.0614141.812345.6789

in_root() {
    chroot "$clean_root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@"
}

expect() {
    local expected=$1 printed
    shift
    printed=$(in_root "$@")
    if [[ $printed != "$expected" ]]; then
        printf '%s\n  prints   %s\n  expected %s\n' "$*" "$printed" "$expected" >&2
        exit 1
    fi
}

say() {
    printf '\n== %s\n' "$*" >&2
}

say "The same packages, built elsewhere"
elsewhere=$(mktemp -d)
trap 'rm -rf -- "$elsewhere"' EXIT
mkdir "$elsewhere/another folder"
(cd "$elsewhere/another folder" && dpkg-source -x "$packages"/*.dsc rosetag >&2)
chown -R nobody "$elsewhere"
if ! setpriv --reuid=nobody --regid=nogroup --clear-groups env -i PATH=/usr/bin:/bin HOME="$elsewhere" \
    TZ=Asia/Kolkata LC_ALL=C.UTF-8 DEB_BUILD_OPTIONS=nocheck bash -c \
    'umask 027 && cd "$HOME/another folder/rosetag" && dpkg-buildpackage -us -uc' \
    >"$packages/elsewhere.log" 2>&1; then
    tail -n 15 "$packages/elsewhere.log"
    exit 1
fi
compared=0
for file in "$packages"/*.deb "$packages"/*.dsc "$packages"/*.tar.*; do
    cmp -- "$file" "$elsewhere/another folder/${file##*/}"
    compared=$((compared + 1))
done
[[ $compared -ge 6 ]]
echo "$compared files are the same, byte for byte"

say "A root that has nothing else"
rm -rf --one-file-system -- "$clean_root"
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$clean_root"
# This machine's way to the packages.
cp /etc/resolv.conf "$clean_root/etc/"
cp /etc/apt/apt.conf.d/* "$clean_root/etc/apt/apt.conf.d/"
mkdir "$clean_root/rosetag"
cp -r -- "$packages"/*.deb "$source_dir/examples" "$clean_root/rosetag/"

in_root apt-get update -qq
in_root sh -c 'apt-get install -y -qq --no-install-recommends /rosetag/librosetag1_*.deb \
    /rosetag/rosetag_*.deb'
expect "$hex" rosetag encode "$uri"
expect "$uri" rosetag decode --to tag-uri "$hex"
for file in man/man1/rosetag.1.gz bash-completion/completions/rosetag \
    zsh/vendor-completions/_rosetag fish/vendor_completions.d/rosetag.fish; do
    in_root test -s "/usr/share/$file"
done

in_root apt-get install -y -qq --no-install-recommends cmake g++ ninja-build pkg-config
in_root sh -c 'apt-get install -y -qq --no-install-recommends /rosetag/librosetag-dev_*.deb \
    /rosetag/librosetag-toolkit-dev_*.deb'
in_root test -s /usr/share/doc/librosetag-dev/c-api.md -o -s /usr/share/doc/librosetag-dev/c-api.md.gz
in_root cmake -G Ninja -S /rosetag/examples -B /rosetag/build
in_root cmake --build /rosetag/build
expect "$uri" /rosetag/build/decode "$hex"
in_root sh -c 'cc /rosetag/examples/decode.c -o /rosetag/decode $(pkg-config --cflags --libs rosetag)'
expect "$uri" /rosetag/decode "$hex"
expect "-lrosetag" sh -c 'echo $(pkg-config --cflags --libs rosetag)'
cat >"$clean_root/rosetag/whatever.cpp" <<'PROGRAM'
#include <rosetag/toolkit.hpp>
#include <iostream>
int main(int, char** arguments) {
    std::cout << rosetag::translate(arguments[1]).tagUri << '\n';
}
PROGRAM
in_root sh -c 'c++ -std=c++20 /rosetag/whatever.cpp -o /rosetag/whatever \
    $(pkg-config --cflags --libs rosetag-toolkit)'
expect "$uri" /rosetag/whatever "$hex"

in_root sh -c 'apt-get install -y -qq --no-install-recommends /rosetag/postgresql-15-rosetag_*.deb'
readonly in_server='PATH=$PATH:/usr/lib/postgresql/15/bin PGDATA=/tmp/data'
in_root runuser -u postgres -- sh -c "$in_server initdb >/dev/null && $in_server pg_ctl -w \
    -l /tmp/server.log -o '-k /tmp -c listen_addresses=' start >/dev/null"
expect "$uri" runuser -u postgres -- psql -XAtqh /tmp -c 'CREATE EXTENSION rosetag' \
    -c "SELECT epc_tag_uri('$hex')"
in_root runuser -u postgres -- sh -c "$in_server pg_ctl stop >/dev/null"

in_root sh -c 'apt-get install -y -qq --no-install-recommends sqlite3 \
    /rosetag/libsqlite3-mod-rosetag_*.deb'
expect "$uri" sqlite3 :memory: '.load mod_rosetag' "SELECT epc_tag_uri('$hex')"

in_root sh -c 'dpkg -r libsqlite3-mod-rosetag postgresql-15-rosetag rosetag librosetag-toolkit-dev librosetag-dev librosetag1'

say "Conan"
conan=$source_dir/build/conan
if [[ ! -x $conan/bin/conan ]]; then
    python3 -m venv "$conan" && "$conan/bin/pip" install --quiet conan
fi
export CONAN_HOME=$conan/home
rm -rf -- "$CONAN_HOME"
"$conan/bin/conan" profile detect
for shared in True False; do
    "$conan/bin/conan" create "$source_dir/packaging/conan" --no-remote \
        --options="rosetag/*:shared=$shared" \
        --conf="tools.cmake.cmake_layout:test_folder=$conan/test" \
        --conf="tools.cmake.cmaketoolchain:user_presets="
done

say "The packages are reproducible, and work on a clean root; so does the Conan package."
