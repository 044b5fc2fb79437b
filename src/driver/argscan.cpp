// Parsing the command line. No complaint ends the scan, so that one run reports them all.
#include "driver/argscan.h"

#include <cstring>

#include "base/stringlist.h"
#include "base/system/paths.h"
#include "base/system/run.h"

void ArgScan::setOptionalFlags(const char* letters) {
  for (; *letters != '\0'; ++letters) flags.addItemLast(new ArgFlag(*letters));
}

void ArgScan::setOptionalSwitch(char letter, const char* defaultValue) {
  auto* option = new ArgSwitch(letter);
  option->setArgument(defaultValue);
  switches.addItemLast(option);
}

void ArgScan::setMustSwitch(char letter, const char* description) {
  auto* option = new ArgSwitch(letter);
  option->setMust(description);
  switches.addItemLast(option);
}

void ArgScan::setExclusive(const char* letters) { exclusives.addString(letters); }

int ArgScan::scan(int argc, const char* const* argv) {
  DetermineAbsolutePath(argc > 0 ? argv[0] : "");
  int result = 0;
  ArgSwitch* waiting = nullptr;
  for (int i = 1; i < argc; ++i) {
    const char* text = argv[i];
    if (waiting != nullptr) {
      waiting->setStatus();
      waiting->setArgument(text);
      waiting = nullptr;
    } else if (text[0] == '-') {
      if (scanLetters(text + 1, waiting) != 0) result = -1;
    } else {
      storeArgument(text);
    }
  }
  if (dropWaiting(waiting) != 0) result = -1;
  if (checkMustSwitches() != 0) result = -1;
  if (checkExclusives() != 0) result = -1;
  if (checkArgumentCount() != 0) result = -1;
  return result;
}

int ArgScan::scanLetters(const char* letters, ArgSwitch*& waiting) {
  int result = 0;
  for (; *letters != '\0'; ++letters) {
    if (dropWaiting(waiting) != 0) result = -1;
    if (scanLetter(*letters, waiting) != 0) result = -1;
    usedOptions.cat(*letters);
  }
  return result;
}

int ArgScan::scanLetter(char letter, ArgSwitch*& waiting) {
  if (checkFlagExist(letter) == 1) return 0;
  waiting = checkSwitch(letter);
  if (waiting != nullptr) return 0;
  errors.cat("Error! Unknown option -");
  errors.cat(letter);
  errors.cat('\n');
  return -1;
}

int ArgScan::dropWaiting(ArgSwitch*& waiting) {
  if (waiting == nullptr) return 0;
  errors.cat("Error! option -");
  errors.cat(waiting->getFlag());
  errors.cat(" missing arg: ");
  errors.cat(waiting->getDescription());
  errors.cat('\n');
  waiting = nullptr;
  return -1;
}

int ArgScan::getFlag(char letter) {
  const ArgFlag* option = findFlag(letter);
  return option == nullptr ? 0 : option->getStatus();
}

const char* ArgScan::getSwitch(char letter) {
  const ArgSwitch* option = checkSwitch(letter);
  return option == nullptr ? nullptr : option->getArgument();
}

const char* ArgScan::getFirstArgument() {
  const ArgArgument* argument = arguments.getFirst();
  return argument == nullptr ? nullptr : argument->getArgument();
}

const char* ArgScan::getNextArgument() {
  const ArgArgument* argument = arguments.getNext();
  return argument == nullptr ? nullptr : argument->getArgument();
}

int ArgScan::checkFlagExist(char letter) {
  ArgFlag* option = findFlag(letter);
  if (option == nullptr) return 0;
  option->setStatus();
  return 1;
}

ArgFlag* ArgScan::findFlag(char letter) {
  ArgFlag* option = flags.getFirst();
  while (option != nullptr && option->getFlag() != letter) option = flags.getNext();
  return option;
}

ArgSwitch* ArgScan::checkSwitch(char letter) {
  ArgSwitch* option = switches.getFirst();
  while (option != nullptr && option->getFlag() != letter) option = switches.getNext();
  return option;
}

void ArgScan::storeArgument(const char* text) { arguments.addItemLast(new ArgArgument(text)); }

int ArgScan::checkMustSwitches() {
  int result = 0;
  for (auto* option = switches.getFirst(); option != nullptr; option = switches.getNext()) {
    if (option->getMustFlag() == 0 || option->getStatus() == 1) continue;
    errors.cat("Error! Missing option -");
    errors.cat(option->getFlag());
    errors.cat(' ');
    errors.cat(option->getDescription());
    errors.cat('\n');
    result = -1;
  }
  return result;
}

int ArgScan::checkExclusives() {
  int result = 0;
  const char* group = exclusives.getFirstString();
  for (; group != nullptr; group = exclusives.getNextString()) {
    if (checkExclusive(group) != 0) result = -1;
  }
  return result;
}

int ArgScan::checkExclusive(const char* letters) {
  DynString used;
  int count = 0;
  for (; *letters != '\0'; ++letters) {
    if (std::strchr(usedOptions.get(), *letters) == nullptr) continue;
    used.cat(" -");
    used.cat(*letters);
    ++count;
  }
  if (count <= 1) return 0;
  errors.cat("Error! only one of");
  errors.cat(used.view());
  errors.cat(" may be defined\n");
  return -1;
}

int ArgScan::checkArgumentCount() {
  if (argumentCount == 0) return 0;
  int count = 0;
  for (const char* text = getFirstArgument(); text != nullptr; text = getNextArgument()) ++count;
  const long most = -static_cast<long>(argumentCount);
  if (argumentCount > 0 ? count == argumentCount : count <= most) return 0;
  errors.cat(argumentCount > 0 ? "Error! " : "Error! maximal ");
  errors.catl(argumentCount > 0 ? argumentCount : most);
  errors.cat(argumentCount > 0 ? " argument(s) are expected\n" : " argument(s) are allowed\n");
  return -1;
}

void ArgScan::DetermineAbsolutePath(const char* name) {
  if (!hasSeparator(name)) {
    searchPath(name);
    return;
  }
  callPath.set(name);
  callPath.addcwd();
  callPath.cleanup();
}

void ArgScan::searchPath(const char* name) {
  const std::optional<std::string> searched = environmentValue("PATH");
  StringList directories;
  if (!searched || directories.Split(searched->c_str(), folderListSeparator) == 0) return;
  const char* directory = directories.getFirstString();
  for (; directory != nullptr; directory = directories.getNextString()) {
    callPath.set(directory);
    callPath.cat('/');
    callPath.cat(name);
    if (callPath.executable() == 0) {
      callPath.cleanup();
      return;
    }
  }
  callPath.set(name);
}
