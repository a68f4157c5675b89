// Engines that fail the way real ones can.
#include <cstdlib>

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
#else
extern "C" __attribute__((visibility("default"))) void SOMETHING_ELSE() {}
#endif
