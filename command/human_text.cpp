#include "human_text.h"

#include "fields.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace rosetag {

namespace {

constexpr std::size_t labelWidth = 16;
constexpr std::size_t rawWidth = 40;

// The characters of a UTF-8 text: its bytes but those that continue one.
std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string shown(std::string_view text, bool raw) {
    std::string result(text);
    if (!raw) {
        spellSeparators(result);
    }
    return result;
}

std::string lineOf(std::string_view label, std::string_view text) {
    return text.empty() ? std::string() : labelled(label, text);
}

std::string aiLines(const Rows<AiValue>& ais, bool raw) {
    std::size_t codeWidth = 0;
    std::size_t titleWidth = 0;
    for (const AiValue& ai : ais) {
        codeWidth = std::max(codeWidth, ai.ai.size() + 2);
        titleWidth = std::max(titleWidth, characterCount(ai.title) + 2);
    }
    std::string lines;
    for (const AiValue& ai : ais) {
        lines += labelled(lines.empty() ? "AIs" : "", padded(ai.ai, codeWidth) +
                                                          padded(ai.title, titleWidth) +
                                                          shown(ai.value, raw));
    }
    return lines;
}

std::string schemeNames(const Rows<const SchemeInfo*>& schemes) {
    std::string names;
    for (const SchemeInfo* scheme : schemes) {
        names += (names.empty() ? "" : ", ") + std::string(scheme->name);
    }
    return names;
}

// The bits of a field with a blank between their groups, in lines that fit their column.
std::vector<std::string> rawLines(std::string_view bits, std::span<const int> groups) {
    std::vector<std::string> lines(1);
    std::size_t group = 0;
    while (!bits.empty()) {
        const std::size_t wanted = groups.empty()
                                       ? bits.size()
                                       : static_cast<std::size_t>(groups[group++ % groups.size()]);
        const std::size_t width = std::min({wanted, bits.size(), rawWidth});
        if (!lines.back().empty() && lines.back().size() + 1 + width > rawWidth) {
            lines.emplace_back();
        }
        lines.back() += (lines.back().empty() ? "" : " ") + std::string(bits.substr(0, width));
        bits.remove_prefix(width);
    }
    return lines;
}

std::string rangeText(const ExplainedField& field) {
    if (field.width == 0) {
        return "-";
    }
    const std::size_t last = field.first + field.width - 1;
    return std::to_string(field.first) +
           (field.width == 1 ? std::string() : '-' + std::to_string(last));
}

std::string explainedRow(const std::string& bits, std::size_t nameWidth,
                         const ExplainedField& field) {
    constexpr std::size_t bitsWidth = 9;
    constexpr std::size_t widthWidth = 7;
    const std::vector<std::string> raw =
        rawLines(std::string_view(bits).substr(field.first, field.width), field.groups);
    std::string row = padded(rangeText(field), bitsWidth) +
                      padded(std::to_string(field.width), widthWidth) +
                      padded(field.name, nameWidth) + padded(raw.front(), rawWidth + 2) +
                      (field.isGood ? "" : "WRONG: ") + shown(field.meaning, false) + '\n';
    for (std::size_t i = 1; i < raw.size(); ++i) {
        row += std::string(bitsWidth + widthWidth + nameWidth, ' ') + raw[i] + '\n';
    }
    return row;
}

std::string named(std::string_view name) {
    return name.empty() ? std::string() : ", " + std::string(name);
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

// Without a size the record says nothing about a command.
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
        return labelled("commands", "not stated");
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

} // namespace

std::string_view designerName(const DesignerList* designers, const TidRecord& record) {
    const ChipDesigner* const designer =
        designers == nullptr ? nullptr : designerOf(*designers, record.mdid);
    return designer == nullptr ? std::string_view() : designer->name;
}

std::string_view chipName(const DesignerList* designers, const TidRecord& record) {
    const ChipDesigner* const designer =
        designers == nullptr ? nullptr : designerOf(*designers, record.mdid);
    const ChipModel* const chip = designer == nullptr ? nullptr : chipOf(*designer, record.tmid);
    return chip == nullptr ? std::string_view() : chip->name;
}

std::string hexText(unsigned number, int digits) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", digits, number);
    return text;
}

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t characters = characterCount(text);
    return std::string(text) + std::string(width > characters ? width - characters : 0, ' ');
}

std::string labelled(std::string_view label, std::string_view text) {
    return padded(label, labelWidth) + std::string(text) + '\n';
}

std::string humanForms(const Translation& translation, bool raw) {
    std::string text;
    if (translation.scheme != nullptr) {
        text += labelled("scheme", translation.scheme->name);
    }
    if (translation.filter.has_value()) {
        text += labelled("filter", std::to_string(*translation.filter));
    }
    text += lineOf("tag URI", translation.tagUri);
    text += lineOf("pure identity", translation.pureIdentity);
    for (const Note& note : translation.notes) {
        text += note.kind == NoteKind::NEEDS_GCP_LENGTH
                    ? labelled("pure identity", "(needs --gcp-length)")
                    : "";
    }
    text += lineOf("fits schemes", schemeNames(translation.fitsSchemes));
    text += lineOf("element string", shown(translation.elementString, raw));
    text += lineOf("barcode string", shown(translation.barcodeString, raw));
    text += lineOf("Digital Link", shown(translation.digitalLink, raw));
    text += lineOf("hex", translation.hex);
    if (translation.bits != 0) {
        text += labelled("length", std::to_string(translation.bits) + " bits");
    }
    return text + aiLines(translation.ais, raw);
}

std::string humanExplanation(const Explanation& explanation) {
    std::size_t nameWidth = 0;
    for (const ExplainedField& field : explanation.fields) {
        nameWidth = std::max(nameWidth, field.name.size() + 2);
    }
    std::string text = padded("bits", 9) + padded("width", 7) + padded("field", nameWidth) +
                       padded("raw bits", rawWidth + 2) + "meaning\n";
    for (const ExplainedField& field : explanation.fields) {
        text += explainedRow(explanation.bits, nameWidth, field);
    }
    return text;
}

std::string humanTid(const TidRecord& record, const DesignerList* designers) {
    const unsigned mdid = record.mdid;
    std::string text =
        labelled("designer", "0x" + hexText(mdid & TID_DESIGNER_MASK, 3) + " (MDID)" +
                                 named(designerName(designers, record))) +
        labelled("model",
                 "0x" + hexText(record.tmid, 3) + " (TMN)" + named(chipName(designers, record))) +
        labelled("security", yesNo(mdid & TID_SECURITY_MASK)) +
        labelled("file", yesNo(mdid & TID_FILE_MASK)) +
        labelled("extended TID", yesNo(mdid & TID_XTID_MASK));
    if ((mdid & TID_XTID_MASK) == 0) {
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
                     record.userMemorySize == 0 ? "not stated" : wordCount(record.userMemorySize));
    return text + labelled("perma-lock", record.blockPermaLockBlockSize == 0
                                             ? "not stated"
                                             : wordCount(record.blockPermaLockBlockSize));
}

} // namespace rosetag
