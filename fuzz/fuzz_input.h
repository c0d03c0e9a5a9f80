/*
 * Numbers and texts from the bytes that a fuzzer is given.
 */
#ifndef ROSETAG_FUZZ_FUZZ_INPUT_H
#define ROSETAG_FUZZ_FUZZ_INPUT_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

// Stops with what does not hold. The fuzzer keeps the input.
inline void require(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what.c_str());
        std::abort();
    }
}

// Longer inputs show nothing new.
constexpr std::size_t MAX_FUZZ_BYTES = 4000;

class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : bytes(data, size < MAX_FUZZ_BYTES ? size : MAX_FUZZ_BYTES) {}

    // One byte as a number from -128 to 127; 0 after the end.
    std::int32_t number() {
        if (bytes.empty()) {
            return 0;
        }
        const auto value = static_cast<std::int8_t>(bytes.front());
        bytes = bytes.subspan(1);
        return value;
    }

    // One byte as the size of an output: -2 to 252, or enough for anything.
    std::int32_t size(std::int32_t enough) {
        const std::int32_t byte = number() & 0xFF;
        return byte == 0xFF ? enough : byte - 2;
    }

    // The bytes up to the separator, which is taken too.
    std::string textUntil(char separator) {
        std::string text;
        while (!bytes.empty()) {
            const auto character = static_cast<char>(number());
            if (character == separator) {
                break;
            }
            text += character;
        }
        return withoutNul(text);
    }

    std::string restAsText() const {
        return withoutNul({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    // Every byte that is left, NULs too.
    std::string restAsBytes() const {
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    std::vector<std::uint8_t> rest() const {
        return {bytes.begin(), bytes.end()};
    }

private:
    static std::string withoutNul(const std::string& text) {
        return text.substr(0, text.find('\0'));
    }

    std::span<const std::uint8_t> bytes;
};

#endif
