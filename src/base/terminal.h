// What stands at the ends of the standard streams.
#ifndef QORN_BASE_TERMINAL_H
#define QORN_BASE_TERMINAL_H

/** Gives each of the three standard streams that is closed a descriptor that neither reads nor
    writes, or the next file to be opened would take its place, and the messages. */
void occupyClosedStreams();

enum class InputKind {
  terminal,
  piped,   // a pipe, a socket or a file: somebody has given a text
  nothing  // closed, or a device such as /dev/null
};

[[nodiscard]] InputKind standardInputKind();

/** True if people watch standard error, on a terminal that can write over a line. */
[[nodiscard]] bool isErrorWatched();

#endif
