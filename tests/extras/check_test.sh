#!/bin/sh
# qorn-check and qorn-settle: what they report, and that they write nothing.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

odd="a b${line_end}'\"\\ \$x.vhd"
write "$odd" "$raw"
write ./-x.vhd "$raw"
write neat.vhd "$neat"
tree() { find . -type f -exec cksum {} + | sort && ls -la; }
before=$(tree)

ends 'files to change, in the order given' 1 qorn-check "$odd" neat.vhd ./-x.vhd
equal 'their names' "$odd$line_end./-x.vhd" "$out"
ends 'a name that begins with a dash, behind --' 1 qorn-check -- -x.vhd
equal 'its name' -x.vhd "$out"
ends 'nothing to change' 0 qorn-check neat.vhd neat.vhd
equal 'nothing said' '' "$out$err"

ends 'a missing file among others' 2 qorn-check ./-x.vhd missing.vhd neat.vhd
equal 'the others are checked' ./-x.vhd "$out"
holds 'the missing one is named' "$err" missing.vhd
ends 'the program fails' 2 env QORN=/bin/false qorn-check neat.vhd
ends 'no program' 2 env QORN="$box/none" qorn-check neat.vhd
ends 'a configuration that is not there' 2 qorn-check -c none.rc neat.vhd
holds 'it is named' "$err" none.rc
ends 'no file' 2 qorn-check
ends 'a wrong option' 2 qorn-check -q neat.vhd
equal 'nothing is written' "$before" "$(tree)"

# Each of the odd names is one file to git, and its diff makes it neat.
git init -q . && git add -A
ends 'diffs' 1 qorn-check -d "$odd" neat.vhd ./-x.vhd
git apply "$box/out" || fail 'git cannot apply the diff'
equal 'an odd name patched' "$neat" "$(cat "$odd")"
equal 'a name with a dash patched' "$neat" "$(cat ./-x.vhd)"

# The configuration is the one that the program would find here.
write .qornrc 'KEYWORDCASE lower'
ends 'the configuration of this folder' 1 qorn-check neat.vhd
ends 'QORNRC with no folder' 0 env QORNRC=: qorn-check neat.vhd
write upper.rc 'KEYWORDCASE upper'
ends 'a configuration of its own' 0 qorn-check -c upper.rc neat.vhd
mkdir sub && write sub/neat.vhd "$neat"
ends 'the folder of the file does not count' 1 qorn-check sub/neat.vhd
rm .qornrc

i=0
set --
while [ $i -lt 9 ]; do
  i=$((i + 1))
  write "many$i.vhd" "$raw"
  set -- "$@" "many$i.vhd"
done
ends 'many files' 1 qorn-check "$@"
equal 'in order' "$(printf '%s\n' "$@")" "$out"

# One pass is not always the last: this comment moves once more when its line has been joined.
for example in "$here"/../../examples/*.vhd; do
  qorn-settle <"$example" >settled.vhd || fail "$example does not settle"
  ends "$example has settled" 0 qorn-check settled.vhd
done
printf 'a <= b;\000' >nul.vhd
ends 'NUL bytes are refused' 2 qorn-check nul.vhd
ends 'a full disk is noticed' 2 sh -c 'qorn-settle <neat.vhd >/dev/full'
equal 'a part keeps its indentation' '        a <= b;' "$(echo '        a<=b;' | qorn-settle -k)"

# The scripts share a manual page.
equal 'options in the manual' "$(sed -n 's/^\.It Fl \(.\).*/\1/p' "$here/../../docs/qorn-check.1" | sort)" \
  "$(for script in check fix settle; do qorn-$script -h; done | { cat && git-qorn -h; } |
    sed -n 's/^  -\(.\) .*/\1/p' | sort -u)"
finish
