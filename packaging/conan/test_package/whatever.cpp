#include <rosetag/toolkit.hpp>

#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    std::cout << rosetag::translate(argv[1]).tagUri << '\n';
}
