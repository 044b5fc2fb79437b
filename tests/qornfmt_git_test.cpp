// `qornfmt` on real repositories: what is judged, what is written where, what stays.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "programrun.h"

namespace {

// Every case starts in the root of a work tree where old.vhd is committed: four formatted lines.
constexpr const char* repository =
    "export HOME=$PWD GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@example.org"
    " GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@example.org GIT_DISCOVERY_ACROSS_FILESYSTEM=1;"
    " mkdir tree; cd tree; git init -q;"
    " printf 'USE a;\\nUSE b;\\nUSE c;\\nUSE d;\\n' >old.vhd; git add old.vhd; git commit -qm 1;"
    " edit() { sed -i \"$1\" old.vhd; }; index() { git cat-file blob \":0:$1\"; };\n";

void expectInRepository(std::initializer_list<ShellCase> cases) {
  for (const ShellCase& row : cases) {
    if (row.isSkipped()) continue;
    SCOPED_TRACE(row.name);
    const TempFolder folder;
    const ProgramRun run = shell(folder, std::string(repository) + row.commands);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.out, row.out);
    EXPECT_EQ(run.err, row.err);
  }
}

TEST(QornfmtGitTest, FormatsWhatIsStaged) {
  expectInRepository({
      {"nothing", "qornfmt --staged", 0, "", "qornfmt: nothing is staged\n"},
      {"no VHDL", "touch x; git add x; qornfmt --staged", 0, "",
       "qornfmt: no VHDL file is staged\n"},
      {"no repository", "cd ..; qornfmt --staged", 2, "",
       "qornfmt: git: not a git repository (or any of the parent directories): .git\n"},
      {"changed lines, in both places",
       "edit 's/.*c;/use  c ;/'; git add .; qornfmt --staged; index old.vhd; cat old.vhd;"
       " git diff --stat",
       0, "USE a;\nUSE b;\nUSE c;\nUSE d;\nUSE a;\nUSE b;\nUSE c;\nUSE d;\n",
       "1 staged file formatted\n"},
      {"lines that were so before stay",
       "edit 's/USE/use/'; git commit -qam 2; edit '2s/.*/use  x ;/'; git add .;"
       " qornfmt -q --staged; index old.vhd",
       0, "use a;\nUSE x;\nuse c;\nuse d;\n", ""},
      {"further changes of the work tree stay",
       "edit '4s/.*/use  d ;/'; git add .; edit '1s/.*/use  y ;\\n\\n/'; qornfmt -q --staged;"
       " index old.vhd; cat old.vhd",
       0, "USE a;\nUSE b;\nUSE c;\nUSE d;\nuse  y ;\n\n\nUSE b;\nUSE c;\nUSE d;\n", ""},
      {"and the same line, too",
       "edit '2s/.*/use  x ;/;4s/.*/use  d ;/'; git add .; edit '2s/x/y/'; qornfmt --staged;"
       " index old.vhd; cat old.vhd",
       0, "USE a;\nUSE x;\nUSE c;\nUSE d;\nUSE a;\nuse  y ;\nUSE c;\nUSE d;\n",
       "old.vhd: formatted in the index; in the work tree 1 of 2 stretches stay, as they have"
       " further changes\n1 staged file formatted\n"},
      {"a new file whole, before the first commit",
       "rm -rf .git; git init -q; edit 's/USE/use/'; git add .; rm old.vhd; qornfmt -q --staged;"
       " index old.vhd; ls",
       0, "USE a;\nUSE b;\nUSE c;\nUSE d;\n", ""},
      {"only looked at",
       "edit '1s/.*/use  x ;/'; git add .; git diff --cached --quiet HEAD -- || qornfmt --staged"
       " --check; qornfmt --staged --diff -q | head -n 2; index old.vhd | head -n 1",
       0, "old.vhd\n--- a/old.vhd\n+++ b/old.vhd\nuse  x ;\n",
       "1 staged file would change; qornfmt --staged formats it\n"},
      {"what the checkout converts",
       "git config core.autocrlf true; edit '2s/.*/use  x ;/'; sed -i 's/$/\\r/' old.vhd;"
       " git add . 2>/dev/null; qornfmt -q --staged; index old.vhd; tr '\\r' R <old.vhd",
       0, "USE a;\nUSE x;\nUSE c;\nUSE d;\nUSE a;R\nUSE x;R\nUSE c;R\nUSE d;R\n", ""},
      {"a renamed file has its old lines",
       "edit 's/USE/use/'; git commit -qam 2; git mv old.vhd new.vhd; sed -i '2s/.*/use  x ;/'"
       " new.vhd; git add .; qornfmt -q --staged; index new.vhd",
       0, "use a;\nUSE x;\nuse c;\nuse d;\n", ""},
      {"what is not checked out stays so",
       "edit '2s/.*/use  x ;/'; git add .; git update-index --skip-worktree old.vhd; rm old.vhd;"
       " qornfmt -q --staged; index old.vhd; git status --short",
       0, "USE a;\nUSE x;\nUSE c;\nUSE d;\nM  old.vhd\n", ""},
      {"mode kept, deleted and renamed files, links and submodules aside",
       "printf 'use  x ;\\n' >x.vhd; chmod +x x.vhd; ln -s x.vhd l.vhd; git init -q sub.vhd;"
       " git -C sub.vhd commit -q --allow-empty -m 1; git add . 2>/dev/null; git mv old.vhd "
       "new.vhd;"
       " git commit -qm 2; git mv new.vhd newer.vhd; git rm -q l.vhd; printf ' use y ;\\n' >x.vhd;"
       " git -C sub.vhd commit -q --allow-empty -m 2; git add . ; qornfmt --staged;"
       " git ls-files -s x.vhd | cut -c 1-6; cat x.vhd",
       0, "100755\nUSE y;\n", "1 of 2 staged files formatted\n"},
  });
}

