// SPDX-License-Identifier: Apache-2.0
// Engines that fail the way real ones can.
#include <cstdlib>

#if defined(BAD_ENGINE_engine_hang) || defined(BAD_ENGINE_engine_input_error)
#include <cstdio>
#include <string>
#endif
#if defined(BAD_ENGINE_engine_hang)
#include <unistd.h>
#endif

#if defined(BAD_ENGINE_engine_crash) || defined(BAD_ENGINE_engine_exits)
extern "C" __attribute__((visibility("default"))) void DLL_ROUT(char*, int*, char*, int*, char*, int*, char*, int*,
                                                                char*, int*, char*, int*, char*, int*, char*, int*,
                                                                char*, int*, char*, int*) {
#if defined(BAD_ENGINE_engine_crash)
    volatile int* nowhere = nullptr;
    *nowhere = 1;
#else
    std::exit(3);
#endif
}
#elif defined(BAD_ENGINE_engine_hang)
// Starts a program of its own and never returns; both write their process
// ids beside the input file (INPUT.pids), so a test can see them end.
extern "C" __attribute__((visibility("default"))) void DLL_ROUT(char* input, int* length, char*, int*, char*, int*,
                                                                char*, int*, char*, int*, char*, int*, char*, int*,
                                                                char*, int*, char*, int*, char*, int*) {
    std::string name(input, static_cast<size_t>(*length));
    name.erase(name.find_last_not_of(' ') + 1);
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sleep", "sleep", "1000", static_cast<char*>(nullptr));
        _exit(127);
    }
    if (FILE* f = std::fopen((name + ".pids").c_str(), "w")) {
        std::fprintf(f, "%d %d\n", static_cast<int>(getpid()), static_cast<int>(child));
        std::fclose(f);
    }
    for (;;)
        pause();
}
#elif defined(BAD_ENGINE_engine_input_error)
// Cannot make sense of its input: it says so in the concrete data listing, as
// the engine does, and ends normally.
extern "C" __attribute__((visibility("default"))) void DLL_ROUT(char*, int*, char*, int*, char* concrete, int* length,
                                                                char*, int*, char*, int*, char*, int*, char*, int*,
                                                                char*, int*, char*, int*, char*, int*) {
    std::string name(concrete, static_cast<size_t>(*length));
    name.erase(name.find_last_not_of(' ') + 1);
    if (FILE* f = std::fopen(name.c_str(), "wb")) {
        std::fputs("CONCRETE DATA -- INPUT ECHO\r\nERROR LINE: THE INPUT FILE COULD NOT BE READ\r\n", f);
        std::fclose(f);
    }
}
#else
extern "C" __attribute__((visibility("default"))) void SOMETHING_ELSE() {}
#endif
