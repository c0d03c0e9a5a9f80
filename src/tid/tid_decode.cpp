#include "tid/tid_decode.h"

#include "core/text_buffer.h"
#include "tid/tid_layout.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace rosetag {

namespace {

constexpr std::size_t SEGMENTS = std::size(tidSegments);

// Some bits of a word.
struct TidPlace {
    std::size_t segment;
    std::size_t word;
    std::int32_t shift;
    std::int32_t width;

    constexpr std::uint64_t in(std::uint64_t value) const {
        return value >> shift & ((std::uint64_t{1} << width) - 1);
    }
};

constexpr const TidWord& fieldsOf(std::size_t segment, std::size_t word) {
    return tidSegments[segment].words[word];
}

constexpr TidPlace placeOf(std::size_t segment, std::size_t word, std::size_t field) {
    const TidWord& fields = fieldsOf(segment, word);
    return {segment, word, tidWidth(fields.subspan(field + 1)), fields[field].width};
}

// The first field of the bank that matches; of width 0 if there is none.
template <typename Predicate>
constexpr TidPlace findPlace(Predicate matches) {
    for (std::size_t segment = 0; segment < SEGMENTS; ++segment) {
        for (std::size_t word = 0; word < TID_MAX_WORDS; ++word) {
            for (std::size_t field = 0; field < fieldsOf(segment, word).size(); ++field) {
                if (matches(fieldsOf(segment, word)[field])) {
                    return placeOf(segment, word, field);
                }
            }
        }
    }
    return {};
}

constexpr TidPlace serialLength =
    findPlace([](const TidField& field) { return field.meaning == TidMeaning::SERIAL_LENGTH; });

constexpr TidPlace flagOf(const TidSegment& row) {
    return findPlace([&row](const TidField& field) { return field.name == row.presentIf; });
}

// The segments up to the last one that says something about later ones.
constexpr std::size_t consultedSegmentsCount() {
    std::size_t last = serialLength.segment;
    for (const TidSegment& row : tidSegments) {
        last = row.presentIf.empty() ? last : std::max(last, flagOf(row).segment);
    }
    return last + 1;
}

constexpr std::size_t CONSULTED_SEGMENTS = consultedSegmentsCount();

struct TidReader {
    BitBuffer& bits;
    TidRecord& record;
    std::uint64_t words[CONSULTED_SEGMENTS][TID_MAX_WORDS]; // 0 if not read

