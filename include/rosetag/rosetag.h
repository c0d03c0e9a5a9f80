/**
 * @file
 * Rosetag: translates identifiers between the forms used in GS1 and RFID data capture.
 *
 * One identifier in its forms, here a GTIN with a serial number:
 *
 *     EPC binary value        3074257BF7194E4000001A85, as bytes, hexadecimal text or 16-bit words
 *     EPC tag URI             urn:epc:tag:sgtin-96:3.0614141.812345.6789
 *     EPC pure identity URI   urn:epc:id:sgtin:0614141.812345.6789
 *     GS1 element string      (01)80614141123458(21)6789
 *     GS1 barcode string      0180614141123458216789
 *     GS1 Digital Link        /01/80614141123458/21/6789
 *     list of AIs             01 with the value 80614141123458, 21 with the value 6789
 *
 * The library knows 34 tag schemes of the EPC Tag Data Standard, twelve of them plus schemes, which
 * carry further data in the +AIDC bit encoding, and 520 GS1 Application Identifiers (AIs). It also
 * writes and reads the +AIDC bits of single AI values, and decodes the TID memory bank of a Gen2
 * tag. A function's name says what it takes and what it gives: epc_hexToDigitalLink.
 *
 * What follows holds for every function; the functions say only what is particular to them.
 *
 * Calls. A call reads its arguments and constant tables, works on its own stack and writes the
 * outputs that it is given. It keeps nothing, so that there is nothing to set up or to tear down,
 * no call depends on another, and any number of threads may call at the same time. It allocates no
 * memory, throws nothing, and looks at no locale, file, clock or environment. Its stack is less
 * than 8 KiB, and its time grows with the length of the input and no faster.
 *
 * Units. bits counts bits, maxBytes and outBytes bytes, maxWords and outWordCount 16-bit words;
 * dstSize, valueSize and serialSize count bytes with the terminating NUL. Bit 0 of a binary value
 * is the most significant bit of its first byte or word. A value given as words needs words for all
 * of its bits; the bits of the last word beyond them are not looked at.
 *
 * Text. Every text is NUL-terminated ASCII. A byte of 0x80 or above belongs to no set of
 * characters. Hexadecimal text has two digits a byte and neither prefix nor blanks; both cases are
 * read, upper case is written, and an odd last digit is the high half of a byte whose low half is
 * 0.
 *
 * Pointers. outScheme, outBytes, outWordCount, outBits, and the outputs of the tid_...ToComponents
 * and tid_...ToXtid functions but serial may be null: that output is not wanted, and all checks
 * stay the same. A null record of tid_binaryDecode and tid_wordsDecode is a status. No other
 * pointer may be null, and none is tested.
 *
 * What the caller owes. As many readable bits, and as much writable room, as the arguments say, and
 * texts that end in a NUL and are shorter than 2 GiB. At least one byte is writable at dst whatever
 * dstSize: an empty text is written there at the start. A size of 0 or below has no room. Areas
 * must not overlap, neither two outputs nor an output and an input. The library changes no input
 * and keeps no pointer.
 *
 * Untrusted input. Whatever stands in a text or in bits, the answer is a status, and no byte
 * outside of the given areas is read or written.
 *
 * Statuses. 0 is EPC_OK, and anything else a failure, a value that a program does not know too:
 * later versions may add statuses. A call stops at the first failure that it meets. It is of no use
 * to call again, as the same arguments give the same status. Each function lists its statuses in
 * the order in which they are tested; where they are about a part of the input, the order of the
 * input comes first. epc_statusName and epc_statusText put a status into words.
 *
 * After a failure no output is a result. What stands there:
 *
 *     dst of a text               What was written before the failure, NUL-terminated; often
 *                                 nothing.
 *     dst of hexadecimal text     Untouched, or, where only dst is too small, the digits that fit,
 *                                 NUL-terminated.
 *     dst of a scheme's name      Untouched.
 *     out, outBytes               All maxBytes bytes are cleared and hold the bits written before
 *                                 the failure. outBytes is not written.
 *     outWords, outWordCount      Untouched.
 *     aiCodes, aiValues, aiCount  Rows finished before the failure stay. aiCount is not written.
 *     any output, where hexadecimal text or words cannot be read
 *                                 Untouched: the work has not begun.
 *
 * Binary compatibility. Within a major version no function is removed, and neither the arguments of
 * one nor a record, a status or a scheme's number changes. Functions, statuses and schemes may be
 * added, AIs become known as GS1 assigns them, and the sizes below may grow; a program compiled
 * with smaller ones stays right, since every call tells its sizes. Statuses and schemes are
 * integers of 32 bits, so that other languages can declare the functions as they stand.
 *
 * Arguments that many functions share:
 *
 *     scheme     EPC_SCHEME_SGTIN_96 to EPC_SCHEME_DSGTIN_PLUS, 0 to 33: the tag scheme.
 *     filter     The filter value to be written: 0 to 7, in usdod-96 0 to 14, in adi-var 0 to 63.
 *                gid-96 has none and does not look at it.
 *     gcpLength  The number of digits of the GS1 Company Prefix within the key, 6 to 12. No GS1
 *                text tells it. The plus schemes do not look at it.
 *     encoding   AI_ENC_AUTO, or AI_ENC_INTEGER to AI_ENC_CODE40, the encoding that every text
 *                field of a +AIDC value is to have. The other schemes do not look at it.
 *
 * Sources: GS1 General Specifications; GS1 Digital Link Standard: URI Syntax; EPC Tag Data
 * Standard; EPC UHF Gen2 Air Interface Protocol.
 */
#ifndef ROSETAG_ROSETAG_H
#define ROSETAG_ROSETAG_H

#include <stdint.h>

/** The version of this header, and the one place where it is written. */
#define ROSETAG_VERSION "1.0.0"
/** The first number of the version: raised when a program has to be changed or compiled anew. */
#define ROSETAG_VERSION_MAJOR 1
/** The second number of the version: raised with what is added. */
#define ROSETAG_VERSION_MINOR 0
/** The third number of the version: raised with what is mended. */
#define ROSETAG_VERSION_PATCH 0

/** Marks the functions that the library exports. ROSETAG_SHARED says that it is a shared one. */
#if defined(_WIN32) && defined(ROSETAG_SHARED)
#if defined(ROSETAG_BUILDING)
#define ROSETAG_EXPORT __declspec(dllexport)
#else
#define ROSETAG_EXPORT __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define ROSETAG_EXPORT __attribute__((visibility("default")))
#else
#define ROSETAG_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/*
 * ---- Sizes ----
 *
 * With an output of these sizes no call lacks room for a result within the limits of GS1 and of the
 * EPC Tag Data Standard. Sizes of text count the NUL.
 */

/**
 * Bytes of the largest binary value that comes from or goes to hexadecimal text or words. A value
 * that is written as bytes may be larger: a plus scheme takes as many AIs as out has room for. The
 * largest value without such data is an adi-var of 434 bits, 56 bytes.
 */
#define EPC_MAX_BINARY_BYTES 62

/** EPC_MAX_BINARY_BYTES in bits. */
#define EPC_MAX_BINARY_BITS 496

/** EPC_MAX_BINARY_BYTES in 16-bit words. */
#define EPC_MAX_BINARY_WORDS 31

/** EPC_MAX_BINARY_BYTES as hexadecimal text: two digits a byte. */
#define EPC_HEX_SIZE 125

/** The name of a scheme. The longest is "sgtin-198". */
#define EPC_SCHEME_NAME_SIZE 10

/**
 * An EPC URI. The longest is a tag URI of adi-var: "urn:epc:tag:adi-var:" with 20 characters, a
 * filter of two digits, a code of six characters, a part number of 32 and a serial number of 30
 * characters, each of which may stand as a percent escape of three, and three dots: 217 characters.
 * Three more and the NUL let a serial number that is too long be seen as such.
 */
#define EPC_URI_SIZE 221

/** AIs that a text or a binary value may hold at most. */
#define EPC_MAX_AIS 20

/** A row of aiCodes: four digits. */
#define EPC_AI_CODE_SIZE 5

/**
 * The value of an AI. The longest that GS1 allows has 90 characters (AIs 8030 and 91 to 99). The
 * length that stands in +AIDC bits counts to 127 characters, and 496 bits hold no more than 126 of
 * an AI whose digits are not counted (7023, 8004, 8010).
 */
#define EPC_AI_VALUE_SIZE 128

/**
 * Bytes of the +AIDC bits of an AI value: four digits of an AI of 4 bits, an encoding of 3, a
 * length of 7, and 127 characters of 7 bits are 915 bits.
 */
#define EPC_AI_VALUE_BYTES 115

/**
 * A GS1 element string. Values have 1023 characters together at most, and each of 20 AIs adds four
 * digits and two brackets: 1143 characters.
 */
#define EPC_ELEMENT_STRING_SIZE 1144

/**
 * A GS1 barcode string. The longest comes from a URI of the itip family, whose five fields are not
 * tested and may have 255 characters each; a check digit and the AIs 8006 and 21 make 1282.
 */
#define EPC_BARCODE_STRING_SIZE 1283

/**
 * The path and query of a GS1 Digital Link: 20 AIs of four digits, two delimiters, and 90
 * characters that are all percent escapes of three make 5520 characters. Three times the length of
 * the element string, and the NUL, is always enough as well.
 */
#define EPC_DIGITAL_LINK_SIZE 5521

/** The serial number of a TID: 144 bits as 36 hexadecimal digits. */
#define TID_SERIAL_SIZE 37

/** The number of tag schemes. */
#define EPC_SCHEME_COUNT 34

/* ---- Statuses, schemes, encodings ---- */

/** The result of every function: EPC_OK or one of the EPC_ERR_ values. */
typedef int32_t EpcStatus;

/** The values of EpcStatus. */
enum {
    /** The call did what it says. */
    EPC_OK = 0,
    /**
     * An output, or the size given for it, is too small for the result. Also: hexadecimal text
     * holds a character that is no hexadecimal digit; a value ends inside a part of fixed length; a
     * TID is to be decoded into no record.
     */
    EPC_ERR_NO_ROOM = 1,
    /** The input ends before it is complete: a text too early, or bits inside a field. */
    EPC_ERR_TRUNCATED = 2,
    /**
     * A number has too many digits or too few, or is too large for its field; a bit that must be 0
     * is 1. Also: a key has fewer characters than gcpLength says.
     */
    EPC_ERR_OUT_OF_RANGE = 3,
    /** The input, or a part of it, is longer than its limit. */
    EPC_ERR_TOO_LONG = 4,
    /** The first eight bits are no scheme's header: no EPC, or one of an unknown scheme. */
    EPC_ERR_UNKNOWN_HEADER = 5,
    /** No partition belongs to the bits, or to the number of digits of the company prefix. */
    EPC_ERR_BAD_PARTITION = 6,
    /** The text breaks its syntax, or the bits their layout. */
    EPC_ERR_BAD_FORMAT = 7,
    /** The filter value does not fit its field. Also: gcpLength is not 6 to 12. */
    EPC_ERR_FILTER_FIELD = 8,
    /** The text identifies another kind of thing than the scheme asked for. */
    EPC_ERR_SCHEME_MISMATCH = 9,
    /** The filter value is negative, or at or above the limit of the scheme. */
    EPC_ERR_FILTER_LIMIT = 10,
    /** No scheme has this name or number. */
    EPC_ERR_UNKNOWN_SCHEME = 11,
    /** The scheme, or the word of the pure identity URI, has no GS1 key: it cannot become AIs. */
    EPC_ERR_NO_KEY_DEFINITION = 12,
    /** GS1 has not assigned this AI. */
    EPC_ERR_UNKNOWN_AI = 13,
    /** The text holds a second GS1 key on its way to a URI, or the same one twice. */
    EPC_ERR_SECOND_KEY = 14,
    /** The text is empty or holds no GS1 key on its way to a URI. */
    EPC_ERR_NO_KEY_AI = 15,
    /** The AI that the GS1 key needs, such as serial number 21 behind 01, is not in the text. */
    EPC_ERR_NO_SECONDARY_AI = 16,
    /** A character does not belong to the set that is allowed in its place. */
    EPC_ERR_BAD_CHARACTER = 17,
    /** The scheme cannot be converted in this way: a plus scheme to a URI, or gid-96 to AIs. */
    EPC_ERR_NOT_SUPPORTED = 18,
    /** The plus scheme has no key. No input leads here. */
    EPC_ERR_NO_KEY_FOR_SCHEME = 19,
    /** The AIs hold no key for a Digital Link, or not all that the plus scheme needs. */
    EPC_ERR_NO_PRIMARY_KEY = 20,
    /** There are more than 20 AIs, or more than the caller's arrays have rows. */
    EPC_ERR_TOO_MANY_AIS = 21,
    /** The AIs hold two different keys for a Digital Link. */
    EPC_ERR_KEY_CONFLICT = 22,
    /** The check digit of a GS1 key is wrong. */
    EPC_ERR_CHECK_DIGIT = 23,
    /** The bits are no TID of class E2, or break its layout. */
    EPC_ERR_BAD_TID = 24
};

