/* The command line of pavane-host. */
#ifndef PAVANE_HOST_OPTIONS_H
#define PAVANE_HOST_OPTIONS_H

#include <windows.h>

#include <stdbool.h>
#include <stdint.h>

/* Exit codes. */
#define EXIT_OK 0     /* the workflow ended with status 0, or there was none to run */
#define EXIT_STATUS 1 /* it ended with another status, which was printed */
#define EXIT_USAGE 2  /* nothing was run: the command line is wrong */
#define EXIT_STUCK 3  /* the automatic walk found no button to press, or no end */

struct Options {
    uint16_t workflow;               /* 0: open the window and wait for the user */
    LANGID language;                 /* 0: that of the user interface */
    const wchar_t* screenshotFolder; /* null: take no pictures */
    bool autoWalk;                   /* press a button of each pane until the run ends */
    bool printMenu;                  /* print the items of the menu and end */
    const wchar_t* presses; /* "ID,ID=TEXT,ID": the first buttons to press; null: default ones only */
};

/* Returns false, after printing what is wrong to stderr. */
bool ReadOptions(int count, wchar_t** arguments, struct Options* options);

#endif
