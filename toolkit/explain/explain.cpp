/*
 * Explains values that are bits.
 */
#include "core/status.h"
#include "explain/explain_epc.h"
#include "explain/field_places.h"
#include "recognise/hex_text.h"
#include "recognise/look.h"
#include "translate/tag_notes.h"
#include "translate/text_room.h"
#include "translate/translate.h"
#include "words/failure.h"

namespace rosetag {

namespace {

// The hex of a prepared value.
EpcStatus hexOf(const Reading& reading, std::string& hex) {
    if (reading.form != Form::TAG_URI) {
        hex = reading.workspace.text;
        return EPC_OK;
    }
    return textFrom<EPC_HEX_SIZE>(hex, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToHex(reading.workspace.text.c_str(), size, dst);
    });
}

// Whether the library can read the bits, and where they are in its texts.
EpcStatus readEpc(std::string_view hex, Explanation& explanation) {
    Translation tag;
    EPC_TRY(formsOfHex(hex, ALL_FORMS, tag));
    placeFields(tag, explanation);
    return EPC_OK;
}

} // namespace

void explain(std::string_view value, const ReadOptions& options, Explanation& result) {
    result.scheme = nullptr;
    result.hex.clear();
    result.bits.clear();
    result.fields.clear();
    result.places.clear();
    Reading reading{value, options, result.workspace, result.notes, result.failure};
    const bool isPrepared = readingPrepare(reading);
    // Here digits that could be a GTIN are the beginning of a tag value.
    if (reading.form == Form::GTIN) {
        reading.form = Form::HEX;
        reading.notes.clear();
        prepareHex(reading, value);
    }
    result.form = reading.form;
    if (!isPrepared) {
        return;
    }
    if (reading.form != Form::HEX && reading.form != Form::TID && reading.form != Form::TAG_URI) {
        readingFail(
            reading, EPC_ERR_BAD_FORMAT, 0, value.size(),
            {std::string(formName(result.form)) + " has no bits before it is encoded for a scheme",
             "explain what encode makes of it"});
        return;
    }
    std::string& hex = result.workspace.more;
    if (const EpcStatus status = hexOf(reading, hex); status != EPC_OK) {
        return failReading(reading, status);
    }
    const bool isTid = reading.form == Form::TID;
    const bool isGood =
        isTid ? explainTid(hex, result) : explainEpc(result.workspace.bankWords, hex, result);
    const EpcStatus status = isTid ? tid(hex).failure.status : readEpc(hex, result);
    if (!isGood || status != EPC_OK) {
        failBits(reading, status, result);
    } else if (reading.form == Form::HEX) {
        noteTagBits(reading);
    }
}

Explanation explain(std::string_view value, const ReadOptions& options) {
    Explanation result;
    explain(value, options, result);
    return result;
}

void tid(std::string_view value, Tid& result) {
    tid(value, {}, result);
}

void tid(std::string_view value, const ReadOptions& options, Tid& result) {
    Reading reading{value, options, result.workspace, result.notes, result.failure, Form::TID};
    result.record = {};
    result.hex.clear();
    result.notes.clear();
    failureClear(result.failure);
    const std::string_view memory = withoutOuterBlanks(reading);
    if (failIsFileName(reading, memory) || !prepareHex(reading, memory)) {
        return;
    }
    result.hex = result.workspace.text;
    std::array<std::uint8_t, EPC_MAX_BINARY_BYTES> bytes;
    const std::size_t count = bytesOfHex(result.hex, bytes.data());
    const EpcStatus status =
        tid_binaryDecode(static_cast<std::int32_t>(8 * count), bytes.data(), &result.record);
    if (status != EPC_OK && !failWordless(reading, status)) {
        Explanation explanation;
        explainTid(result.hex, explanation);
        failBits(reading, status, explanation);
    }
}

Tid tid(std::string_view value) {
    Tid result;
    tid(value, result);
    return result;
}

} // namespace rosetag
