/**
 * @file
 * Rosetag's toolkit: whatever a value is, in all its forms, with its bits explained.
 *
 * The library of rosetag.h converts one form into another and has to know which. The toolkit
 * finds out what it was given, takes it the way people have it (with blanks, with a host, with a
 * scanner's prefix), gives every form that it has, and says in words what is wrong with it:
 *
 *     const std::string value = "3074257BF7194E4000001A85";
 *     const rosetag::Translation item = rosetag::translate(value);
 *     // item.elementString is "(01)80614141123458(21)6789"
 *     std::cout << rosetag::toJson(item, value); // all of it as a JSON object
 *
 * What follows holds for every function.
 *
 * Values. A value is any run of bytes; whatever it holds, the answer is a result or a failure. One
 * of more than MAX_VALUE_LENGTH bytes is EPC_ERR_TOO_LONG. A value is read in place; a result keeps
 * no view of it.
 *
 * Failures are values. Every result has a member failure. Its status is EPC_OK where the value was
 * read; otherwise it says what is wrong, where, and what to do about it. After a failure the other
 * members hold what was found out before it.
 *
 * Positions and lengths count bytes from 0 in the value as it was given, blanks, host and all.
 * Positions of bits count from 0 at the first bit of the value.
 *
 * Notes say what a result does not show: what was left out, padded or taken off, and what looks
 * wrong although it could be read. They have a kind for programs and a sentence for people.
 *
 * Options. Where a failure or a note goes away with another option, its member option names that
 * one in lower case with underscores, as the members of ReadOptions and EncodeOptions are called
 * here: "gcp_length". Sentences say it in words, so that each face can add its own spelling.
 *
 * Reuse. Each function exists twice: one returns its result, the other fills one that the caller
 * has. The second clears it first and keeps its memory, so that a loop over many values allocates
 * nothing once the strings have grown.
 *
 * The functions have no state, write nothing, read no file, clock, locale or environment, and start
 * no threads; any number of threads may call them at the same time, each with its own result.
 * They throw nothing themselves; std::string and std::vector do when memory runs out.
 *
 * JSON. Each result can be had as an object on one line. A key that has nothing to say is left out.
 * Bytes that are not UTF-8 become U+FFFD. The keys are documented with each result; later
 * versions may add some.
 *
 * Sources: GS1 General Specifications; GS1 Digital Link Standard: URI Syntax; EPC Tag Data
 * Standard; EPC UHF Gen2 Air Interface Protocol.
 */
#ifndef ROSETAG_TOOLKIT_HPP
#define ROSETAG_TOOLKIT_HPP

#include "rosetag/rosetag.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

/** The longest value that is accepted, in bytes. */
inline constexpr std::size_t MAX_VALUE_LENGTH = std::size_t{1} << 20;

/** The version of the toolkit that the program runs with, for example "1.0.0". */
std::string_view version();

/**
 * A list that keeps its elements when it is cleared, with the memory that they hold. add() gives an
 * element as it was last left.
 */
template <typename Element>
class Rows {
public:
    Element& add() {
        if (used == elements.size()) {
            elements.emplace_back();
        }
        return elements[used++];
    }
    void clear() {
        used = 0;
    }
    void removeLast() {
        --used;
    }
    std::size_t size() const {
        return used;
    }
    bool empty() const {
        return used == 0;
    }
    Element& operator[](std::size_t index) {
        return elements[index];
    }
    const Element& operator[](std::size_t index) const {
        return elements[index];
    }
    Element& back() {
        return elements[used - 1];
    }
    const Element& back() const {
        return elements[used - 1];
    }
    Element* begin() {
        return elements.data();
    }
    Element* end() {
        return elements.data() + used;
    }
    const Element* begin() const {
        return elements.data();
    }
    const Element* end() const {
        return elements.data() + used;
    }

private:
    std::vector<Element> elements;
    std::size_t used = 0;
};

/*
 * ---- Forms ----
 */

/** What a value can be given as, and what can be asked of it. */
enum class Form : std::uint8_t {
    HEX,            ///< The bits of a tag value as hexadecimal digits.
    TAG_URI,        ///< urn:epc:tag:...
    PURE_IDENTITY,  ///< urn:epc:id:...
    ELEMENT_STRING, ///< (01)...(21)...
    BARCODE_STRING, ///< What a scanner delivers.
    DIGITAL_LINK,   ///< Path and query of a GS1 Digital Link; when given, also with its host.
    GTIN,           ///< 14 digits; when given, also 8, 12 or 13.
    AIS,            ///< The AIs and their values. Only asked for.
    SERIAL,         ///< What distinguishes one object from the others of its key. Only asked for.
    FITS_SCHEMES,   ///< The schemes that can hold an identity. Only asked for.
    FINDINGS,       ///< What check finds. Only asked for.
    TID,            ///< The TID memory of a tag in hex. Only given.
    UNKNOWN,        ///< Nothing that is known here. Only given.
};

