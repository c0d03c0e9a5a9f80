// Any value into recognise, translate and encode: results are the same again, hold what they
// promise, and what was encoded can be read.
//
// Input: as in toolkit.h, with a byte each for scheme, filter and encoding before the value.
#include "toolkit.h"

namespace {

using rosetag::Translation;

void requireTranslation(const Translation& item, const std::string& value) {
    requireFailure(item.failure, value);
    requireNotes(item.notes, value);
    requireJson(rosetag::toJson(item, value));
}

// The digits of a tag value stand for all its other forms.
void requireHexTranslates(const Translation& item) {
    if (isFailure(item.failure) || item.hex.empty() || item.hex.size() > 2 * EPC_MAX_BINARY_BYTES) {
        return;
    }
    const Translation again = rosetag::translate(item.hex);
    require(!isFailure(again.failure), "what was written can be read: " + item.hex);
    require(again.tagUri == item.tagUri, "the tag URI comes back: " + item.tagUri);
    require(again.pureIdentity == item.pureIdentity || item.pureIdentity.empty() ||
                again.pureIdentity.empty(),
            "the identity comes back: " + item.pureIdentity);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    rosetag::EncodeOptions options;
    options.read = readOptionsOf(input);
    const auto scheme = static_cast<std::uint8_t>(input.number());
    options.scheme = scheme < EPC_SCHEME_COUNT ? &rosetag::schemes()[scheme] : nullptr;
    if (const std::int32_t filter = input.number(); filter != -1) {
        options.filter = filter;
    }
    options.encoding = input.number();
    const std::string value = input.restAsBytes();

    const rosetag::Recognition found = rosetag::recognise(value, options.read);
    requireFailure(found.failure, value);
    requireNotes(found.notes, value);
    requireJson(rosetag::toJson(found, value));

    static Translation reused;
    const Translation item = rosetag::translate(value, options.read);
    requireTranslation(item, value);
    requireHexTranslates(item);
    rosetag::translate(value, options.read, rosetag::ALL_FORMS, reused);
    require(rosetag::toJson(item, value) == rosetag::toJson(reused, value),
            "a result that is used again holds nothing of the last");
    require(!isFailure(found.failure) || isFailure(item.failure),
            "what is not recognised is not translated");

    rosetag::encode(value, options, rosetag::ALL_FORMS, reused);
    requireTranslation(reused, value);
    requireHexTranslates(reused);
    return 0;
}
