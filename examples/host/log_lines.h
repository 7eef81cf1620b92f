/* The log of the library, as far as this host shows it. */
#ifndef PAVANE_HOST_LOG_LINES_H
#define PAVANE_HOST_LOG_LINES_H

#include <stdbool.h>

enum {
    kLogLines = 3,      /* a fault in a view takes two: the place in the text, and the path of the file */
    kLogLineBytes = 500 /* with the terminator */
};

/* The latest lines about causes: no timings, and no Start or End line of a workflow. */
struct LogLines {
    int count;
    char text[kLogLines][kLogLineBytes]; /* UTF-8, without a line end; a longer line is cut */
};

/* Returns the size of the log in bytes, 0 when there is none. */
long EndOfLog(void);

/* Reads what was added to the log after its first `start` bytes. */
void ReadLogLines(long start, struct LogLines* lines);

bool LogMentions(const struct LogLines* lines, const char* words);

#endif
