// What is open in a source of the newer editions, on which the meaning of words and marks depends:
// a delimited comment, text for other tools, the path of an external name, a verification unit and
// its sequences, conditional directives. A source of an older edition has none of it.
#ifndef QORN_TOKENS_MODERNCONTEXT_H
#define QORN_TOKENS_MODERNCONTEXT_H

#include <vector>

#include "base/sourcetext.h"
#include "tokens/modernrules.h"

class ModernContext {
 public:
  /** `level` is the current depth of parentheses, which each branch of a conditional directive
      starts with anew. The source has to outlive the object, and so has `level`. */
  ModernContext(const SourceText& source, int& level)
      : begin(source.begin()), end(source.end()), parenLevel(level) {}

  /** The token at `at` if only the newer editions have it, else noMatch: then the rules of the
     older ones apply. Requires: positions that advance from token to token. */
  Match match(const char* at);
  /** The code of a reserved word here. */
  int typOfWord(int word);

 private:
  Match matchMark(const char* at);
  Match matchBrace(char mark);
  Match openComment(const char* at);
  Match matchOpenComment(const char* at) const;
  Match matchProtected(const char* at);
  Match matchDirective(const char* at);

  const char* begin;  // of the source
  const char* end;
  int& parenLevel;
  const char* commentEnd = nullptr;  // of the current delimited comment
  const char* pathDot = nullptr;     // the dot that opens the path of an external name
  bool isProtected = false;          // does text for other tools follow?
  bool awaitsUnit = false;           // has the head of a verification unit begun?
  bool isInRepetition = false;       // is a bracket of a sequence open?
  int braceLevel = 0;                // of sequences
  std::vector<int> branchLevels;     // of parentheses, before each open conditional directive
};

#endif
