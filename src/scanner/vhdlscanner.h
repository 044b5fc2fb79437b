// The formatter. Every formatting operation is a member of the one class; the banners below divide
// it into sections, each with the contract that its members share. What a handler reads and what it
// makes of that is shown at its definition.
#ifndef QORN_SCANNER_VHDLSCANNER_H
#define QORN_SCANNER_VHDLSCANNER_H

#include <cstdio>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "base/anchorguard.h"
#include "base/dynstring.h"
#include "base/oldlist.h"
#include "base/sourcetext.h"
#include "base/stack.h"
#include "base/system/paths.h"
#include "base/textsink.h"
#include "scanner/indentstack.h"
#include "scanner/lineruler.h"
#include "scanner/passstate.h"
#include "scanner/settings.h"
#include "scanner/stopindex.h"
#include "tokens/tokencodes.h"
#include "tokens/vhdllexer.h"
#include "tokens/vhdltoken.h"

class FileReplacement;

/** One object of this class formats all files of a run. It holds the token list of the file in
   hand, every setting, and the state of the passes over that list.

    Its life: built with its settings, then for each input setInputFile, format, Print and Reset.
    There is no parser. The pass reads the token list with getNextToken, looks only at the words
   that open a construct, and calls the handler that bears the word's name; what no handler takes
   gets the default treatment, so that nothing is rejected.

    The rule of the anchor: all passes share the list's one cursor. Questions and primitives leave
    it where it was; handlers move it on to the last token that they consumed. Blanks and line ends
    are tokens too. They change by their format text alone, new ones are inserted, and nothing
    leaves the list before Reset. Columns are counted from 0 and in bytes, widths are counts. */
class VhdlScanner {
 public:
  explicit VhdlScanner(const Settings& chosen = Settings());
  VhdlScanner(const VhdlScanner&) = delete;
  VhdlScanner& operator=(const VhdlScanner&) = delete;
  virtual ~VhdlScanner();

  void setIncludeOption() { includeOption = 1; }
  /** Opens the file, or the file with the extension of VHDLEXT after its name; null means standard
      input. 0, or -1 if neither opens, which has then been reported. */
  [[nodiscard]] int setInputFile(const char* path);
  /** Reads the input to its end, closes it and lays the list out; or a text in memory. 0, or -1. */
  [[nodiscard]] int format();
  [[nodiscard]] int format(std::string_view text);
  /** Writes the list: to standard output if stream is not null, else over the input file, of which
      settings may demand a backup. Failures are reported. */
  void Print(FILE* stream);
  void Print(TextSink& sink);
  /** Makes the object ready for the next file. */
  void Reset();

 private:
  friend class ScannerProbe;  // the unit tests' view of lists and primitives

  // --- Pipeline (pipeline.cpp) ---

  void readInput();
  /** Null, or the reason why the file can't be opened. */
  [[nodiscard]] const char* openInputFile(const char* path);
  void closeInputFile();
  void startLex();
  int formatSource();
  int IncludeHeaders();
  void addSentinel();

  // --- Output (layout/output.cpp) ---

  /** Makes the backup and opens the file for writing; 0, or -1. Either reports failures. */
  [[nodiscard]] int OpenOutfile(FileReplacement& outFile) const;
  void CloseOutfile(FileReplacement& outFile) const;

  // --- The anchor: shorthands for the list's cursor (base/oldlist.h). The last two move it ---

  VhdlToken* anchorToken() const { return tokenList.getAnchor(); }
  VhdlToken* peekForward() const { return tokenList.peekNext(); }
  VhdlToken* peekBack() const { return tokenList.peekPrev(); }
  VhdlToken* stepForward() { return tokenList.getNext(); }
  VhdlToken* stepBack() { return tokenList.getPrev(); }

  // --- Look-around (lookaround.cpp): questions about the anchor's neighbours; the anchor stays ---