/** The number of a tag scheme: one of the EPC_SCHEME_ values, 0 to 33. */
typedef int32_t EpcScheme;

/** The values of EpcScheme. Behind the name the header that begins the binary value. */
enum {
    /** sgtin-96, 0x30: trade item, AI 01, with a serial number without leading zeros, AI 21. */
    EPC_SCHEME_SGTIN_96 = 0,
    /** sgtin-198, 0x36: trade item, AI 01, with a serial number of up to 20 characters, AI 21. */
    EPC_SCHEME_SGTIN_198 = 1,
    /** sscc-96, 0x31: logistic unit, AI 00. */
    EPC_SCHEME_SSCC_96 = 2,
    /** sgln-96, 0x32: location, AI 414, with an extension without leading zeros, AI 254. */
    EPC_SCHEME_SGLN_96 = 3,
    /** sgln-195, 0x39: location, AI 414, with an extension of up to 20 characters, AI 254. */
    EPC_SCHEME_SGLN_195 = 4,
    /** grai-96, 0x33: returnable asset, AI 8003, its serial number without leading zeros. */
    EPC_SCHEME_GRAI_96 = 5,
    /** grai-170, 0x37: returnable asset, AI 8003, its serial number of up to 16 characters. */
    EPC_SCHEME_GRAI_170 = 6,
    /** giai-96, 0x34: individual asset, AI 8004, its reference a number without leading zeros. */
    EPC_SCHEME_GIAI_96 = 7,
    /** giai-202, 0x38: individual asset, AI 8004, its reference a text. */
    EPC_SCHEME_GIAI_202 = 8,
    /** gsrn-96, 0x2D: recipient of a service, AI 8018. */
    EPC_SCHEME_GSRN_96 = 9,
    /** gsrnp-96, 0x2E: provider of a service, AI 8017. */
    EPC_SCHEME_GSRNP_96 = 10,
    /** gdti-96, 0x2C: document, AI 253, its serial number without leading zeros. */
    EPC_SCHEME_GDTI_96 = 11,
    /** gdti-113, 0x3A: document, AI 253, its serial number of up to 17 digits. */
    EPC_SCHEME_GDTI_113 = 12,
    /** gdti-174, 0x3E: document, AI 253, its serial number of up to 17 characters. */
    EPC_SCHEME_GDTI_174 = 13,
    /** cpi-96, 0x3C: component or part, AI 8010, a number, with a serial number, AI 8011. */
    EPC_SCHEME_CPI_96 = 14,
    /** cpi-var, 0x3D: component or part, AI 8010, a text, with a serial number, AI 8011. */
    EPC_SCHEME_CPI_VAR = 15,
    /** sgcn-96, 0x3F: coupon, AI 255, with a serial number of up to 12 digits. */
    EPC_SCHEME_SGCN_96 = 16,
    /** gid-96, 0x35: general identifier, without a filter value. It has URIs and no GS1 text. */
    EPC_SCHEME_GID_96 = 17,
    /** usdod-96, 0x2F: supplier of the US Department of Defense. It has URIs and no GS1 text. */
    EPC_SCHEME_USDOD_96 = 18,
    /** adi-var, 0x3B: aerospace and defence part. It has URIs and no GS1 text. */
    EPC_SCHEME_ADI_VAR = 19,
    /** itip-110, 0x40: piece of a trade item, AI 8006, with a serial number, AI 21. */
    EPC_SCHEME_ITIP_110 = 20,
    /** itip-212, 0x41: the same, its serial number of up to 20 characters. */
    EPC_SCHEME_ITIP_212 = 21,
    /** cpi+, 0xF0: AIs 8010 and 8011. Like all plus schemes it takes further AIs and has no URI. */
    EPC_SCHEME_CPI_PLUS = 22,
    /** grai+, 0xF1: AI 8003. */
    EPC_SCHEME_GRAI_PLUS = 23,
    /** sgln+, 0xF2: AIs 414 and 254. */
    EPC_SCHEME_SGLN_PLUS = 24,
    /** itip+, 0xF3: AIs 8006 and 21. */
    EPC_SCHEME_ITIP_PLUS = 25,
    /** gsrn+, 0xF4: AI 8018. */
    EPC_SCHEME_GSRN_PLUS = 26,
    /** gsrnp+, 0xF5: AI 8017. */
    EPC_SCHEME_GSRNP_PLUS = 27,
    /** gdti+, 0xF6: AI 253. */
    EPC_SCHEME_GDTI_PLUS = 28,
    /** sgtin+, 0xF7: AIs 01 and 21. */
    EPC_SCHEME_SGTIN_PLUS = 29,
    /** sgcn+, 0xF8: AI 255. */
    EPC_SCHEME_SGCN_PLUS = 30,
    /** sscc+, 0xF9: AI 00. */
    EPC_SCHEME_SSCC_PLUS = 31,
    /** giai+, 0xFA: AI 8004. */
    EPC_SCHEME_GIAI_PLUS = 32,
    /**
     * dsgtin+, 0xFB: AIs 01 and 21 and a date, which is that of the first AI there is of 11, 13,
     * 15, 16, 17, 7006 and 7007.
     */
    EPC_SCHEME_DSGTIN_PLUS = 33
};

/** The encoding of a +AIDC text field: the argument encoding of the functions that end in Enc. */
enum {
    /** The library chooses what suits the characters. */
    AI_ENC_AUTO = -1,
    /** Digits only, as one number. */
    AI_ENC_INTEGER = 0,
    /** Digits and A to F, 4 bits a character. */
    AI_ENC_HEX_UPPER = 1,
    /** Digits and a to f, 4 bits a character. */
    AI_ENC_HEX_LOWER = 2,
    /** Letters, digits, "-" and "_", 6 bits a character. */
    AI_ENC_BASE64URL = 3,
    /** All characters of AI values, 7 bits a character. */
    AI_ENC_ISO646 = 4,
    /** Upper-case letters, digits, "-", "." and ":", 16 bits for three characters. */
    AI_ENC_CODE40 = 5
};

/** What a TID says of one of the commands BlockErase and BlockWrite. All 0: it says nothing. */
typedef struct TidBlockInfo {
    /** The largest block that the command takes, in words, 1 to 255. */
    uint8_t maxBlockSize;
    /** 1: the command takes smaller blocks as well. */
    uint8_t variableSize;
    /** Address of the first full block in the EPC bank, in words. */
    uint8_t epcAddressOffset;
    /** 1: the EPC bank has no fixed boundaries of blocks. */
    uint8_t noEpcAlignment;
    /** Address of the first full block in the User bank, in words. */
    uint8_t userAddressOffset;
    /** 1: the User bank has no fixed boundaries of blocks. */
    uint8_t noUserAlignment;
} TidBlockInfo;

/** What a TID says. What it does not say is 0. The record has 68 bytes without any padding. */
typedef struct TidRecord {
    /** 12 bits: XTID, Security and File indicator, and nine bits of the chip's designer. */
    uint16_t mdid;
    /** 12 bits: the designer's number of the model. */
    uint16_t tmid;
    /** The length of the serial number in bits: 0, or 48 to 144 in steps of 16. */
    uint8_t serialBits;
    /** The serial number as upper-case hexadecimal digits, four bits each, NUL-terminated. */
    char serial[TID_SERIAL_SIZE];
    /** 1: the TID tells of optional commands, in the nine fields that follow. */
    uint8_t hasOptionalCommands;
    /** The largest length of an EPC, 0 to 31, as the first five bits of the PC word count it. */
    uint8_t maxEpcSize;
    /** 1: the tag can be recommissioned. */
    uint8_t recomSupport;
    /** 1: the tag knows the Access command. */
    uint8_t accessSupport;
    /** 1: each memory bank has lock bits of its own. */
    uint8_t separateLockbits;
    /** 1: the tag sets the User Memory Indicator by itself. */
    uint8_t autoUmiSupport;
    /** 1: the tag knows phase jitter modulation. */
    uint8_t pjmSupport;
    /** 1: the tag knows the BlockWrite command. */
    uint8_t blockWriteSupported;
    /** 1: the tag knows the BlockErase command. */
    uint8_t blockEraseSupported;
    /** 1: the tag knows the BlockPermalock command. */
    uint8_t blockPermaLockSupported;
    /** The size of a block of the BlockPermalock command, in words. */
    uint16_t blockPermaLockBlockSize;
    /** The size of the User bank, in words. */
    uint16_t userMemorySize;
    /** The BlockErase command. */
    TidBlockInfo blockErase;
    /** The BlockWrite command. */
    TidBlockInfo blockWrite;
} TidRecord;

/*
 * ---- Scheme names ----
 */

/**
 * Writes the name of a scheme, as it stands in a tag URI.
 *
 *     scheme   0 to 33.
 *     dstSize  bytes at dst; EPC_SCHEME_NAME_SIZE is always enough.
 *     dst      receives the name.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  scheme is not 0 to 33
 *     EPC_ERR_NO_ROOM         dst has no room for the name and its NUL
 *
 * Example:
 *
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_tagSchemeEnumToName(EPC_SCHEME_SGTIN_198, sizeof name, name);
 *     // name is "sgtin-198"
 *     epc_tagSchemeEnumToName(EPC_SCHEME_COUNT, sizeof name, name); // gives EPC_ERR_UNKNOWN_SCHEME
 *
 * Source: EPC Tag Data Standard, EPC binary headers.
 */
ROSETAG_EXPORT EpcStatus epc_tagSchemeEnumToName(EpcScheme scheme, int32_t dstSize, char* dst);

/**
 * Finds the scheme with a name.
 *
 *     name       the whole name in its own case, for example "sgtin-96"; "sgtin" alone is none.
 *     outScheme  receives the scheme. Untouched on failure. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  no scheme has this name
 *
 * Example:
 *
 *     EpcScheme scheme;
 *     epc_tagSchemeNameToEnum("dsgtin+", &scheme);
 *     // scheme is EPC_SCHEME_DSGTIN_PLUS
 *     epc_tagSchemeNameToEnum("SGTIN-96", &scheme); // gives EPC_ERR_UNKNOWN_SCHEME
 *
 * Source: EPC Tag Data Standard, EPC binary headers.
 */
ROSETAG_EXPORT EpcStatus epc_tagSchemeNameToEnum(const char* name, EpcScheme* outScheme);

/**
 * Writes the name of the scheme that the header of a binary value tells. Nothing behind the header
 * is looked at.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_SCHEME_NAME_SIZE is always enough.
 *     dst      receives the name.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are no scheme's header
 *     EPC_ERR_NO_ROOM         dst has no room for the name and its NUL
 *
 * Example:
 *
 *     const uint8_t header[] = {0x30};
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_binaryToTagSchemeName(8, header, sizeof name, name);
 *     // name is "sgtin-96"
 *
 * Source: EPC Tag Data Standard, EPC binary headers.
 */
ROSETAG_EXPORT EpcStatus epc_binaryToTagSchemeName(int32_t bits, const uint8_t* binary,
                                                   int32_t dstSize, char* dst);

/**
 * Like epc_binaryToTagSchemeName, but takes the value as hexadecimal text.
 *
 *     hex  0 to 124 digits; the value has eight bits for every two of them.
 *
 * Statuses in front of those of epc_binaryToTagSchemeName:
 *
 *     EPC_ERR_TOO_LONG  hex has more than 124 characters
 *     EPC_ERR_NO_ROOM   a character is no hexadecimal digit
 *
 * Example:
 *
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_hexToTagSchemeName("F74280614141123458", sizeof name, name);
 *     // name is "sgtin+"
 *     epc_hexToTagSchemeName("0xF7", sizeof name, name); // gives EPC_ERR_NO_ROOM
 */
ROSETAG_EXPORT EpcStatus epc_hexToTagSchemeName(const char* hex, int32_t dstSize, char* dst);

/*
 * ---- EPC binary to text ----
 *
 * The first eight bits, the header, tell the scheme. How many bits there are has no part in it:
 * they only limit the read, and what lies behind the last field is not looked at.
 */

