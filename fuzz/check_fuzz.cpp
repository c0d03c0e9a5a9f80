// A value, checked: each finding has its place within it, what breaks no rule can be read, and a
// wrong check digit is found.
//
// Input: as in toolkit.h.
#include "toolkit.h"

namespace {

using namespace rosetag;

// An IBAN may have 34 characters, of which a tag holds 24.
bool holdsLongText(std::string_view value) {
    return value.find("(8007)") != value.npos;
}

bool canBeRead(const std::string& value) {
    char codes[EPC_MAX_AIS * EPC_AI_CODE_SIZE];
    char values[EPC_MAX_AIS * EPC_AI_VALUE_SIZE];
    std::uint32_t count = 0;
    return epc_gs1ElementStringToAIs(value.c_str(), EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes, values,
                                     &count) == EPC_OK;
}

void checkFinding(const Finding& finding, const std::string& value) {
    requirePlace(finding.position, finding.length, value);
    require(!finding.message.empty(), "a finding says what it is");
    require(finding.message.find('\n') == std::string::npos, "a message is one line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const ReadOptions options = readOptionsOf(input);
    const std::string value = input.restAsBytes();
    const Rows<Finding> findings = check(value, options);
    for (const Finding& finding : findings) {
        checkFinding(finding, value);
    }
    if (findings.empty() && value.starts_with('(') && value.find_last_of(" \t\r\n") == value.npos &&
        !holdsLongText(value)) {
        require(canBeRead(value), "what breaks no rule can be read");
    }
    requireJson(toJson(findings, value));
    require(translate(value, options).failure.status != EPC_ERR_CHECK_DIGIT || hasError(findings),
            "a wrong check digit is found");
    return 0;
}