  int getParenLevel() const;
  bool isModern() const { return settings.vhdl >= firstModernEdition; }
  /** Code of the next token, skipping blanks; -1 at the end of the list. */
  int typAfterBlanks() const;
  /** Code of the previous token, skipping blanks; -1 at the head of the list. */
  int typBeforeBlanks() const;
  int nextIs(int typ) const { return typAfterBlanks() == typ ? 1 : 0; }
  int prevIs(int typ) const { return typBeforeBlanks() == typ ? 1 : 0; }
  /** Is the next token that is neither blank nor line end an ordinary comment? */
  int nextIsComment() const;
  /** Is the anchor first on its line? With mode 1 emptied line ends don't count. */
  int prevIsNewline(int mode) const;
  /** Is the anchor preceded by a name and a colon, and perhaps the word postponed? */
  int prevIsLabel() const;
  /** Code of the count-th token ahead that is no blank, line end or comment; T_EOF at the end. */
  int LookForward(int count) const;
  /** Columns before the anchor on its line: of the output as far as it is laid out with mode 1, of
      the source with mode 0. Asks `ruler`, which has to know of changes before the anchor. */
  int getColumn(int mode);

  // --- Indentation (indentation.cpp) ---

  /** Opens a level: saves the indent, then adds the amount to it (relative 1) or sets it to the
      amount, and opens the statement. Undone by one popIndent. */
  void setIndent(int amount, int relative, IndentKind kind = LEVEL_STATEMENT);
  void stepIn(IndentKind kind = LEVEL_STATEMENT);
  /** Restores the indent saved last, 0 if there is none. */
  void popIndent();
  void StatementClosed() { state.statementClosed = 1; }
  void StatementOpen() { state.statementClosed = 0; }
  /** Opens a statement, with its continuation one step in, unless one is open. */
  void setIdentifierIndent();
  /** Stamps the indent on the anchor token, whatever it was stamped with before. */
  void setTokenIndent();
  /** popIndent, and the anchor token takes the indent: a closing word at the level of its head. */
  void popTokenIndent();
  /** The same for a word amid a structure: what follows it is one step in again. */
  void outdentToken(IndentKind kind = LEVEL_STATEMENT);
  /** One step in for what follows the anchor, unless the label of the statement has done so. */
  void indentUnlessLabelled();

  // --- Spacing and line primitives (primitives.cpp): the only tools for blanks and line ends. They
  // --- write format texts alone. The anchor stays, but setNextNewline and those that call it, the
  // --- `end...` functions, move it to the line end.

  void setNextSpaces(int count);
  void setPrevSpaces(int count);
  /** Sets the blanks before a token. Returns by how many there are more than before. */
  int setSpacesBefore(VhdlToken& token, int count);
  /** Ends the line after the anchor and moves the anchor onto the line end; does nothing if a
      comment follows that ends the line. */
  void setNextNewline();
  /** setNextNewline after a head or a whole statement: the next token starts a statement. */
  void endLine();
  /** endLine after the semicolon of a statement, whose level ends here. */
  void endStatement();
  /** endLine after a head, whose level holds a body from here on. */
  void endHead(IndentKind kind = LEVEL_BODY);
  /** Starts a line with the anchor token. */
  void setPrevNewline();
  void deleteNewline();
  void singleSpace();
  /** Gives the anchor's line its blanks, after permanently adding delta to its first token's
      indent. On a line end, the line meant is the one that ends there. */
  void IndentLine(int delta);

  // --- Comments (comments.cpp) ---

  /** Places the comment under the anchor and ends its line. Moves the anchor to the token after the
      comment, normally its line end. */
  void handleComment();
  void placeOwnLineComment(VhdlToken& comment, bool fresh);
  void placeTrailingComment(VhdlToken& comment);
  [[gnu::noinline]] void placeWholeLine(VhdlToken& line);  // rare; must not slow the cursor
  void endCommentLine();
  void obeyDirective(VhdlToken& directive);

  // --- Cursor (cursor.cpp): how every handler reads. The anchor is left on the token returned ---

