#!/bin/sh
# Completions in the shells that are installed.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

touch 'a b.vhd' a.VHDL a.txt a.rc
mkdir adir
some_shell=''

if command -v bash >/dev/null; then
  some_shell=1
  # complete LINE WORD...: what bash would offer for the last word
  cat >offer.bash <<'END'
    source "$1"; shift
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _qorn 2>/dev/null
    printf '%s\n' "${COMPREPLY[@]}" | sort | paste -sd'|'
END
  offers() { LC_ALL=C bash offer.bash "$extras/completions/qorn.bash" "$@"; }
  equal 'options in bash' '-c|-d|-h' "$(offers qorn-check -)"
  equal 'options of git qorn in bash' '-c|-h|-l|-n' "$(offers git -)"
  equal 'files in bash' 'a b.vhd|a.VHDL|adir' "$(offers qorn a)"
  equal 'configurations in bash' 'a b.vhd|a.VHDL|a.rc|a.txt|adir' "$(offers qorn -c a)"
fi
if command -v fish >/dev/null; then
  some_shell=1
  offers() { HOME=$box/home fish --no-config -c "source '$extras/completions/qorn.fish'; complete -C '$1'" | cut -f 1 | sort | paste -sd'|' -; }
  equal 'options in fish' '-c|-d|-h' "$(offers 'qorn-check -')"
  equal 'a value in fish' '8' "$(offers 'qorn -t 8')"
  holds 'files in fish' "$(offers 'qorn-fix a')" 'a b.vhd'
fi
if command -v zsh >/dev/null; then
  some_shell=1
  ends 'zsh reads its file' 0 zsh -fn "$extras/completions/_qorn"
fi
[ -n "$some_shell" ] || skip 'none of bash, fish and zsh is installed'
finish
