// The proof that a layout holds the tokens of its text, and the stretches in which both differ.
#include "fmt/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

struct Case {
  const char* old;
  const char* fresh;
  const char* expected;  // message without its frame, empty if the layout is right
};

std::string verdict(std::string_view old, std::string_view fresh) {
  const Comparison comparison = compareTexts(old, fresh, "-=*");
  if (!comparison.fault) return "";
  constexpr std::string_view front = "formatting would ";
  const std::string message = comparison.fault->message.substr(front.size());
  return message.substr(0, std::min(message.find("; put"), message.find("; set")));
}

template <std::size_t count>
void expectVerdicts(const Case (&cases)[count]) {
  for (const Case& row : cases) EXPECT_EQ(verdict(row.old, row.fresh), row.expected) << row.old;
}

// --- What may change ---

TEST(Comparison, TakesBlanksLineEndsAndLetterCase) {
  expectVerdicts({
      {"a<=b;\r\nEND", "A <= B;\nend\n", ""},
      {"10ns 1.5E-3 16#fF# 1 .a", "10 ns 1.5e-3\n16#Ff# 1.a", ""},
      {"x\"aF\" 7X\"0F\" 12Ub\"1Z\"", "X\"Af\" 7X\"0f\" 12uB\"1Z\"", ""},
      {"when '0'!a ! \"+\"", "when '0' | a | \"+\"", ""},
      {"x'event t'('(') ('(', ')') 'a", "X' EVENT t ' ( '(' )('(',')')\n'A", ""},
      {"a <<signal ^.p : t>> ?? case? x", "a << signal ^ . p : t >> ?? case ? x", ""},
      {"`if a = \"b\" then\nc", "`IF a=\"b\"  THEN\n  c", ""},
  });
}

TEST(Comparison, TakesFramesAndSplitsOfComments) {
  expectVerdicts({
      {"------\n-- Title --\n--====", "-----------\n-- Title\n--==", ""},
      {"--\tlong words ** here ==\n--next", "-- long\n  --  words ======\n-- here\n-- next", ""},
      {"a; --b\n--c", "a;\n-- b c", ""},
      {"/* a\n  b */ c", "  /* a\nb */\nc", ""},
  });
}

TEST(Comparison, TakesShieldedStretchesAsTheyAre) {
  expectVerdicts({
      {"--QORN-OFF\n\ta  :=  B;--x\ty\t\n--QORN-ON\nA",
       "--QORN-OFF\n    a  :=  B;--x y\n--QORN-ON\na", ""},
      {"--QORN-OFF\na := B;", "--QORN-OFF\na := b;", "change \"B\" to \"b\""},
      {"--QORN-OFF\na  := b;", "--QORN-OFF\na := b;", "change lines that have to stay as they are"},
      {"--QORN-OFF x\na", "--qorn-off x\na", "change \"--QORN-OFF x\" to \"--qorn-off x\""},
      {"--QORN-INDENT-OFF\na := B;", "--QORN-INDENT-OFF\na := b;", ""},
      {"--QORN-INDENT-OFF\na;\nb", "--QORN-INDENT-OFF\na; b",
       "change lines that have to stay as they are"},
  });
}

// --- What must not ---

TEST(Comparison, RefusesOtherTokens) {
  expectVerdicts({
      {"a ?= b", "a ? = b", "take \"?=\" apart"},
      {"1e-3", "1e - 3", "take \"1e-3\" apart"},
      {"12x\"F\"", "12 x\"F\"", "take \"12x\"F\"\" apart"},
      {"\\a\\\\b\\", "\\a\\ \\b\\", "take \"\\a\\\\b\\\" apart"},
      {"{a |=> b[*2]}", "{a |=> b[ * 2]}", "take \"[*\" apart"},
      {"a - - b", "a -- b", "turn \"-\" into a comment"},
      {"a : = b", "a := b", "join \":\" and \"=\""},
      {"a\rb", "ab", "drop a carriage return inside the line"},
      {"a b\r\n", "ab\n", "join \"a\" and \"b\""},
      {"a b c", "a c", "lose \"b\""},
      {"a c", "a b c", "add \"b\""},
      {"\\Name\\", "\\name\\", "change \"\\Name\\\" to \"\\name\\\""},
      {"X\"zz\"", "x\"ZZ\"", "change \"X\"zz\"\" to \"x\"ZZ\"\""},
      {"a := '(' ;", "a := ' (' ;", "take \"'('\" apart"},
      {"always eventually! a", "always eventually| a", "change \"eventually!\" to \"eventually|\""},
      {"assert {a; b}! ;", "assert {a; b}| ;", "change \"!\" to \"|\""},
  });
}

