// The least that any program for a printer's pane does: it has the same shared libraries loaded, the pane's
// module among them, and opens and marks the PPD. A benchmark runs it as the baseline of the real program.
// Arguments: the PPD, the module. Exit code 0 when both could be opened.
#include <cups/ppd.h>

#include <dlfcn.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    ppd_file_t* ppd = ppdOpenFile(argv[1]);
    if (ppd == nullptr) {
        return 1;
    }
    ppdMarkDefaults(ppd);
    void* module = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
    ppdClose(ppd);
    return module != nullptr ? 0 : 1;
}
