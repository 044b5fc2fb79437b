// `qornfmt` on files, folders and standard input: what it prints, writes and returns.
#include <gtest/gtest.h>

#include <string>

#include "programrun.h"

namespace {

TEST(QornfmtTest, TellsItsCommandLine) {
  const TempFolder folder;
  const ProgramRun help = shell(folder, "qornfmt -h");
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(help.out.starts_with("usage: qornfmt ")) << help.out;
  const std::string more = "\nqornfmt --help lists the options\n";
  const struct {
    const char* options;
    const char* complaint;
  } rows[] = {
      {"--nosuch", "unrecognized option '--nosuch'"},
      {"--lines 0:3 a.vhd", "--lines needs FIRST:LAST, counted from 1: 0:3"},
      {"--lines 1:3 a.vhd b.vhd", "--lines needs one file, or standard input"},
      {"-j 0", "-j needs a number from 1 to 1024, not \"0\""},
      {"--staged --changed", "--staged and --changed cannot be combined"},
      {"--staged -", "--staged and --changed take files from git, not standard input"},
      {"a.vhd -", "standard input (-) can't be formatted along with files"},
      {"--settings --check", "--settings prints settings and formats nothing"},
      {"--guess --check", "--guess looks at files and prints settings"},
      {"--stdin-filename a.vhd b.vhd", "--stdin-filename is for standard input alone"},
      {"--changed=--output=x", "--changed needs a commit after the \"=\""},
  };
  for (const auto& row : rows) {
    const ProgramRun run = shell(folder, std::string("qornfmt ") + row.options);
    EXPECT_EQ(run.status, 2) << row.options;
    const bool isOfLibrary = row.options == rows[0].options && windowsPrograms() != nullptr;
    const std::string complaint = isOfLibrary ? "unknown option -- nosuch" : row.complaint;
    EXPECT_EQ(run.err, "qornfmt: " + complaint + more);
  }
}

TEST(QornfmtTest, FormatsFilesAndFolders) {
  expectRuns({
      {"in place, then nothing to do",
       "qornfmt a.vhd; cat a.vhd; touch -d @1 a.vhd; qornfmt a.vhd;"
       " stat -c %Y a.vhd",
       0, "USE a;\n1\n", "1 file formatted\n"},
      {"options after paths, names that look like options",
       "echo 'use b ;' >-q.vhd; qornfmt a.vhd --check -- -q.vhd; echo $?", 0, "a.vhd\n-q.vhd\n1\n",
       "2 of 2 files would change; qornfmt formats them\n"},
      {"a folder in order, hidden names and links to folders aside, no file twice",
       "mkdir -p s/b s/.h s/a.VHDL; cp a.vhd s/c.vhd; cp a.vhd s/b/z.VHD; cp a.vhd s/b.vhd;"
       " cp a.vhd s/.h/h.vhd; cp a.vhd s/.h.vhd; cp a.vhd s/Makefile; ln -s b s/l; ln s/c.vhd"
       " s/hard.vhd; ln -s nowhere s/n.vhd; ln -s ../a.vhd s/d.vhd; qornfmt --check -q s/b.vhd s "
       "a.vhd"
       " ./s/../a.vhd",
       1, "s/b.vhd\ns/b/z.VHD\ns/c.vhd\ns/d.vhd\ns/hard.vhd\n", ""},
      {"the current folder", "qornfmt --check -q .", 1, "a.vhd\n", ""},
      {"one that may not be read", "mkdir -m 0 e; $nobody qornfmt --check .", 2, "a.vhd\n",
       "e: Permission denied\n1 file would change; qornfmt formats it\n", POSIX},
      {"none", "mkdir e; qornfmt e", 0, "", "qornfmt: there are no VHDL files\n"},
      {"trouble outweighs changes, and the others are formatted",
       "echo all: >Makefile; mkfifo f.vhd; qornfmt Makefile nosuch.vhd f.vhd a.vhd; echo $?;"
       " qornfmt -q --force --check Makefile",
       1, "2\nMakefile\n",
       "Makefile: not the name of a VHDL file; --force formats it anyway\n"
       "nosuch.vhd: No such file or directory\nf.vhd: not a regular file\n1 file formatted\n"},
      {"a diff for patch, status 1",
       "cp a.vhd b.vhd; qornfmt --diff a.vhd >d; echo $?; patch -p1 <d; qornfmt b.vhd; cmp a.vhd "
       "b.vhd",
       0, "1\npatching file a.vhd\n",
       "1 file would change; qornfmt formats it\n1 file formatted\n"},
      {"no more than standard output takes", "qornfmt --check a.vhd >/dev/full", 2, "",
       "qornfmt: standard output: No space left on device\n", POSIX},
  });
}

TEST(QornfmtTest, FiltersStandardInput) {
  expectRuns({
      {"what is piped in", "qornfmt <a.vhd", 0, "USE a;\n", ""},
      {"of a name",
       "echo 'KEYWORDCASE LOWERCASE' >s.rc; mkdir s; mv s.rc s/.qornrc; unset QORNRC;"
       " qornfmt --stdin-filename s/x.vhd - <a.vhd",
       0, "use a;\n", ""},
      {"checked", "qornfmt --check - <a.vhd", 1, "<standard input>\n", ""},
      {"of no device", "qornfmt </dev/null", 2, "",
       "qornfmt: nothing to format: name files or folders, or - for standard input\n"},
      {"of lines", "printf 'use a ;\\nuse b ;\\nuse c ;\\n' | qornfmt --lines 2:2", 0,
       "use a ;\nUSE b;\nuse c ;\n", ""},
      {"refused, nothing is printed", "printf 'x\\n\\0' | qornfmt --stdin-filename x.vhd", 2, "",
       "x.vhd:2: a NUL byte, so this is not text\n"},
  });
}

TEST(QornfmtTest, KeepsTheFormOfTexts) {
  const struct {
    const char* name;
    const char* content;
    const char* options;
    const char* expected;
  } rows[] = {
      {"plain", "use a ;\n", "", "USE a;\n"},
      {"empty", "", "", ""},
      {"line ends of two bytes", "use a ;\\r\\nuse b ;\\r\\n", "", "USE a;\r\nUSE b;\r\n"},
      {"formatted", "\\357\\273\\277USE a;\\r\\n", "", "\357\273\277USE a;\r\n"},
      {"mark", "\\357\\273\\277use a ;\\n", "", "\357\273\277USE a;\n"},
      {"mixed, as most", "use a ;\\r\\nuse b ;\\nUSE c;\\r\\n", "",
       "USE a;\r\nUSE b;\r\nUSE c;\r\n"},
      {"mixed, all but one line", "\\357\\273\\277use a ;\\r\\nuse b ;\\nuse c ;\\r\\nuse d;\\n",
       "--lines 3:3", "\357\273\277use a ;\r\nuse b ;\nUSE c;\nuse d;\n"},
  };
  const TempFolder folder;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string commands = std::string("printf '") + row.content + "' >x.vhd; qornfmt -q " +
                                 row.options + " x.vhd; cat x.vhd";
    const ProgramRun run = shell(folder, commands);
    EXPECT_EQ(run.out, row.expected);
    EXPECT_EQ(run.err, "");
  }
  const ProgramRun run = shell(folder, "printf '\\377\\376u\\0' >x.vhd; qornfmt x.vhd");
  EXPECT_EQ(run.err, "x.vhd:1: the text is in UTF-16; convert it to UTF-8 first\n");
}