    std::uint64_t at(const TidPlace& place) const {
        return place.in(words[place.segment][place.word]);
    }
};

// A mask of the fields of a word that have this meaning.
constexpr std::uint64_t maskOf(std::size_t segment, std::size_t word, TidMeaning meaning) {
    std::uint64_t mask = 0;
    for (std::size_t field = 0; field < fieldsOf(segment, word).size(); ++field) {
        const TidPlace place = placeOf(segment, word, field);
        const bool isMeant = fieldsOf(segment, word)[field].meaning == meaning;
        mask |= isMeant ? ((std::uint64_t{1} << place.width) - 1) << place.shift : 0;
    }
    return mask;
}

// The bits that make up the member of a field, if this is the first field that names it; else none.
constexpr TidPlace memberPlace(std::size_t segment, std::size_t word, std::size_t field) {
    const TidWord& fields = fieldsOf(segment, word);
    const TidMember& member = fields[field].member;
    if (member == TidMember{} || (field > 0 && fields[field - 1].member == member)) {
        return {};
    }
    TidPlace place = placeOf(segment, word, field);
    for (++field; field < fields.size() && fields[field].member == member; ++field) {
        place.shift -= fields[field].width;
        place.width += fields[field].width;
    }
    return place;
}

constexpr void setMember(TidRecord& record, const TidMember& member, std::uint64_t value) {
    if (member.number != nullptr) {
        record.*member.number = static_cast<std::uint16_t>(value);
    } else if (member.small != nullptr) {
        record.*member.small = static_cast<std::uint8_t>(value);
    } else if (member.block != nullptr) {
        record.*member.block.*member.ofBlock = static_cast<std::uint8_t>(value);
    }
}

template <std::size_t segment, std::size_t word>
EpcStatus checkWord(std::uint64_t value) {
    constexpr std::uint64_t reserved = maskOf(segment, word, TidMeaning::RESERVED);
    constexpr std::uint64_t allocationClass = maskOf(segment, word, TidMeaning::CLASS);
    constexpr std::uint64_t largestBlock = maskOf(segment, word, TidMeaning::LARGEST_BLOCK);
    const bool isGood = (value & reserved) == 0 && (allocationClass == 0 || value == TID_CLASS) &&
                        (largestBlock == 0 || (value & largestBlock) != 0 || value == 0);
    return isGood ? EPC_OK : EPC_ERR_BAD_TID;
}

// The number begins at a byte and consists of whole bytes, so the bytes can be written as they are.
EpcStatus readSerial(TidReader& reader) {
    static_assert(tidSerialBits((1U << serialLength.width) - 1) / 4 + 1 ==
                  sizeof TidRecord::serial);
    const std::int32_t serialBits = tidSerialBits(reader.at(serialLength));
    if (serialBits == 0) {
        return EPC_OK;
    }
    reader.record.serialBits = static_cast<std::uint8_t>(serialBits);
    const std::uint8_t* const first = reader.bits.bytes + reader.bits.position / 8;
    if (bitBufferSkip(reader.bits, serialBits) != 0) {
        return EPC_ERR_TRUNCATED;
    }
    TextBuffer serial = textBufferOver(reader.record.serial);
    return textBufferPutHex(serial, first, serialBits / 8);
}

template <std::size_t segment, std::size_t word, std::size_t field>
void fillMember(TidRecord& record, std::uint64_t value) {
    constexpr TidPlace place = memberPlace(segment, word, field);
    if constexpr (place.width > 0) {
        setMember(record, fieldsOf(segment, word)[field].member, place.in(value));
    }
}

template <std::size_t segment, std::size_t word>
EpcStatus readWord(TidReader& reader) {
    constexpr const TidWord& fields = fieldsOf(segment, word);
    if constexpr (fields.empty()) {
        return EPC_OK;
    } else if constexpr (fields[0].meaning == TidMeaning::SERIAL) {
        return readSerial(reader);
    } else {
        std::uint64_t value = 0;
        EPC_TRY(bitBufferRead(reader.bits, tidWidth(fields), value));
        EPC_TRY((checkWord<segment, word>(value)));
        if constexpr (segment < CONSULTED_SEGMENTS) {
            reader.words[segment][word] = value;
        }
        [&]<std::size_t... field>(std::index_sequence<field...>) {
            (fillMember<segment, word, field>(reader.record, value), ...);
        }
        (std::make_index_sequence<fields.size()>());
        return EPC_OK;
    }
}

template <std::size_t segment>
EpcStatus readSegment(TidReader& reader) {
    constexpr const TidSegment& row = tidSegments[segment];
    if constexpr (!row.presentIf.empty()) {
        constexpr TidPlace flag = flagOf(row);
        static_assert(flag.width == 1);
        if (reader.at(flag) == 0) {
            return EPC_OK;
        }
    }
    EPC_TRY((readWord<segment, 0>(reader)));
    EPC_TRY((readWord<segment, 1>(reader)));
    EPC_TRY((readWord<segment, 2>(reader)));
    setMember(reader.record, row.isPresent, 1);
    return EPC_OK;
}

} // namespace

EpcStatus tidDecode(BitBuffer& bits, TidRecord& record) {
    record = {};
    TidReader reader = {bits, record, {}};
    EpcStatus status = EPC_OK;
    [&]<std::size_t... segment>(std::index_sequence<segment...>) {
        static_cast<void>((((status = readSegment<segment>(reader)) == EPC_OK) && ...));
    }
    (std::make_index_sequence<SEGMENTS>());
    return status;
}

} // namespace rosetag
