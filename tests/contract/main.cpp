// The loader binds a function at its first call, and writes into the library to do so. The test
// that nothing else writes there needs all functions bound from the start, which only the
// environment can ask the loader for.
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
