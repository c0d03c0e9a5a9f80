#include "recognise/bank_words.h"

#include "recognise/hex_text.h"
#include "translate/translate.h"
#include "words/scheme_words.h"
#include "words/shown_text.h"

#include <array>

namespace rosetag {

namespace {

// A CRC, a PC word with two extensions, and the longest EPC.
constexpr std::size_t MOST_BANK_DIGITS = MOST_HEX_DIGITS + 4 * HEX_WORD_DIGITS;

// How many words precede the EPC: the CRC if there is one, the PC, and its extensions.
struct BankLayout {
    bool hasCrc = false;
    std::size_t pcIndex = 0;
    std::size_t words = 0;
    std::size_t zeros = 0; // words after the EPC
};

std::size_t wordCount(std::string_view digits) {
    return digits.size() / HEX_WORD_DIGITS;
}

// The count of the PC word and its extensions if its length field agrees with the count of words
// after it; otherwise 0. next is the word that follows it.
std::size_t pcWordsIfLengthFits(const PcWord& pc, unsigned next, std::size_t after) {
    constexpr unsigned furtherExtension = 0x8000; // in the first extended PC word
    const std::size_t extensions = !pc.hasExtension ? 0 : (next & furtherExtension) != 0 ? 2 : 1;
    const bool isLength = pc.epcWords == after || pc.epcWords + extensions == after;
    return isLength && after > extensions ? 1 + extensions : 0;
}

// The words before the EPC if the value begins with a PC word whose length field is right; 0 words
// if it does not.
BankLayout layoutWithPc(std::string_view digits, bool hasCrc) {
    BankLayout layout = {hasCrc, hasCrc ? std::size_t{1} : 0, 0};
    const std::size_t count = wordCount(digits);
    if (digits.size() % HEX_WORD_DIGITS != 0 || count < layout.pcIndex + 2) {
        return layout;
    }
    const std::size_t words =
        pcWordsIfLengthFits(pcWordOf(wordAt(digits, layout.pcIndex)),
                            wordAt(digits, layout.pcIndex + 1), count - layout.pcIndex - 1);
    const bool isCrc =
        words > 0 && (!hasCrc || crc16Of(digits.substr(HEX_WORD_DIGITS)) == wordAt(digits, 0));
    layout.words = isCrc ? layout.pcIndex + words : 0;
    return layout;
}

// The same where zeros follow the EPC because a whole bank was read. Extended PC words are
// elsewhere in the bank, so none precedes the EPC.
BankLayout layoutWithZeros(std::string_view digits, bool hasCrc) {
    BankLayout layout = {hasCrc, hasCrc ? std::size_t{1} : 0, 0};
    const std::size_t count = wordCount(digits);
    if (digits.size() % HEX_WORD_DIGITS != 0 || count < layout.pcIndex + 2) {
        return layout;
    }
    const PcWord pc = pcWordOf(wordAt(digits, layout.pcIndex));
    const std::size_t end = layout.pcIndex + 1 + pc.epcWords;
    const std::string_view known = digits.substr(0, end * HEX_WORD_DIGITS);
    if (pc.epcWords == 0 || end >= count ||
        digits.find_first_not_of('0', known.size()) != std::string_view::npos ||
        (hasCrc && crc16Of(known.substr(HEX_WORD_DIGITS)) != wordAt(digits, 0))) {
        return layout;
    }
    layout.words = layout.pcIndex + 1;
    layout.zeros = count - end;
    return layout;
}

BankLayout layoutOf(std::string_view digits, bool hasCrc) {
    const BankLayout layout = layoutWithPc(digits, hasCrc);
    return layout.words == 0 ? layoutWithZeros(digits, hasCrc) : layout;
}

// The EPC between the words before it and the zeros after it.
std::string_view epcOf(std::string_view digits, const BankLayout& layout) {
    digits.remove_suffix(layout.zeros * HEX_WORD_DIGITS);
    return digits.substr(layout.words * HEX_WORD_DIGITS);
}

// How well digits agree with the value that they begin with.
enum class Soundness : std::uint8_t {
    UNREADABLE,
    LOOSE,  // bits other than 0 follow it
    PADDED, // words of zeros follow it
    SOUND,
};

Soundness soundnessOf(std::string_view digits) {
    Translation tag;
    if (digits.size() > MOST_HEX_DIGITS || formsOfHex(digits, {}, tag) != EPC_OK) {
        return Soundness::UNREADABLE;
    }
    const std::size_t bits = tagValueBits(digits);
    const std::size_t words = (bits + HEX_WORD_BITS - 1) / HEX_WORD_BITS;
    return hexFindBit(digits, bits) < 4 * digits.size() ? Soundness::LOOSE
           : wordCount(digits) > words                  ? Soundness::PADDED
                                                        : Soundness::SOUND;
}

bool hasKnownHeader(std::string_view digits) {
    const unsigned header =
        digits.size() < 2 ? 0U : wordAt(std::string(digits.substr(0, 2)) + "00", 0) >> 8;
    return schemeByHeader(static_cast<std::uint8_t>(header)) != nullptr;
}

std::string layoutText(const BankLayout& layout) {
    const std::size_t extensions = layout.words - layout.pcIndex - 1;
    std::string text = layout.hasCrc ? "the CRC and the PC word" : "the PC word";
    return extensions == 0 ? text : text + " with " + counted(extensions, "extension");
}

// Some words of the value as they were given.
std::string_view givenWords(const Reading& reading, std::size_t words, std::size_t from = 0) {
    const std::size_t first = givenPosition(reading.workspace, from * HEX_WORD_DIGITS);
    const std::size_t end =
        givenPosition(reading.workspace, (from + words) * HEX_WORD_DIGITS - 1) + 1;
    return reading.value.substr(first, end - first);
}

void takeOff(Reading& reading, const BankLayout& layout) {
    const std::string_view part = givenWords(reading, layout.words);
    const std::size_t digits = layout.words * HEX_WORD_DIGITS;
    std::string_view rest = reading.value.substr(givenPosition(reading.workspace, digits));
    if (reading.options.bank == Bank::AUTO) {
        readingNote(reading, NoteKind::PC_WORD, part, [&] {
            return "removed " + layoutText(layout) + ' ' + shownText(part) + " before the EPC";
        });
    }
    if (layout.zeros > 0) {
        const std::size_t count = wordCount(reading.workspace.text);
        const std::string_view zeros = givenWords(reading, layout.zeros, count - layout.zeros);
        readingNote(reading, NoteKind::PC_WORD, zeros, [&] {
            return "removed " + counted(layout.zeros, "word") +
                   " of zeros after the EPC, whose length the PC word gives";
        });
        rest = givenWords(reading, count - layout.zeros - layout.words, layout.words);
    }
    reading.workspace.bankWords.assign(reading.workspace.text, 0, digits);
    readingClear(reading);
    prepareHex(reading, rest);
}

bool failOtherFamily(Reading& reading, const BankLayout& layout, const PcWord& pc) {
    const std::string_view part = givenWords(reading, layout.pcIndex + 1);
    return readingFail(
        reading, EPC_ERR_UNKNOWN_HEADER, positionIn(reading, part), part.size(), [&] {
            return Complaint{
                "the PC word says that this tag does not belong to GS1, but to the application "
                "family (AFI) 0x" +
                    std::string(hexPairOf(static_cast<std::uint8_t>(pc.familyOrAttribute))),
                "read it with software for that application", "bank"};
        });
}

// The options say what precedes the EPC.
bool takeOffAsked(Reading& reading) {
    const std::string_view digits = reading.workspace.text;
    const bool hasCrc = reading.options.bank == Bank::CRC_PC;
    const std::size_t pcIndex = hasCrc ? 1 : 0;
    if (wordCount(digits) < pcIndex + 2) {
        return readingFail(reading, EPC_ERR_TRUNCATED, reading.value.size(), 0, [&] {
            return Complaint{"no EPC follows the words before it",
                             "give the bank from its first word on", "bank"};
        });
    }
    const BankLayout layout = layoutOf(digits, hasCrc);
    if (layout.words == 0 && hasCrc &&
        crc16Of(digits.substr(HEX_WORD_DIGITS)) != wordAt(digits, 0)) {
        const std::string_view part = givenWords(reading, 1);
        return readingFail(
            reading, EPC_ERR_BAD_FORMAT, positionIn(reading, part), part.size(), [&] {
                return Complaint{"the CRC does not match the PC word and the EPC",
                                 "read the tag again, or say what the value begins with", "bank"};
            });
    }
    const PcWord pc = pcWordOf(wordAt(digits, pcIndex));
    if (layout.words == 0) {
        const std::string_view part = givenWords(reading, pcIndex + 1);
        return readingFail(
            reading, EPC_ERR_BAD_FORMAT, positionIn(reading, part), part.size(), [&] {
                return Complaint{"the PC word says that " + counted(pc.epcWords, "word") +
                                     " follow, not " +
                                     std::to_string(wordCount(digits) - pcIndex - 1),
                                 "read the tag again, or say what the value begins with", "bank"};
            });
    }
    if (pc.isOtherFamily) {
        return failOtherFamily(reading, layout, pc);
    }
    takeOff(reading, layout);
    return true;
}

// The ways in which a value can be a bank, those that cannot be a coincidence first.
std::array<BankLayout, 4> layoutsOf(std::string_view digits) {
    return {layoutWithPc(digits, true), layoutWithZeros(digits, true), layoutWithPc(digits, false),
            layoutWithZeros(digits, false)};
}

// Whether a value is a bank rather than an EPC by itself.
bool isRatherBank(const BankLayout& layout, const PcWord& pc, Soundness plain, Soundness inside) {
    if (plain == Soundness::UNREADABLE && layout.zeros == 0) {
        return true;
    }
    if (inside < Soundness::PADDED) {
        return false;
    }
    // Of the attributes in a PC word all but the last bit are reserved, and 0.
    return layout.hasCrc || plain < Soundness::PADDED ||
           (inside > plain && pc.familyOrAttribute <= 1);
}

} // namespace

PcWord pcWordOf(unsigned word) {
    std::size_t left = HEX_WORD_BITS;
    const auto take = [&](std::size_t bits) {
        left -= bits;
        return word >> left & ((1U << bits) - 1);
    };
    const auto takeFlag = [&] { return take(PC_FLAG_BITS) != 0; };
    return {take(PC_LENGTH_BITS), takeFlag(), takeFlag(), takeFlag(), take(PC_LAST_BITS)};
}

unsigned wordAt(std::string_view digits, std::size_t index) {
    unsigned word = 0;
    for (const char digit : digits.substr(index * HEX_WORD_DIGITS, HEX_WORD_DIGITS)) {
        word = word << 4 | static_cast<unsigned>(hexDigitValue(digit));
    }
    return word;
}

unsigned crc16Of(std::string_view digits) {
    constexpr unsigned polynomial = 0x1021; // x^16 + x^12 + x^5 + 1
    unsigned crc = 0xFFFF;
    for (const char digit : digits) {
        crc ^= static_cast<unsigned>(hexDigitValue(digit)) << 12;
        for (int bit = 0; bit < 4; ++bit) {
            crc = ((crc << 1) ^ ((crc & 0x8000) != 0 ? polynomial : 0)) & 0xFFFF;
        }
    }
    return crc ^ 0xFFFF;
}

bool mayBeginWithBankWords(const std::uint8_t* bytes, std::size_t words) {
    const auto word = [bytes](std::size_t index) {
        return static_cast<unsigned>(bytes[2 * index] << 8 | bytes[2 * index + 1]);
    };
    for (std::size_t pcIndex = 0; pcIndex < 2 && pcIndex + 2 <= words; ++pcIndex) {
        const std::size_t after = words - pcIndex - 1;
        if (!mayBePcWord(bytes[2 * pcIndex], after)) {
            continue;
        }
        const PcWord pc = pcWordOf(word(pcIndex));
        const std::size_t pcWords = pcWordsIfLengthFits(pc, word(pcIndex + 1), after);
        if (pcWords > 0 && !pc.isOtherFamily &&
            schemeByHeader(bytes[2 * (pcIndex + pcWords)]) != nullptr) {
            return true;
        }
    }
    return false;
}

bool tidIsEpcBank(const Reading& reading) {
    const Bank bank = reading.options.bank;
    const std::string_view digits = reading.workspace.text;
    const BankLayout layout = layoutOf(digits, bank != Bank::PC);
    if (bank == Bank::EPC || layout.words == 0) {
        return false;
    }
    return bank != Bank::AUTO || soundnessOf(epcOf(digits, layout)) == Soundness::SOUND;
}

bool takeOffBankWords(Reading& reading) {
    const Bank bank = reading.options.bank;
    if (reading.workspace.text.size() > MOST_BANK_DIGITS) {
        return true;
    }
    if (bank != Bank::AUTO) {
        return bank == Bank::EPC || takeOffAsked(reading);
    }
    const std::string_view digits = reading.workspace.text;
    for (const BankLayout& layout : layoutsOf(digits)) {
        if (layout.words == 0) {
            continue;
        }
        const std::string_view epc = epcOf(digits, layout);
        const PcWord pc = pcWordOf(wordAt(digits, layout.pcIndex));
        const Soundness plain = soundnessOf(digits);
        if (pc.isOtherFamily && pc.familyOrAttribute != 0 && layout.zeros == 0 &&
            plain < Soundness::PADDED) {
            return failOtherFamily(reading, layout, pc);
        }
        if (pc.isOtherFamily || !hasKnownHeader(epc)) {
            continue;
        }
        const Soundness inside = soundnessOf(epc);
        if (isRatherBank(layout, pc, plain, inside)) {
            takeOff(reading, layout);
            return true;
        }
        if (inside >= plain && inside >= Soundness::PADDED) {
            Note& note = readingNote(reading, NoteKind::MAY_BE_PC_WORD,
                                     givenWords(reading, layout.words), [&] {
                                         return "the value could also begin with " +
                                                layoutText(layout) + "; it was taken as an EPC";
                                     });
            note.option = "bank";
        }
    }
    return true;
}

} // namespace rosetag
