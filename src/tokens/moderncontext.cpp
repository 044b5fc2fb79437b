// Each function matches one kind of token and notes what it opens or closes.
#include "tokens/moderncontext.h"

#include <algorithm>

#include "tokens/lexrules.h"
#include "tokens/tokencodes.h"

namespace {

Match orNoMatch(Match match) { return match.length > 0 ? match : noMatch; }

bool isLineBreak(char character) { return character == '\n' || character == '\r'; }

}  // namespace

Match ModernContext::match(const char* at) {
  if (at < commentEnd) return matchOpenComment(at);
  if (isProtected) return matchProtected(at);
  if (hasClass(*at, LETTER | DIGIT)) return matchModernBitString(at);
  return hasClass(*at, BLANK) ? noMatch : matchMark(at);
}

Match ModernContext::matchMark(const char* at) {
  switch (*at) {
    case '!': return {T_BAR, 1};
    case '\'': return orNoMatch({T_ATTRIBUTE_NAME, matchModernAttribute(at)});
    case '.': return at == pathDot ? Match{T_PATHDOT, 1} : noMatch;
    case '/': return at[1] == '*' ? openComment(at) : noMatch;
    case '`': return isLineStart(at, begin) ? matchDirective(at) : noMatch;
    case '{':
    case '}':
    case ']':
    case ';': return matchBrace(*at);
    case '<':
      if (at[1] == '<') pathDot = at + matchBeforePath(at);
      return matchOperator(at);
    case '[': {
      const Match match = matchOperator(at);
      isInRepetition = match.length > 0;
      return match;
    }
    case '?':
    case '>':
    case '|':
    case '-':
    case '&': return matchOperator(at);
    default: return noMatch;
  }
}

int ModernContext::typOfWord(int word) {
  if (word == T_VUNIT || word == T_VPROP || word == T_VMODE) awaitsUnit = true;
  if (parenLevel == 0) return word;
  if (word == T_FUNCTION || word == T_PROCEDURE) return T_INTERFACE_SUBPROGRAM;
  return word == T_PACKAGE ? static_cast<int>(T_INTERFACE_PACKAGE) : word;
}

// Semicolons in the braces of a sequence end no statement; the braces of a unit hold declarations.
Match ModernContext::matchBrace(char mark) {
  const bool opensUnit = awaitsUnit && mark == '{';
  const bool closesUnit = braceLevel == 0 && mark == '}';
  if (mark == '{' || mark == ';') awaitsUnit = false;
  if (opensUnit) return {T_LBRACE, 1};
  if (closesUnit) return {T_RBRACE, 1};
  if (mark == ']' && !isInRepetition) return noMatch;
  if (mark == ';') return braceLevel > 0 ? Match{T_SEQUENCE_SEMICOLON, 1} : noMatch;
  isInRepetition = false;
  if (mark == '{') ++braceLevel;
  if (mark == '}') --braceLevel;
  return {T_MATCHING, 1};
}

// One token per line, so that only an extended identifier can hold a line end.
Match ModernContext::openComment(const char* at) {
  commentEnd = at + matchBlockComment(at, end);
  const char* lineEnd = std::find(at, commentEnd, '\n');
  const bool isInline = lineEnd == commentEnd && !isLineOver(commentEnd);
  return {isInline ? T_INLINECOMMENT : T_BLOCKCOMMENT, lengthOfLine(at, lineEnd)};
}

Match ModernContext::matchOpenComment(const char* at) const {
  if (isLineBreak(*at) || hasClass(*at, BLANK)) return noMatch;
  return {T_COMMENTLINE, lengthOfLine(at, std::find(at, commentEnd, '\n'))};
}

Match ModernContext::matchDirective(const char* at) {
  const int typ = directiveTyp(at);
  isProtected = opensProtected(at);
  if (typ == T_IF_DIRECTIVE) branchLevels.push_back(parenLevel);
  if (!branchLevels.empty() && typ == T_ELSE_DIRECTIVE) parenLevel = branchLevels.back();
  if (!branchLevels.empty() && typ == T_END_DIRECTIVE) branchLevels.pop_back();
  return {typ, matchRestOfLine(at)};
}

Match ModernContext::matchProtected(const char* at) {
  if (isLineBreak(*at)) return noMatch;
  if (!closesProtected(at)) return {T_RAWLINE, matchRestOfLine(at)};
  isProtected = false;
  return *at == '`' ? matchDirective(at) : noMatch;
}
