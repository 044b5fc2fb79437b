// The version of both programs, and of everything that is released with them: the build,
// tools/version and the package for pip read it here, by the form of this line. What cannot read it
// is checked by tools/version.
#ifndef QORN_DRIVER_VERSION_H
#define QORN_DRIVER_VERSION_H

constexpr const char* programVersion = "2.5";

#endif
