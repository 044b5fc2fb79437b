// The built program over files: in place, backups, whatever bytes come, and failing reads and
// writes.
#include <gtest/gtest.h>

#include <string>

#include "programrun.h"

namespace {

TEST(ProgramTest, RewritesFilesAndKeepsBackups) {
  expectRuns({
      {"the backup takes the place of an older one",
       "echo older and longer >a.vhd.bak; echo 'use b ;' | qorn a.vhd; cat a.vhd a.vhd.bak", 0,
       "USE a;\nuse a ;\n", ""},
      {"without backups an older one stays",
       "echo older >a.vhd.bak; qorn -c rc a.vhd; cat a.vhd a.vhd.bak", 0, "USE a;\nolder\n", ""},
      {"another extension", "echo 'BACKUPFILE \"~\"' >rc; qorn -c rc a.vhd; cat a.vhd a.vhd~", 0,
       "USE a;\nuse a ;\n", ""},
      {"an odd extension",
       "echo 'BACKUPFILE \" %s\n*\"' >rc; qorn -c rc a.vhd; cat 'a.vhd %s\n*' a.vhd", 0,
       "use a ;\nUSE a;\n", "", POSIX},
      {"the second run over a file takes the place of its first backup",
       "qorn a.vhd ./a.vhd; cat a.vhd.bak", 0, "USE a;\n", ""},
      {"a name without its extension", "cp a.vhd b.vhdl; qorn b; cat b.vhdl b.vhdl.bak", 0,
       "USE a;\nuse a ;\n", ""},
      {"and with another one", "cp a.vhd a.vhdl; VHDLEXT=.vhd qorn a; cat a.vhd a.vhdl", 0,
       "USE a;\nuse a ;\n", ""},
      {"a dash, blanks and a line end",
       "f=\"-b  c\nd\"; mv a.vhd \"./$f\"; qorn \"./$f\"; cat \"./$f\" \"./$f.bak\"", 0,
       "USE a;\nuse a ;\n", "", POSIX},
      {"a symbolic link becomes a file, and its backup is the link",
       "ln -s a.vhd l; qorn l; readlink l.bak; readlink l; cat l a.vhd", 0,
       "a.vhd\nUSE a;\nuse a ;\n", "", POSIX},
      {"without backups a symbolic link is followed",
       "ln -s a.vhd l; qorn -c rc l; readlink l; cat a.vhd", 0, "a.vhd\nUSE a;\n", ""},
      {"what a pragma comment switches holds to the end of its file",
       "echo --QORN-OFF >b; qorn b a.vhd; cat a.vhd", 0, "USE a;\n", ""},
      {"the backup is a hard link to the file", "ln a.vhd a.vhd.bak; qorn a.vhd; ls; cat a*", 0,
       "a.vhd\na.vhd.bak\nrc\nUSE a;\nuse a ;\n", ""},
      {"a hard link keeps the old text", "ln a.vhd h; qorn a.vhd; cat h a.vhd", 0,
       "use a ;\nUSE a;\n", ""},
  });
}

TEST(ProgramTest, EndsAtAFileThatCannotBeRead) {
  expectRuns({
      {"no input", "qorn <&-", 2, "", "Error! qorn: standard input: Bad file descriptor\n", POSIX},
      {"a folder", "qorn .", 2, "", "Error! qorn: .: Is a directory\n"},
      {"no such name", "VHDLEXT= qorn a", 1, "",
       "Error! unable to open file a\n       No such file or directory\n"},
      {"a pipe by name", "mkfifo p; timeout 10 qorn p", 1, "",
       "Error! unable to open file p\n       Not a regular file\n"},
      {"files before it stay rewritten, those after it as they are",
       "cp a.vhd b.vhd; qorn a.vhd missing b.vhd || cat a.vhd a.vhd.bak b.vhd", 0,
       "USE a;\nuse a ;\nuse a ;\n",
       "Error! unable to open file missing\n       No such file or directory\n"},
  });
}

TEST(ProgramTest, GoesOnBehindAFileThatCannotBeWritten) {
  expectRuns({
      {"no output", "echo 'use a ;' | qorn >&-", 0, "",
       "Error! qorn: standard output: Bad file descriptor\n", POSIX},
      {"a full device", "echo 'use a ;' | qorn >/dev/full", 0, "",
       "Error! qorn: standard output: No space left on device\n", POSIX},
      {"no stream at all", "qorn a.vhd <&- >&- 2>&-; cat a.vhd a.vhd.bak", 0, "USE a;\nuse a ;\n",
       "", POSIX},
      {"the backup is a folder", "cp a.vhd b.vhd; mkdir a.vhd.bak; qorn a.vhd b.vhd; cat ?.vhd", 0,
       "use a ;\nUSE a;\n", "Error! qorn: Is a directory\n"},
      {"the backup's name is too long",
       "f=$(printf %255s | tr ' ' x); cp a.vhd $f; qorn $f a.vhd; cat $f a.vhd", 0,
       "use a ;\nUSE a;\n", "Error! qorn: File name too long\n", POSIX},
      {"the backup's name leads into another folder",
       "mkdir a.vhdx; echo 'BACKUPFILE \"x/../b\"' >rc; qorn -c rc a.vhd; ls; cat a.vhd", 0,
       "a.vhd\na.vhdx\nrc\nuse a ;\n", "Error! qorn: Not a directory\n"},
      {"the file is a link to its backup",
       "mv a.vhd a.vhd.bak; ln -s a.vhd.bak a.vhd; qorn a.vhd; cat a.vhd.bak", 0, "use a ;\n",
       "Error! qorn: File exists\n", POSIX},
      {"a file of the system", "qorn -c rc /proc/sys/kernel/ostype a.vhd 2>&1 | cut -c1-13; cat *",
       0, "Error! qorn: \nUSE a;\nKEEPBACKUPFILE FALSE\n", "", POSIX},
      {"the output breaks off, and then there is room",
       "yes 'use a ;' | head -20000 >b.vhd; cp b.vhd c; trap '' XFSZ; (ulimit -f 64; qorn b.vhd "
       "a.vhd); cat a.vhd; cmp b.vhd c && ls && qorn b.vhd && cmp b.vhd.bak c && wc -c <b.vhd",
       0, "USE a;\na.vhd\na.vhd.bak\nb.vhd\nc\nrc\n140000\n",
       "Error! qorn: b.vhd: File too large\n", POSIX},
      {"the same without a backup",
       "yes 'constant a;' | head -9000 >b.vhd; cp b.vhd c; trap '' XFSZ; (ulimit -f 220; qorn -c "
       "rc "
       "b.vhd); cmp b.vhd c && ls",
       0, "a.vhd\nb.vhd\nc\nrc\n", "Error! qorn: b.vhd: File too large\n", POSIX},
      {"room for no copy where no backup is wanted",
       "yes 'use a ;' | head -20000 >b.vhd; cp b.vhd c; trap '' XFSZ; (ulimit -f 64; qorn -c rc "
       "b.vhd); cmp b.vhd c && ls",
       0, "a.vhd\nb.vhd\nc\nrc\n", "Error! qorn: b.vhd: File too large\n", POSIX},
  });
}

TEST(ProgramTest, LeavesWhatItMayNotWrite) {
  // A build that counts coverage complains when it cannot write its counts.
  const std::string said = shell(TempFolder(), "chmod 755 .; $nobody qorn -v 2>&1").out;
  if (!said.starts_with("qorn version") || said.find('\n') + 1 != said.size()) {
    GTEST_SKIP() << "no way to nobody: " << said;
  }
  expectRuns({
      {"a folder", "chmod 555 .; $nobody qorn a.vhd; ls; cat a.vhd", 0, "a.vhd\nrc\nuse a ;\n",
       "Error! qorn: Permission denied\n"},
      {"a file", "chmod 444 a.vhd; $nobody qorn -c rc a.vhd; cat a.vhd", 0, "use a ;\n",
       "Error! qorn: Permission denied\n"},
      {"a folder, but the file in it, without backups",
       "chmod 666 a.vhd; chmod 555 .; $nobody qorn -c rc a.vhd; ls -A; cat a.vhd", 0,
       "a.vhd\nrc\nUSE a;\n", ""},
      {"nor read", "chmod 0 a.vhd; VHDLEXT= $nobody qorn a.vhd", 1, "",
       "Error! unable to open file a.vhd\n       Permission denied\n"},
  });
}

TEST(ProgramTest, TakesWhateverBytesCome) {
  const std::string longToken = "--QORN-OFF\n\"" + std::string(200000, 'x') + "\"\n";
  const struct {
    const char* name;
    std::string input;
    std::string expected;
  } cases[] = {
      {"empty", "", ""},
      {"a line end", "\n", "\n"},
      {"no line end at the end", "use a", "USE a"},
      {"carriage returns", "use a ;\r\n--x\r\nuse b\r", "USE a;\n--x\nUSE b"},
      {"bytes beyond ASCII", "--\x80\xff\nuse \xe4 ;\n", "--\x80\xff\nUSE \xe4;\n"},
      {"a long token", longToken, longToken},
      {"zeros", std::string("use a\0 ;\n\0", 10), "USE a;\n"},
  };
  for (const auto& row : cases) {
    const TempFolder folder;
    folder.write("a.vhd", row.input);
    EXPECT_EQ(shell(folder, "qorn <a.vhd && qorn a.vhd && cat a.vhd").out,
              row.expected + row.expected)
        << row.name;
    EXPECT_EQ(folder.read("a.vhd.bak"), row.input) << row.name;
  }
}

}  // namespace