/** A set of forms: Form::TAG_URI | Form::HEX. */
class FormSet {
public:
    constexpr FormSet() = default;
    constexpr FormSet(Form form) : bits(1U << static_cast<unsigned>(form)) {} // NOLINT: meant
    constexpr bool has(Form form) const {
        return (bits >> static_cast<unsigned>(form) & 1U) != 0;
    }
    constexpr bool hasAny(FormSet others) const {
        return (bits & others.bits) != 0;
    }
    constexpr FormSet without(FormSet others) const {
        others.bits = bits & ~others.bits;
        return others;
    }
    friend constexpr FormSet operator|(FormSet one, FormSet other) {
        one.bits |= other.bits;
        return one;
    }
    friend constexpr FormSet operator&(FormSet one, FormSet other) {
        one.bits &= other.bits;
        return one;
    }
    friend constexpr bool operator==(FormSet one, FormSet other) = default;

private:
    std::uint32_t bits = 0;
};

constexpr FormSet operator|(Form one, Form other) {
    return FormSet(one) | FormSet(other);
}

/** Every form that can be asked for. */
inline constexpr FormSet ALL_FORMS =
    Form::HEX | Form::TAG_URI | Form::PURE_IDENTITY | Form::ELEMENT_STRING | Form::BARCODE_STRING |
    Form::DIGITAL_LINK | Form::GTIN | Form::AIS | Form::SERIAL | Form::FITS_SCHEMES;

/** The word of a form, which is its JSON key and its column name too: "tag_uri". */
std::string_view formWord(Form form);

/** The form that a word names, Form::UNKNOWN for none. "-" is taken for "_". */
Form formByWord(std::string_view word);

/** A form in words, with its article: "an EPC tag URI". */
std::string_view formName(Form form);

/*
 * ---- Schemes and AIs ----
 */

/** The digits of the shortest and of the longest GS1 company prefix that a tag can hold. */
inline constexpr int MIN_GCP_LENGTH = 6;
inline constexpr int MAX_GCP_LENGTH = 12;

/** What is known about a tag scheme. */
struct SchemeInfo {
    EpcScheme scheme;        ///< EPC_SCHEME_SGTIN_96 and so on.
    std::string_view name;   ///< "sgtin-96"
    std::string_view family; ///< The word of the pure identity URI: "sgtin".
    std::uint8_t header;     ///< The first eight bits of a value.
    int filterLimit;         ///< Filters are below it; 0: the scheme has no filter.
    bool hasUris;            ///< It converts to and from EPC URIs.
    bool hasGs1Texts;        ///< It converts to and from the GS1 texts.
    bool isPlus;             ///< It can hold further AIs, and no URI.
    std::string_view thing;  ///< What it identifies: "a trade item with a serial number".
};

/** All schemes in the order of EpcScheme: element n has the scheme n. */
std::span<const SchemeInfo> schemes();

/** The scheme with exactly this name, or null. */
const SchemeInfo* schemeByName(std::string_view name);

/** A filter value that has a meaning. */
struct FilterWord {
    int filter;
    std::string_view word; ///< "inner_pack"
    std::string_view name; ///< "inner pack: trade items grouped for handling"
};

/** The filter values of a scheme that the EPC Tag Data Standard gives a meaning. */
std::span<const FilterWord> filterWords(const SchemeInfo& scheme);

/** The filter that a word means for a scheme; none if it means none. "-" is taken for "_". */
std::optional<int> filterByWord(const SchemeInfo& scheme, std::string_view word);

/** The short title of an AI, "SERIAL" for "21"; empty for a code that GS1 has not assigned. */
std::string_view aiTitle(std::string_view code);

/** An AI, its value as in an element string, and its title. */
struct AiValue {
    std::string ai{};
    std::string value{};
    std::string_view title{};
};

/*
 * ---- Failures and notes ----
 */

/** Why there is no result. failureText puts it into a sentence. */
struct Failure {
    EpcStatus status = EPC_OK; ///< EPC_OK: there is none.
    std::string message{};     ///< What is wrong and which rule says so, in words.
    std::string remedy{};      ///< What to do about it; may be empty.
    std::size_t position = 0;  ///< Where in the value as given.
    std::size_t length = 0;    ///< 0: between two bytes, or at the end.
    std::string culprit{};     ///< The bytes there; may be empty.
    std::string_view option{}; ///< The option that helps; may be empty.
    bool isOfOptions = false;  ///< The options are at fault, not the value.
};

inline bool isFailure(const Failure& failure) {
    return failure.status != EPC_OK;
}

/** A failure on one line: place, culprit, message and remedy. Control characters are spelled. */
std::string failureText(const Failure& failure);

/**
 * A text as sentences show it: GS as {GS}, other control characters and bytes that are not UTF-8 as
 * \x1F, characters that cannot be seen as \u200B, and of a long one so many characters.
 */
