// The command line: declare the options, scan once, then ask. An option is a letter after a "-",
// and letters may share one "-". A flag has no value, a switch takes the next argument as its
// value, whatever that begins with. All else is an argument; a lone "-" is nothing. Nothing is
// printed: complaints are collected, and scanning continues after each.
#ifndef QORN_DRIVER_ARGSCAN_H
#define QORN_DRIVER_ARGSCAN_H

#include "base/dynstring.h"
#include "base/list.h"
#include "base/path.h"
#include "base/stringarray.h"

class ArgFlag {
 public:
  explicit ArgFlag(char letter) : flag(letter) {}
  ArgFlag(const ArgFlag&) = delete;
  ArgFlag& operator=(const ArgFlag&) = delete;
  virtual ~ArgFlag() = default;

  char getFlag() const { return flag; }
  int getStatus() const { return status; }
  void setStatus() { status = 1; }

 private:
  char flag;
  int status = 0;  // 1 once given; for a switch, with its value
};

class ArgSwitch : public ArgFlag {
 public:
  using ArgFlag::ArgFlag;

  const char* getArgument() const { return argument.get(); }
  void setArgument(const char* text) { argument.set(text); }
  const char* getDescription() const { return description.get(); }
  int getMustFlag() const { return mustFlag; }
  /** The switch has to be given; the description names its value in messages. */
  void setMust(const char* text) {
    description.set(text);
    mustFlag = 1;
  }

 private:
  DynString argument;  // the default until a value is given
  DynString description;
  int mustFlag = 0;
};

class ArgArgument {
 public:
  explicit ArgArgument(const char* text) : argument(text) {}
  ArgArgument(const ArgArgument&) = delete;
  ArgArgument& operator=(const ArgArgument&) = delete;
  virtual ~ArgArgument() = default;

  const char* getArgument() const { return argument.get(); }

 private:
  DynString argument;
};

/** The texts that it returns live as long as it does. A letter declared twice finds its first
    entry. */
class ArgScan {
 public:
  ArgScan() = default;
  ArgScan(const ArgScan&) = delete;
  ArgScan& operator=(const ArgScan&) = delete;
  virtual ~ArgScan() = default;

  // --- Before scan ---

  /** Declares a flag for each letter. */
  void setOptionalFlags(const char* letters);
  void setOptionalSwitch(char letter, const char* defaultValue);
  void setMustSwitch(char letter, const char* description);
  /** Of these letters at most one may be used. */
  void setExclusive(const char* letters);
  /** Above 0: exactly that many arguments; below 0: at most -count; 0: any number. */
  void setArgumentCount(int count) { argumentCount = count; }

  /** 0, or -1 if there are complaints. */
  [[nodiscard]] int scan(int argc, const char* const* argv);

  // --- After scan ---

  /** 1 if the flag was given; 0 also for a letter that is none. */
  [[nodiscard]] int getFlag(char letter);
  /** The value or the default, empty if there is neither; null for a letter that is no switch. */
  [[nodiscard]] const char* getSwitch(char letter);
  /** Null without arguments. Starts the iteration. */
  const char* getFirstArgument();
  /** Null after the last. */
  const char* getNextArgument();
  /** The complaints, one per line, in the order found; empty if there are none. */
  const char* getErrors() const { return errors.get(); }
  /** The file that the program was started from, as far as that is known. */
  const char* getCallPath() const { return callPath.get(); }
  const char* getProgramName() const { return callPath.tail(); }

 private:
  // Helpers of scan; `waiting` is the switch that has no value yet, or null.
  int scanLetters(const char* letters, ArgSwitch*& waiting);
  int scanLetter(char letter, ArgSwitch*& waiting);
  /** -1, with a complaint, if the switch still waits for its value; it waits no longer. */
  int dropWaiting(ArgSwitch*& waiting);

  /** Sets the flag's status; 0 if there is no such flag. */
  int checkFlagExist(char letter);
  ArgFlag* findFlag(char letter);
  ArgSwitch* checkSwitch(char letter);
  void storeArgument(const char* text);
  void DetermineAbsolutePath(const char* name);
  void searchPath(const char* name);

  // Each returns 0, or -1 with a complaint.
  int checkMustSwitches();
  int checkExclusives();
  int checkExclusive(const char* letters);
  int checkArgumentCount();

  Path callPath;
  List<ArgFlag> flags;
  List<ArgSwitch> switches;
  List<ArgArgument> arguments;
  StringArray exclusives;  // the letters of each group
  int argumentCount = 0;
  DynString usedOptions;  // letters in the order met, unknown ones included
  DynString errors;
};

#endif
