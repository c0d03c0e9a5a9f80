#!/usr/bin/env bash
#
# Installs the Debian packages on a machine that has nothing else, in a root of its own, and uses
# them there: the command by itself, the library by CMake and by pkg-config. Needs root.
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

rm -rf --one-file-system -- "$clean_root"
debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$clean_root"
# This machine's way to the packages.
cp /etc/resolv.conf "$clean_root/etc/"
cp /etc/apt/apt.conf.d/* "$clean_root/etc/apt/apt.conf.d/"
mkdir "$clean_root/rosetag"
cp -r -- "$packages"/*.deb "$source_dir/examples" "$clean_root/rosetag/"

in_root sh -c 'dpkg -i /rosetag/librosetag[0-9]*.deb /rosetag/rosetag_*.deb'
expect "$hex" rosetag encode "$uri"
expect "$uri" rosetag decode --to tag-uri "$hex"
for file in man/man1/rosetag.1.gz bash-completion/completions/rosetag \
    zsh/vendor-completions/_rosetag fish/vendor_completions.d/rosetag.fish; do
    in_root test -s "/usr/share/$file"
done

in_root apt-get update -qq
in_root apt-get install -y -qq --no-install-recommends cmake g++ ninja-build pkg-config
in_root sh -c 'dpkg -i /rosetag/librosetag-dev_*.deb'
in_root cmake -G Ninja -S /rosetag/examples -B /rosetag/build
in_root cmake --build /rosetag/build
expect "$uri" /rosetag/build/decode "$hex"
in_root sh -c 'cc /rosetag/examples/decode.c -o /rosetag/decode $(pkg-config --cflags --libs rosetag)'
expect "$uri" /rosetag/decode "$hex"

in_root sh -c 'dpkg -r rosetag librosetag-dev librosetag1'
echo "The packages work on a clean root."