std::string shownText(std::string_view text, std::size_t longest = 100);

/** How much a note or a finding matters. */
enum class Severity : std::uint8_t {
    NOTE,    ///< What was done to the value on the way.
    WARNING, ///< It was read, and looks wrong.
    ERROR,   ///< It breaks a rule.
};

/** "note", "warning", "error". */
std::string_view severityWord(Severity severity);

/** What a note is about. */
enum class NoteKind : std::uint8_t {
    BLANKS,           ///< Blanks around the value were taken off.
    LEFT_OUT,         ///< Parts of a link, or of a scan, were left out.
    PADDED,           ///< A GTIN was padded to 14 digits.
    SEVERAL_KEYS,     ///< A link could begin at several places.
    OLD_NAME,         ///< A link has a name in place of an AI, which the standard has dropped.
    SEMICOLON,        ///< A link has a semicolon, which does not separate parameters.
    NEEDS_GCP_LENGTH, ///< With gcp_length there would be a pure identity URI.
    NOT_ENCODED,      ///< AIs that the scheme does not hold were left out.
    SEPARATOR,        ///< A character looks like a separator. A warning.
    PC_WORD,          ///< A PC word, with or without a CRC, was taken off.
    MAY_BE_PC_WORD,   ///< The value could also begin with a PC word.
    TRAILING_BITS,    ///< Bits other than 0 follow the value. A warning.
    ODD_DIGITS,       ///< The last hexadecimal digit is missing. A warning.
    ODD_LENGTH,       ///< Digits beyond the last word of the value. A warning.
};

/** The word of a kind: "left_out". */
std::string_view noteWord(NoteKind kind);

struct Note {
    NoteKind kind = NoteKind::BLANKS;
    Severity severity = Severity::NOTE;
    std::string text;         ///< A sentence without a full stop.
    std::size_t position = 0; ///< What it is about, in the value as given.
    std::size_t length = 0;
    std::string_view option; ///< The option that it names; may be empty.
};

/*
 * ---- Recognising ----
 */

struct GcpList;

/** Which words of a tag's EPC memory bank hex begins with. */
enum class Bank : std::uint8_t {
    AUTO,   ///< Find out.
    EPC,    ///< The EPC.
    PC,     ///< The PC word, then the EPC.
    CRC_PC, ///< The CRC and the PC word, then the EPC: the bank from its first word on.
};

/** The words of Bank by its numbers: "auto", "epc", "pc", "crc-pc". */
std::span<const std::string_view> bankWords();

/** How a value is to be read. */
struct ReadOptions {
    bool asBarcode = false;       ///< Digits without any mark are a barcode string, not hex.
    bool isHex = false;           ///< Digits are hex whatever else they could be: those of bytes.
    bool wordless = false;        ///< Of a failure only the status counts, and of a note its kind:
                                  ///< nobody reads their words, which are left out.
    bool strict = false;          ///< Links are taken as they are: nothing is left out or padded.
                                  ///< Where findings are asked for, an error is a failure.
    std::optional<int> gcpLength; ///< Digits of the GS1 company prefix.
    const GcpList* gcpList = nullptr; ///< Gives it where gcpLength does not; may be null.
    char separator = '\0';            ///< Stands for GS in barcode strings; NUL: no other does.
    Bank bank = Bank::AUTO;           ///< Where hex begins.
};

/** Room for the work of a call, kept for the next. Of no interest to callers. */
struct Workspace {
    struct Piece {
        std::size_t prepared; ///< From here on the prepared text is as it was given,
        std::size_t given;    ///< there.
    };
    std::string text;
    std::string more;
    std::string bankWords; ///< The words before the EPC that were taken off.
    std::string digits;    ///< Those of a value that was given as bytes.
    std::vector<Piece> pieces;
};

/** What a value is. */
struct Recognition {
    Failure failure;
    Form form = Form::UNKNOWN;
    std::string text; ///< The value as the library takes it, in the syntax of its form.
    Rows<Note> notes;
    Workspace workspace;
};

/**
 * Says what a value is by its appearance, without finding out whether it can be read.
 *
 *     value    the value.
 *     options  how to read it.
 *     result   receives form, text and notes.
 *
 * EPC_ERR_TOO_LONG       more than MAX_VALUE_LENGTH bytes
 * EPC_ERR_BAD_CHARACTER  a NUL, or a character that is not a hexadecimal digit in hex
 * EPC_ERR_BAD_FORMAT     nothing that is known; position is where it stopped making sense
 *
 * Example:
 *
 *     const rosetag::Recognition link =
 *         rosetag::recognise("https://example.com/01/9506000134352");
 *     // link.form is rosetag::Form::DIGITAL_LINK
 *     // link.text is "/01/09506000134352"
 *
 * JSON: value, form, text, notes; after a failure value, form and the keys of a failure.
 */
void recognise(std::string_view value, const ReadOptions& options, Recognition& result);
Recognition recognise(std::string_view value, const ReadOptions& options = {});

