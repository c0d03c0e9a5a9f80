#include "translate/numbers.h"

namespace rosetag {

void addAi(Translation& result, std::string_view code, std::string_view value) {
    AiValue& ai = result.ais.add();
    ai.ai = code;
    ai.value = value;
    ai.title = aiTitle(code);
}

bool serialIn(const AiText& element, const Gs1KeyDefinition& key, std::string_view& serial) {
    if (key.tailIsSecondaryAi != 0 && element.code == key.secondaryAi) {
        serial = element.value;
        return true;
    }
    const auto keyLength = static_cast<std::size_t>(key.keyValueLength);
    if (key.hasTail != 0 && key.tailIsSecondaryAi == 0 && element.code == key.primaryAi &&
        element.value.size() > keyLength) {
        serial = element.value.substr(keyLength);
        return true;
    }
    return false;
}

} // namespace rosetag
