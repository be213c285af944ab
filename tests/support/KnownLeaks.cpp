// Leaks of the system that a test of ours cannot help.

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions() {
    // The printing plug-in asks the system for printers and is unloaded again, with what it still holds.
    return "leak:__argz_add_sep\n";
}
