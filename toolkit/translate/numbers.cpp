#include "translate/numbers.h"

#include "bridge/gs1_key_table.h"

namespace rosetag {

namespace {

// The value of an AI that is a serial number: one of its own, or what follows the digits of a key.
bool takeSerial(const AiValue& element, const Gs1KeyDefinition& key, std::string& serial) {
    if (key.tailIsSecondaryAi != 0 && element.ai == key.secondaryAi) {
        serial = element.value;
        return true;
    }
    const auto keyLength = static_cast<std::size_t>(key.keyValueLength);
    if (key.hasTail != 0 && key.tailIsSecondaryAi == 0 && element.ai == key.primaryAi &&
        element.value.size() > keyLength) {
        serial.assign(element.value, keyLength);
        return true;
    }
    return false;
}

const Gs1KeyDefinition* keyAmong(const Rows<AiValue>& ais) {
    for (const AiValue& element : ais) {
        if (const Gs1KeyDefinition* const key = gs1KeyFindByAi(element.ai); key != nullptr) {
            return key;
        }
    }
    return nullptr;
}

void addSerial(Translation& result) {
    const Gs1KeyDefinition* const key = keyAmong(result.ais);
    for (const AiValue& element : result.ais) {
        if (key != nullptr && takeSerial(element, *key, result.serial)) {
            return;
        }
    }
}

} // namespace

void addAi(Translation& result, std::string_view code, std::string_view value) {
    AiValue& ai = result.ais.add();
    ai.ai = code;
    ai.value = value;
    ai.title = aiTitle(code);
}

void addNumbers(FormSet wanted, Translation& result) {
    if (wanted.has(Form::GTIN)) {
        result.gtin = aiValueOf(result, "01");
    }
    if (wanted.has(Form::SERIAL)) {
        addSerial(result);
    }
}

} // namespace rosetag
