/* The library that one kind of companion needs. */
__declspec(dllexport) int HelperNumber(void) { return 42; }
