// What only the programs for Windows do. Skipped unless tools/test-windows runs them, by wine.
#include <gtest/gtest.h>

#include <string>

#include "programrun.h"

namespace {

TEST(WindowsTest, TakesWhatItsShellsHandOver) {
  if (windowsPrograms() == nullptr) GTEST_SKIP() << "for tools/test-windows";
  expectRuns({
      {"wild cards, in any part, in any case",
       "mkdir -p s/one s/two s/.h; cp a.vhd s/one/b.VHD; cp a.vhd s/two/c.vhd; cp a.vhd s/.h/d.vhd;"
       " cp a.vhd s/one/e.vhdl; cp a.vhd s/one/.f.vhd; qornfmt --check -q 's\\*\\?.vhd' 'A*'",
       1, "s/one/b.VHD\ns/two/c.vhd\na.vhd\n", ""},
      {"wild cards that match nothing", "qornfmt --check '*.vht' 'no*\\*'", 2, "",
       "*.vht: No such file or directory\nno*/*: No such file or directory\n"},
      {"arguments as they were quoted",
       "f='b  c'; cp a.vhd \"$f.vhd\"; qorn -c '' \"$f.vhd\"; cat \"$f.vhd\";"
       " qornfmt --stdin-filename 'a\\\"b\\.vhd' --check <a.vhd",
       1, "USE a;\na/\"b/.vhd\n", ""},
      {"names of any letters",
       "mkdir ö; cp a.vhd 'ö/Ω ж.vhd'; qorn 'ö\\Ω ж.vhd'; qornfmt ö; ls ö; cat ö/*", 0,
       "Ω ж.vhd\nΩ ж.vhd.bak\nUSE a;\nuse a ;\n", ""},
      {"paths with a drive and backslashes, shown with slashes, for patch",
       "mkdir s; cp a.vhd s; qornfmt --diff -q 's\\a.vhd' | patch -p1; cat s/a.vhd;"
       " qornfmt --check \"Z:$(pwd | tr / '\\\\')\\a.vhd\" | sed 's/.*-test-[^/]*//'",
       0, "patching file s/a.vhd\nUSE a;\n/a.vhd\n", "1 file would change; qornfmt formats it\n"},
      {"names of more than 260 characters",
       "d=$(printf %200s | tr ' ' x); mkdir -p $d/$d; cp a.vhd $d/$d; qornfmt -q .; qorn "
       "$d/$d/a.vhd;"
       " cat $d/$d/a.vhd*",
       0, "USE a;\nUSE a;\n", ""},
      {"line ends through pipes",
       "printf 'use a ;\\r\\n--\\032\\r\\n' | qornfmt | od -An -c | tr -d ' '", 0,
       "USEa;\\r\\n--032\\r\\n\n", ""},
      {"devices", "qornfmt --force NUL 'Z:\\aux.vhd'; qorn con", 1, "",
       "NUL: not a regular file\nZ:/aux.vhd: not a regular file\n"
       "Error! unable to open file con\n       Not a regular file\n"},
  });
}

TEST(WindowsTest, FindsSettingsAndPrograms) {
  if (windowsPrograms() == nullptr) GTEST_SKIP() << "for tools/test-windows";
  expectRuns({
      {"folders with drives in a list",
       "mkdir s t; echo KEYWORD LOWER >s/.qornrc; echo IDENTIFIER UPPER >t/.qornrc;"
       " export QORNRC=\"Z:\\\\none;Z:$PWD/s;t\"; qorn <a.vhd; qornfmt <a.vhd",
       0, "use A;\nuse A;\n", ""},
      {"the nearest one",
       "mkdir -p s/t; mv a.vhd s/t; echo KEYWORD LOWER >s/.qornrc; unset QORNRC; qornfmt -q "
       "'s\\T'; cat s/t/a.vhd",
       0, "use a;\n", ""},
      {"git of the path, none that lies about",
       "git init -q; git add a.vhd; cp \"$(command -v qorn)\" git.exe; qornfmt -q --staged; cat "
       "a.vhd",
       0, "USE a;\n", ""},
  });
}

TEST(WindowsTest, ReplacesFilesThatAreMarked) {
  if (windowsPrograms() == nullptr) GTEST_SKIP() << "for tools/test-windows";
  expectRuns({
      {"read-only: not by qornfmt", "chmod 444 a.vhd; qornfmt a.vhd; cat a.vhd; ls -A", 0,
       "use a ;\na.vhd\nrc\n", "a.vhd: not written: Permission denied\n"},
      {"by qorn, and over a backup that is read-only",
       "chmod 444 a.vhd; qorn a.vhd; qorn a.vhd; cat a.vhd a.vhd.bak; ls -A", 0,
       "USE a;\nUSE a;\na.vhd\na.vhd.bak\nrc\n", ""},
      {"no backup in a stream of the file",
       "echo 'BACKUPFILE \":b\"' >rc; qorn -c rc a.vhd; cat a.vhd", 0, "use a ;\n",
       "Error! qorn: Not a directory\n"},
  });
}

}  // namespace
