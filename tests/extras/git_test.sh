#!/bin/sh
# git-qorn: the index, the work tree, and only the lines that have changed.
# shellcheck source=tests/extras/harness.sh
. "$(dirname "$0")/harness.sh"
export GIT_AUTHOR_NAME=t GIT_AUTHOR_EMAIL=t@t GIT_COMMITTER_NAME=t GIT_COMMITTER_EMAIL=t@t
git init -q . 2>/dev/null

odd="a b${line_end}'\"\\ \$x.vhd"
staged() { git cat-file blob ":0:$1"; }

# Before the first commit.
mkdir sub
write "$odd" "$raw" && chmod +x "$odd"
write ./-x.VHD "$raw"
write sub/both.vhd "$raw"
write notes.txt 'x<=y;'
ln -s sub/END.vhd link.vhd
git add -A
write sub/both.vhd "$raw$line_end-- not staged"
write idle.vhd "$raw"

ends 'a dry run' 1 git qorn -n
equal 'what would change' "./-x.VHD$line_end$odd${line_end}sub/both.vhd" "$(echo "$out" | sed 's|^-|./-|')"
equal 'nothing has' "$raw" "$(staged sub/both.vhd)"
ends 'the program fails' 2 env QORN=/bin/false git qorn
equal 'and nothing has changed' "$raw" "$(staged "$odd")"

ends 'staged files' 0 git qorn
for file in "$odd" -x.VHD sub/both.vhd; do
  equal "$file in the index" "$neat" "$(staged "$file")"
done
equal 'the work tree follows' "$neat" "$(cat "$odd")"
[ -x "$odd" ] || fail 'the mode is lost'
equal 'unless it differs' "$raw$line_end-- not staged" "$(cat sub/both.vhd)"
holds 'which is told' "$err" sub/both.vhd
equal 'others stay' "x<=y;$raw" "$(staged notes.txt)$(cat idle.vhd)"
equal 'links stay' sub/END.vhd "$(staged link.vhd)"
ends 'again' 0 git qorn -n
git commit -qm one

# From a folder below, by its configuration and for some paths alone.
write top.vhd "$raw"
write sub/low.vhd "$raw"
git add top.vhd sub/low.vhd
write sub/.qornrc 'KEYWORDCASE lower'
cd sub || exit 1
ends 'a path' 0 git qorn low.vhd
equal 'its configuration' "entity e is${line_end}end e;" "$(cat low.vhd)"
equal 'no other path' "$raw" "$(staged top.vhd)"
cd ..

# Lines: the rest stays as it was, and so does what is switched off.
cat >lines.vhd <<'END'
a<=b;
  c<=d;
--QORN-OFF
e<=f;
--QORN-ON
z<=
r;
END
git add . && git commit -qm two
sed 's/<=d/<=x/; s/z</x</; s/f/x/' lines.vhd >edited && printf 'end process' >>edited && mv edited lines.vhd && git add lines.vhd
ends 'lines' 0 git qorn -l lines.vhd
equal 'what has changed' 'a<=b;
  c <= x;
--QORN-OFF
e<=x;
--QORN-ON
x <=
r;
END PROCESS' "$(cat lines.vhd)"
equal 'in the index as well' "$(cat lines.vhd)" "$(staged lines.vhd)"
git commit -qm three

# The hooks that docs/ci.md shows.
sed -n '/^#!\/bin\/sh/,/^```/p' "$here/../../docs/ci.md" | sed '/^```/d' >.git/hooks/pre-commit
chmod +x .git/hooks/pre-commit
write hook.vhd "$raw" && git add hook.vhd
ends 'the hook stops a commit' 1 git commit -qm four
holds 'and names the file' "$out$err" hook.vhd
git qorn >/dev/null
ends 'then lets it pass' 0 git commit -qm four
ends 'in no repository' 2 env GIT_DIR="$box/none" git-qorn
finish
