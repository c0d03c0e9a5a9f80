/*
 * A second description of the plain schemes, slow and obvious: every field is text on one side and
 * a string of '0' and '1' on the other, and a picker chooses its value. The library must turn
 * either into the other.
 */
#ifndef ROSETAG_TESTS_SCHEMES_SCHEME_MODEL_H
#define ROSETAG_TESTS_SCHEMES_SCHEME_MODEL_H

#include "rosetag/rosetag.h"
#include "support/random.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Chooses the values of fields: the shortest of the lowest characters, the longest of the highest,
// or any.
class Picker {
public:
    static Picker lowest() {
        return Picker(Choice::LOWEST, 0);
    }
    static Picker largest() {
        return Picker(Choice::LARGEST, 0);
    }
    static Picker random(std::uint64_t seed) {
        return Picker(Choice::RANDOM, seed);
    }

    std::size_t length(std::size_t first, std::size_t last);
    std::string text(std::size_t length, std::string_view alphabet);
    std::uint64_t number(std::size_t bits);

private:
    enum class Choice { LOWEST, LARGEST, RANDOM };
    Picker(Choice kind, std::uint64_t seed) : choice(kind), generator(seed) {}

    Choice choice;
    Random generator;
};

enum class Field {
    KEY,        // count: digits of company prefix and reference; bits: of both
    OPEN_KEY,   // the reference is any number in its bits
    CHARS7_KEY, // count: digits of the company prefix and 7-bit characters
    CHARS6_KEY, // count: digits of the company prefix and 6-bit characters
    TWO_DIGITS,
    NUMBER,
    LEADING_ONE, // count: the most digits
    CHARS7,      // count: the most characters
    ZEROS,
    CODE,   // bits: of one character
    CHARS6, // count: the most characters, none included
    SERIAL6
};

struct FieldModel {
    Field field;
    std::size_t count;
    std::size_t bits;
};

struct SchemeModel {
    EpcScheme scheme;
    std::string_view name;
    std::string_view family;
    std::uint32_t header;
    std::size_t filterBits;
    std::uint32_t maxFilter;
    std::vector<FieldModel> fields;

    bool hasPartition() const {
        return fields[0].field <= Field::CHARS6_KEY;
    }
};

extern const std::vector<SchemeModel> schemeModels;

// A value of a scheme in all its forms.
struct ModelValue {
    EpcScheme scheme;
    std::uint32_t filter;
    std::string tagUri;
    std::string uri;
    std::string bits; // without padding
};

ModelValue modelValue(const SchemeModel& model, std::uint32_t filter, std::size_t partition,
                      Picker& picker);

#endif
