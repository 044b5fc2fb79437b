#!/bin/sh
# Each configuration of examples/styles lays out one page as it is kept in styles/NAME.out, and has an effect of its own.
# QORN_UPDATE_GOLDEN=1 rewrites what is kept.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

qorn <"$here/styles/page.vhd" >none.out
for style in "$extras"/../examples/styles/*.qornrc; do
  name=$(basename "$style" .qornrc)
  kept=$here/styles/$name.out
  qorn -c "$style" <"$here/styles/page.vhd" >"$name.out" || fail "$name cannot be read"
  [ -z "${QORN_UPDATE_GOLDEN:-}" ] || cp "$name.out" "$kept"
  diff -u "$kept" "$name.out" || fail "$name"
done
equal 'the defaults change nothing' '' "$(diff none.out defaults.out)"
set -- *.out
equal 'every other style does' $# "$(($(cksum "$@" | cut -d " " -f 1 | sort -u | wc -l) + 1))"
finish
