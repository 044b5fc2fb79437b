// What the standard streams are connected to.
#ifndef QORN_BASE_SYSTEM_STREAMS_H
#define QORN_BASE_SYSTEM_STREAMS_H

/** Gives each closed standard stream a descriptor that neither reads nor writes; otherwise the next
    file opened would take its place, and receive the messages. */
void occupyClosedStreams();

enum class InputKind {
  terminal,
  piped,   // a pipe, a socket or a file: somebody has supplied a text
  nothing  // closed, or a device such as /dev/null
};

[[nodiscard]] InputKind standardInputKind();

/** True if people watch standard error, on a terminal that can overwrite a line. */
[[nodiscard]] bool isErrorWatched();

#endif
