#include "gs1/digital_link_keys.h"

namespace rosetag {

namespace {

static_assert(std::adjacent_find(std::begin(digitalLinkKeyChains), std::end(digitalLinkKeyChains),
                                 [](const DigitalLinkKeyChain& row,
                                    const DigitalLinkKeyChain& next) {
                                     const bool isNew = std::string_view(row.key) != next.key;
                                     return isNew != (next.rule == LinkQualifiers::OPTIONAL);
                                 }) == std::end(digitalLinkKeyChains),
              "one row of each key has optional qualifiers, and the others follow it");

bool isOnList(const AiList& list, const char (&code)[AI_CODE_SIZE]) {
    return std::any_of(list.elements, list.elements + list.count, [&](const AiElement& element) {
        return aiCodesAreEqual(element.ai->code, code);
    });
}

bool hasRequired(const DigitalLinkKeyChain& row, const AiList& list) {
    const auto qualifiers = qualifiersOf(row);
    return std::all_of(qualifiers.begin(), qualifiers.end(),
                       [&](const auto& code) { return isOnList(list, code); });
}

} // namespace

EpcStatus digitalLinkChooseKey(const AiList& list, const DigitalLinkKeyChain*& row) {
    std::uint8_t key = 0;
    for (std::uint8_t i = 0; i < list.count; ++i) {
        const std::uint8_t candidate = list.elements[i].ai->linkKey;
        if (candidate == 0 || candidate == key) {
            continue;
        }
        if (key != 0) {
            return EPC_ERR_KEY_CONFLICT;
        }
        key = candidate;
    }
    if (key == 0) {
        return EPC_ERR_NO_PRIMARY_KEY;
    }
    const DigitalLinkKeyChain* const first = digitalLinkKeyChains + (key - 1);
    const DigitalLinkKeyChain* required = first + 1;
    while (required != std::end(digitalLinkKeyChains) &&
           required->rule == LinkQualifiers::REQUIRED && !hasRequired(*required, list)) {
        ++required;
    }
    const bool applies =
        required != std::end(digitalLinkKeyChains) && required->rule == LinkQualifiers::REQUIRED;
    row = applies ? required : first;
    return EPC_OK;
}

} // namespace rosetag
