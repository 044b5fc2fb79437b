#!/bin/sh
# Tries the packages of Python as a user does, without a package index and with nothing else of ours in reach:
# a wheel in an environment of its own, and a source distribution as the repository of pre-commit's hooks.
#
#   python.sh WHEEL SDIST
set -eu
wheel=$(realpath "$1") sdist=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export HOME="$folder" PRE_COMMIT_HOME="$folder/cache" PIP_NO_INDEX=1 QORNRC=:
export GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@invalid GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@invalid
export CMAKE_ARGS=-DCMAKE_CXX_FLAGS_RELEASE=-O0 # what is tried is the way, and that is the shortest
unset GIT_DIR GIT_INDEX_FILE GIT_WORK_TREE
cd "$folder"
mkdir qorn hdl
tar -xzf "$sdist" --strip-components=1 -C qorn
commit() { git -C "$1" init --quiet && git -C "$1" add --all && git -C "$1" commit --quiet --message=all; }

# A wheel that does not hold what its list of contents says cannot be unpacked.
(mkdir unpacked && cd unpacked && /usr/bin/python3 -m wheel unpack "$wheel") >/dev/null
/usr/bin/python3 -m venv environment
environment/bin/pip install --quiet "$wheel"
cp qorn/examples/uart_tx.vhd hdl
(
  PATH=$folder/environment/bin:$PATH
  git -C hdl init --quiet && git -C hdl add uart_tx.vhd
  cd hdl && git qorn 2>/dev/null && qornfmt --check --staged uart_tx.vhd 2>/dev/null && [ "$(qorn </dev/null | wc -c)" = 0 ]
)
[ -s environment/share/man/man1/qornfmt.1 ]

commit qorn
cp qorn/examples/uart_tx.vhd hdl
cat >hdl/.pre-commit-config.yaml <<END
repos:
  - repo: $folder/qorn
    rev: $(git -C qorn rev-parse HEAD)
    hooks:
      - id: qornfmt
      - id: qornfmt-check
END
commit hdl
cd hdl
pre-commit run --all-files >first && status=0 || status=$?
[ "$status" = 1 ] && grep -q 'Format VHDL.*Failed' first || { cat first && exit 1; }
pre-commit run --all-files >second || { cat second && exit 1; }
git diff --quiet && { echo 'the hook left the file as it was' && exit 1; }
[ -z "$(git -C ../qorn status --porcelain)" ]
