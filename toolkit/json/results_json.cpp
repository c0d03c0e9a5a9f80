/*
 * The results of the toolkit as JSON objects.
 */
#include "core/hex_digits.h"
#include "json/json_writer.h"

#include <rosetag/toolkit.hpp>

#include <array>

namespace rosetag {

namespace {

constexpr std::array<Form, 8> textForms = {
    Form::TAG_URI,      Form::PURE_IDENTITY, Form::ELEMENT_STRING, Form::BARCODE_STRING,
    Form::DIGITAL_LINK, Form::HEX,           Form::GTIN,           Form::SERIAL,
};

void putLine(JsonWriter& json, std::uint64_t line) {
    if (line != 0) {
        jsonMember(json, "line", line);
    }
}

template <typename Elements, typename Put>
void putArray(JsonWriter& json, const Elements& rows, Put putRow) {
    jsonBegin(json, '[');
    for (const auto& row : rows) {
        putRow(json, row);
    }
    jsonEnd(json, ']');
}

// A member that is left out where there are no rows.
template <typename Elements, typename Put>
void putArrayIfAny(JsonWriter& json, std::string_view key, const Elements& rows, Put putRow) {
    if (!rows.empty()) {
        jsonKey(json, key);
        putArray(json, rows, putRow);
    }
}

void putFailure(JsonWriter& json, const Failure& failure) {
    jsonMember(json, "status", epc_statusName(failure.status));
    jsonMember(json, "message", failure.message);
    jsonMemberIfAny(json, "remedy", failure.remedy);
    jsonMember(json, "position", failure.position);
    jsonMember(json, "length", failure.length);
    jsonMemberIfAny(json, "culprit", failure.culprit);
    jsonMemberIfAny(json, "option", failure.option);
}

void putNote(JsonWriter& json, const Note& note) {
    jsonBegin(json, '{');
    jsonMember(json, "kind", noteWord(note.kind));
    jsonMember(json, "severity", severityWord(note.severity));
    jsonMember(json, "text", note.text);
    jsonMember(json, "position", note.position);
    jsonMember(json, "length", note.length);
    jsonMemberIfAny(json, "option", note.option);
    jsonEnd(json, '}');
}

void putNotes(JsonWriter& json, const Rows<Note>& notes) {
    putArrayIfAny(json, "notes", notes, putNote);
}

void putFinding(JsonWriter& json, const Finding& finding) {
    jsonBegin(json, '{');
    jsonMember(json, "severity", severityWord(finding.severity));
    jsonMember(json, "rule", checkRuleWord(finding.rule));
    jsonMemberIfAny(json, "ai", finding.ai);
    jsonMember(json, "position", finding.position);
    jsonMember(json, "length", finding.length);
    jsonMemberIfAny(json, "culprit", finding.culprit);
    jsonMember(json, "message", finding.message);
    jsonMemberIfAny(json, "option", finding.option);
    jsonEnd(json, '}');
}

void putAi(JsonWriter& json, const AiValue& ai) {
    jsonMember(json, "ai", ai.ai);
    jsonMember(json, "title", ai.title);
    jsonMember(json, "value", ai.value);
}

void putAiObject(JsonWriter& json, const AiValue& ai) {
    jsonBegin(json, '{');
    putAi(json, ai);
    jsonEnd(json, '}');
}

void putSchemeName(JsonWriter& json, const SchemeInfo* scheme) {
    jsonText(json, scheme->name);
}

void putForms(JsonWriter& json, const Translation& result) {
    if (result.scheme != nullptr) {
        jsonMember(json, "scheme", result.scheme->name);
    }
    if (result.filter.has_value()) {
        jsonMember(json, "filter", static_cast<std::uint64_t>(*result.filter));
    }
    for (const Form form : textForms) {
        if (result.asked.has(form)) {
            jsonMemberIfAny(json, formWord(form), formText(result, form));
        }
    }
    if (result.bits != 0) {
        jsonMember(json, "bits", static_cast<std::uint64_t>(result.bits));
    }
    putArrayIfAny(json, formWord(Form::AIS), result.ais, putAiObject);
    putArrayIfAny(json, formWord(Form::FITS_SCHEMES), result.fitsSchemes, putSchemeName);
}

void putField(JsonWriter& json, const Explanation& result, const ExplainedField& field) {
    jsonBegin(json, '{');
    jsonMember(json, "first", field.first);
    jsonMember(json, "width", field.width);
    jsonMember(json, "name", field.name);
    jsonMember(json, "bits", std::string_view(result.bits).substr(field.first, field.width));
    jsonMember(json, "meaning", field.meaning);
    jsonMemberIfAny(json, "value", field.value);
    jsonMemberIfAny(json, "ai", field.ai);
    jsonMemberBool(json, "good", field.isGood);
    jsonEnd(json, '}');
}

void putBlocks(JsonWriter& json, std::string_view key, const TidBlockInfo& block) {
    jsonKey(json, key);
    jsonBegin(json, '{');
    jsonMember(json, "max_block_size", block.maxBlockSize);
    jsonMemberBool(json, "variable_size", block.variableSize != 0);
    jsonMember(json, "epc_address_offset", block.epcAddressOffset);
    jsonMemberBool(json, "no_epc_alignment", block.noEpcAlignment != 0);
    jsonMember(json, "user_address_offset", block.userAddressOffset);
    jsonMemberBool(json, "no_user_alignment", block.noUserAlignment != 0);
    jsonEnd(json, '}');
}

void putOptionalCommands(JsonWriter& json, const TidRecord& record) {
    jsonKey(json, "optional_commands");
    jsonBegin(json, '{');
    jsonMember(json, "max_epc_size", record.maxEpcSize);
    jsonMemberBool(json, "recom_support", record.recomSupport != 0);
    jsonMemberBool(json, "access_support", record.accessSupport != 0);
    jsonMemberBool(json, "separate_lockbits", record.separateLockbits != 0);
    jsonMemberBool(json, "auto_umi_support", record.autoUmiSupport != 0);
    jsonMemberBool(json, "pjm_support", record.pjmSupport != 0);
    jsonMemberBool(json, "block_write_supported", record.blockWriteSupported != 0);
    jsonMemberBool(json, "block_erase_supported", record.blockEraseSupported != 0);
    jsonMemberBool(json, "block_perma_lock_supported", record.blockPermaLockSupported != 0);
    jsonEnd(json, '}');
}

void putTid(JsonWriter& json, const TidRecord& record) {
    jsonMember(json, "mdid", record.mdid);
    jsonMember(json, "tmid", record.tmid);
    jsonMemberBool(json, "xtid", (record.mdid & TID_XTID_MASK) != 0);
    jsonMember(json, "serial_bits", record.serialBits);
    jsonMember(json, "serial", record.serial);
    if (record.hasOptionalCommands != 0) {
        putOptionalCommands(json, record);
    }
    putBlocks(json, "block_erase", record.blockErase);
    putBlocks(json, "block_write", record.blockWrite);
    jsonMember(json, "user_memory_size", record.userMemorySize);
    jsonMember(json, "block_perma_lock_block_size", record.blockPermaLockBlockSize);
}

void putPlace(JsonWriter& json, const FieldPlace& place) {
    jsonBegin(json, '{');
    jsonMember(json, "field", place.field);
    jsonMember(json, "form", formWord(place.form));
    jsonMember(json, "position", place.position);
    jsonMember(json, "length", place.length);
    jsonEnd(json, '}');
}

void putFilterWord(JsonWriter& json, const FilterWord& word) {
    jsonBegin(json, '{');
    jsonMember(json, "filter", static_cast<std::uint64_t>(word.filter));
    jsonMember(json, "word", word.word);
    jsonMember(json, "name", word.name);
    jsonEnd(json, '}');
}

} // namespace

void appendJson(std::string& text, const Recognition& result, std::string_view value) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    jsonMember(json, "value", value);
    jsonMember(json, "form", formWord(result.form));
    if (isFailure(result.failure)) {
        putFailure(json, result.failure);
    } else {
        jsonMember(json, "text", result.text);
    }
    putNotes(json, result.notes);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const Translation& result, std::string_view value,
                std::uint64_t line) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    putLine(json, line);
    jsonMember(json, "value", value);
    jsonMember(json, "form", formWord(result.form));
    if (isFailure(result.failure)) {
        putFailure(json, result.failure);
    } else {
        putForms(json, result);
    }
    putNotes(json, result.notes);
    putArrayIfAny(json, formWord(Form::FINDINGS), result.findings, putFinding);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const Explanation& result, std::string_view value,
                std::uint64_t line) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    putLine(json, line);
    jsonMember(json, "value", value);
    jsonMember(json, "form", formWord(result.form));
    if (result.scheme != nullptr) {
        jsonMember(json, "scheme", result.scheme->name);
    }
    jsonMemberIfAny(json, "hex", result.hex);
    jsonMember(json, "bank_address", result.bankAddress);
    jsonKey(json, "fields");
    putArray(json, result.fields, [&result](JsonWriter& array, const ExplainedField& field) {
        putField(array, result, field);
    });
    putArrayIfAny(json, "places", result.places, putPlace);
    if (isFailure(result.failure)) {
        putFailure(json, result.failure);
    }
    putNotes(json, result.notes);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const AiTranslation& result, std::uint64_t line) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    putLine(json, line);
    putAi(json, result.ai);
    jsonMemberIfAny(json, "hex", result.hex);
    if (isFailure(result.failure)) {
        putFailure(json, result.failure);
    } else if (result.bits != 0) {
        jsonMember(json, "bits", static_cast<std::uint64_t>(result.bits));
    }
    putNotes(json, result.notes);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const Tid& result, std::string_view value, std::uint64_t line) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    putLine(json, line);
    jsonMember(json, "value", value);
    if (isFailure(result.failure)) {
        putFailure(json, result.failure);
    } else {
        putTid(json, result.record);
    }
    putNotes(json, result.notes);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const SchemeInfo& scheme) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    jsonMember(json, "number", static_cast<std::uint64_t>(scheme.scheme));
    jsonMember(json, "name", scheme.name);
    jsonMember(json, "family", scheme.family);
    jsonMember(json, "thing", scheme.thing);
    jsonMember(json, "header", "0x" + std::string(hexPairOf(scheme.header)));
    jsonMember(json, "filter_limit", static_cast<std::uint64_t>(scheme.filterLimit));
    putArrayIfAny(json, "filters", filterWords(scheme), putFilterWord);
    jsonMemberBool(json, "uri", scheme.hasUris);
    jsonMemberBool(json, "gs1", scheme.hasGs1Texts);
    jsonMemberBool(json, "further_ais", scheme.isPlus);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const Rows<Finding>& findings, std::string_view value,
                std::uint64_t line) {
    appendJson(text, findings, {}, value, line);
}

void appendJson(std::string& text, const Rows<Finding>& findings, const Rows<Note>& notes,
                std::string_view value, std::uint64_t line) {
    JsonWriter json(text);
    jsonBegin(json, '{');
    putLine(json, line);
    jsonMember(json, "value", value);
    jsonKey(json, formWord(Form::FINDINGS));
    putArray(json, findings, putFinding);
    putNotes(json, notes);
    jsonEnd(json, '}');
}

void appendJson(std::string& text, const Rows<Finding>& findings) {
    JsonWriter json(text);
    putArray(json, findings, putFinding);
}

} // namespace rosetag
