// What the leak check of the sanitized build passes over in libraries of others, with the reasons.
extern "C" const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier): the name is the runtime's
    // Configuration and font patterns are kept until the process ends, by design.
    return "leak:libfontconfig.so\n";
}
