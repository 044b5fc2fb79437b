#!/bin/sh
# qorn-fix: only files that change are written, and nothing of them is lost.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"

odd="a b${line_end}'\"\\ \$x.vhd"
mkdir sub
write "$odd" "$raw" && chmod 640 "$odd"
write ./-x.vhd "$raw"
write neat.vhd "$neat" && touch -t 200001010000 neat.vhd
write sub/real.vhd "$raw" && ln -s sub/real.vhd first.vhd && ln -s "$PWD/first.vhd" sub/second.vhd
write twin.vhd "$raw" && ln twin.vhd sub/twin.vhd
write late.vhd "$raw"

ends 'a missing file' 2 qorn-fix "$odd" missing.vhd neat.vhd ./-x.vhd sub/second.vhd twin.vhd late.vhd
holds 'it is named' "$err" missing.vhd
equal 'those that changed' \
  "$odd$line_end./-x.vhd${line_end}sub/second.vhd${line_end}twin.vhd${line_end}late.vhd" "$out"
for file in "$odd" ./-x.vhd sub/real.vhd twin.vhd sub/twin.vhd late.vhd; do
  equal "$file" "$neat" "$(cat "$file")"
done
holds 'the rights stay' "$(ls -l "$odd")" '-rw-r-----'
holds 'a neat file is not touched' "$(ls -l neat.vhd)" 2000
equal 'links stay' 'sub/real.vhd' "$(readlink first.vhd && readlink sub/second.vhd >/dev/null)"
[ -z "$(find . -name '*.bak' -o -name '.qorn*')" ] || fail 'something is left behind'
ends 'again' 0 qorn-fix "$odd" ./-x.vhd sub/second.vhd twin.vhd late.vhd
equal 'nothing more to do' '' "$out$err"

# Failures leave the old text.
write file.vhd "$raw"
write half "#!/bin/sh${line_end}head -c 5; exit 3" && chmod +x half
ends 'the program fails half-way' 2 env QORN=./half qorn-fix file.vhd
equal 'the old text stays' "$raw" "$(cat file.vhd)"
ln -s loop.vhd loop.vhd
ends 'a link to itself' 2 qorn-fix loop.vhd

# What only root may do is no test for root.
write open.vhd "$raw"
write shut.vhd "$raw" && chmod 444 shut.vhd
mkdir locked && write locked/in.vhd "$raw"
as_user chmod 555 locked
ends 'a file that may not be written' 2 as_user qorn-fix shut.vhd open.vhd locked/in.vhd
equal 'it stays' "$raw" "$(cat shut.vhd)"
equal 'the next one is done' "$neat" "$(cat open.vhd)"
equal 'one in a locked folder too' "$neat" "$(cat locked/in.vhd)"
printf 'a <= b;\000' >nul.vhd
ends 'NUL bytes are refused' 2 qorn-fix nul.vhd
equal 'and stay' 8 "$(wc -c <nul.vhd)"

finish