  /** Advances to the next token that a handler has to see, lays out blanks, line ends and comments
      on the way, and gives the token its indent, its spacing and its gravity. Null at the end. */
  VhdlToken* getNextToken();
  /** The code of getNextToken; T_EOF at the end. */
  int getNextTokenTyp();
  void passNewline();
  void passComment(VhdlToken& comment);

  // --- Dispatch (dispatch.cpp): the pass, and what handlers read with. Handlers get the anchor on
  // --- their token and leave it on the last token that they consumed.

  struct Dispatch;
  void Format();
  void Default();
  void Identifier();
  void ParameterList();
  /** Does the anchor, a newer word, begin a statement? Else it is a name. */
  bool opensStatement();
  void SemiColon();
  void Bracket();
  void External();
  void PassOver() {}
  void waitForSemiColon();
  void finishStatement();
  /** Reads on to the closing parenthesis of that level. */
  void waitForParenClose(int level);
  /** Reads on to one of the two codes. False if the input ended first. */
  bool waitFor(int typ, int orTyp);
  /** T_COLON if the anchor belongs to a declaration or follows a label, else -1. */
  int determineContext();
  int findContext() const;

  // --- Design units and structures (units.cpp) ---

  /** Reads one token for each code, up to the first with a different one. True if all matched. */
  bool readHead(std::initializer_list<int> head);
  /** Opens a level, reads the head, and ends its line if all of it matched, which it returns. */
  bool openUnit(std::initializer_list<int> head);
  /** During its lifetime, tokens are read and laid out but not consumed. */
  class Peek;
  int peekTokenTyp();
  bool isInstantiated();
  void Entity();
  void Architecture();
  void Package();
  void Context();
  void Configuration();
  void Component();
  void Library();
  void Use();
  void nameClause(int continuation);
  void Block();
  void Process();
  void endProcessHead();
  void Begin();
  void End();
  bool endsAlternative() const;
  bool endsBindingFor() const;
  void nextPart();
  void LeftBrace() { endHead(); }
  void RightBrace();

  // --- Declarations (declarations.cpp) ---

  void Constant() { objectDeclaration(1); }
  void Variable() { objectDeclaration(1); }
  void Signal() { objectDeclaration(3); }
  void File();
  void Alias();
  void objectDeclaration(int blanks);
  void Attribute();
  void Group();
  void Type();
  void Array();
  void Record();
  void Protected();
  void View();
  void Private();
  void Unit();
  void UnitList();
  void Function();
  void Procedure() { Function(); }
  void Pure();
  void Impure() { Pure(); }
  // From the anchor's opening parenthesis to the closing one.
  void entriesInBlock();
  void entryBlock();
  void parametersInColumn(int blanks);
  void genericsOfSubprogram();
  bool hasSeveralIndexRanges();
  void startDefinition();
  void openElements();
  void closeElements();
  int readEntityClass();

  // --- Lists (lists.cpp) ---

  void Port();
  void PortMap();
  void interfaceBlock(const VhdlToken& paren);
  /** The anchor is on the word or parenthesis that opens the list, or on the line end after it, and
      is left on the `end` or parenthesis that closes it. If none is ahead, nothing is read. */
  void InterfaceList(bool isOfParameters = false);
  void interfaceSubprogram();
  void interfacePackage();
  void AssociationList(int level);
  void WrappedList(int level, int separator, int stop);
  /** Sets the blanks before the anchor that bring it to that width after the indent; at least 1. */
  void alignAt(int width);
  void endEntry();
  // Measuring (lookahead.h) starts from the anchor, which stays.
  /** The entries up to the stop, at most severalEntries; 0 if it never comes. */
  int CountListEntries(int level, int separator, int stop);
  /** Is it known that there is no `end` and no closing parenthesis of that level ahead? */
  bool isLeftOpen(int level) const;
  int longestInterfaceName() const;
  /** Width of the longest name up to the limit, or formal, as alignAt wants it; T_EOF if the list
      never ends. The former also sets the columns of words. */
  int LongestInterfaceIdentifier(int limit);
  int LongestAssociationIdentifier(int& hasArrow);
  /** Set the blanks after the mode or class words of the list ahead; the latter returns the width
      of the class column, 0 without class words. */
  void lookForInOutLinkage();
  int lookForSignalConstantVariable();
  int setWordColumn(WordKind kind);
  int setIndexedWordColumn(int level, WordKind kind);

