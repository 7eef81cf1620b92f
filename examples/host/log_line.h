/* The log of the library, as far as this host shows it. */
#ifndef PAVANE_HOST_LOG_LINE_H
#define PAVANE_HOST_LOG_LINE_H

#include <stddef.h>
#include <wchar.h>

/* Returns the size of the log in bytes, 0 when there is none. */
long EndOfLog(void);

/*
 * Writes the last line about a cause that was added to the log after its first `start` bytes: no timing, and
 * not the Start or End line of a workflow. The text has no line end and is cut at `capacity` units with its
 * terminator. It is empty when there is no such line.
 */
void ReadLastLogLine(long start, wchar_t* line, size_t capacity);

#endif
