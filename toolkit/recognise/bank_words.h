/*
 * The words of a tag's EPC memory bank that readers print before the EPC: the CRC, the PC word and
 * the extended PC words.
 *
 * Source: EPC UHF Gen2 Air Interface Protocol, section 6.3.2.1.2 (EPC memory bank).
 */
#ifndef ROSETAG_TOOLKIT_RECOGNISE_BANK_WORDS_H
#define ROSETAG_TOOLKIT_RECOGNISE_BANK_WORDS_H

#include "recognise/reading.h"

namespace rosetag {

inline constexpr std::size_t HEX_WORD_DIGITS = 4;
inline constexpr std::size_t HEX_WORD_BITS = 4 * HEX_WORD_DIGITS;

// The fields of a PC word in their order: a length, three flags, and what the last of these says.
inline constexpr std::size_t PC_LENGTH_BITS = 5;
inline constexpr std::size_t PC_FLAG_BITS = 1;
inline constexpr std::size_t PC_LAST_BITS = 8;

struct PcWord {
    unsigned epcWords;  // the length of the EPC in words
    bool hasUserMemory; // the user memory holds something
    bool hasExtension;  // an extended PC word follows
    bool isOtherFamily; // toggle: the tag is not of GS1, but of an application family of ISO
    unsigned familyOrAttribute; // AFI, or attribute bits
};

PcWord pcWordOf(unsigned word);

// The number of a word of hexadecimal digits.
unsigned wordAt(std::string_view digits, std::size_t index);

// The CRC-16 of words, as the first word of the bank holds it.
unsigned crc16Of(std::string_view digits);

// True if a PC word whose length field is in its first byte could stand before so many words, with
// whatever extensions there are.
inline bool mayBePcWord(std::uint8_t firstByte, std::size_t wordsAfter) {
    const std::size_t length = firstByte >> (8 - PC_LENGTH_BITS);
    return length <= wordsAfter && length + 2 >= wordsAfter;
}

// True if a sound EPC of that many words could also be a PC word, with or without a CRC, and an
// EPC. Says nothing of the CRC.
bool mayBeginWithBankWords(const std::uint8_t* bytes, std::size_t words);

// True if prepared hex that begins as a TID does is the EPC memory bank, whose CRC may be any
// number: the CRC is right, or the PC word if the options say that it comes first.
bool tidIsEpcBank(const Reading& reading);

// Takes the words before the EPC off the prepared hex, and zeros after it that the PC word does not
// count: as the options say or, if they leave it open, where the value is more likely a bank than
// an EPC by itself. The words before it go into workspace.bankWords. False if the value does not
// match the options or is of another family: the failure says so. Does nothing to hex that is too
// long for a bank.
bool takeOffBankWords(Reading& reading);

} // namespace rosetag

#endif
