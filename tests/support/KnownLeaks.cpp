// Memory that libraries of the system keep, which a test of ours cannot help. Linked where it is met.

extern "C" {
[[gnu::visibility("default")]] const char* __lsan_default_suppressions();
[[gnu::visibility("default")]] const char* __lsan_default_options();
}

const char* __lsan_default_suppressions() {
    return "leak:libfontconfig\n"    // patterns that stay in Qt's font database, which is never emptied
           "leak:__argz_add_sep\n";  // of p11-kit, which the printing plug-in and qpdf bring along
}

const char* __lsan_default_options() { return "print_suppressions=0"; }
