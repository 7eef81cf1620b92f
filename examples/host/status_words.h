/* Status codes of Pavane in words. */
#ifndef PAVANE_HOST_STATUS_WORDS_H
#define PAVANE_HOST_STATUS_WORDS_H

#include <stdint.h>

struct LogLines;

/* Returns plain ASCII, never NULL. `lines` are those that the run added to the log. */
const char* StatusWords(uint16_t status, const struct LogLines* lines);

#endif