/**
 * Writes the tag URI of a binary value: scheme, filter value and identity.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_URI_SIZE is always enough.
 *     dst      receives the URI. In a text field the characters that a URI cannot hold stand as
 *              percent escapes.
 *
 * Statuses:
 *
 *     EPC_ERR_NO_ROOM         dst has no room for "urn:epc:tag:"
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are no scheme's header
 *     EPC_ERR_NOT_SUPPORTED   a plus scheme, which has no URI
 *     EPC_ERR_NO_ROOM         dst has no room for the name of the scheme and ":"
 *     then, field by field:
 *     EPC_ERR_TRUNCATED       the bits end inside a field; a text is empty or has no end
 *     EPC_ERR_BAD_PARTITION   the partition value is 7
 *     EPC_ERR_OUT_OF_RANGE    a company prefix or reference has more digits than the partition
 *                             value allows; a serial number that keeps its leading zeros (gdti-113,
 *                             sgcn-96) lacks the 1 in front or has nothing behind it; a bit that
 *                             must be 0 is 1
 *     EPC_ERR_BAD_CHARACTER   a text holds a character that its field does not allow, or something
 *                             behind its end
 *     EPC_ERR_NO_ROOM         dst is full
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char uri[EPC_URI_SIZE];
 *     epc_binaryToEpcTagUri(96, binary, sizeof uri, uri);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 *     epc_binaryToEpcTagUri(95, binary, sizeof uri, uri); // gives EPC_ERR_TRUNCATED
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345."
 *
 * Source: EPC Tag Data Standard, EPC tag URI and EPC binary encoding.
 */
ROSETAG_EXPORT EpcStatus epc_binaryToEpcTagUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                               char* dst);

/**
 * Like epc_binaryToEpcTagUri, but writes the pure identity URI, which begins with "urn:epc:id:" and
 * holds the scheme's family in place of its name and no filter value.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char uri[EPC_URI_SIZE];
 *     epc_binaryToEpcUri(96, binary, sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 *
 * Source: EPC Tag Data Standard, EPC URI and EPC binary encoding.
 */
ROSETAG_EXPORT EpcStatus epc_binaryToEpcUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                            char* dst);

/**
 * Writes the GS1 element string of a binary value: the AIs of the key with its check digit, and of
 * a plus scheme the date and then the AIs of the data section. The filter value stands in no GS1
 * text.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_ELEMENT_STRING_SIZE is always enough.
 *     dst      receives the element string. It stays empty until the whole value has been read.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are no scheme's header
 *     EPC_ERR_NOT_SUPPORTED   gid-96, usdod-96 or adi-var, which have no GS1 text
 *     then, field by field, in a plain scheme those of epc_binaryToEpcUri, and in a plus scheme:
 *     EPC_ERR_TRUNCATED       the bits end inside a field
 *     EPC_ERR_UNKNOWN_AI      the data section holds an AI that GS1 has not assigned
 *     EPC_ERR_OUT_OF_RANGE    a number has too many digits, or a year is above 99
 *     EPC_ERR_BAD_FORMAT      a digit, letter, date, time, date code or encoding that does not
 *                             exist; a code-40 group of 0 or above 64000; an integer of more than
 *                             90 digits
 *     EPC_ERR_BAD_CHARACTER   a character that no AI value may hold
 *     EPC_ERR_NO_ROOM         the values have more than 1023 characters together
 *     EPC_ERR_TOO_MANY_AIS    there are more than 20 AIs
 *     and at last:
 *     EPC_ERR_NO_ROOM         dst is full
 *
 * A data section ends with the bits, or where eight of them or fewer are left, or at the digits 00
 * with fewer than 72 bits behind them, which are padding. No check digit is looked at.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_binaryToGs1ElementString(96, binary, sizeof text, text);
 *     // text is "(01)80614141123458(21)6789"
 *
 * Source: GS1 General Specifications, element strings; EPC Tag Data Standard, EPC binary encoding
 * and +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_binaryToGs1ElementString(int32_t bits, const uint8_t* binary,
                                                      int32_t dstSize, char* dst);

/**
 * Like epc_binaryToGs1ElementString, but writes a barcode string: AIs and values without brackets,
 * the GS character (code 29) between a value of varying length and a next AI, and neither a
 * symbology identifier in front nor a separator at the end.
 *
 *     dstSize  bytes at dst; EPC_BARCODE_STRING_SIZE is always enough.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_binaryToBarcodeString(96, binary, sizeof text, text);
 *     // text is "0180614141123458216789"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToBarcodeString(int32_t bits, const uint8_t* binary,
                                                   int32_t dstSize, char* dst);

/**
 * Like epc_binaryToGs1ElementString, but writes the path and query of a Digital Link, without
 * scheme and host.
 *
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE is always enough.
 *
 * Statuses between those of the fields and the last:
 *
 *     in a plain scheme those of epc_gs1ElementStringToDigitalLink, because the element string is
 *     read again: a "(" in a serial number begins a further AI
 *     in a plus scheme:
 *     EPC_ERR_KEY_CONFLICT    the data section holds a key of another kind
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_binaryToDigitalLink(96, binary, sizeof link, link);
 *     // link is "/01/80614141123458/21/6789"
 *
 * Source: GS1 Digital Link Standard: URI Syntax.
 */
ROSETAG_EXPORT EpcStatus epc_binaryToDigitalLink(int32_t bits, const uint8_t* binary,
                                                 int32_t dstSize, char* dst);

/**
 * Writes the AIs of a binary value into rows, the values as they stand in an element string. A
 * dsgtin+ gives its date first, then its key, then the data section.
 *
 *     bits       valid bits in binary.
 *     binary     the value, (bits + 7) / 8 bytes.
 *     maxAIs     rows of both arrays; EPC_MAX_AIS is always enough. A negative number sets no
 *                limit.
 *     valueSize  bytes of a row of aiValues; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     aiCodes    maxAIs rows of EPC_AI_CODE_SIZE bytes: receives the AIs, NUL-terminated.
 *     aiValues   maxAIs rows of valueSize bytes: receives the values, NUL-terminated.
 *     aiCount    receives the number of AIs. Required.
 *
 * Statuses:
 *
 *     those of epc_binaryToGs1ElementString up to the last, then, row by row:
 *     EPC_ERR_TOO_MANY_AIS    there are more than maxAIs AIs
 *     EPC_ERR_NO_ROOM         a value and its NUL are longer than valueSize; it is not cut
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char codes[EPC_MAX_AIS][EPC_AI_CODE_SIZE];
 *     char values[EPC_MAX_AIS][EPC_AI_VALUE_SIZE];
 *     uint32_t count;
 *     epc_binaryToAIs(96, binary, EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes[0], values[0], &count);
 *     // count is 2
 *     // codes[0] is "01"
 *     // values[0] is "80614141123458"
 *     // codes[1] is "21"
 *     // values[1] is "6789"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToAIs(int32_t bits, const uint8_t* binary, int32_t maxAIs,
                                         uint32_t valueSize, char* aiCodes, char* aiValues,
                                         uint32_t* aiCount);

/**
 * Like epc_binaryToEpcTagUri, but takes the value as hexadecimal text.
 *
 *     hex  0 to 124 digits; the value has eight bits for every two of them.
 *
 * Statuses in front of those of epc_binaryToEpcTagUri:
 *
 *     EPC_ERR_TOO_LONG  hex has more than 124 characters
 *     EPC_ERR_NO_ROOM   a character is no hexadecimal digit
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_hexToEpcTagUri("3074257BF7194E4000001A85", sizeof uri, uri);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToEpcTagUri(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToEpcUri, but takes the value as hexadecimal text, as epc_hexToEpcTagUri does.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_hexToEpcUri("3074257BF7194E4000001A85", sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToEpcUri(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToGs1ElementString, but takes the value as hexadecimal text, as epc_hexToEpcTagUri
 * does.
 *
 * Example, an sgtin+ with an expiry date in its data section:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_hexToGs1ElementString("F7B80614141123458046A145CD67C000", sizeof text, text);
 *     // text is "(01)80614141123458(21)6789(17)261231"
 *     epc_hexToGs1ElementString("35", sizeof text, text); // gives EPC_ERR_NOT_SUPPORTED
 */
