/*
 * From a value to the bits of a tag scheme.
 */
#include "bridge/gs1_key_table.h"
#include "gs1/text_writers.h"
#include "recognise/bank_words.h"
#include "recognise/hex_text.h"
#include "recognise/plain_text.h"
#include "schemes/epc_uri.h"
#include "translate/company_prefix.h"
#include "translate/encode_plain.h"
#include "translate/parsed_ais.h"
#include "translate/tag_notes.h"
#include "translate/text_room.h"
#include "translate/translate.h"
#include "words/failure.h"
#include "words/scheme_words.h"
#include "words/shown_text.h"

namespace rosetag {

namespace {

std::string gcpLengthRemedy() {
    return "a tag keeps the GS1 company prefix, the " + gcpLengthsText() +
           " digits at the beginning of a key that GS1 gave to its owner, apart from the rest of "
           "the key; its length is in the owner's licence, or look the key up at the Verified by "
           "GS1 service of GS1";
}

struct EncodeCall {
    Reading& reading;
    const EncodeOptions& options;
    std::string& hex;
    Translation* room; // for a tag value that is given; null: it has its own
};

// The options do not suffice. Always false.
// complain: Complaint()
template <typename Complain>
bool failOptions(Reading& reading, EpcStatus status, Complain complain) {
    readingFail(reading, status, 0, reading.value.size(), complain);
    reading.failure.isOfOptions = true;
    return false;
}

bool isTagValue(Form form) {
    return form == Form::HEX || form == Form::TAG_URI;
}

// Looks up the length of the company prefix where the options have a list in its place. False if
// the failure is set.
bool completeGcpLength(Reading& reading, EncodeOptions& options) {
    if (options.read.gcpList == nullptr) {
        return true;
    }
    ParsedAis ais;
    const EpcStatus status = aisParse(reading.form, reading.workspace.text, ais);
    if (status != EPC_OK) {
        failReading(reading, status);
        return false;
    }
    const CompanyPrefix prefix = companyPrefixOf(options.read, ais);
    if (!prefix.problem.empty()) {
        failCompanyPrefix(reading, ais, prefix);
        return false;
    }
    options.read.gcpLength = prefix.length;
    return true;
}

// Whether the options say all that a form needs.
bool suffices(Reading& reading, EncodeOptions& options) {
    if (reading.form == Form::TID) {
        return readingFail(reading, EPC_ERR_NOT_SUPPORTED, 0, reading.value.size(), [&] {
            return Complaint{"this is a TID, which the maker of a chip writes: no scheme holds it",
                             "give the identity of the object"};
        });
    }
    if (optionsSuffice(reading.form, options)) {
        return true;
    }
    if (options.scheme == nullptr) {
        return failOptions(reading, EPC_ERR_UNKNOWN_SCHEME, [&] {
            return Complaint{std::string(formName(reading.form)) +
                                 " does not say which tag scheme to use",
                             "choose a scheme", "scheme"};
        });
    }
    const SchemeInfo& scheme = *options.scheme;
    if (options.filter.has_value() && scheme.filterLimit == 0) {
        return failOptions(reading, EPC_ERR_FILTER_FIELD, [&] {
            return Complaint{std::string(scheme.name) + " has no filter", "leave it out", "filter"};
        });
    }
    if (!completeGcpLength(reading, options)) {
        return false;
    }
    if (!options.read.gcpLength.has_value()) {
        return failOptions(reading, EPC_ERR_BAD_PARTITION, [&] {
            return Complaint{std::string(formName(reading.form)) +
                                 " does not say how long its GS1 company prefix is, which " +
                                 std::string(scheme.name) + " needs",
                             gcpLengthRemedy(), "gcp_length"};
        });
    }
    return true;
}

bool holdsAi(const SchemeInfo& scheme, std::string_view ai) {
    const Gs1KeyDefinition* const key = gs1KeyFindByName(scheme.family);
    return scheme.isPlus || key == nullptr || ai == key->primaryAi || ai == key->secondaryAi;
}

// The AIs of a text that a plain scheme leaves out.
void noteLeftOut(const EncodeCall& call, const ParsedAis& ais) {
    const SchemeInfo& scheme = *call.options.scheme;
    for (std::size_t i = 0; i < ais.list.count; ++i) {
        const std::string_view ai = aiCodeAt(ais, i);
        if (!holdsAi(scheme, ai)) {
            Note& note = readingNote(call.reading, NoteKind::NOT_ENCODED, call.reading.value, [&] {
                return "left out AI " + std::string(ai) + " (" + std::string(aiTitle(ai)) + ") " +
                       quotedText(aiValueAt(ais, i)) + ", which " + std::string(scheme.name) +
                       " does not hold";
            });
            note.option = "scheme";
        }
    }
}

template <typename Export>
EpcStatus encodeText(const EncodeCall& call, const std::string& text, Export encodeText) {
    const EncodeOptions& options = call.options;
    return textFrom<EPC_HEX_SIZE>(call.hex, [&](std::int32_t size, char* dst) {
        return encodeText(text.c_str(), options.scheme->scheme, options.filter.value_or(0),
                          options.read.gcpLength.value_or(0), options.encoding, size, dst);
    });
}

// A plain scheme takes a link by way of a bracketed text, which a "(" in a value would cut, and no
// scheme takes values that are too long with their escapes: such AIs go on as a barcode string.
EpcStatus encodeLink(const EncodeCall& call, const std::string& text, const ParsedAis* ais) {
    const bool isTaken =
        ais == nullptr || (!ais->isUnescaped && (call.options.scheme->isPlus || fitBrackets(*ais)));
    if (isTaken) {
        return encodeText(call, text, epc_digitalLinkToHexEnc);
    }
    std::array<char, EPC_BARCODE_STRING_SIZE> room;
    TextBuffer barcode = textBufferOver(room.data(), EPC_BARCODE_STRING_SIZE);
    EPC_TRY(barcodeStringWrite(barcode, ais->list, ais->base));
    return encodeText(call, std::string(textBufferView(barcode)), epc_barcodeStringToHexEnc);
}

// Separators may follow any value of a barcode string, and a value may hold a "(": the AIs go on as
// a bracketed text if they can.
EpcStatus encodeSyntax(const EncodeCall& call, Form form, const ParsedAis* ais) {
    const std::string& text = call.reading.workspace.text;
    if (form == Form::ELEMENT_STRING) {
        return encodeText(call, text, epc_gs1ElementStringToHexEnc);
    }
    if (form == Form::DIGITAL_LINK) {
        return encodeLink(call, text, ais);
    }
    if (ais == nullptr || !fitBrackets(*ais)) {
        return encodeText(call, text, epc_barcodeStringToHexEnc);
    }
    std::string& bracketed = call.reading.workspace.digits; // the value was not given as bytes
    elementStringOf(*ais, bracketed);
    return encodeText(call, bracketed, epc_gs1ElementStringToHexEnc);
}

// A plain scheme drops the check digit, and the library takes a wrong one in brackets and barcodes:
// a scan with a wrong one must not become a tag. It looks at no further AI than those of the key.
EpcStatus encodeAis(const EncodeCall& call, Form form) {
    ParsedAis ais;
    const EpcStatus status = aisParse(form, call.reading.workspace.text, ais);
    if (status == EPC_ERR_CHECK_DIGIT) {
        return status;
    }
    EPC_TRY(encodeSyntax(call, form, status == EPC_OK ? &ais : nullptr));
    noteLeftOut(call, ais);
    return EPC_OK;
}

// A plus scheme holds no URI, but the AIs that a URI stands for.
EpcStatus encodePureIdentity(const EncodeCall& call, const std::string& uri) {
    const EncodeOptions& options = call.options;
    if (!options.scheme->isPlus) {
        return textFrom<EPC_HEX_SIZE>(call.hex, [&](std::int32_t size, char* dst) {
            return epc_epcUriToHex(uri.c_str(), options.scheme->scheme, options.filter.value_or(0),
                                   size, dst);
        });
    }
    std::string elementString;
    const EpcStatus status =
        textFrom<EPC_ELEMENT_STRING_SIZE>(elementString, [&](std::int32_t size, char* dst) {
            return epc_epcUriToGs1ElementString(uri.c_str(), size, dst);
        });
    return status == EPC_OK ? encodeText(call, elementString, epc_gs1ElementStringToHexEnc)
                            : status;
}

// The bits of a tag value without what follows them, filled up to a word.
void normalHex(std::string_view hex, std::string& normal) {
    const std::size_t bits = tagValueBits(hex);
    const std::size_t digits = (bits + HEX_WORD_BITS - 1) / HEX_WORD_BITS * HEX_WORD_DIGITS;
    normal = hex.substr(0, digits);
    normal.resize(digits, '0');
    for (char& digit : normal) {
        digit = static_cast<char>(digit >= 'a' ? digit - ('a' - 'A') : digit);
    }
    // The last bits of the last word are not part of the value.
    for (std::size_t bit = bits; bit < 4 * normal.size(); ++bit) {
        const std::int32_t kept = hexDigitValue(normal[bit / 4]) & ~(8 >> bit % 4);
        normal[bit / 4] = HEX_DIGITS[static_cast<std::size_t>(kept)];
    }
}

// A tag value becomes a value of another scheme, or with another filter, through its identity.
EpcStatus encodeTagValue(const EncodeCall& call, std::string_view hex) {
    const EncodeOptions& options = call.options;
    Translation own;
    Translation& tag = call.room == nullptr ? own : *call.room;
    translationClear(tag, {});
    const EpcStatus status = formsOfHex(hex, Form::PURE_IDENTITY | Form::ELEMENT_STRING, tag);
    if (status != EPC_OK) {
        return status;
    }
    const bool staysSame = (options.scheme == nullptr || options.scheme == tag.scheme) &&
                           (!options.filter.has_value() || options.filter == tag.filter);
    if (staysSame) {
        normalHex(hex, call.hex);
        return EPC_OK;
    }
    EncodeOptions changed = options;
    changed.scheme = options.scheme == nullptr ? tag.scheme : options.scheme;
    changed.filter = options.filter.has_value()        ? options.filter
                     : changed.scheme->filterLimit > 0 ? tag.filter
                                                       : std::nullopt;
    if (changed.filter.has_value() && changed.scheme->filterLimit == 0) {
        if (call.reading.form == Form::TAG_URI) {
            return EPC_ERR_FILTER_FIELD;
        }
        readingNote(call.reading, NoteKind::NOT_ENCODED, call.reading.value, [&] {
            return "left out the filter " + std::to_string(*changed.filter) + ", which " +
                   std::string(changed.scheme->name) + " does not have";
        }).option = "filter";
        changed.filter.reset();
    }
    const EncodeCall next = {call.reading, changed, call.hex, nullptr};
    if (!tag.pureIdentity.empty()) {
        return encodePureIdentity(next, tag.pureIdentity);
    }
    ParsedAis ais;
    if (changed.scheme->hasUris &&
        aisParse(Form::ELEMENT_STRING, tag.elementString, ais) == EPC_OK) {
        changed.read.gcpLength = companyPrefixOf(options.read, ais).length;
    }
    if (changed.scheme->hasUris && !changed.read.gcpLength.has_value()) {
        return EPC_ERR_BAD_PARTITION;
    }
    return encodeText(next, tag.elementString, epc_gs1ElementStringToHexEnc);
}

// The bits of a tag value that is given as hex or as a URI.
EpcStatus hexOfTagValue(const Reading& reading, std::string& hex) {
    if (reading.form == Form::HEX) {
        hex = reading.workspace.text;
        return EPC_OK;
    }
    return textFrom<EPC_HEX_SIZE>(hex, [&](std::int32_t size, char* dst) {
        return epc_epcTagUriToHex(reading.workspace.text.c_str(), size, dst);
    });
}

EpcStatus encodeForm(const EncodeCall& call) {
    switch (call.reading.form) {
    case Form::HEX:
        return encodeTagValue(call, call.reading.workspace.text);
    case Form::TAG_URI: {
        std::string& hex = call.reading.workspace.digits; // the value was not given as bytes
        EPC_TRY(hexOfTagValue(call.reading, hex));
        return encodeTagValue(call, hex);
    }
    case Form::PURE_IDENTITY:
        return encodePureIdentity(call, call.reading.workspace.text);
    case Form::DIGITAL_LINK:
    case Form::BARCODE_STRING:
        return encodeAis(call, call.reading.form);
    default:
        return encodeAis(call, Form::ELEMENT_STRING);
    }
}

// Of a tag value that could not become one of another scheme, or with another filter.
void failTagValue(Reading& reading, EpcStatus status, const EncodeOptions& options) {
    if (failWordless(reading, status)) {
        return;
    }
    std::string hex;
    Translation tag;
    if (hexOfTagValue(reading, hex) != EPC_OK ||
        formsOfHex(hex, Form::PURE_IDENTITY, tag) != EPC_OK) {
        return failReading(reading, status);
    }
    EncodeOptions known = options;
    known.scheme = options.scheme == nullptr ? tag.scheme : options.scheme;
    const std::string name(known.scheme->name);
    if (status == EPC_ERR_BAD_PARTITION) {
        failOptions(reading, status, [&] {
            return Complaint{
                "a value of a plus scheme does not say how long its GS1 company prefix is",
                gcpLengthRemedy(), "gcp_length"};
        });
    } else if (options.filter.has_value() && known.scheme->filterLimit == 0) {
        readingFail(reading, status, 0, reading.value.size(), [&] {
            return Complaint{name + " has no filter", "leave it out", "filter"};
        });
    } else if (status == EPC_ERR_FILTER_LIMIT || status == EPC_ERR_FILTER_FIELD) {
        failEncoding(reading, status, known);
    } else {
        readingFail(reading, status, 0, reading.value.size(), [&] {
            return Complaint{name + " cannot hold this value of " + std::string(tag.scheme->name),
                             "choose another scheme", "scheme"};
        });
    }
}

void failEncodeForm(Reading& reading, EpcStatus status, const EncodeOptions& options) {
    if (isTagValue(reading.form)) {
        return failTagValue(reading, status, options);
    }
    return reading.form == Form::TID ? failReading(reading, status)
                                     : failEncoding(reading, status, options);
}

// Checks the value as given: bits that were encoded anew may have lost what was wrong with them.
void checkGiven(Reading& reading, Translation& result) {
    if (reading.form != Form::HEX) {
        return findOut(reading, result);
    }
    Translation given;
    translate(reading.value, reading.options, Form::FINDINGS, given);
    result.findings = std::move(given.findings);
    result.failure = std::move(given.failure);
}

// Encodes a prepared text if it is plain, with nothing to note.
bool encodeAtOnce(const Reading& reading, const EncodeOptions& options, Translation& result) {
    TagBits tag;
    result.form = reading.form;
    return encodePlain(reading, options, tag) &&
           formsOfEncoded(tag, result.asked, result) == EPC_OK;
}

} // namespace

void encode(std::string_view value, const EncodeOptions& options, FormSet wanted,
            Translation& result) {
    encode(value, options, wanted, result, nullptr);
}

void encode(std::string_view value, const EncodeOptions& options, FormSet wanted,
            Translation& result, Translation* room) {
    translationClear(result, wanted | Form::HEX);
    Reading reading{value, options.read, result.workspace, result.notes, result.failure};
    const bool isChecked = wanted.has(Form::FINDINGS);
    EncodeOptions completed = options;
    if (!isChecked && plainTextPrepare(reading) && suffices(reading, completed) &&
        encodeAtOnce(reading, completed, result)) {
        return;
    }
    completed = options;
    const bool isPrepared = readingPrepare(reading);
    result.form = reading.form;
    if (!isPrepared || !suffices(reading, completed) ||
        (!isChecked && encodeAtOnce(reading, completed, result))) {
        return;
    }
    std::string& hex = result.workspace.more;
    EpcStatus status = encodeForm({reading, completed, hex, room});
    if (status == EPC_OK) {
        status = formsOfHex(hex, isChecked ? result.asked | Form::AIS : result.asked, result);
    }
    if (status == EPC_OK && reading.form == Form::HEX) {
        noteTagBits(reading);
    }
    if (status == EPC_OK && isChecked) {
        checkGiven(reading, result);
        dropUnasked(result.asked, result);
    }
    if (status != EPC_OK && !isFailure(result.failure)) {
        failEncodeForm(reading, status, completed);
    }
}

Translation encode(std::string_view value, const EncodeOptions& options, FormSet wanted) {
    Translation result;
    encode(value, options, wanted, result);
    return result;
}

void appendHex(std::string& text, std::span<const std::uint8_t> bytes) {
    for (const std::uint8_t byte : bytes) {
        text += hexPairOf(byte);
    }
}

void appendAis(std::string& text, const Rows<AiValue>& ais) {
    std::string_view blank;
    for (const AiValue& element : ais) {
        text += blank;
        text += element.ai;
        text += '=';
        text += element.value;
        blank = " ";
    }
}

void appendWords(std::string& text, std::string_view hex) {
    for (std::size_t i = 0; i < hex.size(); i += 4) {
        if (i > 0) {
            text += ' ';
        }
        text += hex.substr(i, 4);
    }
}

void appendBits(std::string& text, std::string_view hex) {
    for (const char digit : hex) {
        const std::int32_t value = hexDigitValue(digit);
        for (const std::int32_t mask : {8, 4, 2, 1}) {
            text += (value & mask) != 0 ? '1' : '0';
        }
    }
    if (hex.size() % 2 != 0) {
        text.append(4, '0');
    }
}

} // namespace rosetag
