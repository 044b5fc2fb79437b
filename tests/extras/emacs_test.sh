#!/bin/sh
# qorn.el in Emacs, in batch mode.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

command -v emacs >/dev/null || skip 'emacs is not installed'
mkdir lisp && cp "$extras/editors/emacs/qorn.el" lisp
ends 'compiles without warnings' 0 \
  emacs -Q --batch --eval '(setq byte-compile-error-on-warn t)' -f batch-byte-compile lisp/qorn.el
emacs -Q --batch -L lisp -l ert -l "$here/emacs_test.el" -f ert-run-tests-batch-and-exit >"$box/out" 2>&1 ||
  fail "$(cat "$box/out")"
finish