/*
 * ---- Rules and findings ----
 */

/** What GS1 demands of a value. checkRuleWord gives the word of a rule: "check_digit". */
enum class CheckRule : std::uint8_t {
    // The text.
    UNKNOWN_FORM,       ///< It is nothing that is known here.
    TAG_VALUE,          ///< A tag value or an EPC URI cannot be read.
    SYMBOLOGY,          ///< A scanner's identifier does not announce GS1 data.
    BRACKETS,           ///< An element string has each AI between "(" and ")".
    AI_CODE,            ///< An AI has two to four digits.
    UNKNOWN_AI,         ///< GS1 has not assigned the AI.
    NEWER_AI,           ///< The AI is newer than this version. A warning.
    REPEATED_AI,        ///< An AI appears once. A warning where the values are the same.
    TOO_MANY_AIS,       ///< More AIs than can be converted. A warning.
    MISSING_SEPARATOR,  ///< A separator must end the value.
    NEEDLESS_SEPARATOR, ///< A separator ends nothing. A warning.
    // The value of an AI.
    EMPTY_VALUE,
    TOO_SHORT,
    TOO_LONG,
    SHORT_GTIN,        ///< A GTIN of 8, 12 or 13 digits where 14 belong. In links a warning.
    DIGITS,            ///< Only digits belong here.
    CHARACTER_SET_82,  ///< Only characters of the GS1 character set 82.
    CHARACTER_SET_39,  ///< Only characters of the GS1 character set 39.
    BASE64URL,         ///< Only characters of base64url.
    CHECK_DIGIT,       ///< The check digit does not match.
    CHECK_PAIR,        ///< The check character pair of a GMN does not match.
    ONLY_DIGITS,       ///< At least one character is not a digit.
    COMPANY_PREFIX,    ///< A GS1 company prefix begins here.
    UNASSIGNED_PREFIX, ///< The prefix list says that no company prefix has these digits.
    DATE,              ///< The day exists.
    TIME,              ///< The time exists.
    COUNTRY_NUMBER,    ///< ISO 3166-1 has assigned the number.
    COUNTRY_LETTERS,   ///< ISO 3166-1 has assigned the letters.
    CURRENCY_NUMBER,   ///< ISO 4217 has assigned the number.
    FLAG,              ///< 0 or 1.
    ZERO,              ///< The digit 0.
    NOT_ZERO,
    LEADING_ZERO, ///< There is none.
    MINUS,        ///< "-" or nothing.
    PIECE_OF_TOTAL,
    POSITION_OF_TOTAL,
    PERCENT_ESCAPE, ///< Two hexadecimal digits follow each "%".
    LATITUDE,
    LONGITUDE,
    WINDING, ///< 0, 1 or 9.
    SEX,     ///< 0, 1, 2 or 9.
    IBAN,
    MEDIA_TYPE,
    PACKAGE_TYPE,
    // What belongs together.
    NEEDS,    ///< An AI needs another one. A warning: it may be in another symbol.
    EXCLUDES, ///< An AI excludes another one.
    // Links.
    LINK_KEY,       ///< The path has a key.
    LINK_QUALIFIER, ///< Only qualifiers of the key follow it in the path.
    LINK_ORDER,     ///< They follow in a fixed order.
    LINK_QUERY,     ///< The AI does not belong in the query.
    LINK_CHARACTER, ///< The character must be escaped.
    LINK_ESCAPE,    ///< Two hexadecimal digits follow each "%".
    LINK_NAME,      ///< Names in place of AIs are no longer part of the standard. A warning.
    LINK_SEMICOLON, ///< Only "&" separates parameters. A warning.
};
inline constexpr std::size_t CHECK_RULE_COUNT = 54;

/** What is known about a rule. */
struct CheckRuleInfo {
    CheckRule rule;
    std::string_view word;     ///< "check_digit"
    Severity severity;         ///< Of most findings; see the rule.
    std::string_view sentence; ///< {ai}, {culprit} and {detail} stand for what is at hand.
};

/** All rules: element n is the rule with the number n. */
std::span<const CheckRuleInfo> checkRules();

/** The word of a rule: "check_digit". */
std::string_view checkRuleWord(CheckRule rule);

/** A place where a value breaks a rule. */
struct Finding {
    Severity severity = Severity::ERROR;
    CheckRule rule = CheckRule::UNKNOWN_FORM;
    EpcStatus status = EPC_ERR_BAD_FORMAT; ///< Of an error: why a tag value cannot be read, or
                                           ///< EPC_ERR_CHECK_DIGIT, or EPC_ERR_BAD_FORMAT.
    std::string ai;                        ///< Empty where the rule is about the text as a whole.
    std::size_t position = 0; ///< In the value as given. All of a tag value is one place.
    std::size_t length = 0;   ///< 0: between two bytes, or at the end.
    std::string culprit; ///< What is wrong: the bytes there, with the escapes of a link resolved.
    std::string message; ///< What the rule is and how to mend the value.
    std::string_view option; ///< The option that helps; may be empty.
};

