#include "before/explain/explain_walk.h"
#include "before/translate/library_calls.h"
#include "commands.h"
#include "human_text.h"

#include <nlohmann/json.hpp>

namespace rosetag {

namespace {

using Json = nlohmann::ordered_json;

constexpr unsigned xtidMask = 0x800;
constexpr unsigned securityMask = 0x400;
constexpr unsigned fileMask = 0x200;
constexpr unsigned designerMask = 0x1FF;

std::string hexOf(unsigned number) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (int shift = 8; shift >= 0; shift -= 4) {
        text += digits[number >> shift & 15];
    }
    return "0x" + text;
}

std::string yesNo(unsigned flag) {
    return flag != 0 ? "yes" : "no";
}

std::string wordCount(unsigned words) {
    return std::to_string(words) + (words == 1 ? " word" : " words") + " of 16 bits";
}

std::string alignment(unsigned isFree, unsigned offset, std::string_view bank) {
    return isFree != 0 ? "no block boundaries in the " + std::string(bank) + " bank"
                       : "the first whole block of the " + std::string(bank) +
                             " bank begins at word " + std::to_string(offset);
}

// Without a size the record tells nothing of a command.
std::string blockLines(std::string_view command, const TidBlockInfo& block) {
    if (block.maxBlockSize == 0) {
        return labelled(command, "not described");
    }
    return labelled(command, "blocks of up to " + wordCount(block.maxBlockSize) +
                                 (block.variableSize != 0 ? ", smaller ones too"
                                                          : ", smaller ones are refused")) +
           labelled("", alignment(block.noEpcAlignment, block.epcAddressOffset, "EPC")) +
           labelled("", alignment(block.noUserAlignment, block.userAddressOffset, "User"));
}

std::string commandLines(const TidRecord& record) {
    if (record.hasOptionalCommands == 0) {
        return labelled("commands", "not told");
    }
    return labelled("largest EPC", wordCount(record.maxEpcSize)) +
           labelled("recommission", yesNo(record.recomSupport)) +
           labelled("access", yesNo(record.accessSupport)) +
           labelled("lock bits", record.separateLockbits != 0 ? "apart for each bank"
                                                              : "not apart for each bank") +
           labelled("automatic UMI", yesNo(record.autoUmiSupport)) +
           labelled("phase jitter", yesNo(record.pjmSupport)) +
           labelled("BlockWrite", yesNo(record.blockWriteSupported)) +
           labelled("BlockErase", yesNo(record.blockEraseSupported)) +
           labelled("BlockPermaLock", yesNo(record.blockPermaLockSupported));
}

std::string humanTid(const TidRecord& record) {
    const unsigned mdid = record.mdid;
    std::string text = labelled("designer", hexOf(mdid & designerMask) + " (MDID)") +
                       labelled("model", hexOf(record.tmid) + " (TMN)") +
                       labelled("security", yesNo(mdid & securityMask)) +
                       labelled("file", yesNo(mdid & fileMask)) +
                       labelled("extended TID", yesNo(mdid & xtidMask));
    if ((mdid & xtidMask) == 0) {
        return text;
    }
    text += labelled("serial number", record.serialBits == 0
                                          ? "none"
                                          : std::string(record.serial) + " (" +
                                                std::to_string(record.serialBits) + " bits)");
    text += commandLines(record);
    text += blockLines("block writing", record.blockWrite);
    text += blockLines("block erasing", record.blockErase);
    text += labelled("user memory",
                     record.userMemorySize == 0 ? "not told" : wordCount(record.userMemorySize));
    return text + labelled("perma-lock", record.blockPermaLockBlockSize == 0
                                             ? "not told"
                                             : wordCount(record.blockPermaLockBlockSize));
}

Json blockJson(const TidBlockInfo& block) {
    return {{"maxBlockSize", block.maxBlockSize},
            {"variableSize", block.variableSize != 0},
            {"epcAddressOffset", block.epcAddressOffset},
            {"noEpcAlignment", block.noEpcAlignment != 0},
            {"userAddressOffset", block.userAddressOffset},
            {"noUserAlignment", block.noUserAlignment != 0}};
}

std::string tidJson(std::string_view value, const TidRecord& record) {
    Json object = {{"value", value},
                   {"mdid", record.mdid},
                   {"tmid", record.tmid},
                   {"xtid", (record.mdid & xtidMask) != 0},
                   {"serialBits", record.serialBits},
                   {"serial", record.serial}};
    if (record.hasOptionalCommands != 0) {
        object["optionalCommands"] = {
            {"maxEpcSize", record.maxEpcSize},
            {"recomSupport", record.recomSupport != 0},
            {"accessSupport", record.accessSupport != 0},
            {"separateLockbits", record.separateLockbits != 0},
            {"autoUmiSupport", record.autoUmiSupport != 0},
            {"pjmSupport", record.pjmSupport != 0},
            {"blockWriteSupported", record.blockWriteSupported != 0},
            {"blockEraseSupported", record.blockEraseSupported != 0},
            {"blockPermaLockSupported", record.blockPermaLockSupported != 0}};
    }
    object["blockErase"] = blockJson(record.blockErase);
    object["blockWrite"] = blockJson(record.blockWrite);
    object["userMemorySize"] = record.userMemorySize;
    object["blockPermaLockBlockSize"] = record.blockPermaLockBlockSize;
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

} // namespace

Failure tidText(const std::string& value, bool isJson, std::string& text) {
    const std::string digits = hexDigitsOf(value);
    if (Failure failure = failureOfHex(digits); isFailure(failure)) {
        return failure;
    }
    const std::vector<std::uint8_t> bytes = bytesOfHex(digits);
    TidRecord record;
    const EpcStatus status =
        tid_binaryDecode(static_cast<std::int32_t>(8 * bytes.size()), bytes.data(), &record);
    if (status == EPC_OK) {
        text = isJson ? tidJson(value, record) : humanTid(record);
    }
    return failureOfTid(status, digits);
}

int tidCommand(Output& output, const Arguments& arguments) {
    int exitStatus = EXIT_STATUS_GOOD;
    bool isFirst = true;
    for (const std::string& value : arguments.values) {
        std::string text;
        const Failure failure = tidText(value, arguments.isJson, text);
        if (isFailure(failure)) {
            exitStatus = complainOfFailure(output, value, failure);
            continue;
        }
        outputWrite(output, isFirst || arguments.isJson ? "" : "\n");
        outputWrite(output, text);
        isFirst = false;
    }
    return exitStatus;
}

} // namespace rosetag
