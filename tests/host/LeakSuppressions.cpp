// Read by the leak checker of the address sanitizer at the end of a program.

// Fontconfig loses a few hundred bytes while it reads its configuration, once in a process.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
