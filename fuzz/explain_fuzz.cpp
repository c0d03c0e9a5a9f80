// Any value into explain, tid and the single AI values: the fields follow one another, and what
// can be translated can be explained.
//
// Input: as in toolkit.h; an AI and its value are parted by "|".
#include "toolkit.h"

namespace {

void requireFields(const rosetag::Explanation& explanation) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < explanation.fields.size(); ++i) {
        const rosetag::ExplainedField& field = explanation.fields[i];
        require(field.first == next, "a field begins where the last one ends: " + field.name);
        require(field.isGood || i + 1 == explanation.fields.size(), "a wrong field is the last");
        next += field.width;
    }
    require(next <= explanation.bits.size(), "the fields lie in the bits");
}

void explainAi(const std::string& ai, const std::string& value) {
    const rosetag::AiTranslation encoded = rosetag::encodeAi(ai, value);
    requireFailure(encoded.failure, isFailure(encoded.failure) ? value + ai : value);
    requireJson(rosetag::toJson(encoded));
    const rosetag::AiTranslation decoded =
        rosetag::decodeAi(isFailure(encoded.failure) ? value : encoded.hex, ai);
    requireJson(rosetag::toJson(decoded));
    require(isFailure(encoded.failure) || !isFailure(decoded.failure),
            "an encoded value can be decoded: " + ai + " " + value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const rosetag::ReadOptions options = readOptionsOf(input);
    const std::string value = input.restAsBytes();
    const rosetag::Explanation explanation = rosetag::explain(value, options);
    requireFailure(explanation.failure, value);
    requireNotes(explanation.notes, value);
    requireFields(explanation);
    requireJson(rosetag::toJson(explanation, value));
    const rosetag::Tid tid = rosetag::tid(value);
    requireFailure(tid.failure, value);
    requireJson(rosetag::toJson(tid, value));
    const std::string ai = input.textUntil('|');
    explainAi(ai, input.restAsBytes());
    return 0;
}
