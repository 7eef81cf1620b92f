/* Status codes of Pavane in words. */
#ifndef PAVANE_HOST_STATUS_WORDS_H
#define PAVANE_HOST_STATUS_WORDS_H

#include <stdint.h>

/* Returns plain ASCII, never NULL. */
const char* StatusWords(uint16_t status);

#endif