TEST(QornfmtGitTest, FormatsWhatHasChanged) {
  expectInRepository({
      {"against the last commit, unknown files whole, ignored ones not",
       "edit '2s/.*/use  x ;/'; git add .; edit '4s/.*/use  y ;/'; echo 'use z ;' >new.vhd;"
       " cp new.vhd gone.vhd; echo gone.vhd >.gitignore; qornfmt --changed; cat *.vhd; index "
       "old.vhd",
       0, "use z ;\nUSE z;\nUSE a;\nUSE x;\nUSE c;\nUSE y;\nUSE a;\nuse  x ;\nUSE c;\nUSE d;\n",
       "2 of 2 changed files formatted\n"},
      {"against another",
       "edit '2s/.*/use  x ;/'; git commit -qam 2; qornfmt --check --changed; echo $?;"
       " qornfmt -q --check --changed=HEAD~",
       1, "0\nold.vhd\n", ""},
      {"that there is not", "qornfmt --changed=nosuch", 2, "",
       "qornfmt: git knows no commit nosuch\n"},
      {"before the first commit",
       "rm -rf .git; git init -q; edit 's/USE/use/'; git add old.vhd;"
       " qornfmt --changed --check -q",
       1, "old.vhd\n", ""},
      {"deleted", "git rm -q old.vhd; qornfmt --changed --check", 0, "", ""},
  });
}

TEST(QornfmtGitTest, FindsFilesWhateverTheirNames) {
  expectInRepository({
      {"odd names, from below, limited to a folder",
       "mkdir -p src/deep other; for name in \"src/new\nline.vhd\" 'src/qu\"ote.vhd' src/-dash.VHD"
       " 'src/:(top)\303\244.vhd' other/x.vhd; do echo 'use  a ;' >\"$name\"; done; git add .;"
       " cd src/deep; qornfmt --staged --check .. | tr '\\n' '|'; qornfmt -q --staged; cat ../*.*;"
       " git diff --stat; git config diff.noprefix true; git config diff.external false;"
       " git config color.ui always; git config diff.relative true; git config core.quotePath true;"
       " GIT_DIFF_OPTS=-u9 qornfmt --changed --check ../..",
       0,
       "../-dash.VHD|../:(top)\303\244.vhd|../new|line.vhd|../qu\"ote.vhd|"
       "USE a;\nUSE a;\nUSE a;\nUSE a;\n",
       "4 of 4 staged files would change; qornfmt --staged formats them\n", POSIX},
      {"in a linked work tree",
       "git worktree add -q ../linked; cd ../linked; edit '2s/.*/use  x ;/'; git add .;"
       " qornfmt -q --staged; index old.vhd; cat ../tree/old.vhd",
       0, "USE a;\nUSE x;\nUSE c;\nUSE d;\nUSE a;\nUSE b;\nUSE c;\nUSE d;\n", ""},
      {"in a hook, from the index that git names",
       "printf '#!/bin/sh\\nexec qornfmt -q --staged\\n' >.git/hooks/pre-commit;"
       " chmod +x .git/hooks/pre-commit; edit '2s/.*/use  x ;/'; git commit -qam 2;"
       " git show HEAD:old.vhd; git status --short",
       0, "USE a;\nUSE x;\nUSE c;\nUSE d;\n", ""},
      {"in conflict",
       "git checkout -qb side; edit '2s/.*/use x ;/'; git commit -qam 2; git checkout -q -;"
       " edit '2s/.*/use y ;/'; echo 'use  z ;' >z.vhd; git add .; git commit -qm 3;"
       " git merge -q side >/dev/null; cp old.vhd before; qornfmt --changed; qornfmt --staged;"
       " echo $?; cmp old.vhd before",
       0, "2\n",
       "old.vhd: in conflict; resolve and add it first\n"
       "old.vhd: in conflict; resolve and add it first\n"},
  });
}

}  // namespace