TEST(Comparison, RefusesOtherComments) {
  expectVerdicts({
      {"-- a b", "-- a", "lose \"b\""},
      {"-- a B", "-- a b", "change \"B\" to \"b\""},
      {"-- a\nb;", "-- a b;", "turn \"b\" into a comment"},
      {"-- a\rb;", "-- a\nb;", "drop a carriage return inside the line"},
      {"-- a b;", "-- a\nb;", "take \"b;\" out of its comment"},
      {"/* a\n-- b */", "/* a -- b */", "change lines that have to stay as they are"},
      {"/* It */", "/* it */", "change \"It\" to \"it\""},
  });
}

TEST(Comparison, RefusesLinesOfOtherLanguages) {
  expectVerdicts({
      {"a // b\nc", "a // b c", "change \"// b\", which is not VHDL"},
      {"a;\n#if B\nc", "a; #if B\nc", "change \"#if B\", which is not VHDL"},
      {"all:\n\t$(CC) $<", "all :\n    $(cc) $<", "change \"$(CC) $<\", which is not VHDL"},
      {"`if a then\nb", "`if a then b", "change lines that have to stay as they are"},
      {"`protect begin_protected\nAb=\n`protect end_protected",
       "`protect begin_protected\nab=\n`protect end_protected",
       "change \"Ab=\", which is not VHDL"},
  });
  EXPECT_EQ(verdict({"a\0b", 3}, "ab"), "change \"a\" to \"ab\"");
}

TEST(Comparison, TellsLineAndRemedy) {
  const Comparison comparison = compareTexts("a;\n/* b\n*/ c ?= d", "A;\n/* b\n*/\nc ? = d", "-=*");
  ASSERT_TRUE(comparison.fault);
  EXPECT_EQ(comparison.fault->line, 3U);
  EXPECT_EQ(comparison.fault->message,
            "formatting would take \"?=\" apart; put --QORN-OFF in front of it");
}

// --- Stretches ---

std::string shown(const Lines& lines, std::string_view text) {
  return std::to_string(lines.first) + "," + std::to_string(lines.count) + "[" +
         std::string(text.substr(lines.place, lines.size)) + "]";
}

std::string stretches(std::string_view old, std::string_view fresh) {
  std::string result;
  for (const Stretch& stretch : compareTexts(old, fresh, "-=*").changed) {
    result += shown(stretch.old, old) + shown(stretch.fresh, fresh) + " ";
  }
  return result;
}

TEST(Comparison, PartsWhereBothStartALine) {
  EXPECT_EQ(stretches("a\nb\nc", "a\nb\nc"), "");
  EXPECT_EQ(stretches("a\n b\nc\n", "a\nb\nc\n"), "2,1[ b\n]2,1[b\n] ");
  EXPECT_EQ(stretches("a b\nc\n\n D", "a\nb\nc\n\nd"), "1,1[a b\n]1,2[a\nb\n] 4,1[ D]5,1[d] ");
  EXPECT_EQ(stretches("a\nb\n", "a\n\nb\n"), "2,0[]2,1[\n] ");
  EXPECT_EQ(stretches("a\nb\nc\nd\n", "a\nb c\nd\n"), "2,2[b\nc\n]2,1[b c\n] ");
  EXPECT_EQ(stretches("--==\n-- a  ==\n--==\nb", "--=====\n-- a==\n--==\nb\n"),
            "1,1[--==\n]1,1[--=====\n] 2,1[-- a  ==\n]2,1[-- a==\n] 4,1[b]4,1[b\n] ");
  EXPECT_EQ(stretches("", "\n"), "1,0[]1,1[\n] ");
}

}  // namespace