/*
 * ---- Translating ----
 */

/** A value in its forms. One that it does not have, or that was not asked for, is empty. */
struct Translation {
    Failure failure;
    Form form = Form::UNKNOWN;          ///< What was given.
    const SchemeInfo* scheme = nullptr; ///< Of a tag value; null where there is none.
    std::optional<int> filter;          ///< Of a tag value whose scheme has one.
    int bits = 0;                       ///< The length of a tag value as hex, 8 bits a byte.
    std::string hex;                    ///< In upper case; all digits that were given.
    std::string tagUri;
    std::string pureIdentity;
    std::string elementString;
    std::string barcodeString; ///< With character 29, GS, after values of variable length.
    std::string digitalLink;
    std::string gtin;
    std::string serial;
    Rows<AiValue> ais;
    Rows<const SchemeInfo*> fitsSchemes;
    Rows<Note> notes;
    Rows<Finding> findings; ///< What check finds, of the value as given. Empty if it was not read.
    FormSet asked;
    Workspace workspace;
};

/** The text of a form that is one text; empty for AIS, FITS_SCHEMES and FINDINGS. */
std::string_view formText(const Translation& translation, Form form);

/** The value of an AI of a translation that was asked for Form::AIS; empty if it is not there. */
std::string_view aiValueOf(const Translation& translation, std::string_view ai);

/**
 * Translates a value into the forms that it has.
 *
 *     value    the value in any form.
 *     options  how to read it. gcpLength gives GS1 texts their pure identity URI.
 *     wanted   the forms to compute; no others cost anything.
 *     result   receives them, and form, scheme, filter, bits and notes in any case.
 *
 * EPC_OK                 the value was read. A form that it does not have is empty.
 * the statuses of recognise
 * EPC_ERR_...            as the functions of rosetag.h say of that form
 *
 * Example:
 *
 *     rosetag::Translation item; // outside of the loop
 *     rosetag::translate("(01)80614141123458(21)6789", {}, rosetag::Form::DIGITAL_LINK, item);
 *     // item.digitalLink is "/01/80614141123458/21/6789"
 *
 * JSON: value, form, scheme, filter, bits, each form that was asked for by its word, ais as an
 * array of objects with ai, title and value, fits_schemes as an array of names, notes, findings as
 * those of check.
 */
void translate(std::string_view value, const ReadOptions& options, FormSet wanted,
               Translation& result);
Translation translate(std::string_view value, const ReadOptions& options = {},
                      FormSet wanted = ALL_FORMS);

/** The same for the bits of a tag as bytes. Positions count the hexadecimal digits of the bytes. */
void translate(std::span<const std::uint8_t> bytes, const ReadOptions& options, FormSet wanted,
               Translation& result);

/**
 * Translates a value into one form that is one text, or into the text of its AIs that appendAis
 * gives. That of a tag value of a plain scheme costs little more than the call of the library.
 *
 *     value    the value in any form, or the bits of a tag as bytes.
 *     options  how to read it.
 *     form     the form.
 *     result   receives failure and notes, and holds the text; nothing else of it counts.
 *
 * Gives the text until result is used again; empty after a failure, and where the value does not
 * have the form.
 *
 * Example:
 *
 *     rosetag::Translation room; // outside of the loop
 *     const std::string_view uri =
 *         rosetag::convert("3074257BF7194E4000001A85", {}, rosetag::Form::TAG_URI, room);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 */
std::string_view convert(std::string_view value, const ReadOptions& options, Form form,
                         Translation& result);
std::string_view convert(std::span<const std::uint8_t> bytes, const ReadOptions& options, Form form,
                         Translation& result);

/** Like convert, but gives the value of an AI: of "21" the serial number of a trade item. */
std::string_view convertToAi(std::string_view value, const ReadOptions& options,
                             std::string_view ai, Translation& result);
std::string_view convertToAi(std::span<const std::uint8_t> bytes, const ReadOptions& options,
                             std::string_view ai, Translation& result);

/** A sentence that says what was given: "an EPC value in hex, scheme sgtin-96". */
std::string describe(const Translation& translation);

/*
 * ---- Encoding ----
 */

/** The words for the encodings of text, by AI_ENC_INTEGER to AI_ENC_CODE40: "integer", "hex-upper".
 */
std::span<const std::string_view> encodingWords();

/** What a text does not say about the tag value that it becomes. */
struct EncodeOptions {
    ReadOptions read;                   ///< gcpLength counts here too.
    const SchemeInfo* scheme = nullptr; ///< Null: the value is a tag value and keeps its own.
    std::optional<int> filter;          ///< None: that of a tag value, otherwise 0.
    int encoding = AI_ENC_AUTO;         ///< AI_ENC_...: of the texts of a plus scheme.
};

