# What the tests of the scripts share; sourced by each of them with the program in $QORN_PROGRAM.
#
# A test starts in an empty folder with the programs first in $PATH and no configuration in reach. Expectations print
# nothing unless they fail, and "finish" ends with 1 if one did. 77 tells ctest that a test was skipped.
# shellcheck shell=sh disable=SC2034
set -u
here=$(cd "$(dirname "$0")" && pwd)
extras=$(cd "$here/../../extras" && pwd)
: "${QORN_PROGRAM:?the path of the program}"

box=$(mktemp -d) && mkdir "$box/bin" "$box/home" "$box/tmp" "$box/work" && cd "$box/work" || exit 1
trap 'chmod -R u+rwx "$box"; rm -rf "$box"' EXIT
cp "$QORN_PROGRAM" "${QORN_PROGRAM%/*}/qornfmt" "$extras/git-qorn" "$box/bin"
export PATH="$box/bin:$PATH" HOME="$box/home" TMPDIR="$box/tmp" GIT_CONFIG_NOSYSTEM=1
unset QORNRC VHDLEXT GIT_DIR GIT_INDEX_FILE GIT_WORK_TREE

line_end='
'
raw='entity E is
end E;'
neat='ENTITY e IS
END e;'
failures=0

skip() {
  echo "skipped: $1"
  exit 77
}

fail() {
  failures=$((failures + 1))
  printf 'FAILED: %s\n' "$1"
}

# equal WHAT EXPECTED GOT
equal() {
  [ "$2" = "$3" ] || fail "$1$line_end--- expected$line_end$2$line_end--- got$line_end$3$line_end---"
}

# ends WHAT STATUS COMMAND...: runs it with its output in $out and its messages in $err
ends() {
  what=$1 wanted=$2
  shift 2
  "$@" >"$box/out" 2>"$box/err"
  got=$? out=$(cat "$box/out") err=$(cat "$box/err")
  [ "$got" -eq "$wanted" ] || fail "$what: status $got instead of $wanted: $out $err"
}

# holds WHAT TEXT PART
holds() {
  case $2 in *"$3"*) ;; *) fail "$1: no '$3' in '$2'" ;; esac
}

write() {
  printf '%s\n' "$2" >"$1"
}

finish() {
  [ -z "$(ls -A "$box/tmp")" ] || fail "left behind in \$TMPDIR: $(ls -A "$box/tmp")"
  [ "$failures" -eq 0 ] || exit 1
}