  // --- Control statements (statements.cpp) ---

  void openBody();
  void openAlternative(IndentKind kind);
  void openBinding();
  void openMaps();
  void If();
  void BetweenIfThen();
  void Elsif();
  void Else();
  bool isElseGenerate() const;
  void Case();
  void When();
  void whenAmidStatement();
  bool readChoice();
  void For();
  void While();
  void Loop();
  void Wait();
  void Assert();
  void Directive();
  void CheckedDirective();

  // --- Assignments (assignments.cpp) ---

  void alignConstantSignalFile();
  void SignalAssignment();
  void VariableAssignment();
  void SelectedSignalAssignment();
  void readWaveform(int level);
  void startElement(int level);
  /** Width of what precedes the anchor, or a token ahead, in its statement or line; 0 from
      identLength on. */
  int prevTargetLength();
  int targetLengthAhead(const VhdlToken& token) const;
  /** The longest target of the run of statements that starts with the anchor's. */
  int determineTargetLength(int typ, int orTyp);
  const VhdlToken* nextSemicolon();
  /** The blanks before the anchor that bring it to the column of the run. */
  int blanksBeforeAssignment(int typ, int orTyp);

  // --- Fragments (layout/keepindent.cpp) ---

  void KeepIndentation();

  // --- Line breaking and comment reflow (layout/linebreak.cpp, layout/reflow.cpp) ---

  struct LineInHand;
  void LineBreak();
  void drawOutComment(VhdlToken& comment);
  /** Fixes the line that a token makes too long. Returns the token before the next one to visit;
      null if there is no place to break. */
  VhdlToken* WrapLine(VhdlToken& overflow, LineInHand& line);
  VhdlToken* breakAfter(VhdlToken& candidate, LineInHand& line);
  /** Shifts the indents of the line after its first token along with that token's. */
  void ReindentLine(const VhdlToken& first, LineInHand& line);
  /** Updates columns and indents after a token, to the end of its line. */
  void finishLine(const VhdlToken& overflow, LineInHand& line);
  /** The same for the comments from a place on. */
  VhdlToken* breakComments(VhdlToken& place, LineInHand& line);
  /** Shortens or splits the first comment at or after the anchor, and all comments that follow with
      only blanks and line ends in between. Moves the anchor past the last of them. */
  void BreakComment();
  VhdlToken* findComment();
  void placeLongComment(VhdlToken& comment);

  // --- Settings: written by configuration and options, never by a pass ---

  Settings settings;
  int includeOption = 0;  // without effect

  // --- The input; replaced by the next setInputFile and format, the list cleared by Reset ---

  SourceText sourceText;
  TokenList tokenList;  // owns all tokens
  DynString fileName;   // the path actually opened
  FILE* inFile = nullptr;
  FileState inputState;  // of the file when it was opened

  // --- The formatting pass; cleared by Reset ---

  PassState state;
  IndentStack indentStack;
  std::vector<Branching> branches;  // of the open conditional directives

  // --- Memories: what was found at a place in the list, so that it is not searched again. Reset or
  // --- the next format clears them.

  LineRuler ruler;      // width of the output line; who changes a blank before it must report it
  StopIndex stopIndex;  // stops ahead of the cursor, which reports every token that it passes
  ContextMemory context;
  // By code: the semicolon after which determineTargetLength last found no further statement of a
  // run: lines and codes decide. Without it, 3,000 `:=` in a statement take ten times as long.
  TokenTable<const VhdlToken*> runEnds{nullptr};

  // --- What survives Reset ---

  RunState run;
};

#endif