/**
 * Makes a tag value.
 *
 *     value    the value in any form.
 *     options  the scheme and what else it needs.
 *     wanted   the forms of the tag value to compute; hex is always among them.
 *     result   receives them, and in any case scheme, filter, bits, notes, and as form what was
 *              given.
 *
 * the statuses of recognise
 * EPC_ERR_UNKNOWN_SCHEME   the options name no scheme, and the value does not say one
 * EPC_ERR_BAD_PARTITION    the options do not say the length of the company prefix
 * EPC_ERR_SCHEME_MISMATCH  the scheme that the options name does not hold such a value
 * EPC_ERR_CHECK_DIGIT      a check digit is wrong
 * EPC_ERR_...              as the functions of rosetag.h say of that form
 *
 * The first two have isOfOptions set.
 *
 * Example:
 *
 *     rosetag::EncodeOptions options;
 *     options.scheme = rosetag::schemeByName("sgtin-96");
 *     options.filter = 3;
 *     options.read.gcpLength = 7;
 *     const rosetag::Translation tag = rosetag::encode("(01)80614141123458(21)6789", options);
 *     // tag.hex is "3074257BF7194E4000001A85"
 *
 * JSON: as of translate.
 */
void encode(std::string_view value, const EncodeOptions& options, FormSet wanted,
            Translation& result);
Translation encode(std::string_view value, const EncodeOptions& options,
                   FormSet wanted = Form::HEX);

/**
 * The same where only the hex is wanted; for schemes of numbers it costs little more than the call
 * of the library. result receives failure and notes, and holds the hex; nothing else of it counts.
 *
 * Gives the hex until result is used again; empty after a failure.
 */
std::string_view encodeToHex(std::string_view value, const EncodeOptions& options,
                             Translation& result);

/** Appends bytes as hexadecimal digits, two upper-case digits each. */
void appendHex(std::string& text, std::span<const std::uint8_t> bytes);

/**
 * Appends a value as a field of an EPC URI or a Digital Link: characters with a meaning there
 * become percent escapes.
 */
void appendEscaped(std::string& text, std::string_view value);

/** Appends AIs with their values: "01=80614141123458 21=6789". */
void appendAis(std::string& text, const Rows<AiValue>& ais);

/** Appends hexadecimal digits as 16-bit words of four digits, a blank between them. */
void appendWords(std::string& text, std::string_view hex);

/** Appends hexadecimal digits as the characters 0 and 1, filled up to whole bytes. */
void appendBits(std::string& text, std::string_view hex);

/*
 * ---- Explaining ----
 */

/** A field of a tag value, of an AI value or of a TID. */
struct ExplainedField {
    std::size_t first = 0;       ///< The first bit.
    std::size_t width = 0;       ///< In bits; 0 where the bits ended.
    std::string name;            ///< "company prefix"
    std::string meaning;         ///< In words; what is wrong where isGood is false.
    std::string value;           ///< What the field contributes to a text form; may be empty.
    std::string ai;              ///< The AI whose value it is part of; may be empty.
    std::span<const int> groups; ///< How its bits are set apart, over and over; empty: not at all.
    bool isGood = true;
};

/** Where a field of a tag value is in a text form of the value, as translate gives it. */
struct FieldPlace {
    std::size_t field = 0; ///< An element of fields.
    Form form = Form::UNKNOWN;
    std::size_t position = 0;
    std::size_t length = 0;
};

/** The bits of a value field by field. Where a field is wrong it is the last. */
struct Explanation {
    Failure failure;
    Form form = Form::UNKNOWN;          ///< What was given.
    const SchemeInfo* scheme = nullptr; ///< Null for a TID, an AI value and an unknown header.
    std::string hex;                    ///< With the words before the EPC.
    std::string bits;                   ///< The characters 0 and 1, whole bytes.
    std::size_t bankAddress = 0;        ///< Where the first bit is in its memory bank, in bits.
    Rows<ExplainedField> fields;
    Rows<FieldPlace> places; ///< A field may have several in a form, or none.
    Rows<Note> notes;
    Workspace workspace;
};

/**
 * Explains the bits of a tag value (hex or tag URI) or of a TID field by field.
 *
 *     value    the value.
 *     options  how to read it.
 *     result   receives the fields as far as they make sense.
 *
 * EPC_ERR_BAD_FORMAT     the value has no bits before it is encoded for a scheme
 * the statuses of recognise and translate
 *
 * Example:
 *
 *     const rosetag::Explanation tag = rosetag::explain("3074257BF7194E4000001A85");
 *     const rosetag::ExplainedField& field = tag.fields[3];
 *     // field.name is "company prefix"
 *     // field.first is 14
 *     // field.width is 24
 *     // field.meaning is "0614141"
 *
 * JSON: value, form, scheme, hex, fields as an array of objects with first, width, name, bits,
 * meaning, value, ai and good, places as an array of objects with field, form, position and length,
 * notes.
 */