ROSETAG_EXPORT EpcStatus epc_hexToGs1ElementString(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToBarcodeString, but takes the value as hexadecimal text, as epc_hexToEpcTagUri
 * does.
 *
 * Example:
 *
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_hexToBarcodeString("3074257BF7194E4000001A85", sizeof text, text);
 *     // text is "0180614141123458216789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToBarcodeString(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToDigitalLink, but takes the value as hexadecimal text, as epc_hexToEpcTagUri
 * does.
 *
 * Example:
 *
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_hexToDigitalLink("3074257BF7194E4000001A85", sizeof link, link);
 *     // link is "/01/80614141123458/21/6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToDigitalLink(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToAIs, but takes the value as hexadecimal text, as epc_hexToEpcTagUri does.
 *
 * Example, with rows for one AI where there are two:
 *
 *     char code[EPC_AI_CODE_SIZE];
 *     char value[EPC_AI_VALUE_SIZE];
 *     uint32_t count = 0;
 *     epc_hexToAIs("3074257BF7194E4000001A85", 1, sizeof value, code, value,
 *                  &count); // gives EPC_ERR_TOO_MANY_AIS
 *     // code is "01"
 *     // value is "80614141123458"
 *     // count is 0
 */
ROSETAG_EXPORT EpcStatus epc_hexToAIs(const char* hex, int32_t maxAIs, uint32_t valueSize,
                                      char* aiCodes, char* aiValues, uint32_t* aiCount);

/**
 * Like epc_binaryToEpcTagUri, but takes the value as 16-bit words.
 *
 *     bits   valid bits in words, 0 to 496.
 *     words  the value, (bits + 15) / 16 words, its first bit the highest of the first word.
 *
 * Status in front of those of epc_binaryToEpcTagUri:
 *
 *     EPC_ERR_TOO_LONG  bits is above 496
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3074, 0x257B, 0xF719, 0x4E40, 0x0000, 0x1A85};
 *     char uri[EPC_URI_SIZE];
 *     epc_wordsToEpcTagUri(96, words, sizeof uri, uri);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_wordsToEpcTagUri(int32_t bits, const uint16_t* words, int32_t dstSize,
                                              char* dst);

/**
 * Like epc_binaryToEpcUri, but takes the value as words, as epc_wordsToEpcTagUri does.
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3074, 0x257B, 0xF719, 0x4E40, 0x0000, 0x1A85};
 *     char uri[EPC_URI_SIZE];
 *     epc_wordsToEpcUri(96, words, sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_wordsToEpcUri(int32_t bits, const uint16_t* words, int32_t dstSize,
                                           char* dst);

/**
 * Like epc_binaryToGs1ElementString, but takes the value as words, as epc_wordsToEpcTagUri does.
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3074, 0x257B, 0xF719, 0x4E40, 0x0000, 0x1A85};
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_wordsToGs1ElementString(96, words, sizeof text, text);
 *     // text is "(01)80614141123458(21)6789"
 */
ROSETAG_EXPORT EpcStatus epc_wordsToGs1ElementString(int32_t bits, const uint16_t* words,
                                                     int32_t dstSize, char* dst);

/**
 * Like epc_binaryToBarcodeString, but takes the value as words, as epc_wordsToEpcTagUri does.
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3074, 0x257B, 0xF719, 0x4E40, 0x0000, 0x1A85};
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_wordsToBarcodeString(96, words, sizeof text, text);
 *     // text is "0180614141123458216789"
 */
ROSETAG_EXPORT EpcStatus epc_wordsToBarcodeString(int32_t bits, const uint16_t* words,
                                                  int32_t dstSize, char* dst);

/**
 * Like epc_binaryToDigitalLink, but takes the value as words, as epc_wordsToEpcTagUri does.
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3074, 0x257B, 0xF719, 0x4E40, 0x0000, 0x1A85};
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_wordsToDigitalLink(96, words, sizeof link, link);
 *     // link is "/01/80614141123458/21/6789"
 */
ROSETAG_EXPORT EpcStatus epc_wordsToDigitalLink(int32_t bits, const uint16_t* words,
                                                int32_t dstSize, char* dst);

/*
 * ---- EPC URIs to binary ----
 *
 * A value is padded with zero bits to whole 16-bit words, so that its length in bytes is even.
 * EPC_MAX_BINARY_BYTES of out, EPC_HEX_SIZE of dst and EPC_MAX_BINARY_WORDS of outWords are always
 * enough.
 */

/**
 * Encodes a tag URI, which tells scheme, filter value and identity.
 *
 *     text      the URI. In a text field any character may stand as a percent escape.
 *     maxBytes  bytes at out.
 *     out       receives the value.
 *     outBytes  receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED       the text ends inside "urn:epc:tag:"
 *     EPC_ERR_BAD_FORMAT      the text does not begin so
 *     EPC_ERR_TRUNCATED       no ":" ends the name of the scheme
 *     EPC_ERR_TOO_LONG        the same, with 256 characters or more
 *     EPC_ERR_UNKNOWN_SCHEME  no scheme has this name
 *     EPC_ERR_BAD_FORMAT      the filter value has a leading zero
 *     EPC_ERR_OUT_OF_RANGE    the filter value has more than 19 digits
 *     EPC_ERR_FILTER_LIMIT    the filter value is at or above the limit of the scheme
 *     EPC_ERR_TRUNCATED       the text ends behind the filter value
 *     EPC_ERR_BAD_FORMAT      the filter value is not followed by "."
 *     EPC_ERR_NOT_SUPPORTED   a plus scheme
 *     EPC_ERR_NO_ROOM         out has no room for the header
 *     EPC_ERR_FILTER_FIELD    the filter value is 15 in usdod-96
 *     then, field by field:
 *     EPC_ERR_TRUNCATED       the text ends in front of a "." or inside a percent escape; a text
 *                             field is empty
 *     EPC_ERR_TOO_LONG        a CAGE or DoDAAC code (usdod-96, adi-var) has more than 6 characters
 *     EPC_ERR_BAD_FORMAT      another character stands where a "." is due; a number has a leading
 *                             zero that its field cannot keep; a serial number that keeps its
 *                             leading zeros is empty; a code has fewer than 5 characters or one
 *                             that is not allowed
 *     EPC_ERR_BAD_PARTITION   the company prefix does not have 6 to 12 digits
 *     EPC_ERR_OUT_OF_RANGE    a number has more than 19 digits or is too large for its field; a
 *                             reference has not the digits that the company prefix leaves; a text
 *                             of cpi-var or adi-var is too long
 *     EPC_ERR_BAD_CHARACTER   a text field holds a character that it does not allow, or a "%"
 *                             without two hexadecimal digits
 *     EPC_ERR_NO_ROOM         out is full
 *     and at last:
 *     EPC_ERR_BAD_FORMAT      text is left behind the last field, or a text field is too long. The
 *                             value stands in out
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_epcTagUriToBinary("urn:epc:tag:sgtin-96:3.0614141.812345.6789", sizeof binary, binary,
 *                           &bytes);
 *     // bytes is 12
 *     // binary[11] is 0x85
 *     epc_epcTagUriToBinary("urn:epc:tag:sgtin-96:8.0614141.812345.6789", sizeof binary, binary,
 *                           &bytes); // gives EPC_ERR_FILTER_LIMIT
 *
 * Source: EPC Tag Data Standard, EPC tag URI and EPC binary encoding.
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToBinary(const char* text, int32_t maxBytes, uint8_t* out,
                                               int32_t* outBytes);

/**
 * Like epc_epcTagUriToBinary, but writes hexadecimal text.
 *
 *     dstSize  bytes at dst; EPC_HEX_SIZE is always enough.
 *     dst      receives two upper-case digits a byte.
 *
 * Status behind those of epc_epcTagUriToBinary:
 *
 *     EPC_ERR_NO_ROOM  dst has no room for all digits and a NUL
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_epcTagUriToHex("urn:epc:tag:sgtin-96:3.0614141.812345.6789", sizeof hex, hex);
 *     // hex is "3074257BF7194E4000001A85"
 *     epc_epcTagUriToHex("urn:epc:tag:sgtin+:3.0614141.812345.6789", sizeof hex,
 *                        hex); // gives EPC_ERR_NOT_SUPPORTED
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToHex(const char* text, int32_t dstSize, char* dst);

/**
 * Like epc_epcTagUriToBinary, but writes 16-bit words.
 *
 *     maxWords      words at outWords; EPC_MAX_BINARY_WORDS is always enough.
 *     outWords      receives the value, its first bit the highest of the first word.
 *     outWordCount  receives its length in words. May be null.
 *
 * Status behind those of epc_epcTagUriToBinary:
 *
 *     EPC_ERR_NO_ROOM  the value has more than maxWords words
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t count;
 *     epc_epcTagUriToWords("urn:epc:tag:sgtin-96:3.0614141.812345.6789", EPC_MAX_BINARY_WORDS,
 *                          words, &count);
 *     // count is 6
 *     // words[5] is 0x1A85
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToWords(const char* text, int32_t maxWords,
                                              uint16_t* outWords, int32_t* outWordCount);

/**
 * Encodes a pure identity URI, which tells neither the scheme nor a filter value.
 *
 *     text      the URI. In a text field any character may stand as a percent escape.
 *     scheme    a scheme of the family that the URI names.
 *     filter    0 to 7; usdod-96: 0 to 14; adi-var: 0 to 63; gid-96: not looked at.
 *     maxBytes  bytes at out.
 *     out       receives the value.
 *     outBytes  receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED        the text ends inside "urn:epc:id:"
 *     EPC_ERR_BAD_FORMAT       the text does not begin so
 *     EPC_ERR_UNKNOWN_SCHEME   scheme is not 0 to 33
 *     EPC_ERR_TRUNCATED        no ":" ends the family
 *     EPC_ERR_TOO_LONG         the same, with 256 characters or more
 *     EPC_ERR_SCHEME_MISMATCH  the URI is of another family than scheme
 *     EPC_ERR_NOT_SUPPORTED    a plus scheme
 *     EPC_ERR_NO_ROOM          out has no room for the header
 *     EPC_ERR_FILTER_FIELD     filter is negative or does not fit; this is no EPC_ERR_FILTER_LIMIT
 *     then those of epc_epcTagUriToBinary, field by field
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_epcUriToBinary("urn:epc:id:sgtin:0614141.812345.6789", EPC_SCHEME_SGTIN_198, 3,
 *                        sizeof binary, binary, &bytes);
 *     // bytes is 26
 *     // binary[0] is 0x36
 *     epc_epcUriToBinary("urn:epc:id:sgtin:0614141.812345.6789", EPC_SCHEME_SSCC_96, 3,
 *                        sizeof binary, binary, &bytes); // gives EPC_ERR_SCHEME_MISMATCH
 *
 * Source: EPC Tag Data Standard, EPC URI and EPC binary encoding.
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                            int32_t maxBytes, uint8_t* out, int32_t* outBytes);

/**
 * Like epc_epcUriToBinary, but writes hexadecimal text, as epc_epcTagUriToHex does.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_epcUriToHex("urn:epc:id:sgtin:0614141.812345.6789", EPC_SCHEME_SGTIN_96, 3, sizeof hex,
 *                     hex);
 *     // hex is "3074257BF7194E4000001A85"
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToHex(const char* text, EpcScheme scheme, int32_t filter,
                                         int32_t dstSize, char* dst);

/**
 * Like epc_epcUriToBinary, but writes words, as epc_epcTagUriToWords does.
 *
 * Example:
 *
 *     uint16_t words[5];
 *     epc_epcUriToWords("urn:epc:id:sgtin:0614141.812345.6789", EPC_SCHEME_SGTIN_96, 3, 5, words,
 *                       0); // gives EPC_ERR_NO_ROOM
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToWords(const char* text, EpcScheme scheme, int32_t filter,
                                           int32_t maxWords, uint16_t* outWords,
                                           int32_t* outWordCount);

/*
 * ---- GS1 text to binary ----
 *
 * A GS1 text and what it does not tell, the scheme, the filter value and the length of the company
 * prefix, become a binary value. Like all that is built from text it is padded with zero bits to
 * whole 16-bit words. The plain schemes keep the key and drop all other AIs; the plus schemes keep
 * all. The plain schemes do not look at encoding, the plus schemes not at gcpLength.
 *
 * EPC_MAX_BINARY_BYTES of out are enough for a plain scheme. A plus scheme writes as many AIs as
 * out has room for; as hexadecimal text and as words it writes EPC_MAX_BINARY_BYTES at most.
 */

/**
 * Encodes a barcode string, with or without a symbology identifier in front.
 *
 *     text       "]E0", "]E4" or "]I1" and the digits of a GTIN; or "]C1", "]e0", "]d2" or nothing
 *                and a run of AIs and values without brackets, where the GS character (code 29)
 *                ends a value of varying length.
 *     scheme     0 to 33.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12. A plus scheme does not look at it.
 *     maxBytes   bytes at out.
 *     out        receives the value.
 *     outBytes   receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_BAD_FORMAT      the text behind "]E0", "]E4" or "]I1" has not 13, 8 or 14 characters
 *     EPC_ERR_BAD_CHARACTER   the text begins with "]" and another symbology identifier
 *     then those of epc_gs1ElementStringToBinary, with these differences:
 *     in a plain scheme those of epc_barcodeStringToEpcTagUri stand in place of those of
 *     epc_gs1ElementStringToEpcTagUri, and in a plus scheme those of epc_barcodeStringToAIs with
 *     the separator 29 in place of those of epc_gs1ElementStringToAIs
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_barcodeStringToBinary("]C10180614141123458216789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                               sizeof binary, binary, &bytes);
 *     // bytes is 12
 *     // binary[11] is 0x85
 *     epc_barcodeStringToBinary("]E0123456789012", 99, 3, 7, sizeof binary, binary,
 *                               &bytes); // gives EPC_ERR_BAD_FORMAT
 *
 * Source: GS1 General Specifications, symbology identifiers and element strings; EPC Tag Data
 * Standard, EPC binary encoding and +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinary(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t maxBytes, uint8_t* out,
                                                   int32_t* outBytes);

/**
 * Like epc_barcodeStringToBinary, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinaryEnc(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t encoding, int32_t maxBytes,
                                                      uint8_t* out, int32_t* outBytes);

/**
 * Like epc_barcodeStringToBinary, but writes hexadecimal text, as epc_epcTagUriToHex does.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_barcodeStringToHex("0180614141123458216789", EPC_SCHEME_SGTIN_96, 3, 7, sizeof hex, hex);
 *     // hex is "3074257BF7194E4000001A85"
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToHex(const char* text, EpcScheme scheme, int32_t filter,
                                                int32_t gcpLength, int32_t dstSize, char* dst);

/**
 * Like epc_barcodeStringToHex, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToHexEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t dstSize, char* dst);

/**
 * Like epc_barcodeStringToBinary, but writes words, as epc_epcTagUriToWords does.
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t count;
 *     epc_barcodeStringToWords("0180614141123458216789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                              EPC_MAX_BINARY_WORDS, words, &count);
 *     // count is 6
 *     // words[0] is 0x3074
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToWords(const char* text, EpcScheme scheme,
                                                  int32_t filter, int32_t gcpLength,
                                                  int32_t maxWords, uint16_t* outWords,
                                                  int32_t* outWordCount);

/**
 * Like epc_barcodeStringToWords, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToWordsEnc(const char* text, EpcScheme scheme,
                                                     int32_t filter, int32_t gcpLength,
                                                     int32_t encoding, int32_t maxWords,
                                                     uint16_t* outWords, int32_t* outWordCount);

/**
 * Encodes a Digital Link. A plain scheme takes its path and query alone, a plus scheme also the
 * whole link with "https://" and a host in front.
 *
 *     text       the link. "http://" is not taken, and of "https://" no part may stand alone.
 *     scheme     0 to 33.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12. A plus scheme does not look at it.
 *     maxBytes   bytes at out.
 *     out        receives the value.
 *     outBytes   receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  scheme is not 0 to 33
 *     EPC_ERR_FILTER_LIMIT    filter is at or above the limit of the scheme
 *     EPC_ERR_NOT_SUPPORTED   gid-96, usdod-96 or adi-var, which have no GS1 text
 *     in a plain scheme:
 *     those of epc_digitalLinkToGs1ElementString with a dst of 256 bytes, then those of
 *     epc_gs1ElementStringToBinary with the result
 *     in a plus scheme:
 *     EPC_ERR_FILTER_LIMIT    filter is negative
 *     EPC_ERR_TRUNCATED       no "/" follows "https://" and a host
 *     EPC_ERR_BAD_FORMAT      the text begins with a part of "https://" and goes on otherwise
 *     those of epc_digitalLinkToAIs about path and query
 *     those of epc_gs1ElementStringToBinary from EPC_ERR_NO_PRIMARY_KEY on; in front of each value:
 *     EPC_ERR_TOO_LONG        the value has more than 1023 characters
 *     EPC_ERR_TRUNCATED       a "%" is cut by the end of the value
 *     EPC_ERR_BAD_CHARACTER   a "%" is not followed by two hexadecimal digits
 *
 * Check digits are verified in either kind of scheme.
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_digitalLinkToBinary("/01/80614141123458/21/6789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                             sizeof binary, binary, &bytes);
 *     // bytes is 12
 *     // binary[11] is 0x85
 *     epc_digitalLinkToBinary("https://id.example.com/01/80614141123458/21/6789",
 *                             EPC_SCHEME_SGTIN_96, 3, 7, sizeof binary, binary,
 *                             &bytes); // gives EPC_ERR_BAD_FORMAT
 *
 * Source: GS1 Digital Link Standard: URI Syntax; EPC Tag Data Standard, EPC binary encoding and
 * +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t maxBytes, uint8_t* out,
                                                 int32_t* outBytes);

/**
 * Like epc_digitalLinkToBinary, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinaryEnc(const char* text, EpcScheme scheme,
                                                    int32_t filter, int32_t gcpLength,
                                                    int32_t encoding, int32_t maxBytes,
                                                    uint8_t* out, int32_t* outBytes);

/**
 * Like epc_digitalLinkToBinary, but writes hexadecimal text, as epc_epcTagUriToHex does.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_digitalLinkToHex("https://id.example.com/01/80614141123458/21/6789",
 *                          EPC_SCHEME_SGTIN_PLUS, 3, 0, sizeof hex, hex);
 *     // hex is "F7380614141123458046A140"
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToHex(const char* text, EpcScheme scheme, int32_t filter,
                                              int32_t gcpLength, int32_t dstSize, char* dst);

/**
 * Like epc_digitalLinkToHex, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToHexEnc(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t encoding,
                                                 int32_t dstSize, char* dst);

/**
 * Like epc_digitalLinkToBinary, but writes words, as epc_epcTagUriToWords does.
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t count;
 *     epc_digitalLinkToWords("/01/80614141123458/21/6789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                            EPC_MAX_BINARY_WORDS, words, &count);
 *     // count is 6
 *     // words[0] is 0x3074
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToWords(const char* text, EpcScheme scheme, int32_t filter,
                                                int32_t gcpLength, int32_t maxWords,
                                                uint16_t* outWords, int32_t* outWordCount);

/**
 * Like epc_digitalLinkToWords, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToWordsEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t maxWords,
                                                   uint16_t* outWords, int32_t* outWordCount);

/**
 * Encodes a GS1 element string.
 *
 *     text       AIs in brackets, each followed by its value.
 *     scheme     0 to 33.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12. A plus scheme does not look at it.
 *     maxBytes   bytes at out.
 *     out        receives the value.
 *     outBytes   receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  scheme is not 0 to 33
 *     EPC_ERR_FILTER_LIMIT    filter is at or above the limit of the scheme
 *     EPC_ERR_NOT_SUPPORTED   gid-96, usdod-96 or adi-var, which have no GS1 text
 *     in a plain scheme:
 *     those of epc_gs1ElementStringToEpcTagUri with a dst of 256 bytes, then those of
 *     epc_epcTagUriToBinary with the result
 *     in a plus scheme:
 *     EPC_ERR_FILTER_LIMIT    filter is negative
 *     those of epc_gs1ElementStringToAIs about the text
 *     EPC_ERR_NO_ROOM         out has no room for the header
 *     EPC_ERR_NO_PRIMARY_KEY  an AI of the scheme is missing, or in dsgtin+ a date
 *     EPC_ERR_NO_ROOM         out has no room for the toggle and the filter value
 *     then date, key AIs and data section, value by value:
 *     EPC_ERR_NO_ROOM         a value is shorter than a part of fixed length
 *     those of epc_AIToBinaryEnc, each part of a value taken by itself
 *     and at last:
 *     EPC_ERR_NO_ROOM         out has no room for the padding
 *
 * A plain scheme verifies no check digit; a plus scheme does. In dsgtin+ the first of the AIs 11,
 * 13, 15, 16, 17, 7006 and 7007 that is there becomes the date; a date of 7007 must be a single
 * one.
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_gs1ElementStringToBinary("(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                                  sizeof binary, binary, &bytes);
 *     // bytes is 12
 *     // binary[11] is 0x85
 *     epc_gs1ElementStringToBinary("(01)80614141123458", EPC_SCHEME_SGTIN_PLUS, 3, 7,
 *                                  sizeof binary, binary, &bytes); // gives EPC_ERR_NO_PRIMARY_KEY
 *
 * Source: GS1 General Specifications, element strings; EPC Tag Data Standard, EPC binary encoding
 * and +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToBinary(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t maxBytes, uint8_t* out,
                                                      int32_t* outBytes);

/**
 * Like epc_gs1ElementStringToBinary, but with the encoding of the text fields of a plus scheme. A
 * plain scheme has none and does not look at it.
 *
 *     encoding  AI_ENC_AUTO, as epc_gs1ElementStringToBinary has it, or AI_ENC_INTEGER to
 *               AI_ENC_CODE40. The bits differ, what is read from them does not.
 *
 * Example:
 *
 *     uint8_t binary[EPC_MAX_BINARY_BYTES];
 *     int32_t bytes;
 *     epc_gs1ElementStringToBinaryEnc("(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_PLUS, 3, 0,
 *                                     AI_ENC_ISO646, sizeof binary, binary, &bytes);
 *     // bytes is 14
 *     epc_gs1ElementStringToBinaryEnc("(01)80614141123458(21)x", EPC_SCHEME_SGTIN_PLUS, 3, 0,
 *                                     AI_ENC_INTEGER, sizeof binary, binary,
 *                                     &bytes); // gives EPC_ERR_BAD_CHARACTER
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToBinaryEnc(const char* text, EpcScheme scheme,
                                                         int32_t filter, int32_t gcpLength,
                                                         int32_t encoding, int32_t maxBytes,
                                                         uint8_t* out, int32_t* outBytes);

/**
 * Like epc_gs1ElementStringToBinary, but writes hexadecimal text, as epc_epcTagUriToHex does.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_gs1ElementStringToHex("(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                               sizeof hex, hex);
 *     // hex is "3074257BF7194E4000001A85"
 *     epc_gs1ElementStringToHex("(01)80614141123458(21)6789(17)261231", EPC_SCHEME_SGTIN_PLUS, 3,
 *                               0, sizeof hex, hex);
 *     // hex is "F7B80614141123458046A145CD67C000"
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToHex(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t dstSize, char* dst);

/**
 * Like epc_gs1ElementStringToHex, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     epc_gs1ElementStringToHexEnc("(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_PLUS, 3, 0,
 *                                  AI_ENC_HEX_UPPER, sizeof hex, hex);
 *     // hex is "F73806141411234582467890"
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToHexEnc(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t encoding, int32_t dstSize, char* dst);

/**
 * Like epc_gs1ElementStringToBinary, but writes words, as epc_epcTagUriToWords does.
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t count;
 *     epc_gs1ElementStringToWords("(01)80614141123458(21)6789", EPC_SCHEME_SGTIN_96, 3, 7,
 *                                 EPC_MAX_BINARY_WORDS, words, &count);
 *     // count is 6
 *     // words[0] is 0x3074
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToWords(const char* text, EpcScheme scheme,
                                                     int32_t filter, int32_t gcpLength,
                                                     int32_t maxWords, uint16_t* outWords,
                                                     int32_t* outWordCount);

/**
 * Like epc_gs1ElementStringToWords, but with the encoding of the text fields of a plus scheme; see
 * epc_gs1ElementStringToBinaryEnc.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToWordsEnc(const char* text, EpcScheme scheme,
                                                        int32_t filter, int32_t gcpLength,
                                                        int32_t encoding, int32_t maxWords,
                                                        uint16_t* outWords, int32_t* outWordCount);

/*
 * ---- Text to text ----
 */

/**
 * Reads the AIs of a barcode string, with or without a symbology identifier in front.
 *
 *     text       "]E0", "]E4" or "]I1" and the digits of a GTIN; or "]C1", "]e0", "]d2" or nothing
 *                and a run of AIs and values without brackets.
 *     separator  code of the character that ends a value of varying length, as a rule 29 (GS); it
 *                may stand behind any other value as well. 0: none does.
 *     maxAIs     rows of both arrays; EPC_MAX_AIS is always enough. A negative number sets no
 *                limit.
 *     valueSize  bytes of a row of aiValues; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     aiCodes    maxAIs rows of EPC_AI_CODE_SIZE bytes: receives the AIs, NUL-terminated.
 *     aiValues   maxAIs rows of valueSize bytes: receives the values, NUL-terminated.
 *     aiCount    receives the number of AIs. Required.
 *
 * Statuses:
 *
 *     EPC_ERR_BAD_FORMAT     the text behind "]E0", "]E4" or "]I1" has not 13, 8 or 14 characters
 *     EPC_ERR_BAD_CHARACTER  the text begins with "]" and another symbology identifier
 *     then, AI by AI:
 *     EPC_ERR_TOO_MANY_AIS   text is left behind the twentieth AI
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is no digit
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_NO_ROOM        the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT     a value of varying length is longer than GS1 allows
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *     then, row by row:
 *     EPC_ERR_TOO_MANY_AIS   there are more than maxAIs AIs
 *     EPC_ERR_NO_ROOM        a value and its NUL are longer than valueSize; it is not cut
 *
 * Example:
 *
 *     char codes[EPC_MAX_AIS][EPC_AI_CODE_SIZE];
 *     char values[EPC_MAX_AIS][EPC_AI_VALUE_SIZE];
 *     uint32_t count;
 *     epc_barcodeStringToAIs("]C110LOT7|3103000189", '|', EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes[0],
 *                            values[0], &count);
 *     // count is 2
 *     // values[0] is "LOT7"
 *     // codes[1] is "3103"
 *     epc_barcodeStringToAIs("]E00614141123452", 0, EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes[0],
 *                            values[0], &count);
 *     // codes[0] is "01"
 *     // values[0] is "00614141123452"
 *
 * Source: GS1 General Specifications, symbology identifiers and element strings.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToAIs(const char* text, int32_t separator, int32_t maxAIs,
                                                uint32_t valueSize, char* aiCodes, char* aiValues,
                                                uint32_t* aiCount);

/**
 * Like epc_gs1ElementStringToEpcTagUri, but takes a barcode string.
 *
 *     text  a run of AIs and values without brackets and without a symbology identifier. The GS
 *           character (code 29) ends a value of varying length, and stands nowhere else.
 *
 * Differences in the statuses:
 *
 *     EPC_ERR_BAD_FORMAT  no two digits stand where an AI is due, but, for example, the "]" of a
 *                         symbology identifier or a GS character behind a value of fixed length
 *
 * In an itip the AI 21 must follow the AI 8006 directly.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_barcodeStringToEpcTagUri("0180614141123458216789", EPC_SCHEME_SGTIN_96, 3, 7, sizeof uri,
 *                                  uri);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToEpcTagUri(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t dstSize, char* dst);

/**
 * Reads the AIs of a Digital Link, path before query.
 *
 *     text       path and query, without scheme and host; it may begin with the "?".
 *     maxAIs     rows of both arrays; EPC_MAX_AIS is always enough. A negative number sets no
 *                limit.
 *     valueSize  bytes of a row of aiValues; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     aiCodes    maxAIs rows of EPC_AI_CODE_SIZE bytes: receives the AIs, NUL-terminated.
 *     aiValues   maxAIs rows of valueSize bytes: receives the values, NUL-terminated, with their
 *                percent escapes resolved.
 *     aiCount    receives the number of AIs. Required.
 *
 * Statuses:
 *
 *     first path, then query, AI by AI:
 *     EPC_ERR_TOO_MANY_AIS   text is left behind the twentieth AI
 *     EPC_ERR_BAD_FORMAT     the character in front of an AI is not the "/", "?" or "&" that is due
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is no digit: other query parameters are not taken
 *     EPC_ERR_UNKNOWN_AI     no AI begins with these two digits
 *     EPC_ERR_TRUNCATED      the text ends behind an AI
 *     EPC_ERR_BAD_FORMAT     the character behind an AI is not the "/" or "=" that is due
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_TRUNCATED      the text ends inside a value of fixed length
 *     EPC_ERR_BAD_CHARACTER  a "%" in such a value is not followed by two hexadecimal digits
 *     EPC_ERR_BAD_FORMAT     a value of varying length, its escapes counted as three characters
 *                            each, is longer than GS1 allows
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *     then, value by value:
 *     EPC_ERR_TOO_LONG       the value has more than 1023 characters
 *     EPC_ERR_TRUNCATED      a "%" is cut by the end of the value
 *     EPC_ERR_BAD_CHARACTER  a "%" is not followed by two hexadecimal digits
 *     EPC_ERR_NO_ROOM        the values have more than 1799 characters together
 *     then, row by row:
 *     EPC_ERR_TOO_MANY_AIS   there are more than maxAIs AIs
 *     EPC_ERR_NO_ROOM        a value and its NUL are longer than valueSize; it is not cut
 *
 * Example:
 *
 *     char codes[EPC_MAX_AIS][EPC_AI_CODE_SIZE];
 *     char values[EPC_MAX_AIS][EPC_AI_VALUE_SIZE];
 *     uint32_t count;
 *     epc_digitalLinkToAIs("/01/80614141123458/21/A%2FB?17=261231", EPC_MAX_AIS, EPC_AI_VALUE_SIZE,
 *                          codes[0], values[0], &count);
 *     // count is 3
 *     // values[1] is "A/B"
 *     // codes[2] is "17"
 *     epc_digitalLinkToAIs("/01/80614141123458?color=red", EPC_MAX_AIS, EPC_AI_VALUE_SIZE,
 *                          codes[0], values[0], &count); // gives EPC_ERR_BAD_CHARACTER
 *
 * Source: GS1 Digital Link Standard: URI Syntax.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToAIs(const char* text, int32_t maxAIs, uint32_t valueSize,
                                              char* aiCodes, char* aiValues, uint32_t* aiCount);

/**
 * Writes a Digital Link as an element string, its AIs in the order of the text.
 *
 *     text     path and query, without scheme and host.
 *     dstSize  bytes at dst; EPC_ELEMENT_STRING_SIZE is always enough.
 *     dst      receives the element string. It stays empty until the whole text has been read.
 *
 * Statuses:
 *
 *     those of epc_digitalLinkToAIs about path, query and values, with 1023 characters for all
 *     values together in place of 1799, and then:
 *     EPC_ERR_NO_ROOM  dst is full
 *
 * Example:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_digitalLinkToGs1ElementString("/01/80614141123458/21/A%2FB?17=261231", sizeof text,
 *                                       text);
 *     // text is "(01)80614141123458(21)A/B(17)261231"
 *     epc_digitalLinkToGs1ElementString("https://id.example.com/01/80614141123458", sizeof text,
 *                                       text); // gives EPC_ERR_BAD_FORMAT
 *
 * Source: GS1 Digital Link Standard: URI Syntax; GS1 General Specifications, element strings.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToGs1ElementString(const char* text, int32_t dstSize,
                                                           char* dst);

/**
 * Like epc_epcTagUriToGs1ElementString, but writes a barcode string: AIs and values without
 * brackets and without a symbology identifier, with the GS character (code 29) behind the AI 8010
 * of a cpi.
 *
 *     dstSize  bytes at dst; EPC_BARCODE_STRING_SIZE is always enough.
 *     dst      receives the barcode string, piece by piece as the URI is read.
 *
 * Difference in the statuses: the values together have no limit but dst.
 *
 * Example:
 *
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_epcTagUriToBarcodeString("urn:epc:tag:sgtin-96:3.0614141.812345.6789", sizeof text,
 *                                  text);
 *     // text is "0180614141123458216789"
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToBarcodeString(const char* text, int32_t dstSize, char* dst);

/**
 * Like epc_epcTagUriToGs1ElementString, but writes the path and query of a Digital Link.
 *
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE is always enough.
 *
 * Example:
 *
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_epcTagUriToDigitalLink("urn:epc:tag:sgtin-198:3.0614141.812345.A%2FB", sizeof link,
 *                                link);
 *     // link is "/01/80614141123458/21/A%2FB"
 *
 * Source: EPC Tag Data Standard, EPC tag URI; GS1 Digital Link Standard: URI Syntax.
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToDigitalLink(const char* text, int32_t dstSize, char* dst);

/**
 * Writes the identity of a tag URI as an element string, with its check digit computed. The filter
 * value is tested and dropped. Any scheme with a GS1 key may stand in the URI, a plus scheme too.
 *
 *     text     the URI. Its fields are not held to the digits that their scheme has for them.
 *     dstSize  bytes at dst; EPC_ELEMENT_STRING_SIZE is always enough.
 *     dst      receives the element string. It stays empty until the whole text has been read.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED          the text ends inside "urn:epc:tag:"
 *     EPC_ERR_BAD_FORMAT         the text does not begin so
 *     EPC_ERR_TRUNCATED          no ":" ends the name of the scheme
 *     EPC_ERR_TOO_LONG           the same, with 256 characters or more
 *     EPC_ERR_UNKNOWN_SCHEME     no scheme has this name
 *     EPC_ERR_NO_KEY_DEFINITION  gid-96, usdod-96, adi-var or dsgtin+
 *     EPC_ERR_BAD_FORMAT         the filter value has a leading zero
 *     EPC_ERR_OUT_OF_RANGE       the filter value has more than 19 digits
 *     EPC_ERR_FILTER_LIMIT       the filter value is at or above the limit of the scheme
 *     EPC_ERR_TRUNCATED          the text ends behind the filter value
 *     EPC_ERR_BAD_FORMAT         the filter value is not followed by "."
 *     then, field by field:
 *     EPC_ERR_TOO_LONG           the field has 256 characters or more
 *     EPC_ERR_TRUNCATED          the text ends in front of a "." or inside a percent escape
 *     EPC_ERR_BAD_CHARACTER      a "%" is not followed by two hexadecimal digits
 *     EPC_ERR_BAD_FORMAT         the reference of an sgtin, sscc, itip or upui is empty
 *     EPC_ERR_NO_ROOM            the values have more than 1023 characters together
 *     and at last:
 *     EPC_ERR_NO_ROOM            dst is full
 *
 * Example:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_epcTagUriToGs1ElementString("urn:epc:tag:sgtin-96:3.0614141.812345.6789", sizeof text,
 *                                     text);
 *     // text is "(01)80614141123458(21)6789"
 *     epc_epcTagUriToGs1ElementString("urn:epc:tag:gid-96:1.2.3", sizeof text,
 *                                     text); // gives EPC_ERR_NO_KEY_DEFINITION
 *
 * Source: EPC Tag Data Standard, EPC tag URI and its correspondence to GS1 element strings.
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToGs1ElementString(const char* text, int32_t dstSize,
                                                         char* dst);

/**
 * Like epc_epcTagUriToBarcodeString, but takes a pure identity URI, as epc_epcUriToGs1ElementString
 * does.
 *
 * Example:
 *
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_epcUriToBarcodeString("urn:epc:id:sscc:0614141.1234567890", sizeof text, text);
 *     // text is "00106141412345678908"
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToBarcodeString(const char* text, int32_t dstSize, char* dst);

/**
 * Like epc_epcTagUriToGs1ElementString, but takes a pure identity URI, which has no filter value.
 * The families ginc, gsin, upui and pgln, which no tag scheme has, are known too.
 *
 * Differences in the statuses:
 *
 *     EPC_ERR_TRUNCATED          the text ends inside "urn:epc:id:"
 *     EPC_ERR_NO_KEY_DEFINITION  the word behind it is no family with a GS1 key; there is no
 *                                EPC_ERR_UNKNOWN_SCHEME
 *
 * Example:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_epcUriToGs1ElementString("urn:epc:id:ginc:0614141.xyz3311cba", sizeof text, text);
 *     // text is "(401)0614141xyz3311cba"
 *     epc_epcUriToGs1ElementString("urn:epc:id:gid:1.2.3", sizeof text,
 *                                  text); // gives EPC_ERR_NO_KEY_DEFINITION
 *
 * Source: EPC Tag Data Standard, EPC URI and its correspondence to GS1 element strings.
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToGs1ElementString(const char* text, int32_t dstSize, char* dst);

/**
 * Reads the AIs of an element string.
 *
 *     text       AIs in brackets, each followed by its value. No value of varying length can hold a
 *                "(". An empty text holds no AI.
 *     maxAIs     rows of both arrays; EPC_MAX_AIS is always enough. A negative number sets no
 *                limit.
 *     valueSize  bytes of a row of aiValues; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     aiCodes    maxAIs rows of EPC_AI_CODE_SIZE bytes: receives the AIs, NUL-terminated.
 *     aiValues   maxAIs rows of valueSize bytes: receives the values, NUL-terminated.
 *     aiCount    receives the number of AIs. Required.
 *
 * Statuses:
 *
 *     AI by AI:
 *     EPC_ERR_TOO_MANY_AIS   text is left behind the twentieth AI
 *     EPC_ERR_BAD_FORMAT     the character in front of an AI is not "("
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is no digit
 *     EPC_ERR_UNKNOWN_AI     no AI begins with these two digits
 *     EPC_ERR_TRUNCATED      the text ends behind an AI
 *     EPC_ERR_BAD_FORMAT     the character behind an AI is not ")"
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_NO_ROOM        the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT     a value of varying length is longer than GS1 allows
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *     then, row by row:
 *     EPC_ERR_TOO_MANY_AIS   there are more than maxAIs AIs
 *     EPC_ERR_NO_ROOM        a value and its NUL are longer than valueSize; it is not cut
 *
 * Only the length of a value and the check digit of a key are tested, no other character.
 *
 * Example:
 *
 *     char codes[EPC_MAX_AIS][EPC_AI_CODE_SIZE];
 *     char values[EPC_MAX_AIS][EPC_AI_VALUE_SIZE];
 *     uint32_t count;
 *     epc_gs1ElementStringToAIs("(01)80614141123458(10)LOT7", EPC_MAX_AIS, EPC_AI_VALUE_SIZE,
 *                               codes[0], values[0], &count);
 *     // count is 2
 *     // codes[0] is "01"
 *     // values[0] is "80614141123458"
 *     // codes[1] is "10"
 *     // values[1] is "LOT7"
 *     epc_gs1ElementStringToAIs("(01)80614141123459", EPC_MAX_AIS, EPC_AI_VALUE_SIZE, codes[0],
 *                               values[0], &count); // gives EPC_ERR_CHECK_DIGIT
 *
 * Source: GS1 General Specifications, element strings.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToAIs(const char* text, int32_t maxAIs,
                                                   uint32_t valueSize, char* aiCodes,
                                                   char* aiValues, uint32_t* aiCount);

/**
 * Writes an element string as the path and query of a Digital Link, without scheme and host. The
 * key and its qualifiers make up the path, in the order of the standard; all other AIs go to the
 * query, in the order of the text.
 *
 *     text     AIs in brackets, each followed by its value.
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE takes every link whose values GS1 allows.
 *     dst      receives the link.
 *
 * Statuses:
 *
 *     those of epc_gs1ElementStringToAIs about the text, and then:
 *     EPC_ERR_KEY_CONFLICT    the text holds keys of two kinds, such as 00 and 01
 *     EPC_ERR_NO_PRIMARY_KEY  the text holds no key that a link can begin with
 *     EPC_ERR_NO_ROOM         dst is full
 *
 * Example:
 *
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_gs1ElementStringToDigitalLink("(17)261231(21)A/B(01)80614141123458", sizeof link, link);
 *     // link is "/01/80614141123458/21/A%2FB?17=261231"
 *     epc_gs1ElementStringToDigitalLink("(10)LOT7", sizeof link,
 *                                       link); // gives EPC_ERR_NO_PRIMARY_KEY
 *
 * Source: GS1 Digital Link Standard: URI Syntax.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToDigitalLink(const char* text, int32_t dstSize,
                                                           char* dst);

/**
 * Writes the key of an element string as a tag URI. All AIs but the key and the one that it needs
 * beside it are stepped over and dropped.
 *
 *     text       AIs in brackets, each followed by its value. The AI beside the key (21, 254 or
 *                8011) stands behind it, 8011 on either side.
 *     scheme     a scheme of the key's family.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12.
 *     dstSize    bytes at dst; EPC_URI_SIZE takes every URI whose values GS1 allows.
 *     dst        receives the URI. Untouched until filter has been tested.
 *
 * Statuses:
 *
 *     EPC_ERR_FILTER_FIELD      gcpLength is not 6 to 12
 *     EPC_ERR_NO_KEY_AI         the text is empty
 *     then, AI by AI through the whole text:
 *     EPC_ERR_BAD_FORMAT        the character in front of an AI is not "(", or two digits are
 *                               missing
 *     EPC_ERR_UNKNOWN_AI        no AI begins with these two digits
 *     EPC_ERR_TRUNCATED         the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT        the character behind an AI of fixed length is not ")"
 *     EPC_ERR_SECOND_KEY        it is the second key, be it the same AI again
 *     and then:
 *     EPC_ERR_NO_KEY_AI         the text holds no key
 *     EPC_ERR_UNKNOWN_SCHEME    scheme is not 0 to 33
 *     EPC_ERR_SCHEME_MISMATCH   the key belongs to another family than scheme
 *     EPC_ERR_FILTER_LIMIT      filter is negative, or at or above the limit of the scheme
 *     EPC_ERR_OUT_OF_RANGE      the value of the key is shorter than gcpLength
 *     EPC_ERR_TRUNCATED         the value of the key ends before its fixed digits, and the text too
 *     EPC_ERR_BAD_FORMAT        the value of an AI 8006 has not 18 characters
 *     EPC_ERR_NO_SECONDARY_AI   the AI beside the key is not behind it
 *     EPC_ERR_NO_ROOM           dst is full; found wherever it is
 *
 * No value is tested, and no check digit is verified: a letter in a key passes into the URI.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_gs1ElementStringToEpcTagUri("(01)80614141123458(17)261231(21)A/B", EPC_SCHEME_SGTIN_198,
 *                                     3, 7, sizeof uri, uri);
 *     // uri is "urn:epc:tag:sgtin-198:3.0614141.812345.A%2FB"
 *     epc_gs1ElementStringToEpcTagUri("(01)80614141123458", EPC_SCHEME_SGTIN_198, 3, 7, sizeof uri,
 *                                     uri); // gives EPC_ERR_NO_SECONDARY_AI
 *     // uri is "urn:epc:tag:sgtin-198:3.0614141.812345."
 *     epc_gs1ElementStringToEpcTagUri("(8004)06141", EPC_SCHEME_GIAI_96, 3, 7, sizeof uri,
 *                                     uri); // gives EPC_ERR_OUT_OF_RANGE
 *
 * Source: EPC Tag Data Standard, EPC tag URI and its correspondence to GS1 element strings.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcTagUri(const char* text, EpcScheme scheme,
                                                         int32_t filter, int32_t gcpLength,
                                                         int32_t dstSize, char* dst);

/**
 * Like epc_gs1ElementStringToEpcTagUri, but writes the pure identity URI, whose family is that of
 * the key. The keys 401, 402 and 417, which no tag scheme has, are written too.
 *
 * The statuses about scheme and filter cannot come, and dst is untouched until a key has been
 * found.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_gs1ElementStringToEpcUri("(01)80614141123458(21)6789", 7, sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 *     epc_gs1ElementStringToEpcUri("(10)LOT7", 7, sizeof uri, uri); // gives EPC_ERR_NO_KEY_AI
 *
 * Source: EPC Tag Data Standard, EPC URI and its correspondence to GS1 element strings.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcUri(const char* text, int32_t gcpLength,
                                                      int32_t dstSize, char* dst);

/*
 * ---- Single AI values ----
 *
 * The +AIDC bits of one value without a tag scheme around it, with or without the digits of its AI
 * in front. They are not padded, and nothing ends them: the AI tells where they end, and what
 * follows is not looked at. What is written with the digits is read by the epc_plusAidc...ToAI
 * functions, what is written without them by the epc_...ValueToAI functions.
 *
 * A value is looked at by its bits' rules alone: no check digit is verified, and a text may be
 * longer than GS1 allows as far as its length indicator counts, which is 3, 7, 15, 31, 63 or 127
 * characters.
 */

/**
 * Encodes the value of an AI.
 *
 *     ai        the AI, two to four digits.
 *     value     its whole value, as it stands in an element string.
 *     withCode  not 0: the bits begin with the digits of the AI, four bits each.
 *     maxBytes  bytes at out; EPC_AI_VALUE_BYTES is enough for every value that GS1 allows.
 *     out       receives the bits; what lies behind them is cleared.
 *     outBits   receives their number, the AI included. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_AI     ai is no AI that GS1 has assigned; out is untouched
 *     EPC_ERR_NO_ROOM        out has no room for the digits of the AI
 *     then part by part of the value; a number, date, letter or flag of fixed length:
 *     EPC_ERR_TOO_LONG       it has too many characters; a flag has not exactly one
 *     EPC_ERR_TRUNCATED      it has too few
 *     EPC_ERR_BAD_CHARACTER  a character is no digit, or in a flag neither 0 nor 1
 *     EPC_ERR_BAD_FORMAT     a month, day, hour, minute or second does not exist, or is no two
 *                            digits; the digit of a key is none; a letter is not A to Z; a sign is
 *                            not "-"; a date or time of varying length has a length that does not
 *                            exist
 *     digits of varying number:
 *     EPC_ERR_TOO_LONG       they are more than the length indicator counts
 *     EPC_ERR_BAD_CHARACTER  a character is no digit
 *     text:
 *     EPC_ERR_BAD_CHARACTER  a character that no AI value may hold
 *     EPC_ERR_TOO_LONG       it has more characters than the length indicator counts
 *     EPC_ERR_BAD_FORMAT     encoding is not AI_ENC_AUTO to AI_ENC_CODE40 (only with Enc)
 *     EPC_ERR_OUT_OF_RANGE   it has more than 91 digits to be written as one number
 *     EPC_ERR_BAD_CHARACTER  a character that the encoding does not hold (only with Enc)
 *     EPC_ERR_TOO_LONG       it has 91 digits to be written as one number
 *     and in any of them:
 *     EPC_ERR_NO_ROOM        out is full
 *
 * Of a value of two parts the first gets exactly its digits and the second the rest. Behind the
 * last part, digits of a key such as AI 01 are not looked at.
 *
 * Example:
 *
 *     uint8_t out[EPC_AI_VALUE_BYTES];
 *     int32_t bits;
 *     epc_AIToBinary("21", "ABCG", 1, sizeof out, out, &bits);
 *     // bits is 40
 *     // out[0] is 0x21
 *     epc_AIToBinary("01", "8061414112345", 1, sizeof out, out, &bits); // gives EPC_ERR_TRUNCATED
 *
 * Source: EPC Tag Data Standard, +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_AIToBinary(const char* ai, const char* value, int32_t withCode,
                                        int32_t maxBytes, uint8_t* out, int32_t* outBits);

/**
 * Like epc_AIToBinary, but with the encoding of the text in the value.
 *
 *     encoding  AI_ENC_AUTO, as epc_AIToBinary has it, or AI_ENC_INTEGER to AI_ENC_CODE40. A value
 *               without text does not look at it.
 *
 * Example:
 *
 *     uint8_t out[EPC_AI_VALUE_BYTES];
 *     int32_t bits;
 *     epc_AIToBinaryEnc("21", "ABCG", 1, AI_ENC_ISO646, sizeof out, out, &bits);
 *     // bits is 44
 *     epc_AIToBinaryEnc("21", "ABCG", 1, AI_ENC_INTEGER, sizeof out, out,
 *                       &bits); // gives EPC_ERR_BAD_CHARACTER
 */
ROSETAG_EXPORT EpcStatus epc_AIToBinaryEnc(const char* ai, const char* value, int32_t withCode,
                                           int32_t encoding, int32_t maxBytes, uint8_t* out,
                                           int32_t* outBits);

/**
 * Like epc_AIToBinary, but writes hexadecimal text of whole bytes, the bits behind the value being
 * 0.
 *
 *     dstSize  bytes at dst; EPC_HEX_SIZE is always enough.
 *     dst      receives two upper-case digits a byte.
 *     outBits  receives the number of bits, not of digits, even where dst is too small. May be
 *              null.
 *
 * Statuses:
 *
 *     those of epc_AIToBinary with EPC_MAX_BINARY_BYTES for maxBytes, and then:
 *     EPC_ERR_NO_ROOM  dst has no room for all digits and a NUL
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     int32_t bits;
 *     epc_AIToHex("3103", "000189", 1, sizeof hex, hex, &bits);
 *     // hex is "3103000BD0"
 *     // bits is 36
 */
ROSETAG_EXPORT EpcStatus epc_AIToHex(const char* ai, const char* value, int32_t withCode,
                                     int32_t dstSize, char* dst, int32_t* outBits);

/**
 * Like epc_AIToHex, but with the encoding of the text in the value; see epc_AIToBinaryEnc.
 *
 * Example:
 *
 *     char hex[EPC_HEX_SIZE];
 *     int32_t bits;
 *     epc_AIToHexEnc("10", "123", 0, AI_ENC_HEX_UPPER, sizeof hex, hex, &bits);
 *     // hex is "231230"
 *     // bits is 20
 */
ROSETAG_EXPORT EpcStatus epc_AIToHexEnc(const char* ai, const char* value, int32_t withCode,
                                        int32_t encoding, int32_t dstSize, char* dst,
                                        int32_t* outBits);

/**
 * Like epc_AIToBinary, but writes 16-bit words, the bits behind the value being 0.
 *
 *     maxWords  words at outWords, 0 to 31: a larger number is refused as well.
 *     outWords  receives the bits, the first the highest of the first word.
 *     outBits   receives the number of bits, not of words. Not written on failure. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_TOO_LONG  maxWords is not 0 to 31
 *     those of epc_AIToBinary with EPC_MAX_BINARY_BYTES for maxBytes, and then:
 *     EPC_ERR_NO_ROOM   the value has more than maxWords words
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t bits;
 *     epc_AIToWords("3103", "000189", 1, EPC_MAX_BINARY_WORDS, words, &bits);
 *     // words[0] is 0x3103
 *     // bits is 36
 *     epc_AIToWords("3103", "000189", 1, EPC_MAX_BINARY_WORDS + 1, words,
 *                   &bits); // gives EPC_ERR_TOO_LONG
 */
ROSETAG_EXPORT EpcStatus epc_AIToWords(const char* ai, const char* value, int32_t withCode,
                                       int32_t maxWords, uint16_t* outWords, int32_t* outBits);

/**
 * Like epc_AIToWords, but with the encoding of the text in the value; see epc_AIToBinaryEnc.
 *
 * Example:
 *
 *     uint16_t words[EPC_MAX_BINARY_WORDS];
 *     int32_t bits;
 *     epc_AIToWordsEnc("10", "123", 0, AI_ENC_HEX_UPPER, EPC_MAX_BINARY_WORDS, words, &bits);
 *     // words[0] is 0x2312
 *     // bits is 20
 */
ROSETAG_EXPORT EpcStatus epc_AIToWordsEnc(const char* ai, const char* value, int32_t withCode,
                                          int32_t encoding, int32_t maxWords, uint16_t* outWords,
                                          int32_t* outBits);

/**
 * Decodes the bits of a value whose AI is known.
 *
 *     bits     valid bits in binary.
 *     binary   the bits of the value, (bits + 7) / 8 bytes.
 *     ai       the AI, two to four digits.
 *     dstSize  bytes at dst; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     dst      receives the value, as it stands in an element string.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_AI     ai is no AI that GS1 has assigned
 *     then, field by field:
 *     EPC_ERR_TRUNCATED      the bits end inside the value. The sign of AI 4330 to 4333 may be
 *                            missing
 *     EPC_ERR_BAD_FORMAT     a digit, letter, date, time or encoding that does not exist; a code-40
 *                            group of 0 or above 64000; an integer text of more than 90 digits
 *     EPC_ERR_OUT_OF_RANGE   a number has too many digits, or a year is above 99
 *     EPC_ERR_BAD_CHARACTER  a character that no AI value may hold
 *     EPC_ERR_NO_ROOM        dst is full
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x64, 0x00, 0x10, 0x86}; // the text ABCG in base64url
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_binaryValueToAI(32, binary, "21", sizeof value, value);
 *     // value is "ABCG"
 *     epc_binaryValueToAI(31, binary, "21", sizeof value, value); // gives EPC_ERR_TRUNCATED
 *     // value is "ABC"
 *
 * Source: EPC Tag Data Standard, +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_binaryValueToAI(int32_t bits, const uint8_t* binary, const char* ai,
                                             int32_t dstSize, char* dst);

/**
 * Like epc_binaryValueToAI, but takes the bits as hexadecimal text.
 *
 *     hex  0 to 124 digits; there are eight bits for every two of them.
 *
 * Statuses in front of those of epc_binaryValueToAI:
 *
 *     EPC_ERR_TOO_LONG  hex has more than 124 characters
 *     EPC_ERR_NO_ROOM   a character is no hexadecimal digit
 *
 * Example:
 *
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_hexValueToAI("000BD0", "3103", sizeof value, value);
 *     // value is "000189"
 */
ROSETAG_EXPORT EpcStatus epc_hexValueToAI(const char* hex, const char* ai, int32_t dstSize,
                                          char* dst);

/**
 * Like epc_binaryValueToAI, but takes the bits as 16-bit words.
 *
 *     bits   valid bits in words, 0 to 496.
 *     words  the bits, (bits + 15) / 16 words, the first the highest of the first word.
 *
 * Status in front of those of epc_binaryValueToAI:
 *
 *     EPC_ERR_TOO_LONG  bits is above 496
 *
 * Example:
 *
 *     const uint16_t words[] = {0x000B, 0xD000};
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_wordsValueToAI(20, words, "3103", sizeof value, value);
 *     // value is "000189"
 */
ROSETAG_EXPORT EpcStatus epc_wordsValueToAI(int32_t bits, const uint16_t* words, const char* ai,
                                            int32_t dstSize, char* dst);

/**
 * Decodes the bits of one AI: its digits, four bits each, and its value.
 *
 *     bits     valid bits in binary.
 *     binary   the bits, (bits + 7) / 8 bytes.
 *     aiOut    receives the AI, NUL-terminated: EPC_AI_CODE_SIZE bytes.
 *     dstSize  bytes at dst; EPC_AI_VALUE_SIZE takes every value that GS1 allows.
 *     dst      receives the value, as it stands in an element string.
 *
 * Statuses:
 *
 *     digit by digit of the AI:
 *     EPC_ERR_TRUNCATED   the bits end inside it
 *     EPC_ERR_BAD_FORMAT  the digit is above 9
 *     behind the second digit:
 *     EPC_ERR_TRUNCATED   it is the AI 00, and fewer than 72 bits follow
 *     EPC_ERR_UNKNOWN_AI  no AI begins with these two digits
 *     and behind the last:
 *     EPC_ERR_UNKNOWN_AI  GS1 has not assigned this AI
 *     then those of epc_binaryValueToAI, field by field
 *
 * After a failure aiOut holds the digits that were read. Its last three bytes are cleared at the
 * start, its first two are not.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x21, 0x64, 0x00, 0x10, 0x86};
 *     char ai[EPC_AI_CODE_SIZE];
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_plusAidcBinaryToAI(40, binary, ai, sizeof value, value);
 *     // ai is "21"
 *     // value is "ABCG"
 *
 * Source: EPC Tag Data Standard, +AIDC data.
 */
ROSETAG_EXPORT EpcStatus epc_plusAidcBinaryToAI(int32_t bits, const uint8_t* binary, char* aiOut,
                                                int32_t dstSize, char* dst);

/**
 * Like epc_plusAidcBinaryToAI, but takes the bits as hexadecimal text, as epc_hexValueToAI does.
 *
 * Example:
 *
 *     char ai[EPC_AI_CODE_SIZE];
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_plusAidcHexToAI("3103000BD0", ai, sizeof value, value);
 *     // ai is "3103"
 *     // value is "000189"
 *     epc_plusAidcHexToAI("14", ai, sizeof value, value); // gives EPC_ERR_UNKNOWN_AI
 *     // ai is "14"
 */
ROSETAG_EXPORT EpcStatus epc_plusAidcHexToAI(const char* hex, char* aiOut, int32_t dstSize,
                                             char* dst);

/**
 * Like epc_plusAidcBinaryToAI, but takes the bits as words, as epc_wordsValueToAI does.
 *
 * Example:
 *
 *     const uint16_t words[] = {0x3103, 0x000B, 0xD000};
 *     char ai[EPC_AI_CODE_SIZE];
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_plusAidcWordsToAI(36, words, ai, sizeof value, value);
 *     // ai is "3103"
 *     // value is "000189"
 */
ROSETAG_EXPORT EpcStatus epc_plusAidcWordsToAI(int32_t bits, const uint16_t* words, char* aiOut,
                                               int32_t dstSize, char* dst);

/*
 * ---- TID ----
 *
 * The TID memory bank tells who made a tag's chip, its model, and, where the XTID indicator is set,
 * its serial number and what commands it knows.
 */

/**
 * Decodes a TID into a record.
 *
 *     bits    valid bits in binary. What lies behind the last segment is not looked at.
 *     binary  the bank from its first bit, (bits + 7) / 8 bytes.
 *     record  receives what the TID says.
 *
 * Statuses:
 *
 *     EPC_ERR_NO_ROOM    record is null
 *     EPC_ERR_TRUNCATED  bits is below 8
 *     EPC_ERR_BAD_TID    the class is not E2
 *     EPC_ERR_TRUNCATED  the bits end inside the numbers of designer and model
 *     then, where the XTID indicator is set, header and segments one by one:
 *     EPC_ERR_TRUNCATED  the bits end inside the header or a segment
 *     EPC_ERR_BAD_TID    the header tells of a further header, or a reserved bit is not 0; a block
 *                        command has the largest block 0 and says more
 *
 * A failure leaves in the record what stands before the field that fails, and 0 in all other
 * fields. serialBits is set before the serial number is read.
 *
 * Example:
 *
 *     const uint8_t tid[] = {0xE2, 0x80, 0x11, 0x05, 0x20, 0x00,
 *                            0x01, 0x23, 0x45, 0x67, 0x89, 0xAB};
 *     TidRecord record;
 *     tid_binaryDecode(96, tid, &record);
 *     // record.mdid is 0x801
 *     // record.tmid is 0x105
 *     // record.serialBits is 48
 *     // record.serial is "0123456789AB"
 *     tid_binaryDecode(95, tid, &record); // gives EPC_ERR_TRUNCATED
 *     // record.serial is ""
 *
 * Source: EPC Tag Data Standard, section 16 (tag identification memory bank contents).
 */
ROSETAG_EXPORT EpcStatus tid_binaryDecode(int32_t bits, const uint8_t* binary, TidRecord* record);

/**
 * Decodes a TID and writes the numbers of designer and model and the serial number.
 *
 *     bits        valid bits in binary. What lies behind the last segment is not looked at.
 *     binary      the bank from its first bit, (bits + 7) / 8 bytes.
 *     mdid        receives the field of TidRecord of this name. May be null.
 *     tmid        the same.
 *     serialBits  the same.
 *     serialSize  bytes at serial; TID_SERIAL_SIZE is always enough, 1 without a serial number.
 *     serial      receives the serial number. Required.
 *
 * Statuses:
 *
 *     those of tid_binaryDecode about the bits, the whole TID with all segments: nothing is written
 *     EPC_ERR_NO_ROOM    serial has no room for the digits and a NUL; it is untouched, while mdid,
 *                        tmid and serialBits are written
 *
 * Example:
 *
 *     const uint8_t tid[] = {0xE2, 0x00, 0x34, 0x12};
 *     uint16_t mdid;
 *     uint16_t tmid;
 *     uint8_t serialBits;
 *     char serial[TID_SERIAL_SIZE];
 *     tid_binaryToComponents(32, tid, &mdid, &tmid, &serialBits, sizeof serial, serial);
 *     // mdid is 0x003
 *     // tmid is 0x412
 *     // serialBits is 0
 *     // serial is ""
 *
 * Source: EPC Tag Data Standard, section 16 (tag identification memory bank contents).
 */
ROSETAG_EXPORT EpcStatus tid_binaryToComponents(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                                uint16_t* tmid, uint8_t* serialBits,
                                                uint32_t serialSize, char* serial);

/**
 * Like tid_binaryToComponents, but writes also what the segments of the XTID say, all 0 where there
 * are none. Each of these outputs may be null, and none is written on failure.
 *
 *     maxEpcSize               receives the field of TidRecord of this name.
 *     optionalCommands         9 bytes: receives hasOptionalCommands, recomSupport, accessSupport,
 *                              separateLockbits, autoUmiSupport, pjmSupport, blockWriteSupported,
 *                              blockEraseSupported, blockPermaLockSupported.
 *     blockWrite               6 bytes: receives the fields of TidBlockInfo in their order.
 *     blockErase               the same.
 *     userMemorySize           receives the field of TidRecord of this name.
 *     blockPermaLockBlockSize  the same.
 *
 * Example:
 *
 *     const uint8_t tid[] = {0xE2, 0x80, 0x11, 0x05, 0x14, 0x00,
 *                            0x08, 0x06, 0x00, 0x04, 0x00, 0x20};
 *     uint8_t optionalCommands[9];
 *     uint16_t userMemorySize;
 *     uint16_t blockSize;
 *     char serial[TID_SERIAL_SIZE];
 *     tid_binaryToXtid(96, tid, 0, 0, 0, sizeof serial, serial, 0, optionalCommands, 0, 0,
 *                      &userMemorySize, &blockSize);
 *     // optionalCommands[0] is 1
 *     // optionalCommands[6] is 1
 *     // userMemorySize is 32
 *     // blockSize is 4
 */
ROSETAG_EXPORT EpcStatus tid_binaryToXtid(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                          uint16_t* tmid, uint8_t* serialBits, uint32_t serialSize,
                                          char* serial, uint8_t* maxEpcSize,
                                          uint8_t* optionalCommands, uint8_t* blockWrite,
                                          uint8_t* blockErase, uint16_t* userMemorySize,
                                          uint16_t* blockPermaLockBlockSize);

/**
 * Like tid_binaryDecode, but takes the bank as 16-bit words.
 *
 *     bits   valid bits in words, 0 to 496.
 *     words  the bank, (bits + 15) / 16 words, its first bit the highest of the first word.
 *
 * Status in front of those of tid_binaryDecode, that about record included:
 *
 *     EPC_ERR_TOO_LONG  bits is above 496
 *
 * Example:
 *
 *     const uint16_t tid[] = {0xE280, 0x1105, 0x2000, 0x0123, 0x4567, 0x89AB};
 *     TidRecord record;
 *     tid_wordsDecode(96, tid, &record);
 *     // record.serial is "0123456789AB"
 */
ROSETAG_EXPORT EpcStatus tid_wordsDecode(int32_t bits, const uint16_t* words, TidRecord* record);

/**
 * Like tid_binaryToComponents, but takes the bank as words, as tid_wordsDecode does.
 *
 * Example:
 *
 *     const uint16_t tid[] = {0xE280, 0x1105, 0x2000, 0x0123, 0x4567, 0x89AB};
 *     uint8_t serialBits;
 *     char serial[12] = "";
 *     tid_wordsToComponents(96, tid, 0, 0, &serialBits, sizeof serial,
 *                           serial); // gives EPC_ERR_NO_ROOM
 *     // serialBits is 48
 *     // serial is ""
 */
ROSETAG_EXPORT EpcStatus tid_wordsToComponents(int32_t bits, const uint16_t* words, uint16_t* mdid,
                                               uint16_t* tmid, uint8_t* serialBits,
                                               uint32_t serialSize, char* serial);

/**
 * Like tid_binaryToXtid, but takes the bank as words, as tid_wordsDecode does.
 *
 * Example:
 *
 *     const uint16_t tid[] = {0xE280, 0x1105, 0x0400, 0x001F};
 *     uint8_t maxEpcSize;
 *     char serial[TID_SERIAL_SIZE];
 *     tid_wordsToXtid(64, tid, 0, 0, 0, sizeof serial, serial, &maxEpcSize, 0, 0, 0, 0, 0);
 *     // maxEpcSize is 31
 */
ROSETAG_EXPORT EpcStatus tid_wordsToXtid(int32_t bits, const uint16_t* words, uint16_t* mdid,
                                         uint16_t* tmid, uint8_t* serialBits, uint32_t serialSize,
                                         char* serial, uint8_t* maxEpcSize,
                                         uint8_t* optionalCommands, uint8_t* blockWrite,
                                         uint8_t* blockErase, uint16_t* userMemorySize,
                                         uint16_t* blockPermaLockBlockSize);

/*
 * ---- Statuses in words ----
 *
 * Both are compiled into the program; the library does not export them.
 */

/**
 * Tells the name of a status; "unknown" if there is none.
 *
 * Example:
 *
 *     const char* name = epc_statusName(1);
 *     // name is "EPC_ERR_NO_ROOM"
 */
static inline const char* epc_statusName(EpcStatus status) {
    /* In the order of the values. */
    static const char* const names[] = {
        "EPC_OK",
        "EPC_ERR_NO_ROOM",
        "EPC_ERR_TRUNCATED",
        "EPC_ERR_OUT_OF_RANGE",
        "EPC_ERR_TOO_LONG",
        "EPC_ERR_UNKNOWN_HEADER",
        "EPC_ERR_BAD_PARTITION",
        "EPC_ERR_BAD_FORMAT",
        "EPC_ERR_FILTER_FIELD",
        "EPC_ERR_SCHEME_MISMATCH",
        "EPC_ERR_FILTER_LIMIT",
        "EPC_ERR_UNKNOWN_SCHEME",
        "EPC_ERR_NO_KEY_DEFINITION",
        "EPC_ERR_UNKNOWN_AI",
        "EPC_ERR_SECOND_KEY",
        "EPC_ERR_NO_KEY_AI",
        "EPC_ERR_NO_SECONDARY_AI",
        "EPC_ERR_BAD_CHARACTER",
        "EPC_ERR_NOT_SUPPORTED",
        "EPC_ERR_NO_KEY_FOR_SCHEME",
        "EPC_ERR_NO_PRIMARY_KEY",
        "EPC_ERR_TOO_MANY_AIS",
        "EPC_ERR_KEY_CONFLICT",
        "EPC_ERR_CHECK_DIGIT",
        "EPC_ERR_BAD_TID",
    };
    return status < EPC_OK || status > EPC_ERR_BAD_TID ? "unknown" : names[status];
}

/**
 * Tells in plain words what a status says of the input; "unknown status" if there is none.
 *
 * Example:
 *
 *     const char* text = epc_statusText(EPC_ERR_CHECK_DIGIT);
 *     // text is "a GS1 check digit does not verify"
 */
static inline const char* epc_statusText(EpcStatus status) {
    /* In the order of the values. */
    static const char* const texts[] = {
        "success",
        "an output is too small, or a character is no hexadecimal digit, or an AI value is short",
        "the input ends before it is complete",
        "a value does not fit its field: too many digits, too few, or a number too large",
        "the input, or a part of it, is longer than its limit",
        "the first eight bits are the header of no tag scheme",
        "no partition fits: the bits or the length of the company prefix",
        "the input breaks the rules of its syntax or layout",
        "the filter value does not fit its field, or the company prefix length is not 6 to 12",
        "the input identifies another kind of object than the scheme asked for",
        "the filter value is negative, or at or above the limit of the scheme",
        "there is no tag scheme of this name or number",
        "the scheme has no GS1 key, so that it has no form with AIs",
        "an AI that GS1 has not assigned",
        "the text holds a second GS1 key where one is allowed",
        "the text holds no GS1 key",
        "the AI that the GS1 key needs beside it, such as a serial number, is missing",
        "a character outside the set that is allowed in its place",
        "the scheme has no such form",
        "no GS1 key is known for the plus scheme",
        "the AIs hold no key that the scheme can carry",
        "there are more AIs than the arrays take, or more than 20",
        "the AIs hold two different keys",
        "a GS1 check digit does not verify",
        "the bits break the layout of a TID",
    };
    return status < EPC_OK || status > EPC_ERR_BAD_TID ? "unknown status" : texts[status];
}

#ifdef __cplusplus
}
#endif

#endif
