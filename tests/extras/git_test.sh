#!/bin/sh
# git-qorn, and the two hooks that docs/ci.md shows.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"
export GIT_AUTHOR_NAME=t GIT_AUTHOR_EMAIL=t@t GIT_COMMITTER_NAME=t GIT_COMMITTER_EMAIL=t@t
git init -q . 2>/dev/null

# hook N: installs the hook of that number
hook() {
  awk -v wanted="$1" '/^#!\/bin\/sh/ { inside = ++found == wanted } /^```/ { inside = 0 } inside' \
    "$here/../../docs/ci.md" >.git/hooks/pre-commit
  chmod +x .git/hooks/pre-commit
}

hook 1
write a.vhd "$raw" && git add .
ends 'without the program' 0 env PATH="$box/home" "$(command -v git)" commit -qm one
write a.vhd "$raw$line_end$raw" && git add .
ends 'what is staged' 1 git commit -qm two
holds 'the file is named' "$out$err" a.vhd
ends 'the advice' 0 git qorn
ends 'is enough' 0 git commit -qm two
equal 'changed lines alone' "$raw$line_end$neat" "$(git show :a.vhd)"
write a.vhd 'x<=y;'
ends 'commit -a' 1 git commit -qam three
holds 'its advice' "$err" 'qornfmt --changed'
ends 'it formats' 0 git qorn --changed
ends 'and then' 0 git commit -qam three
printf 'x\000' >a.vhd
ends 'trouble' 1 git commit -qam four
holds 'is called so' "$err" 'Not checked'

hook 2
write a.vhd "$raw"
ends 'the other hook' 0 git commit -qam four
equal 'formats' "$neat$neat" "$(cat a.vhd)$(git show HEAD:a.vhd)"
equal 'the index too' '' "$(git status --porcelain)"
finish