void explain(std::string_view value, const ReadOptions& options, Explanation& result);
Explanation explain(std::string_view value, const ReadOptions& options = {});

/*
 * ---- Single AI values ----
 */

/** The value of an AI, in text and in bits. */
struct AiTranslation {
    Failure failure;
    AiValue ai;
    std::string hex;
    int bits = 0; ///< 0: not known.
    Rows<Note> notes;
};

/**
 * Makes the bits of a value as the plus schemes carry it.
 *
 *     ai        the code of the AI.
 *     value     its value, as in an element string. Failures have their position in it.
 *     withCode  the bits begin with the digits of the code, four bits each.
 *     encoding  AI_ENC_...: how texts are encoded.
 *
 * EPC_ERR_UNKNOWN_AI  GS1 has not assigned the AI
 * EPC_ERR_...         as epc_AIToHexEnc says
 *
 * Example:
 *
 *     const rosetag::AiTranslation serial = rosetag::encodeAi("21", "ABCG");
 *     // serial.hex is "64001086"
 *     // serial.bits is 32
 *
 * JSON: ai, title, value, hex, bits, notes.
 */
AiTranslation encodeAi(std::string_view ai, std::string_view value, bool withCode = false,
                       int encoding = AI_ENC_AUTO);

/**
 * Reads the bits of a value.
 *
 *     hex  the bits. Failures have their position in it.
 *     ai   the code of the AI; empty: the bits begin with it.
 *
 * EPC_ERR_UNKNOWN_AI  GS1 has not assigned the AI
 * EPC_ERR_...         as epc_hexValueToAI and epc_plusAidcHexToAI say
 *
 * Example:
 *
 *     const rosetag::AiTranslation serial = rosetag::decodeAi("2164001086");
 *     // serial.ai.value is "ABCG"
 *
 * JSON: ai, title, value, hex, notes.
 */
AiTranslation decodeAi(std::string_view hex, std::string_view ai = {});

/** Explains the bits that decodeAi reads, all of them: further AIs with their codes may follow. */
Explanation explainAi(std::string_view hex, std::string_view ai = {});

/*
 * ---- TID ----
 */

/** What the TID memory of a tag says. */
struct Tid {
    Failure failure;
    std::string hex;
    TidRecord record{};
    Rows<Note> notes;
    Workspace workspace;
};

/** The members of TidRecord::mdid. */
inline constexpr unsigned TID_XTID_MASK = 0x800;
inline constexpr unsigned TID_SECURITY_MASK = 0x400;
inline constexpr unsigned TID_FILE_MASK = 0x200;
inline constexpr unsigned TID_DESIGNER_MASK = 0x1FF;

/**
 * Reads the TID memory of a tag.
 *
 *     value   the memory from its first word on, in hex.
 *     result  receives the record.
 *
 * EPC_ERR_...  as tid_binaryDecode says
 *
 * Example:
 *
 *     const rosetag::Tid chip = rosetag::tid("E2003412");
 *     // chip.record.tmid is 0x412
 *
 * JSON: value, mdid, tmid, xtid, serial_bits, serial, and the other members of TidRecord in lower
 * case with underscores, notes.
 */
void tid(std::string_view value, Tid& result);
void tid(std::string_view value, const ReadOptions& options, Tid& result); // wordless alone counts
Tid tid(std::string_view value);

/*
 * ---- Checking ----
 */

/**
 * Finds everything in a value that is not as GS1 demands: after a fault it goes on as far as the
 * text lets it. The AIs of tag values and EPC URIs are checked like those of texts. Blanks around
 * the value are ignored.
 *
 *     value     the value in any form.
 *     options   how to read it. gcpList adds UNASSIGNED_PREFIX.
 *     findings  receives what was found, in the order of the text, with what is about several AIs
 *               last; empty if nothing was.
 *
 * A value without findings is not always one that translate can read; it says so itself.
 *
 * Example:
 *
 *     const rosetag::Rows<rosetag::Finding> findings =
 *         rosetag::check("(01)09506000134353(17)251301");
 *     // findings[0].rule is rosetag::CheckRule::CHECK_DIGIT
 *     // findings[0].position is 17
 *     // findings[1].rule is rosetag::CheckRule::DATE
 *     // findings[1].position is 24
 *
 * JSON: value, findings as an array of objects with severity, rule, ai, position, length, culprit,
 * message and option, and notes if they are given.
 */
void check(std::string_view value, const ReadOptions& options, Rows<Finding>& findings);
Rows<Finding> check(std::string_view value, const ReadOptions& options = {});

/** True if any finding is an error. */
bool hasError(const Rows<Finding>& findings);

/** The status of the first error, or EPC_OK. */
EpcStatus statusOf(const Rows<Finding>& findings);

/** A finding on one line: place, culprit and message. Control characters are spelled. */
std::string findingText(const Finding& finding);

