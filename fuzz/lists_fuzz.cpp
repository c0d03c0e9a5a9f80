// The text of a list that a user brings: it is refused with a place in it, or can be asked.
//
// Input: a byte whose lowest bit chooses the list, then the text.
#include "fuzz_input.h"

#include <rosetag/toolkit.hpp>

namespace {

using namespace rosetag;

void checkFailure(const Failure& failure, std::string_view text) {
    require(failure.status == EPC_ERR_BAD_FORMAT, "the status is that of the format");
    require(failure.message.starts_with("line ") && failure.position <= text.size(),
            "the failure has its place in the text");
}

void askGcpList(const std::string& text) {
    GcpList list;
    if (const Failure failure = readGcpList(text, list); isFailure(failure)) {
        checkFailure(failure, text);
        require(list.entries.empty(), "a list that is refused is empty");
        return;
    }
    for (const GcpListEntry& entry : list.entries) {
        const std::string digits = std::to_string(1000000000000 + entry.prefix).substr(1);
        const GcpAnswer answer = gcpLengthOf(list, digits.substr(0, entry.digits));
        require(answer.length == entry.gcpLength && answer.kind != GcpAnswer::Kind::NOT_LISTED,
                "each entry is found");
    }
}

void askDesignerList(const std::string& text) {
    DesignerList list;
    if (const Failure failure = readDesignerList(text, list); isFailure(failure)) {
        checkFailure(failure, text);
        return;
    }
    for (const ChipDesigner& designer : list.designers) {
        require(designerOf(list, designer.mdid) != nullptr, "each designer is found");
        for (const ChipModel& chip : designer.chips) {
            require(chipOf(designer, chip.tmn) != nullptr, "each model is found");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const bool isDesigners = (input.number() & 1) != 0;
    const std::vector<std::uint8_t> bytes = input.rest();
    (isDesigners ? askDesignerList : askGcpList)(std::string(bytes.begin(), bytes.end()));
    return 0;
}
