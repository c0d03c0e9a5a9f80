// A value, checked: each finding has its place within it, and what breaks no rule can be read.
//
// Input: a byte whose lowest bit says that digits are a barcode string, then the value.
#include "fuzz.h"

#include <rosetag/toolkit.hpp>

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

void checkFinding(const Finding& finding, std::size_t size) {
    require(finding.position <= size && finding.length <= size - finding.position,
            "a finding lies within the value");
    require(!finding.message.empty(), "a finding says what it is");
    require(finding.message.find('\n') == std::string::npos, "a message is one line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    ReadOptions options;
    options.asBarcode = (input.number() & 1) != 0;
    const std::vector<std::uint8_t> bytes = input.rest();
    const std::string value(bytes.begin(), bytes.end());
    const Rows<Finding> findings = check(value, options);
    for (const Finding& finding : findings) {
        checkFinding(finding, value.size());
    }
    if (findings.empty() && value.starts_with('(') && value.find_last_of(" \t\r\n") == value.npos &&
        !holdsLongText(value)) {
        require(canBeRead(value), "what breaks no rule can be read");
    }
    std::string json;
    appendJson(json, findings, value);
    return 0;
}