/*
 * ---- Lists that the user has ----
 */

/** The digits that an entry of a prefix list begins with, and the length of the company prefix. */
struct GcpListEntry {
    std::uint64_t prefix;   ///< Its digits, filled up with zeros to twelve.
    std::uint8_t digits;    ///< How many of them there are, 3 to 12.
    std::uint8_t gcpLength; ///< 0: no company prefix begins so.
};

/** The list of the lengths of GS1 company prefixes, which GS1 publishes. */
struct GcpList {
    std::string date;                  ///< Of the edition, as the file says.
    std::vector<GcpListEntry> entries; ///< Ascending.
};

/**
 * Adds an entry, for a program that reads the file of a prefix list itself. Entries may come in any
 * order; the list must be finished after the last.
 *
 *     prefix     3 to 12 digits.
 *     gcpLength  a number from 0 to 12.
 *
 * Gives what is wrong with the entry, or the empty text after adding it.
 */
std::string gcpListAdd(GcpList& list, std::string_view prefix, std::string_view gcpLength);

/** Sorts the entries. Gives the prefix of two that contradict each other, or the empty text. */
std::string gcpListFinish(GcpList& list);

/** What a prefix list says about some digits. */
struct GcpAnswer {
    enum class Kind : std::uint8_t {
        LENGTH,     ///< Their company prefix has length digits.
        NO_PREFIX,  ///< No company prefix begins so.
        NOT_LISTED, ///< They are not in the list: its user must say the length.
    };
    Kind kind = Kind::NOT_LISTED;
    int length = 0;
};

/** Looks up the digits that a company prefix begins with; the longest entry counts. */
GcpAnswer gcpLengthOf(const GcpList& list, std::string_view digits);

/** The value of an AI from its company prefix on; empty if it has none. */
std::string_view companyPrefixOnwards(std::string_view ai, std::string_view value);

/** The model of a chip. */
struct ChipModel {
    std::uint16_t tmn; ///< The tag model number, 12 bits.
    std::string name;
    std::string url; ///< May be empty.
};

/** Who designed a chip. */
struct ChipDesigner {
    std::uint16_t mdid; ///< The mask designer identifier, 9 bits.
    std::string name;
    std::string url; ///< May be empty.
    std::vector<ChipModel> chips;
};

/** The list of chip designers, which GS1 publishes. */
struct DesignerList {
    std::string version;                 ///< As the file says.
    std::vector<ChipDesigner> designers; ///< Ascending by mdid.
};

/** The designer with this number, of which TID_DESIGNER_MASK counts; null if there is none. */
const ChipDesigner* designerOf(const DesignerList& list, unsigned mdid);

/** The model with this number, or null. */
const ChipModel* chipOf(const ChipDesigner& designer, unsigned tmn);

/**
 * Reads a list from the text of its file: that of prefixes in XML or JSON, that of designers in
 * JSON. Members that are not known are skipped.
 *
 *     text  the text of the file, UTF-8.
 *     list  receives it. After a failure it is empty.
 *
 * EPC_ERR_BAD_FORMAT  the text is not as it should be; message names line and column, position and
 *                     length are those of the text
 *
 * These two are in a separate library, rosetag::lists, which needs an XML and a JSON library.
 */
Failure readGcpList(std::string_view text, GcpList& list);
Failure readDesignerList(std::string_view text, DesignerList& list);

/*
 * ---- JSON ----
 */

/**
 * Appends a result as a JSON object without a line end.
 *
 *     value  the value that it is the result of, as it was given.
 *     line   the number of its line, as the first key, line; 0: none.
 *
 * The keys of a failure are status, message, remedy, position, length and culprit; those of a note
 * are kind, severity, text, position and length.
 */
void appendJson(std::string& text, const Recognition& result, std::string_view value);
void appendJson(std::string& text, const Translation& result, std::string_view value,
                std::uint64_t line = 0);
void appendJson(std::string& text, const Explanation& result, std::string_view value,
                std::uint64_t line = 0);
void appendJson(std::string& text, const AiTranslation& result, std::uint64_t line = 0);
void appendJson(std::string& text, const Tid& result, std::string_view value,
                std::uint64_t line = 0);
void appendJson(std::string& text, const SchemeInfo& scheme);
void appendJson(std::string& text, const Rows<Finding>& findings, std::string_view value,
                std::uint64_t line = 0);

/** The findings of check with notes on how the value was read, those of recognise. */
void appendJson(std::string& text, const Rows<Finding>& findings, const Rows<Note>& notes,
                std::string_view value, std::uint64_t line = 0);

/** The findings alone, as a JSON array. */
void appendJson(std::string& text, const Rows<Finding>& findings);

/** The same as a new string, from the arguments after the first. */
template <typename... Arguments>
std::string toJson(const Arguments&... arguments) {
    std::string json;
    appendJson(json, arguments...);
    return json;
}

} // namespace rosetag

#endif
