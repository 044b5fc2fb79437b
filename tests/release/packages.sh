#!/bin/sh
# Tries the packages for Linux in a folder that tools/release made, each unpacked into an empty folder, with nothing
# else of ours in reach; and compares the programs for Windows in the wheel with those of the zip.
#
#   packages.sh FOLDER
set -eu
release=$(realpath "$1")
(cd "$release" && sha256sum --check --quiet SHA256SUMS)
file=$(realpath "$(dirname "$0")/../../examples/uart_tx.vhd")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
fail() { echo "packages: $*" >&2 && exit 1; }

# try NAME FOLDER SEEN COMMAND...: the program qornfmt, run as COMMAND, formats a file in the folder, which it sees as SEEN,
# and tells what is formatted from what is not
try() {
  name=$1 files=$2 seen=$3
  shift 3
  cp "$file" "$files/file.vhd" && cp "$file" "$files/other.vhd" && chmod 666 "$files"/*.vhd
  run() { env -i PATH="$PATH" QORNRC=: "$@" >log 2>&1; }
  run "$@" "$seen/file.vhd" || fail "$name: does not format: $(cat log)"
  run "$@" --check "$seen/file.vhd" || fail "$name: does not know its own work: $(cat log)"
  ! run "$@" --check "$seen/other.vhd" || fail "$name: finds nothing to do"
  mv "$files/file.vhd" "$name.vhd"
}

for architecture in amd64:x86_64: arm64:aarch64:qemu-aarch64; do
  IFS=: read -r debian machine emulator <<END
$architecture
END
  mkdir "$debian" "$machine"
  [ "$(dpkg-deb -f "$release"/*_"$debian".deb Architecture)" = "$debian" ] || fail "$debian: for another architecture"
  dpkg-deb -x "$release"/*_"$debian".deb "$debian"
  tar -xzf "$release"/*-linux-"$machine".tar.gz --strip-components=1 -C "$machine"
  for place in "$debian/usr" "$machine"; do
    [ -s "$place/share/vim/vimfiles/plugin/qorn.vim" ] && [ -s "$place/share/emacs/site-lisp/qorn.el" ] || fail "$place: no plugins"
    ! readelf -l "$place/bin/qorn" "$place/bin/qornfmt" | grep -q INTERP || fail "$place: not static"
    # shellcheck disable=SC2086 # no emulator is no word
    try "$machine" . . $emulator "$place/bin/qornfmt"
  done
done
cmp x86_64.vhd aarch64.vhd

python3 -m zipfile -e "$release"/*-win_amd64.whl wheel
python3 -m zipfile -e "$release"/*-windows-x86_64.zip zip
for program in qorn.exe qornfmt.exe; do cmp wheel/*/scripts/"$program" zip/*/"$program"; done

[ "$(id -u)" = 0 ] || { echo 'packages: not root, so the image is not tried' && exit 0; }
# The image of the Dockerfile: a root with the programs alone, for a user whom it does not know.
mkdir -p image/src
cp amd64/usr/bin/qorn amd64/usr/bin/qornfmt image
chmod 755 . && chmod 777 image/src
entry=$(sed -n 's/^ENTRYPOINT \["\(.*\)"\]$/\1/p' "$(dirname "$file")/../Dockerfile")
try image image/src /src chroot --userspec=4711:4711 image "$entry"
cmp x86_64.vhd image.vhd
