#!/bin/sh
# Completions in the shells that are installed: they know the options of the usage texts.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

touch 'a b.vhd' a.VHDL a.txt a.rc
mkdir adir
options=$(qornfmt --help | grep -o '^ *\(-., \)\?--[a-z-]*' | tr -s ', ' '\n' | grep . | LC_ALL=C sort | paste -sd'|' -)

if command -v bash >/dev/null; then
  # shellcheck disable=SC2016 # for bash to expand
  printf '%s\n' "source '$extras/completions/qorn.bash'" 'COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))' '_qorn 2>/dev/null' \
    'printf "%s\n" "${COMPREPLY[@]}" | sort | paste -sd"|"' >offer.bash
  offers() { LC_ALL=C bash offer.bash "$@"; }
  equal 'options in bash' "$options" "$(offers qornfmt -)"
  equal 'files in bash' 'a b.vhd|a.VHDL|adir' "$(offers qorn a)"
  equal 'configurations in bash' 'a b.vhd|a.VHDL|a.rc|a.txt|adir' "$(offers qornfmt -c a)"
fi
if command -v fish >/dev/null; then
  offers() { HOME=$box/home fish --no-config -c "source '$extras/completions/qorn.fish'; complete -C '$1'" | cut -f 1 | LC_ALL=C sort | paste -sd'|' -; }
  equal 'options in fish' "$options" "$(offers 'qornfmt -')"
  holds 'files in fish' "$(offers 'git-qorn a')" 'a b.vhd'
fi
! command -v zsh >/dev/null || ends 'zsh reads its file' 0 zsh -fn "$extras/completions/_qorn"
finish
