#include "tid/tid_decode.h"

#include "core/text_buffer.h"

namespace rosetag {

namespace {

constexpr std::uint64_t CLASS_EPCGLOBAL = 0xE2;
constexpr std::uint64_t MDID_XTID_INDICATOR = 0x800;

// XTID header. Its first three bits count the 16-bit units of the serial number, less two; 0 is no
// serial number.
constexpr std::uint64_t XTID_EXTENDED_HEADER = 0x0001;
constexpr std::uint64_t XTID_RESERVED = 0x03FE;
constexpr std::uint64_t XTID_OPTIONAL_COMMANDS = 0x0400;
constexpr std::uint64_t XTID_BLOCK_COMMANDS = 0x0800;
constexpr std::uint64_t XTID_USER_MEMORY = 0x1000;
constexpr std::int32_t XTID_SERIALIZATION_SHIFT = 13;

constexpr std::uint64_t OPTIONAL_COMMANDS_RESERVED = 0xE000;
constexpr std::uint64_t BLOCK_WORD_RESERVED = 0xF8000000;

static_assert(sizeof TidRecord::serial == (7 + 2) * 16 / 4 + 1, "the longest serial number fits");

// The field of a segment word whose last bit has the weight 2^lowest.
constexpr std::uint8_t fieldOf(std::uint64_t word, std::int32_t lowest, std::int32_t bitCount) {
    return static_cast<std::uint8_t>(word >> lowest & ((1U << bitCount) - 1));
}

EpcStatus readNumber(BitBuffer& buffer, std::int32_t bitCount, std::uint16_t& out) {
    std::uint64_t number = 0;
    EPC_TRY(bitBufferRead(buffer, bitCount, number));
    out = static_cast<std::uint16_t>(number);
    return EPC_OK;
}

// The number begins at a byte and has whole bytes, so that its digits are those of the bytes.
EpcStatus readSerial(BitBuffer& buffer, std::uint64_t serialization, TidRecord& record) {
    record.serialBits = static_cast<std::uint8_t>((serialization + 2) * 16);
    const std::uint8_t* const first = buffer.bytes + buffer.position / 8;
    if (bitBufferSkip(buffer, record.serialBits) != 0) {
        return EPC_ERR_TRUNCATED;
    }
    TextBuffer serial = textBufferOver(record.serial);
    return textBufferPutHex(serial, first, record.serialBits / 8);
}

EpcStatus readOptionalCommands(BitBuffer& buffer, TidRecord& record) {
    std::uint64_t word = 0;
    EPC_TRY(bitBufferRead(buffer, 16, word));
    if ((word & OPTIONAL_COMMANDS_RESERVED) != 0) {
        return EPC_ERR_BAD_TID;
    }
    record.hasOptionalCommands = 1;
    record.maxEpcSize = fieldOf(word, 0, 5);
    record.recomSupport = fieldOf(word, 5, 1);
    record.accessSupport = fieldOf(word, 6, 1);
    record.separateLockbits = fieldOf(word, 7, 1);
    record.autoUmiSupport = fieldOf(word, 8, 1);
    record.pjmSupport = fieldOf(word, 9, 1);
    record.blockEraseSupported = fieldOf(word, 10, 1);
    record.blockWriteSupported = fieldOf(word, 11, 1);
    record.blockPermaLockSupported = fieldOf(word, 12, 1);
    return EPC_OK;
}

EpcStatus readExtendedPart(BitBuffer& buffer, TidRecord& record) {
    std::uint64_t header = 0;
    EPC_TRY(bitBufferRead(buffer, 16, header));
    if ((header & (XTID_EXTENDED_HEADER | XTID_RESERVED)) != 0) {
        return EPC_ERR_BAD_TID;
    }
    if (const std::uint64_t serialization = header >> XTID_SERIALIZATION_SHIFT;
        serialization != 0) {
        EPC_TRY(readSerial(buffer, serialization, record));
    }
    if ((header & XTID_OPTIONAL_COMMANDS) != 0) {
        EPC_TRY(readOptionalCommands(buffer, record));
    }
    if ((header & XTID_BLOCK_COMMANDS) != 0) {
        EPC_TRY(tidReadBlockWord(buffer, record.blockErase));
        EPC_TRY(tidReadBlockWord(buffer, record.blockWrite));
    }
    if ((header & XTID_USER_MEMORY) != 0) {
        EPC_TRY(readNumber(buffer, 16, record.blockPermaLockBlockSize));
        EPC_TRY(readNumber(buffer, 16, record.userMemorySize));
    }
    return EPC_OK;
}

} // namespace

EpcStatus tidReadBlockWord(BitBuffer& buffer, TidBlockInfo& info) {
    std::uint64_t word = 0;
    EPC_TRY(bitBufferRead(buffer, 32, word));
    if ((word & BLOCK_WORD_RESERVED) != 0) {
        return EPC_ERR_BAD_TID;
    }
    // A word of 0 is a command that is not described.
    info.maxBlockSize = fieldOf(word, 0, 8);
    if (info.maxBlockSize == 0 && word != 0) {
        return EPC_ERR_BAD_TID;
    }
    info.variableSize = fieldOf(word, 8, 1);
    info.epcAddressOffset = fieldOf(word, 9, 8);
    info.noEpcAlignment = fieldOf(word, 17, 1);
    info.userAddressOffset = fieldOf(word, 18, 8);
    info.noUserAlignment = fieldOf(word, 26, 1);
    return EPC_OK;
}

EpcStatus tidDecode(BitBuffer& buffer, TidRecord& record) {
    record = {};
    std::uint64_t allocationClass = 0;
    EPC_TRY(bitBufferRead(buffer, 8, allocationClass));
    if (allocationClass != CLASS_EPCGLOBAL) {
        return EPC_ERR_BAD_TID;
    }
    EPC_TRY(readNumber(buffer, 12, record.mdid));
    EPC_TRY(readNumber(buffer, 12, record.tmid));
    if ((record.mdid & MDID_XTID_INDICATOR) == 0) {
        return EPC_OK;
    }
    return readExtendedPart(buffer, record);
}

} // namespace rosetag
