// Engines that fail the way real ones can.
#include <cstdlib>

#if defined(BAD_ENGINE_engine_hang)
#include <cstdio>
#include <string>
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
#else
extern "C" __attribute__((visibility("default"))) void SOMETHING_ELSE() {}
#endif
