/*
 * A generator with a fixed seed: the same values in every run and on every machine.
 */
#ifndef ROSETAG_TESTS_SUPPORT_RANDOM_H
#define ROSETAG_TESTS_SUPPORT_RANDOM_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Random {
public:
    explicit Random(std::uint64_t seed) : state(seed) {}

    // 64 random bits (SplitMix64).
    std::uint64_t next() {
        state += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        return mixed ^ mixed >> 31;
    }

    // 0 to limit - 1.
    std::uint64_t below(std::uint64_t limit) {
        return next() % limit;
    }

    // first to last, both included.
    std::int32_t between(std::int32_t first, std::int32_t last) {
        const auto count = static_cast<std::uint64_t>(std::int64_t{last} - first + 1);
        return static_cast<std::int32_t>(first + static_cast<std::int64_t>(below(count)));
    }

    bool flip() {
        return next() % 2 != 0;
    }

    std::string text(std::size_t length, std::string_view alphabet) {
        std::string text(length, '\0');
        for (char& character : text) {
            character = alphabet[below(alphabet.size())];
        }
        return text;
    }

    std::string digits(std::size_t length) {
        return text(length, "0123456789");
    }

    std::vector<std::uint8_t> bytes(std::size_t count) {
        std::vector<std::uint8_t> bytes(count);
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(next() & 0xFF);
        }
        return bytes;
    }

private:
    std::uint64_t state;
};

#endif
