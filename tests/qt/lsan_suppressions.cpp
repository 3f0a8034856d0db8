// What the leak check of the sanitized build passes over in the libraries below the window, with the reasons.
extern "C" const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions() { // NOLINT(bugprone-reserved-identifier): the name is the runtime's
    return
        // Configuration and font patterns are kept until the process ends, by design.
        "leak:libfontconfig.so\n"
        // Building a PPD's cache loses four strings each time (libcups 2.4.2), and Qt has it built for every
        // queue. What the host itself asks of libcups is checked by the host's own tests.
        "leak:libcups.so\n"
        // Type tables of the event loop that Qt runs on are never freed.
        "leak:libglib-2.0.so\n"
        // The shared connection to the bus of assistive tools is kept until the process ends.
        "leak:libdbus-1.so\n"
        // The application of the tests is never destroyed (test_application.cpp), with what it owns.
        "leak:libQt6Gui.so\n"
        "leak:libQt6Core.so\n"
        "leak:libQt6DBus.so\n"
        "leak:libqoffscreen.so\n"
        "leak:libqxcb.so\n";
}
