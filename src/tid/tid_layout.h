/*
 * The fields of the TID memory bank of a Gen2 tag, allocation class 0xE2 with its extended part,
 * the XTID, and the members of TidRecord that they fill.
 *
 * A word is read and checked as a whole before any of its members is set. A member that several
 * fields of a word name is made of all of them.
 *
 * Source: EPC Tag Data Standard, section 16 (tag identification memory bank contents).
 */
#ifndef ROSETAG_TID_TID_LAYOUT_H
#define ROSETAG_TID_TID_LAYOUT_H

#include "rosetag/rosetag.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace rosetag {

enum class TidMeaning : std::uint8_t {
    NUMBER,
    CLASS,         // TID_CLASS
    RESERVED,      // must be zero
    FLAG,          // yes or no
    SERIAL_LENGTH, // the length of the serial number, see tidSerialBits
    SERIAL,        // as long as SERIAL_LENGTH says
    WORDS,         // a count of 16-bit words
    LARGEST_BLOCK, // the same; 0 only in a word of zeros, which describes no command
};

// The member that a field fills, if any.
struct TidMember {
    std::uint16_t TidRecord::*number = nullptr;
    std::uint8_t TidRecord::*small = nullptr;
    TidBlockInfo TidRecord::*block = nullptr;
    std::uint8_t TidBlockInfo::*ofBlock = nullptr;

    constexpr TidMember() = default;
    constexpr TidMember(std::uint16_t TidRecord::*member) : number(member) {}
    constexpr TidMember(std::uint8_t TidRecord::*member) : small(member) {}
    constexpr TidMember(TidBlockInfo TidRecord::*info, std::uint8_t TidBlockInfo::*member)
        : block(info), ofBlock(member) {}
    constexpr bool operator==(const TidMember&) const = default;
};

struct TidField {
    std::string_view name;
    std::int32_t width; // in bits; 0: the serial number
    TidMeaning meaning;
    TidMember member;
};

using TidWord = std::span<const TidField>;

constexpr std::size_t TID_MAX_WORDS = 3; // in a segment

struct TidSegment {
    std::string_view presentIf;   // the flag that announces it; empty: always present
    TidMember isPresent;          // set to 1
    TidWord words[TID_MAX_WORDS]; // empty after the last
};

inline constexpr std::uint64_t TID_CLASS = 0xE2;

// The bits of the serial number by the field of SERIAL_LENGTH.
constexpr std::int32_t tidSerialBits(std::uint64_t length) {
    return length == 0 ? 0 : (static_cast<std::int32_t>(length) + 2) * 16;
}

// clang-format off
inline constexpr TidField tidClass[] = {
    // name                      bits  meaning                     member
    {"allocation class",         8,    TidMeaning::CLASS,          {}},
};

inline constexpr TidField tidDesigner[] = {
    {"XTID",                     1,    TidMeaning::FLAG,           {&TidRecord::mdid}},
    {"security",                 1,    TidMeaning::FLAG,           {&TidRecord::mdid}},
    {"file",                     1,    TidMeaning::FLAG,           {&TidRecord::mdid}},
    {"designer (MDID)",          9,    TidMeaning::NUMBER,         {&TidRecord::mdid}},
};

inline constexpr TidField tidModel[] = {
    {"model (TMN)",              12,   TidMeaning::NUMBER,         {&TidRecord::tmid}},
};

inline constexpr TidField tidXtidHeader[] = {
    {"serialization",            3,    TidMeaning::SERIAL_LENGTH,  {}},
    {"user memory segment",      1,    TidMeaning::FLAG,           {}},
    {"block command segment",    1,    TidMeaning::FLAG,           {}},
    {"optional segment",         1,    TidMeaning::FLAG,           {}},
    {"reserved",                 9,    TidMeaning::RESERVED,       {}},
    {"extended header",          1,    TidMeaning::RESERVED,       {}},
};

inline constexpr TidField tidSerial[] = {
    {"serial",                   0,    TidMeaning::SERIAL,         {}}, // serialBits and serial
};

