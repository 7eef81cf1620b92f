/* Sleeps, so that the services of a Wine prefix stay alive between two short programs. */
#include <windows.h>

int main(void) {
    Sleep(60 * 60 * 1000);
    return 0;
}
