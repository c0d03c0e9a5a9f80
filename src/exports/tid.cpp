#include "core/frames.h"
#include "tid/tid_outputs.h"

using namespace rosetag;

EpcStatus tid_binaryDecode(std::int32_t bits, const std::uint8_t* binary, TidRecord* record) {
    return binaryInputFrame(bits, binary, bitsToTidRecord, record);
}

EpcStatus tid_wordsDecode(std::int32_t bits, const std::uint16_t* words, TidRecord* record) {
    return wordInputFrame(bits, words, bitsToTidRecord, record);
}

EpcStatus tid_binaryToComponents(std::int32_t bits, const std::uint8_t* binary, std::uint16_t* mdid,
                                 std::uint16_t* tmid, std::uint8_t* serialBits,
                                 std::uint32_t serialSize, char* serial) {
    return binaryInputFrame(bits, binary, bitsToTidOutputs,
                            TidOutputs{mdid, tmid, serialBits, serialSize, serial});
}

EpcStatus tid_wordsToComponents(std::int32_t bits, const std::uint16_t* words, std::uint16_t* mdid,
                                std::uint16_t* tmid, std::uint8_t* serialBits,
                                std::uint32_t serialSize, char* serial) {
    return wordInputFrame(bits, words, bitsToTidOutputs,
                          TidOutputs{mdid, tmid, serialBits, serialSize, serial});
}

EpcStatus tid_binaryToXtid(std::int32_t bits, const std::uint8_t* binary, std::uint16_t* mdid,
                           std::uint16_t* tmid, std::uint8_t* serialBits, std::uint32_t serialSize,
                           char* serial, std::uint8_t* maxEpcSize, std::uint8_t* optionalCommands,
                           std::uint8_t* blockWrite, std::uint8_t* blockErase,
                           std::uint16_t* userMemorySize, std::uint16_t* blockPermaLockBlockSize) {
    return binaryInputFrame(bits, binary, bitsToTidOutputs,
                            TidOutputs{mdid, tmid, serialBits, serialSize, serial, maxEpcSize,
                                       optionalCommands, blockWrite, blockErase, userMemorySize,
                                       blockPermaLockBlockSize});
}

EpcStatus tid_wordsToXtid(std::int32_t bits, const std::uint16_t* words, std::uint16_t* mdid,
                          std::uint16_t* tmid, std::uint8_t* serialBits, std::uint32_t serialSize,
                          char* serial, std::uint8_t* maxEpcSize, std::uint8_t* optionalCommands,
                          std::uint8_t* blockWrite, std::uint8_t* blockErase,
                          std::uint16_t* userMemorySize, std::uint16_t* blockPermaLockBlockSize) {
    return wordInputFrame(bits, words, bitsToTidOutputs,
                          TidOutputs{mdid, tmid, serialBits, serialSize, serial, maxEpcSize,
                                     optionalCommands, blockWrite, blockErase, userMemorySize,
                                     blockPermaLockBlockSize});
}