inline constexpr TidField tidOptionalCommands[] = {
    {"reserved",                 3,    TidMeaning::RESERVED,       {}},
    {"BlockPermaLock",           1,    TidMeaning::FLAG,           {&TidRecord::blockPermaLockSupported}},
    {"BlockWrite",               1,    TidMeaning::FLAG,           {&TidRecord::blockWriteSupported}},
    {"BlockErase",               1,    TidMeaning::FLAG,           {&TidRecord::blockEraseSupported}},
    {"phase jitter mod.",        1,    TidMeaning::FLAG,           {&TidRecord::pjmSupport}},
    {"automatic UMI",            1,    TidMeaning::FLAG,           {&TidRecord::autoUmiSupport}},
    {"separate lock bits",       1,    TidMeaning::FLAG,           {&TidRecord::separateLockbits}},
    {"access",                   1,    TidMeaning::FLAG,           {&TidRecord::accessSupport}},
    {"recommission",             1,    TidMeaning::FLAG,           {&TidRecord::recomSupport}},
    {"largest EPC",              5,    TidMeaning::WORDS,          {&TidRecord::maxEpcSize}},
};

inline constexpr TidField tidBlockErase[] = {
    {"reserved",                 5,    TidMeaning::RESERVED,       {}},
    {"erase: user unaligned",    1,    TidMeaning::FLAG,           {&TidRecord::blockErase, &TidBlockInfo::noUserAlignment}},
    {"erase: user offset",       8,    TidMeaning::WORDS,          {&TidRecord::blockErase, &TidBlockInfo::userAddressOffset}},
    {"erase: EPC unaligned",     1,    TidMeaning::FLAG,           {&TidRecord::blockErase, &TidBlockInfo::noEpcAlignment}},
    {"erase: EPC offset",        8,    TidMeaning::WORDS,          {&TidRecord::blockErase, &TidBlockInfo::epcAddressOffset}},
    {"erase: smaller blocks",    1,    TidMeaning::FLAG,           {&TidRecord::blockErase, &TidBlockInfo::variableSize}},
    {"erase: largest block",     8,    TidMeaning::LARGEST_BLOCK,  {&TidRecord::blockErase, &TidBlockInfo::maxBlockSize}},
};

inline constexpr TidField tidBlockWrite[] = {
    {"reserved",                 5,    TidMeaning::RESERVED,       {}},
    {"write: user unaligned",    1,    TidMeaning::FLAG,           {&TidRecord::blockWrite, &TidBlockInfo::noUserAlignment}},
    {"write: user offset",       8,    TidMeaning::WORDS,          {&TidRecord::blockWrite, &TidBlockInfo::userAddressOffset}},
    {"write: EPC unaligned",     1,    TidMeaning::FLAG,           {&TidRecord::blockWrite, &TidBlockInfo::noEpcAlignment}},
    {"write: EPC offset",        8,    TidMeaning::WORDS,          {&TidRecord::blockWrite, &TidBlockInfo::epcAddressOffset}},
    {"write: smaller blocks",    1,    TidMeaning::FLAG,           {&TidRecord::blockWrite, &TidBlockInfo::variableSize}},
    {"write: largest block",     8,    TidMeaning::LARGEST_BLOCK,  {&TidRecord::blockWrite, &TidBlockInfo::maxBlockSize}},
};

inline constexpr TidField tidPermaLockBlock[] = {
    {"perma-lock block",         16,   TidMeaning::WORDS,          {&TidRecord::blockPermaLockBlockSize}},
};

inline constexpr TidField tidUserMemory[] = {
    {"user memory",              16,   TidMeaning::WORDS,          {&TidRecord::userMemorySize}},
};

inline constexpr TidSegment tidSegments[] = {
    // present if this flag is set  set to 1                              words
    {"",                            {},                                   {tidClass, tidDesigner, tidModel}},
    {"XTID",                        {},                                   {tidXtidHeader, tidSerial}},
    {"optional segment",            {&TidRecord::hasOptionalCommands},    {tidOptionalCommands}},
    {"block command segment",       {},                                   {tidBlockErase, tidBlockWrite}},
    {"user memory segment",         {},                                   {tidPermaLockBlock, tidUserMemory}},
};
// clang-format on

// The bits of a word.
constexpr std::int32_t tidWidth(TidWord word) {
    std::int32_t width = 0;
    for (const TidField& field : word) {
        width += field.width;
    }
    return width;
}

} // namespace rosetag

#endif
