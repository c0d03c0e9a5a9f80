// The loader binds a function at its first call, and writes into the library for that. The test
// that nothing else does so needs all of them bound from the start, which the loader takes from the
// environment alone.
#include <gtest/gtest.h>

#include <cstdlib>

#ifdef __linux__
#include <unistd.h>
#endif

int main(int argc, char** argv) {
#ifdef __linux__
    if (std::getenv("LD_BIND_NOW") == nullptr) {
        setenv("LD_BIND_NOW", "1", 1);
        execv("/proc/self/exe", argv);
    }
#endif
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