TEST(QornfmtTest, ReplacesFilesWhole) {
  expectRuns({
      {"mode and owner",
       "[ -z \"$nobody\" ] || chown 12:34 a.vhd; chmod 2751 a.vhd; qornfmt -q a.vhd;"
       " [ -z \"$nobody\" ] && echo 2751 || stat -c %a-%u-%g a.vhd | sed 's/-12-34//'",
       0, "2751\n", "", POSIX},
      {"a link's target",
       "mkdir s; ln -s ../a.vhd s/l.vhd; qornfmt -q s/l.vhd; cat a.vhd; readlink s/l.vhd;"
       " ls -A s",
       0, "USE a;\n../a.vhd\nl.vhd\n", ""},
      {"one of several names", "ln a.vhd b.vhd; qornfmt -q a.vhd; cat a.vhd b.vhd", 0,
       "USE a;\nuse a ;\n", ""},
      {"not what may not be written", "chmod 444 a.vhd; $nobody qornfmt a.vhd; cat a.vhd; ls -A", 0,
       "use a ;\na.vhd\nrc\n", "a.vhd: not written: Permission denied\n", POSIX},
      {"nor messages into files", "qornfmt a.vhd nosuch.vhd 2>&- 0>&- 1>&-; cat a.vhd", 0,
       "USE a;\n", "", POSIX},
      {"nor in such a folder", "chmod 555 .; $nobody qornfmt a.vhd; cat a.vhd; ls -A", 0,
       "use a ;\na.vhd\nrc\n", "a.vhd: not written: Permission denied\n", POSIX},
      {"nor beyond the limit of the size of files, told once",
       "for i in $(seq 2000); do echo 'use  b ;'; done >b.vhd; cp b.vhd c.vhd; cp b.vhd old;"
       " (ulimit -f 4; qornfmt -j 1 a.vhd b.vhd c.vhd); cmp b.vhd old; cmp c.vhd old; ls -A",
       0, "a.vhd\nb.vhd\nc.vhd\nold\nrc\n",
       "b.vhd: not written: File too large\nc.vhd: not written: File too large\n"
       "2 of 3 files left as they are, 1 formatted\n",
       POSIX},
  });
}

}  // namespace
