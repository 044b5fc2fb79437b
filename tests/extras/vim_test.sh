#!/bin/sh
# The plugin in Vim, and in Neovim where there is one: buffer, range, cursor, failure, writing, highlighting.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

command -v vim >/dev/null || command -v nvim >/dev/null || skip 'neither vim nor nvim is installed'
export QORN_VIM="$extras/editors/vim" QORN_WORDS="$here/../../src/tokens/configcodes.def"

for editor in vim nvim; do
  command -v "$editor" >/dev/null || continue
  rm -rf ./*
  : >report
  case $editor in
    vim) vim -Nu NONE -i NONE -n -es -S "$here/vim_test.vim" </dev/null ;;
    nvim) nvim -u NONE -i NONE -n --headless -S "$here/vim_test.vim" </dev/null ;;
  esac >"$box/out" 2>&1
  equal "$editor" 'done' "$(cat report)"
  rm -rf "${box:?}/tmp/"*
done
finish
