// The program: options first, then configuration, then the inputs one by one through the one
// scanner. Standard output carries only formatted text; all messages go to standard error.
#include <cstdio>
#include <new>

#include "base/exitstatus.h"
#include "base/fatal.h"
#include "base/number.h"
#include "base/system/run.h"
#include "config/configfiles.h"
#include "driver/argscan.h"
#include "driver/version.h"
#include "scanner/vhdlscanner.h"

namespace {

constexpr const char* usageText =
    "USAGE: qorn [-hvik] [-t <count>] [-c <configfile>] [<file> ...]\n"
    "\n"
    "             -h ................ print this message\n"
    "             -v ................ print version and exit\n"
    "             -k ................ keep indentation (to format parts of code)\n"
    "             -t <count> ........ set input tabsize\n"
    "             -c <configfile> ... use <configfile> instead of $QORNRC\n"
    "                                 or ~/.qornrc\n"
    "             <file> ...  ....... files to format\n"
    "\n";

void usage(FILE* stream) { std::fputs(usageText, stream); }

void version(FILE* stream) { std::fprintf(stream, "qorn version: %s\n", programVersion); }

void useHelp() { std::fputs("use qorn -h for help\n", stderr); }

/** -1 if -t is given without a number above 0, which is then reported. */
int checkTabsize(const char* value) {
  if (value[0] == '\0' || integerAt(value) > 0) return 0;
  std::fprintf(stderr, "Error! option -t needs a number above 0: %s\n", value);
  useHelp();
  return -1;
}

/** Reads the configuration, then the options, which win over it. -1 if a named configuration file
    can't be opened or -t is not given a number above 0. */
int configure(ArgScan& options, Settings& settings) {
  const char* configFile = options.getSwitch('c');
  const bool isNamed = configFile[0] != '\0';
  if (ReadConfigFile(isNamed ? configFile : nullptr, settings) != 0) return -1;
  const char* tabsize = options.getSwitch('t');
  if (checkTabsize(tabsize) != 0) return -1;
  if (tabsize[0] != '\0') settings.oldTabsize = integerAt(tabsize);
  if (options.getFlag('k') == 1) settings.keepIndentation = 1;
  return 0;
}

ExitStatus formatStandardInput(VhdlScanner& scanner) {
  if (scanner.setInputFile(nullptr) != 0 || scanner.format() != 0) return STATUS_FAILED;
  scanner.Print(stdout);
  return STATUS_OK;
}

/** The files named, up to the first that can't be opened; those before it stay rewritten. */
ExitStatus formatFiles(ArgScan& options, VhdlScanner& scanner) {
  const char* file = options.getFirstArgument();
  while (file != nullptr) {
    if (scanner.setInputFile(file) != 0 || scanner.format() != 0) return STATUS_FAILED;
    scanner.Print(nullptr);
    file = options.getNextArgument();
    if (file != nullptr) scanner.Reset();  // the last list is freed with the process
  }
  return STATUS_OK;
}

/** Does what the command line asks for, and returns how the run is to end. */
ExitStatus run(int argc, char** argv) {
  ArgScan options;
  options.setOptionalFlags("hvik");
  options.setOptionalSwitch('c', "");
  options.setOptionalSwitch('t', "");
  if (options.scan(argc, argv) != 0) {
    std::fprintf(stderr, "%s", options.getErrors());
    useHelp();
    return STATUS_FAILED;
  }
  if (options.getFlag('h') == 1) {
    usage(stderr);
    return STATUS_OK;
  }
  if (options.getFlag('v') == 1) {
    version(stderr);
    return STATUS_OK;
  }
  Settings settings;
  if (configure(options, settings) != 0) return STATUS_FAILED;
  static VhdlScanner& scanner = *new VhdlScanner(settings);  // freed with the process
  if (options.getFlag('i') == 1) scanner.setIncludeOption();
  if (options.getFirstArgument() == nullptr) return formatStandardInput(scanner);
  return formatFiles(options, scanner);
}

}  // namespace

int main(int argc, char** argv) {
  prepareRun(argc, argv);
  std::set_new_handler(outOfMemory);
  endOnInterruption(STATUS_INTERRUPTED);
  endRun(run(argc, argv));
}
