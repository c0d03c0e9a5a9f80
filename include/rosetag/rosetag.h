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
 * The library knows the 34 tag schemes of the EPC Tag Data Standard and the 520 GS1 Application
 * Identifiers (AIs). Twelve of the schemes are plus schemes: after the key they carry more data, in
 * the +AIDC bit encoding. The library also encodes and decodes single AI values in that encoding,
 * and decodes the TID memory bank of a Gen2 tag. The name of a function says what it takes and what
 * it gives: epc_hexToDigitalLink.
 *
 * The rest of this preface holds for every function. The comment of a function says only what is
 * particular to it.
 *
 * Calls. A call reads its arguments and constant tables, works on its own stack and writes the
 * outputs it is given. It keeps nothing: there is nothing to set up or tear down, no call depends
 * on another, and any number of threads may call at the same time. It allocates no memory, throws
 * nothing, and looks at no locale, file, clock or environment. It uses less than 8 KiB of stack,
 * and its running time is at most linear in the length of the input.
 *
 * Units. bits counts bits, maxBytes and outBytes count bytes, maxWords and outWordCount count
 * 16-bit words; dstSize, valueSize and serialSize count bytes, the terminating NUL included. Bit 0
 * of a binary value is the most significant bit of its first byte or word. An array of words must
 * hold all bits of the value; the unused bits of its last word are ignored.
 *
 * Text. Every text is NUL-terminated ASCII. A byte of 0x80 or above belongs to no character set.
 *
 * Three carriers. A binary value is passed as bytes, as hexadecimal text or as 16-bit words. The
 * functions for hexadecimal text and words do what their twin for bytes does, within
 * EPC_MAX_BINARY_BYTES, and differ only in the following arguments and statuses. On input, these
 * are tested before anything else:
 *
 *     hex       0 to 124 digits, upper or lower case, without prefix or spaces. Two digits make a
 *               byte; an odd last digit is the high half of a byte whose low half is 0.
 *     bits      valid bits in words, 0 to 496.
 *     words     the value, (bits + 15) / 16 words.
 *
 *     EPC_ERR_TOO_LONG  hex has more than 124 characters, or bits is above 496
 *     EPC_ERR_NO_ROOM   a character of hex is not a hexadecimal digit
 *
 * On output, these are tested after everything else:
 *
 *     dst           receives two upper-case digits per byte; EPC_HEX_SIZE is always enough.
 *     maxWords      words at outWords; EPC_MAX_BINARY_WORDS is always enough.
 *     outWords      receives the value.
 *     outWordCount  receives its length in words. May be null.
 *
 *     EPC_ERR_NO_ROOM  dst is too small for all digits and the NUL, or the value has more than
 *                      maxWords words
 *
 * Rows of AIs. Functions that list AIs share these arguments, and finish with these statuses:
 *
 *     maxAIs     rows in both arrays; EPC_MAX_AIS is always enough. A negative number sets no
 *                limit.
 *     valueSize  bytes per row of aiValues; EPC_AI_VALUE_SIZE holds every value that GS1 allows.
 *     aiCodes    receives the AIs, NUL-terminated: maxAIs rows of EPC_AI_CODE_SIZE bytes.
 *     aiValues   receives the values, NUL-terminated: maxAIs rows of valueSize bytes.
 *     aiCount    receives the number of AIs. Required.
 *
 *     EPC_ERR_TOO_MANY_AIS  there are more than maxAIs AIs
 *     EPC_ERR_NO_ROOM       a value and its NUL do not fit into valueSize bytes; it is not cut
 *
 * Pointers. outScheme, outBytes, outWordCount, outBits, and every output of the tid_...ToComponents
 * and tid_...ToXtid functions except serial may be null if that output is not wanted; the checks
 * stay the same. A null record in tid_binaryDecode and tid_wordsDecode is reported as a status. No
 * other pointer may be null, and none is tested.
 *
 * What the caller owes. As many readable bits and as much writable room as the arguments say, and
 * texts that are NUL-terminated and shorter than 2 GiB. At least one byte must be writable at dst
 * whatever dstSize is: an empty text is written there first. A size of 0 or less means no room.
 * Areas must not overlap, neither two outputs nor an output and an input. The library changes no
 * input and keeps no pointer.
 *
 * Untrusted input. Whatever a text or the bits contain, the call returns a status and neither reads
 * nor writes a byte outside the areas it was given.
 *
 * Statuses. EPC_OK is 0. Any other value is a failure, including values that a program does not
 * know: later versions may add some. A call stops at the first failure. Calling again does not
 * help, since the same arguments always give the same status. Each function lists its statuses in
 * the order in which they are tested; those that concern a part of the input come up in the order
 * of the input. epc_statusName and epc_statusText put a status into words.
 *
 * After a failure no output is a result. What it then contains:
 *
 *     dst, a text                 What was written before the failure, NUL-terminated; often
 *                                 nothing.
 *     dst, hexadecimal text       Untouched. If only dst is too small: the digits that fit,
 *                                 NUL-terminated.
 *     dst, the name of a scheme   Untouched.
 *     out, outBytes               All maxBytes bytes of out are cleared, and hold the bits written
 *                                 before the failure. outBytes is not written.
 *     outWords, outWordCount      Untouched.
 *     aiCodes, aiValues, aiCount  Rows finished before the failure stay. aiCount is not written.
 *     any output, if hexadecimal text or words cannot be read
 *                                 Untouched: the work has not begun.
 *
 * Binary compatibility. Within a major version no function is removed, and neither the arguments of
 * a function nor a record, a status or the number of a scheme changes. Functions, statuses and
 * schemes may be added, AIs are added as GS1 assigns them, and the sizes below may grow; a program
 * compiled with smaller ones keeps working, since every call passes its sizes. Statuses and schemes
 * are 32-bit integers, so that other languages can declare the functions as they are.
 *
 * Arguments that many functions share:
 *
 *     scheme     the tag scheme: EPC_SCHEME_SGTIN_96 or another one, below EPC_SCHEME_COUNT.
 *     filter     the filter value to write: 0 to 7; 0 to 14 in usdod-96, 0 to 63 in adi-var.
 *                Ignored by gid-96, which has none.
 *     gcpLength  the number of digits of the GS1 Company Prefix in the key, 6 to 12. It cannot be
 *                taken from a GS1 text. Ignored by the plus schemes.
 *     encoding   the encoding of every text field of a +AIDC value: AI_ENC_AUTO, or AI_ENC_INTEGER
 *                to AI_ENC_CODE40. Ignored by all other schemes.
 *
 * Sources: GS1 General Specifications; GS1 Digital Link Standard: URI Syntax; EPC Tag Data
 * Standard; EPC UHF Gen2 Air Interface Protocol.
 */
#ifndef ROSETAG_ROSETAG_H
#define ROSETAG_ROSETAG_H

#include <stdint.h>

/** The version of this header, and the one place where it is written. */
#define ROSETAG_VERSION "1.0.0"
/** First number of the version: raised when programs must be changed or compiled again. */
#define ROSETAG_VERSION_MAJOR 1
/** Second number of the version: raised when something is added. */
#define ROSETAG_VERSION_MINOR 0
/** Third number of the version: raised when something is fixed. */
#define ROSETAG_VERSION_PATCH 0

/** Marks an exported function. Define ROSETAG_SHARED to use the shared library on Windows. */
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
 * Outputs of these sizes hold every result within the limits of GS1 and of the EPC Tag Data
 * Standard. Sizes of texts include the NUL.
 */

/**
 * Bytes of the largest binary value read from or written as hexadecimal text or words. A value
 * written as bytes may be larger: a plus scheme writes as many AIs as out has room for. The largest
 * value without such data is an adi-var of 434 bits, 56 bytes.
 */
#define EPC_MAX_BINARY_BYTES 62

/** EPC_MAX_BINARY_BYTES in bits. */
#define EPC_MAX_BINARY_BITS (EPC_MAX_BINARY_BYTES * 8)

/** EPC_MAX_BINARY_BYTES in 16-bit words. */
#define EPC_MAX_BINARY_WORDS (EPC_MAX_BINARY_BYTES / 2)

/** EPC_MAX_BINARY_BYTES as hexadecimal text: two digits per byte, and the NUL. */
#define EPC_HEX_SIZE (EPC_MAX_BINARY_BYTES * 2 + 1)

/** The name of a scheme. The longest is "sgtin-198". */
#define EPC_SCHEME_NAME_SIZE 10

/**
 * An EPC URI. The longest is a tag URI of adi-var: the 20 characters of "urn:epc:tag:adi-var:", a
 * filter of 2 digits, a code of 6 characters, a part number of 32 and a serial number of 30
 * characters, each of which may be a percent escape of 3, and three dots: 217 characters. With 3
 * more and the NUL, a serial number that is too long is recognised as such.
 */
#define EPC_URI_SIZE 221

/** The most AIs that a text or a binary value may hold. */
#define EPC_MAX_AIS 20

/** A row of aiCodes: four digits. */
#define EPC_AI_CODE_SIZE 5

/**
 * The value of an AI. The longest that GS1 allows has 90 characters (AIs 8030 and 91 to 99). The
 * length field of +AIDC bits counts up to 127 characters, and 496 bits hold at most 126 characters
 * of an AI whose digits are not counted (7023, 8004, 8010).
 */
#define EPC_AI_VALUE_SIZE 128

/**
 * Bytes of the +AIDC bits of an AI value: four digits of an AI of 4 bits each, an encoding of 3
 * bits, a length of 7, and 127 characters of 7 bits: 915 bits.
 */
#define EPC_AI_VALUE_BYTES 115

/**
 * A GS1 element string. Its values have at most 1023 characters together, and each of 20 AIs adds
 * four digits and two brackets: 1143 characters.
 */
#define EPC_ELEMENT_STRING_SIZE 1144

/**
 * A GS1 barcode string. The longest comes from a URI of the itip family, whose five fields may have
 * 255 characters each, as their lengths are not tested; with a check digit and the AIs 8006 and 21
 * that makes 1282.
 */
#define EPC_BARCODE_STRING_SIZE 1283

/**
 * The path and query of a GS1 Digital Link: 20 AIs of four digits, two delimiters, and 90
 * characters that are all percent escapes of 3: 5520 characters. Three times the length of the
 * element string, plus the NUL, is always enough as well.
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
    /** Success. */
    EPC_OK = 0,
    /**
     * An output, or the size given for it, is too small for the result. Also: a character of
     * hexadecimal text is not a hexadecimal digit; a value ends inside a part of fixed length; the
     * pointer to a TID record is null.
     */
    EPC_ERR_NO_ROOM = 1,
    /** The input ends before it is complete: a text too early, or bits inside a field. */
    EPC_ERR_TRUNCATED = 2,
    /**
     * A number has too many or too few digits, or is too large for its field; a bit that must be 0
     * is 1. Also: a key has fewer characters than gcpLength says.
     */
    EPC_ERR_OUT_OF_RANGE = 3,
    /** The input, or a part of it, is longer than its limit. */
    EPC_ERR_TOO_LONG = 4,
    /** The first eight bits are not the header of a scheme: not an EPC, or an unknown scheme. */
    EPC_ERR_UNKNOWN_HEADER = 5,
    /** No partition exists for the bits, or for the number of digits of the company prefix. */
    EPC_ERR_BAD_PARTITION = 6,
    /** The text does not match its syntax, or the bits do not match their layout. */
    EPC_ERR_BAD_FORMAT = 7,
    /** The filter value does not fit its field. Also: gcpLength is not 6 to 12. */
    EPC_ERR_FILTER_FIELD = 8,
    /** The text identifies another kind of thing than the requested scheme does. */
    EPC_ERR_SCHEME_MISMATCH = 9,
    /** The filter value is negative, or at or above the limit of the scheme. */
    EPC_ERR_FILTER_LIMIT = 10,
    /** No scheme has this name or number. */
    EPC_ERR_UNKNOWN_SCHEME = 11,
    /** The scheme, or the family of the pure identity URI, has no GS1 key and so no AIs. */
    EPC_ERR_NO_KEY_DEFINITION = 12,
    /** GS1 has not assigned this AI. */
    EPC_ERR_UNKNOWN_AI = 13,
    /** A text to be written as a URI holds two GS1 keys, or the same one twice. */
    EPC_ERR_SECOND_KEY = 14,
    /** A text to be written as a URI is empty or holds no GS1 key. */
    EPC_ERR_NO_KEY_AI = 15,
    /** The AI that must accompany the GS1 key, such as serial number 21 after 01, is missing. */
    EPC_ERR_NO_SECONDARY_AI = 16,
    /** A character is not allowed in its place. */
    EPC_ERR_BAD_CHARACTER = 17,
    /** The scheme does not have this form: a plus scheme has no URI, and gid-96 has no AIs. */
    EPC_ERR_NOT_SUPPORTED = 18,
    /** The plus scheme has no key. No input leads to this status. */
    EPC_ERR_NO_KEY_FOR_SCHEME = 19,
    /** The AIs hold no key for a Digital Link, or not all AIs that the plus scheme needs. */
    EPC_ERR_NO_PRIMARY_KEY = 20,
    /** There are more than 20 AIs, or more than the caller's arrays have rows. */
    EPC_ERR_TOO_MANY_AIS = 21,
    /** The AIs hold two different keys for a Digital Link. */
    EPC_ERR_KEY_CONFLICT = 22,
    /** The check digit of a GS1 key is wrong. */
    EPC_ERR_CHECK_DIGIT = 23,
    /** The bits are not a TID of class E2, or do not match its layout. */
    EPC_ERR_BAD_TID = 24
};

/** The number of a tag scheme: one of the EPC_SCHEME_ values, 0 to 33. */
typedef int32_t EpcScheme;

/**
 * The values of EpcScheme, each with its name and its header, the first byte of the binary value.
 */
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
    /** cpi+, 0xF0: AIs 8010 and 8011. Like all plus schemes it carries more AIs and has no URI. */
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
     * dsgtin+, 0xFB: AIs 01 and 21 and a date, the first present of the AIs 11, 13, 15, 16, 17,
     * 7006 and 7007.
     */
    EPC_SCHEME_DSGTIN_PLUS = 33
};

/** The encoding of a +AIDC text field: the argument encoding of the functions ending in Enc. */
enum {
    /** The library chooses the encoding that suits the characters. */
    AI_ENC_AUTO = -1,
    /** Digits only, as one number. */
    AI_ENC_INTEGER = 0,
    /** Digits and A to F, 4 bits per character. */
    AI_ENC_HEX_UPPER = 1,
    /** Digits and a to f, 4 bits per character. */
    AI_ENC_HEX_LOWER = 2,
    /** Letters, digits, "-" and "_", 6 bits per character. */
    AI_ENC_BASE64URL = 3,
    /** Every character that AI values may hold, 7 bits per character. */
    AI_ENC_ISO646 = 4,
    /** Upper-case letters, digits, "-", "." and ":", 16 bits per three characters. */
    AI_ENC_CODE40 = 5
};

/** What a TID says about BlockErase or BlockWrite. All 0: nothing. */
typedef struct TidBlockInfo {
    /** The largest block that the command accepts, in words, 1 to 255. */
    uint8_t maxBlockSize;
    /** 1: the command accepts smaller blocks as well. */
    uint8_t variableSize;
    /** Address of the first full block in the EPC bank, in words. */
    uint8_t epcAddressOffset;
    /** 1: the EPC bank has no fixed block boundaries. */
    uint8_t noEpcAlignment;
    /** Address of the first full block in the User bank, in words. */
    uint8_t userAddressOffset;
    /** 1: the User bank has no fixed block boundaries. */
    uint8_t noUserAlignment;
} TidBlockInfo;

/** What a TID says; what it does not say is 0. The record has 68 bytes without any padding. */
typedef struct TidRecord {
    /** 12 bits: XTID, Security and File indicators, and nine bits naming the chip's designer. */
    uint16_t mdid;
    /** 12 bits: the designer's model number. */
    uint16_t tmid;
    /** The length of the serial number in bits: 0, or 48 to 144 in steps of 16. */
    uint8_t serialBits;
    /** The serial number as upper-case hexadecimal digits, NUL-terminated. */
    char serial[TID_SERIAL_SIZE];
    /** 1: the TID lists optional commands, in the nine fields that follow. */
    uint8_t hasOptionalCommands;
    /** The largest length of an EPC, 0 to 31, counted as in the first five bits of the PC word. */
    uint8_t maxEpcSize;
    /** 1: the tag can be recommissioned. */
    uint8_t recomSupport;
    /** 1: the tag supports the Access command. */
    uint8_t accessSupport;
    /** 1: each memory bank has its own lock bits. */
    uint8_t separateLockbits;
    /** 1: the tag sets the User Memory Indicator by itself. */
    uint8_t autoUmiSupport;
    /** 1: the tag supports phase jitter modulation. */
    uint8_t pjmSupport;
    /** 1: the tag supports the BlockWrite command. */
    uint8_t blockWriteSupported;
    /** 1: the tag supports the BlockErase command. */
    uint8_t blockEraseSupported;
    /** 1: the tag supports the BlockPermalock command. */
    uint8_t blockPermaLockSupported;
    /** The block size of the BlockPermalock command, in words. */
    uint16_t blockPermaLockBlockSize;
    /** The size of the User bank, in words. */
    uint16_t userMemorySize;
    /** The BlockErase command. */
    TidBlockInfo blockErase;
    /** The BlockWrite command. */
    TidBlockInfo blockWrite;
} TidRecord;

/**
 * @name Scheme names
 *
 * Source of all four: EPC Tag Data Standard, EPC binary headers.
 */
/** @{ */

/**
 * Writes the name of a scheme, as in a tag URI.
 *
 *     scheme   0 to 33.
 *     dstSize  bytes at dst; EPC_SCHEME_NAME_SIZE is always enough.
 *     dst      receives the name.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  scheme is not 0 to 33
 *     EPC_ERR_NO_ROOM         the name and its NUL do not fit into dst
 *
 * Example:
 *
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_tagSchemeEnumToName(EPC_SCHEME_SGTIN_198, sizeof name, name);
 *     // name is "sgtin-198"
 *     epc_tagSchemeEnumToName(EPC_SCHEME_COUNT, sizeof name, name); // gives EPC_ERR_UNKNOWN_SCHEME
 */
ROSETAG_EXPORT EpcStatus epc_tagSchemeEnumToName(EpcScheme scheme, int32_t dstSize, char* dst);

/**
 * Finds a scheme by its name.
 *
 *     name       the whole name, in lower case: "sgtin-96", not "sgtin" or "SGTIN-96".
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
 */
ROSETAG_EXPORT EpcStatus epc_tagSchemeNameToEnum(const char* name, EpcScheme* outScheme);

/**
 * Writes the name of the scheme that the header of a binary value stands for. What follows the
 * header is ignored.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_SCHEME_NAME_SIZE is always enough.
 *     dst      receives the name.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are not the header of a scheme
 *     EPC_ERR_NO_ROOM         the name and its NUL do not fit into dst
 *
 * Example:
 *
 *     const uint8_t header[] = {0x30};
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_binaryToTagSchemeName(8, header, sizeof name, name);
 *     // name is "sgtin-96"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToTagSchemeName(int32_t bits, const uint8_t* binary,
                                                   int32_t dstSize, char* dst);

/**
 * Like epc_binaryToTagSchemeName, but takes the value as hexadecimal text.
 *
 * Example:
 *
 *     char name[EPC_SCHEME_NAME_SIZE];
 *     epc_hexToTagSchemeName("F74280614141123458", sizeof name, name);
 *     // name is "sgtin+"
 *     epc_hexToTagSchemeName("0xF7", sizeof name, name); // gives EPC_ERR_NO_ROOM
 */
ROSETAG_EXPORT EpcStatus epc_hexToTagSchemeName(const char* hex, int32_t dstSize, char* dst);

/** @} */

/**
 * @name GS1 texts
 *
 * Converts between element strings, barcode strings, Digital Links and lists of AIs. Only the
 * length of a value and the check digit of a key are verified, no other character. The following
 * lists of statuses serve several functions, here and below.
 *
 * Reading an element string, AI by AI:
 *
 *     EPC_ERR_TOO_MANY_AIS   text follows the twentieth AI
 *     EPC_ERR_BAD_FORMAT     the character before an AI is not "("
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is not a digit
 *     EPC_ERR_UNKNOWN_AI     no AI begins with these two digits
 *     EPC_ERR_TRUNCATED      the text ends right after an AI
 *     EPC_ERR_BAD_FORMAT     the character after an AI is not ")"
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_NO_ROOM        the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT     a value of variable length is longer than GS1 allows
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *
 * Reading a barcode string, first its symbology identifier:
 *
 *     EPC_ERR_BAD_FORMAT     "]E0", "]E4" or "]I1" is not followed by 13, 8 or 14 characters
 *     EPC_ERR_BAD_CHARACTER  the text begins with "]" and another symbology identifier
 *
 * then AI by AI:
 *
 *     EPC_ERR_TOO_MANY_AIS   text follows the twentieth AI
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is not a digit
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_NO_ROOM        the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT     a value of variable length is longer than GS1 allows
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *
 * Reading a Digital Link, its path and then its query, AI by AI:
 *
 *     EPC_ERR_TOO_MANY_AIS   text follows the twentieth AI
 *     EPC_ERR_BAD_FORMAT     an AI does not follow a "/", "?" or "&" as its place requires
 *     EPC_ERR_TRUNCATED      the text ends inside an AI
 *     EPC_ERR_BAD_CHARACTER  a character of an AI is not a digit: query parameters other than AIs
 *                            are not accepted
 *     EPC_ERR_UNKNOWN_AI     no AI begins with these two digits
 *     EPC_ERR_TRUNCATED      the text ends right after an AI
 *     EPC_ERR_BAD_FORMAT     an AI is not followed by a "/" or "=" as its place requires
 *     EPC_ERR_UNKNOWN_AI     GS1 has not assigned this AI
 *     EPC_ERR_TRUNCATED      the text ends inside a value of fixed length
 *     EPC_ERR_BAD_CHARACTER  a "%" in such a value is not followed by two hexadecimal digits
 *     EPC_ERR_BAD_FORMAT     a value of variable length is longer than GS1 allows, an escape
 *                            counting as three characters
 *     EPC_ERR_CHECK_DIGIT    the check digit of a key is wrong
 *
 * Resolving the percent escapes of a link, value by value:
 *
 *     EPC_ERR_TOO_LONG       the value has more than 1023 characters
 *     EPC_ERR_TRUNCATED      the value ends inside a percent escape
 *     EPC_ERR_BAD_CHARACTER  a "%" is not followed by two hexadecimal digits
 */
/** @{ */

/**
 * Reads the AIs of an element string into rows.
 *
 *     text  AIs in brackets, each followed by its value. A value of variable length cannot hold a
 *           "(". An empty text holds no AI.
 *
 * Statuses: those of reading an element string, then those of rows of AIs.
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
 * Reads the AIs of a barcode string into rows.
 *
 *     text       "]E0", "]E4" or "]I1" and the digits of a GTIN; or "]C1", "]e0", "]d2" or nothing,
 *                and a run of AIs and values without brackets.
 *     separator  code of the character that ends a value of variable length, usually 29 (GS); it
 *                may also follow any other value. 0: no such character.
 *
 * Statuses: those of reading a barcode string, then those of rows of AIs.
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
 * Reads the AIs of a Digital Link into rows, first the path, then the query. Percent escapes are
 * resolved.
 *
 *     text  path and query, without scheme and host; it may begin with the "?".
 *
 * Statuses: those of reading a Digital Link and of resolving its escapes, then
 *
 *     EPC_ERR_NO_ROOM  the values have more than 1799 characters together
 *
 * and those of rows of AIs.
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
 * Statuses: those of reading a Digital Link and of resolving its escapes, then
 *
 *     EPC_ERR_NO_ROOM  the values have more than 1023 characters together, or dst is full
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
 * Writes an element string as the path and query of a Digital Link, without scheme and host. The
 * key and its qualifiers form the path, in the order of the standard; all other AIs go into the
 * query, in the order of the text.
 *
 *     text     AIs in brackets, each followed by its value.
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE is enough for values that GS1 allows.
 *     dst      receives the link.
 *
 * Statuses: those of reading an element string, then
 *
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

/** @} */

/**
 * @name EPC URIs and GS1 texts
 *
 * The check digit of a key has no place in a URI. It is computed on the way to GS1 text, and
 * skipped unread on the way to a URI. The filter value of a tag URI has no place in a GS1 text: it
 * is tested and dropped.
 *
 * Towards a GS1 text, a URI's fields are not held to the lengths of their scheme. A tag URI of any
 * scheme with a GS1 key is accepted, even of a plus scheme other than dsgtin+; a pure identity URI
 * also of the families ginc, gsin, upui and pgln, which no tag scheme has. A GS1 barcode string
 * is written without symbology identifier, with the GS character (code 29) after the AI 8010 of a
 * cpi.
 *
 * Reading a tag URI, and how a pure identity URI differs:
 *
 *     EPC_ERR_TRUNCATED          the text ends inside "urn:epc:tag:", or "urn:epc:id:"
 *     EPC_ERR_BAD_FORMAT         the text does not begin with that
 *     EPC_ERR_TRUNCATED          no ":" ends the name of the scheme, or the family
 *     EPC_ERR_TOO_LONG           the same, and there are 256 characters or more
 *     EPC_ERR_UNKNOWN_SCHEME     no scheme has this name; not in a pure identity URI
 *     EPC_ERR_NO_KEY_DEFINITION  gid-96, usdod-96, adi-var or dsgtin+; in a pure identity URI: not
 *                                a family with a GS1 key
 *
 *     in a tag URI:
 *     EPC_ERR_BAD_FORMAT         the filter value has a leading zero
 *     EPC_ERR_OUT_OF_RANGE       the filter value has more than 19 digits
 *     EPC_ERR_FILTER_LIMIT       the filter value is at or above the limit of the scheme
 *     EPC_ERR_TRUNCATED          the text ends after the filter value
 *     EPC_ERR_BAD_FORMAT         the filter value is not followed by "."
 *
 *     field by field:
 *     EPC_ERR_TOO_LONG           the field has 256 characters or more
 *     EPC_ERR_TRUNCATED          the text ends before a "." or inside a percent escape
 *     EPC_ERR_BAD_CHARACTER      a "%" is not followed by two hexadecimal digits
 *     EPC_ERR_BAD_FORMAT         the reference of an sgtin, sscc, itip or upui is empty
 *     EPC_ERR_NO_ROOM            the values have more than 1023 characters together; not on the way
 *                                to a barcode string
 *
 * Writing a URI from a GS1 text needs one key and, with some keys, the AI that accompanies it: 21
 * after 01 and 8006, 254 after 414, 8011 anywhere with 8010. All other AIs are skipped and dropped.
 * No value is tested, and no check digit is verified: a letter in a key ends up in the URI. dst is
 * untouched until the key, scheme and filter have been tested.
 *
 * Source: EPC Tag Data Standard, EPC URIs and their correspondence to GS1 element strings.
 */
/** @{ */

/**
 * Writes the identity of a tag URI as an element string.
 *
 *     text     the URI.
 *     dstSize  bytes at dst; EPC_ELEMENT_STRING_SIZE is always enough.
 *     dst      receives the element string. It stays empty until the whole text has been read.
 *
 * Statuses: those of reading a tag URI, then
 *
 *     EPC_ERR_NO_ROOM  dst is full
 *
 * Example:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_epcTagUriToGs1ElementString("urn:epc:tag:sgtin-96:3.0614141.812345.6789", sizeof text,
 *                                     text);
 *     // text is "(01)80614141123458(21)6789"
 *     epc_epcTagUriToGs1ElementString("urn:epc:tag:gid-96:1.2.3", sizeof text,
 *                                     text); // gives EPC_ERR_NO_KEY_DEFINITION
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToGs1ElementString(const char* text, int32_t dstSize,
                                                         char* dst);

/**
 * Writes the identity of a tag URI as a barcode string.
 *
 *     text     the URI.
 *     dstSize  bytes at dst; EPC_BARCODE_STRING_SIZE is always enough.
 *     dst      receives the barcode string, piece by piece as the URI is read.
 *
 * Statuses: those of reading a tag URI, and
 *
 *     EPC_ERR_NO_ROOM  dst is full, found wherever it is
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
 * Writes the identity of a tag URI as the path and query of a Digital Link.
 *
 *     text     the URI.
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE is always enough.
 *     dst      receives the link. It stays empty until the whole text has been read.
 *
 * Statuses: those of reading a tag URI, then
 *
 *     EPC_ERR_NO_ROOM  dst is full
 *
 * Example:
 *
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_epcTagUriToDigitalLink("urn:epc:tag:sgtin-198:3.0614141.812345.A%2FB", sizeof link,
 *                                link);
 *     // link is "/01/80614141123458/21/A%2FB"
 *
 * Source: GS1 Digital Link Standard: URI Syntax.
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToDigitalLink(const char* text, int32_t dstSize, char* dst);

/**
 * Like epc_epcTagUriToGs1ElementString, but takes a pure identity URI.
 *
 * Example:
 *
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_epcUriToGs1ElementString("urn:epc:id:ginc:0614141.xyz3311cba", sizeof text, text);
 *     // text is "(401)0614141xyz3311cba"
 *     epc_epcUriToGs1ElementString("urn:epc:id:gid:1.2.3", sizeof text,
 *                                  text); // gives EPC_ERR_NO_KEY_DEFINITION
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToGs1ElementString(const char* text, int32_t dstSize, char* dst);

/**
 * Like epc_epcTagUriToBarcodeString, but takes a pure identity URI.
 *
 * Example:
 *
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_epcUriToBarcodeString("urn:epc:id:sscc:0614141.1234567890", sizeof text, text);
 *     // text is "00106141412345678908"
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToBarcodeString(const char* text, int32_t dstSize, char* dst);

/**
 * Writes the key of an element string as a tag URI.
 *
 *     text       AIs in brackets, each followed by its value.
 *     scheme     a scheme of the key's family.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12.
 *     dstSize    bytes at dst; EPC_URI_SIZE is enough for values that GS1 allows.
 *     dst        receives the URI.
 *
 * Statuses:
 *
 *     EPC_ERR_FILTER_FIELD     gcpLength is not 6 to 12
 *     EPC_ERR_NO_KEY_AI        the text is empty
 *     then, AI by AI through the whole text:
 *     EPC_ERR_BAD_FORMAT       the character before an AI is not "(", or two digits are missing
 *     EPC_ERR_UNKNOWN_AI       no AI begins with these two digits
 *     EPC_ERR_TRUNCATED        the text ends inside a value of fixed length
 *     EPC_ERR_BAD_FORMAT       the character after an AI of fixed length is not ")"
 *     EPC_ERR_SECOND_KEY       it is the second key, or the same AI again
 *     and then:
 *     EPC_ERR_NO_KEY_AI        the text holds no key
 *     EPC_ERR_UNKNOWN_SCHEME   scheme is not 0 to 33
 *     EPC_ERR_SCHEME_MISMATCH  the key belongs to another family than scheme
 *     EPC_ERR_FILTER_LIMIT     filter is negative, or at or above the limit of the scheme
 *     EPC_ERR_OUT_OF_RANGE     the value of the key is shorter than gcpLength
 *     EPC_ERR_TRUNCATED        the value of the key ends before its fixed digits, and the text too
 *     EPC_ERR_BAD_FORMAT       the value of an AI 8006 does not have 18 characters
 *     EPC_ERR_NO_SECONDARY_AI  the AI that accompanies the key is missing
 *     EPC_ERR_NO_ROOM          dst is full, found wherever it is
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
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcTagUri(const char* text, EpcScheme scheme,
                                                         int32_t filter, int32_t gcpLength,
                                                         int32_t dstSize, char* dst);

/**
 * Like epc_gs1ElementStringToEpcTagUri, but writes the pure identity URI of the key's family. There
 * is no scheme or filter and no status about them. The keys 401, 402 and 417, which no tag scheme
 * has, are accepted too.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_gs1ElementStringToEpcUri("(01)80614141123458(21)6789", 7, sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 *     epc_gs1ElementStringToEpcUri("(10)LOT7", 7, sizeof uri, uri); // gives EPC_ERR_NO_KEY_AI
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcUri(const char* text, int32_t gcpLength,
                                                      int32_t dstSize, char* dst);

/**
 * Like epc_gs1ElementStringToEpcTagUri, but takes a barcode string. EPC_ERR_BAD_FORMAT says that an
 * AI does not begin with two digits.
 *
 *     text  a run of AIs and values without brackets and symbology identifier. The GS character
 *           (code 29) ends a value of variable length and may be nowhere else. In an itip, the
 *           AI 21 must follow the AI 8006 directly.
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

/** @} */

/**
 * @name Single AI values
 *
 * The +AIDC bits of one value without a tag scheme around it, with or without the digits of its AI
 * before them. The bits are not padded and nothing ends them: the AI says where they end, and what
 * follows is ignored. Bits with the AI's digits are read by the epc_plusAidc...ToAI functions, bits
 * without them by the epc_...ValueToAI functions.
 *
 * Only the rules of the bits apply to a value: no check digit is verified, and a text may be longer
 * than GS1 allows, up to what its length indicator can count: 3, 7, 15, 31, 63 or 127 characters.
 * In the functions ending in Enc the caller chooses the encoding of the text in the value; it is
 * ignored for a value without text.
 *
 * Encoding a value, part by part. In a value of two parts the first takes exactly its digits and
 * the second the rest. Characters after the digits of a key such as AI 01 are ignored.
 *
 *     a number, date, letter or flag of fixed length:
 *     EPC_ERR_TOO_LONG       it has too many characters; a flag does not have exactly one
 *     EPC_ERR_TRUNCATED      it has too few
 *     EPC_ERR_BAD_CHARACTER  a character is not a digit, or in a flag neither 0 nor 1
 *     EPC_ERR_BAD_FORMAT     a month, day, hour, minute or second does not exist or is not two
 *                            digits; a character of a key is not a digit; a letter is not A to Z; a
 *                            sign is not "-"; a date or time of variable length has a length that
 *                            does not exist
 *     digits of variable number:
 *     EPC_ERR_TOO_LONG       there are more than the length indicator can count
 *     EPC_ERR_BAD_CHARACTER  a character is not a digit
 *     text:
 *     EPC_ERR_BAD_CHARACTER  a character that no AI value may hold
 *     EPC_ERR_TOO_LONG       it has more characters than the length indicator can count
 *     EPC_ERR_BAD_FORMAT     encoding is not AI_ENC_AUTO to AI_ENC_CODE40
 *     EPC_ERR_OUT_OF_RANGE   it has more than 91 digits and would be written as one number
 *     EPC_ERR_BAD_CHARACTER  a character that the chosen encoding cannot hold
 *     EPC_ERR_TOO_LONG       it has 91 digits and would be written as one number
 *     any of them:
 *     EPC_ERR_NO_ROOM        out is full
 *
 * Decoding a value, field by field:
 *
 *     EPC_ERR_TRUNCATED      the bits end inside the value. The sign of AI 4330 to 4333 may be
 *                            missing
 *     EPC_ERR_BAD_FORMAT     a digit, letter, date, time or encoding that does not exist; a code-40
 *                            group of 0 or above 64000; an integer text of more than 90 digits
 *     EPC_ERR_OUT_OF_RANGE   a number has too many digits, or a year is above 99
 *     EPC_ERR_BAD_CHARACTER  a character that no AI value may hold
 *     EPC_ERR_NO_ROOM        dst is full
 *
 * Source: EPC Tag Data Standard, +AIDC data.
 */
/** @{ */

/**
 * Encodes the value of an AI.
 *
 *     ai        the AI, two to four digits.
 *     value     its whole value, as in an element string.
 *     withCode  not 0: the bits begin with the digits of the AI, four bits each.
 *     maxBytes  bytes at out; EPC_AI_VALUE_BYTES is enough for every value that GS1 allows.
 *     out       receives the bits; the bytes after them are cleared.
 *     outBits   receives their number, the AI included. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_AI  GS1 has not assigned this AI; out is untouched
 *     EPC_ERR_NO_ROOM     the digits of the AI do not fit into out
 *
 * then those of encoding a value.
 *
 * Example:
 *
 *     uint8_t out[EPC_AI_VALUE_BYTES];
 *     int32_t bits;
 *     epc_AIToBinary("21", "ABCG", 1, sizeof out, out, &bits);
 *     // bits is 40
 *     // out[0] is 0x21
 *     epc_AIToBinary("01", "8061414112345", 1, sizeof out, out, &bits); // gives EPC_ERR_TRUNCATED
 */
ROSETAG_EXPORT EpcStatus epc_AIToBinary(const char* ai, const char* value, int32_t withCode,
                                        int32_t maxBytes, uint8_t* out, int32_t* outBits);

/**
 * Like epc_AIToBinary, but with the encoding of the text.
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
 * Like epc_AIToBinary, but writes hexadecimal text. The unused bits of its last byte are 0.
 *
 *     outBits  receives the number of bits, not of digits, even if dst is too small. May be null.
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
 * Like epc_AIToBinary, but writes hexadecimal text, with the encoding of the text. The unused bits
 * of its last byte are 0.
 *
 *     outBits  receives the number of bits, not of digits, even if dst is too small. May be null.
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
 * Like epc_AIToBinary, but writes 16-bit words. The unused bits of the last one are 0.
 *
 *     maxWords  words at outWords, 0 to 31: a larger number is refused.
 *     outBits   receives the number of bits, not of words. Not written on failure. May be null.
 *
 * Status before all others:
 *
 *     EPC_ERR_TOO_LONG  maxWords is not 0 to 31
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
 * Like epc_AIToBinary, but writes 16-bit words, with the encoding of the text. The unused bits of
 * the last one are 0.
 *
 *     maxWords  words at outWords, 0 to 31: a larger number is refused.
 *     outBits   receives the number of bits, not of words. Not written on failure. May be null.
 *
 * Status before all others:
 *
 *     EPC_ERR_TOO_LONG  maxWords is not 0 to 31
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
 *     dstSize  bytes at dst; EPC_AI_VALUE_SIZE is enough for every value that GS1 allows.
 *     dst      receives the value, as in an element string.
 *
 * Statuses:
 *
 *     EPC_ERR_UNKNOWN_AI  GS1 has not assigned this AI
 *
 * then those of decoding a value.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x64, 0x00, 0x10, 0x86}; // the text ABCG in base64url
 *     char value[EPC_AI_VALUE_SIZE];
 *     epc_binaryValueToAI(32, binary, "21", sizeof value, value);
 *     // value is "ABCG"
 *     epc_binaryValueToAI(31, binary, "21", sizeof value, value); // gives EPC_ERR_TRUNCATED
 *     // value is "ABC"
 */
ROSETAG_EXPORT EpcStatus epc_binaryValueToAI(int32_t bits, const uint8_t* binary, const char* ai,
                                             int32_t dstSize, char* dst);

/**
 * Like epc_binaryValueToAI, but takes the bits as hexadecimal text.
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
 *     dstSize  bytes at dst; EPC_AI_VALUE_SIZE is enough for every value that GS1 allows.
 *     dst      receives the value, as in an element string.
 *
 * Statuses:
 *
 *     digit by digit of the AI:
 *     EPC_ERR_TRUNCATED   the bits end inside it
 *     EPC_ERR_BAD_FORMAT  the digit is above 9
 *     after the second digit:
 *     EPC_ERR_TRUNCATED   it is the AI 00, and fewer than 72 bits follow
 *     EPC_ERR_UNKNOWN_AI  no AI begins with these two digits
 *     and after the last:
 *     EPC_ERR_UNKNOWN_AI  GS1 has not assigned this AI
 *
 * then those of decoding a value.
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
 */
ROSETAG_EXPORT EpcStatus epc_plusAidcBinaryToAI(int32_t bits, const uint8_t* binary, char* aiOut,
                                                int32_t dstSize, char* dst);

/**
 * Like epc_plusAidcBinaryToAI, but takes the bits as hexadecimal text.
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
 * Like epc_plusAidcBinaryToAI, but takes the bits as 16-bit words.
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

/** @} */

/**
 * @name EPC binary to text
 *
 * The first eight bits, the header, determine the scheme. The number of bits only limits the read,
 * and what follows the last field is ignored. In a text field of a URI, characters that a URI
 * cannot hold are written as percent escapes. No check digit in the bits is verified.
 *
 * Reading the fields of a plain scheme, in their order:
 *
 *     EPC_ERR_TRUNCATED      the bits end inside a field; a text is empty or does not end
 *     EPC_ERR_BAD_PARTITION  the partition value is 7
 *     EPC_ERR_OUT_OF_RANGE   a company prefix or reference has more digits than the partition value
 *                            allows; a serial number that keeps its leading zeros (gdti-113,
 *                            sgcn-96) does not begin with a 1, or has nothing after it; a bit that
 *                            must be 0 is 1
 *     EPC_ERR_BAD_CHARACTER  a text holds a character that its field does not allow, or something
 *                            follows its end
 *
 * Reading the fields of a plus scheme, in their order. The data section ends with the bits, or when
 * eight of them or fewer are left, or at the digits 00 followed by fewer than 72 bits, which are
 * padding.
 *
 *     EPC_ERR_TRUNCATED      the bits end inside a field
 *     EPC_ERR_UNKNOWN_AI     the data section holds an AI that GS1 has not assigned
 *     EPC_ERR_OUT_OF_RANGE   a number has too many digits, or a year is above 99
 *     EPC_ERR_BAD_FORMAT     a digit, letter, date, time, date code or encoding that does not
 *                            exist; a code-40 group of 0 or above 64000; an integer text of more
 *                            than 90 digits
 *     EPC_ERR_BAD_CHARACTER  a character that no AI value may hold
 *     EPC_ERR_NO_ROOM        the values have more than 1023 characters together
 *     EPC_ERR_TOO_MANY_AIS   there are more than 20 AIs
 *
 * Reading a value for a URI:
 *
 *     EPC_ERR_NO_ROOM         "urn:epc:tag:", or "urn:epc:id:", does not fit into dst
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are not the header of a scheme
 *     EPC_ERR_NOT_SUPPORTED   a plus scheme, which has no URI
 *     EPC_ERR_NO_ROOM         the name of the scheme, or the family, and ":" do not fit into dst
 *     then those of the fields of a plain scheme, and at any of them:
 *     EPC_ERR_NO_ROOM         dst is full
 *
 * Reading a value for a GS1 text:
 *
 *     EPC_ERR_TRUNCATED       bits is below 8
 *     EPC_ERR_UNKNOWN_HEADER  the first eight bits are not the header of a scheme
 *     EPC_ERR_NOT_SUPPORTED   gid-96, usdod-96 or adi-var, which have no GS1 text
 *     then those of the fields
 *
 * Sources: EPC Tag Data Standard, EPC binary encoding, EPC URIs and +AIDC data; for the texts, GS1
 * General Specifications and GS1 Digital Link Standard: URI Syntax.
 */
/** @{ */

/**
 * Writes the tag URI of a binary value: scheme, filter value and identity.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_URI_SIZE is always enough.
 *     dst      receives the URI.
 *
 * Statuses: those of reading a value for a URI.
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
 */
ROSETAG_EXPORT EpcStatus epc_binaryToEpcTagUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                               char* dst);

/**
 * Writes the pure identity URI of a binary value: the family of its scheme and the identity.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_URI_SIZE is always enough.
 *     dst      receives the URI.
 *
 * Statuses: those of reading a value for a URI.
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char uri[EPC_URI_SIZE];
 *     epc_binaryToEpcUri(96, binary, sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToEpcUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                            char* dst);

/**
 * Writes the GS1 element string of a binary value: the AIs of the key with its check digit; in a
 * plus scheme also the date, then the AIs of the data section. GS1 texts have no filter value.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_ELEMENT_STRING_SIZE is always enough.
 *     dst      receives the element string. It stays empty until the whole value has been read.
 *
 * Statuses: those of reading a value for a GS1 text, then
 *
 *     EPC_ERR_NO_ROOM  dst is full
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char text[EPC_ELEMENT_STRING_SIZE];
 *     epc_binaryToGs1ElementString(96, binary, sizeof text, text);
 *     // text is "(01)80614141123458(21)6789"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToGs1ElementString(int32_t bits, const uint8_t* binary,
                                                      int32_t dstSize, char* dst);

/**
 * Writes the GS1 barcode string of a binary value: the AIs of its element string without brackets
 * and symbology identifier, with the GS character (code 29) between a value of variable length and
 * the next AI.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_BARCODE_STRING_SIZE is always enough.
 *     dst      receives the barcode string. It stays empty until the whole value has been read.
 *
 * Statuses: those of reading a value for a GS1 text, then
 *
 *     EPC_ERR_NO_ROOM  dst is full
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
 * Writes the path and query of the Digital Link of a binary value, without scheme and host.
 *
 *     bits     valid bits in binary.
 *     binary   the value, (bits + 7) / 8 bytes.
 *     dstSize  bytes at dst; EPC_DIGITAL_LINK_SIZE is always enough.
 *     dst      receives the link. It stays empty until the whole value has been read.
 *
 * Statuses: those of reading a value for a GS1 text, then
 *
 *     in a plain scheme those of epc_gs1ElementStringToDigitalLink, because the element string is
 *     read again: a "(" in a serial number begins another AI
 *     in a plus scheme:
 *     EPC_ERR_KEY_CONFLICT  the data section holds a key of another kind
 *     EPC_ERR_NO_ROOM       dst is full
 *
 * Example:
 *
 *     const uint8_t binary[] = {0x30, 0x74, 0x25, 0x7B, 0xF7, 0x19,
 *                               0x4E, 0x40, 0x00, 0x00, 0x1A, 0x85};
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_binaryToDigitalLink(96, binary, sizeof link, link);
 *     // link is "/01/80614141123458/21/6789"
 */
ROSETAG_EXPORT EpcStatus epc_binaryToDigitalLink(int32_t bits, const uint8_t* binary,
                                                 int32_t dstSize, char* dst);

/**
 * Writes the AIs of a binary value into rows, with their values as in an element string. A dsgtin+
 * gives its date first, then its key, then the data section.
 *
 *     bits    valid bits in binary.
 *     binary  the value, (bits + 7) / 8 bytes.
 *
 * Statuses: those of reading a value for a GS1 text, then those of rows of AIs.
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
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_hexToEpcTagUri("3074257BF7194E4000001A85", sizeof uri, uri);
 *     // uri is "urn:epc:tag:sgtin-96:3.0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToEpcTagUri(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToEpcUri, but takes the value as hexadecimal text.
 *
 * Example:
 *
 *     char uri[EPC_URI_SIZE];
 *     epc_hexToEpcUri("3074257BF7194E4000001A85", sizeof uri, uri);
 *     // uri is "urn:epc:id:sgtin:0614141.812345.6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToEpcUri(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToGs1ElementString, but takes the value as hexadecimal text.
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
 * Like epc_binaryToBarcodeString, but takes the value as hexadecimal text.
 *
 * Example:
 *
 *     char text[EPC_BARCODE_STRING_SIZE];
 *     epc_hexToBarcodeString("3074257BF7194E4000001A85", sizeof text, text);
 *     // text is "0180614141123458216789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToBarcodeString(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToDigitalLink, but takes the value as hexadecimal text.
 *
 * Example:
 *
 *     char link[EPC_DIGITAL_LINK_SIZE];
 *     epc_hexToDigitalLink("3074257BF7194E4000001A85", sizeof link, link);
 *     // link is "/01/80614141123458/21/6789"
 */
ROSETAG_EXPORT EpcStatus epc_hexToDigitalLink(const char* hex, int32_t dstSize, char* dst);

/**
 * Like epc_binaryToAIs, but takes the value as hexadecimal text.
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
 * Like epc_binaryToEpcUri, but takes the value as 16-bit words.
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
 * Like epc_binaryToGs1ElementString, but takes the value as 16-bit words.
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
 * Like epc_binaryToBarcodeString, but takes the value as 16-bit words.
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
 * Like epc_binaryToDigitalLink, but takes the value as 16-bit words.
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

/** @} */

/**
 * @name EPC URIs to binary
 *
 * A value is padded with zero bits to whole 16-bit words, so that its length in bytes is even.
 * EPC_MAX_BINARY_BYTES at out are always enough. In a text field any character may be written as a
 * percent escape.
 *
 * Reading the fields of a URI, in their order:
 *
 *     EPC_ERR_TRUNCATED      the text ends before a "." or inside a percent escape; a text field is
 *                            empty
 *     EPC_ERR_TOO_LONG       a CAGE or DoDAAC code (usdod-96, adi-var) has more than 6 characters
 *     EPC_ERR_BAD_FORMAT     another character is in place of a "."; a number has a leading
 *                            zero that its field cannot keep; a serial number that keeps its
 *                            leading zeros is empty; a code has fewer than 5 characters or one that
 *                            is not allowed
 *     EPC_ERR_BAD_PARTITION  the company prefix does not have 6 to 12 digits
 *     EPC_ERR_OUT_OF_RANGE   a number has more than 19 digits or is too large for its field; the
 *                            reference has more or fewer digits than the company prefix leaves; a
 *                            text of cpi-var or adi-var is too long
 *     EPC_ERR_BAD_CHARACTER  a text field holds a character that it does not allow, or a "%"
 *                            without two hexadecimal digits
 *     EPC_ERR_NO_ROOM        out is full
 *     and at the end:
 *     EPC_ERR_BAD_FORMAT     text follows the last field, or a text field is too long. out holds
 *                            the value
 *
 * Source: EPC Tag Data Standard, EPC URIs and EPC binary encoding.
 */
/** @{ */

/**
 * Encodes a tag URI, which holds scheme, filter value and identity.
 *
 *     text      the URI.
 *     maxBytes  bytes at out.
 *     out       receives the value.
 *     outBytes  receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED       the text ends inside "urn:epc:tag:"
 *     EPC_ERR_BAD_FORMAT      the text does not begin with that
 *     EPC_ERR_TRUNCATED       no ":" ends the name of the scheme
 *     EPC_ERR_TOO_LONG        the same, and there are 256 characters or more
 *     EPC_ERR_UNKNOWN_SCHEME  no scheme has this name
 *     EPC_ERR_BAD_FORMAT      the filter value has a leading zero
 *     EPC_ERR_OUT_OF_RANGE    the filter value has more than 19 digits
 *     EPC_ERR_FILTER_LIMIT    the filter value is at or above the limit of the scheme
 *     EPC_ERR_TRUNCATED       the text ends after the filter value
 *     EPC_ERR_BAD_FORMAT      the filter value is not followed by "."
 *     EPC_ERR_NOT_SUPPORTED   a plus scheme
 *     EPC_ERR_NO_ROOM         the header does not fit into out
 *     EPC_ERR_FILTER_FIELD    the filter value is 15 in usdod-96
 *     then those of the fields of a URI
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
 */
ROSETAG_EXPORT EpcStatus epc_epcTagUriToBinary(const char* text, int32_t maxBytes, uint8_t* out,
                                               int32_t* outBytes);

/**
 * Like epc_epcTagUriToBinary, but writes hexadecimal text.
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
 * Encodes a pure identity URI, which holds neither scheme nor filter value.
 *
 *     text      the URI.
 *     scheme    a scheme of the family that the URI names.
 *     filter    0 to 7; 0 to 14 in usdod-96; 0 to 63 in adi-var; ignored in gid-96.
 *     maxBytes  bytes at out.
 *     out       receives the value.
 *     outBytes  receives its length in bytes. May be null.
 *
 * Statuses:
 *
 *     EPC_ERR_TRUNCATED        the text ends inside "urn:epc:id:"
 *     EPC_ERR_BAD_FORMAT       the text does not begin with that
 *     EPC_ERR_UNKNOWN_SCHEME   scheme is not 0 to 33
 *     EPC_ERR_TRUNCATED        no ":" ends the family
 *     EPC_ERR_TOO_LONG         the same, and there are 256 characters or more
 *     EPC_ERR_SCHEME_MISMATCH  the URI is of another family than scheme
 *     EPC_ERR_NOT_SUPPORTED    a plus scheme
 *     EPC_ERR_NO_ROOM          the header does not fit into out
 *     EPC_ERR_FILTER_FIELD     filter is negative or does not fit; not EPC_ERR_FILTER_LIMIT
 *     then those of the fields of a URI
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
 */
ROSETAG_EXPORT EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                            int32_t maxBytes, uint8_t* out, int32_t* outBytes);

/**
 * Like epc_epcUriToBinary, but writes hexadecimal text.
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
 * Like epc_epcUriToBinary, but writes 16-bit words.
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

/** @} */

/**
 * @name GS1 text to binary
 *
 * A plain scheme keeps the key and drops all other AIs, and verifies no check digit but that of a
 * Digital Link. A plus scheme keeps all AIs and verifies check digits. A value is padded with zero
 * bits to whole 16-bit words. EPC_MAX_BINARY_BYTES at out are enough for a plain scheme; a plus
 * scheme writes as many AIs as out has room for. All functions share these arguments:
 *
 *     text       the GS1 text.
 *     scheme     0 to 33.
 *     filter     0 to 7.
 *     gcpLength  digits of the company prefix, 6 to 12. Ignored by the plus schemes.
 *     encoding   of the functions ending in Enc: AI_ENC_AUTO, which is what the others do, or
 *                AI_ENC_INTEGER to AI_ENC_CODE40. It changes the bits, but not what is read from
 *                them. Ignored by the plain schemes.
 *     maxBytes   bytes at out.
 *     out        receives the value.
 *     outBytes   receives its length in bytes. May be null.
 *
 * and begin with these statuses, a barcode string with those of its symbology identifier before
 * them:
 *
 *     EPC_ERR_UNKNOWN_SCHEME  scheme is not 0 to 33
 *     EPC_ERR_FILTER_LIMIT    filter is at or above the limit of the scheme
 *     EPC_ERR_NOT_SUPPORTED   gid-96, usdod-96 or adi-var, which have no GS1 text
 *     in a plus scheme:
 *     EPC_ERR_FILTER_LIMIT    filter is negative
 *
 * A plain scheme then has the statuses of writing the text as a tag URI of at most 255 characters
 * (see the functions) and those of epc_epcTagUriToBinary for that URI. A plus scheme has those of
 * reading the text (see the functions) and those of encoding its AIs:
 *
 *     EPC_ERR_NO_ROOM         the header does not fit into out
 *     EPC_ERR_NO_PRIMARY_KEY  an AI of the scheme is missing, or in dsgtin+ a date
 *     EPC_ERR_NO_ROOM         toggle and filter value do not fit into out
 *     then date, key AIs and data section, value by value:
 *     EPC_ERR_NO_ROOM         the value is shorter than a part of fixed length
 *     those of encoding a value, for each part
 *     and at the end:
 *     EPC_ERR_NO_ROOM         the padding does not fit into out
 *
 * The date of a dsgtin+ is the first present of the AIs 11, 13, 15, 16, 17, 7006 and 7007; one of
 * 7007 must be a single date.
 *
 * Sources: GS1 General Specifications, element strings and symbology identifiers; GS1 Digital Link
 * Standard: URI Syntax; EPC Tag Data Standard, EPC binary encoding and +AIDC data.
 */
/** @{ */

/**
 * Encodes an element string: AIs in brackets, each followed by its value.
 *
 * Statuses: a plain scheme has those of epc_gs1ElementStringToEpcTagUri, a plus scheme those of
 * reading an element string.
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
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToBinary(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t maxBytes, uint8_t* out,
                                                      int32_t* outBytes);

/**
 * Like epc_gs1ElementStringToBinary, but with the encoding of the text fields.
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
 * Like epc_gs1ElementStringToBinary, but writes hexadecimal text.
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
 * Like epc_gs1ElementStringToBinary, but writes hexadecimal text, with the encoding of the text
 * fields.
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
 * Like epc_gs1ElementStringToBinary, but writes 16-bit words.
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
 * Like epc_gs1ElementStringToBinary, but writes 16-bit words, with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToWordsEnc(const char* text, EpcScheme scheme,
                                                        int32_t filter, int32_t gcpLength,
                                                        int32_t encoding, int32_t maxWords,
                                                        uint16_t* outWords, int32_t* outWordCount);

/**
 * Encodes a barcode string, with the GS character (code 29) as its separator. A symbology
 * identifier may precede it.
 *
 * Statuses: those of the symbology identifier come before all others. Then a plain scheme has those
 * of epc_barcodeStringToEpcTagUri, a plus scheme those of reading a barcode string.
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
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinary(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t maxBytes, uint8_t* out,
                                                   int32_t* outBytes);

/**
 * Like epc_barcodeStringToBinary, but with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinaryEnc(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t encoding, int32_t maxBytes,
                                                      uint8_t* out, int32_t* outBytes);

/**
 * Like epc_barcodeStringToBinary, but writes hexadecimal text.
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
 * Like epc_barcodeStringToBinary, but writes hexadecimal text, with the encoding of the text
 * fields.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToHexEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t dstSize, char* dst);

/**
 * Like epc_barcodeStringToBinary, but writes 16-bit words.
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
 * Like epc_barcodeStringToBinary, but writes 16-bit words, with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_barcodeStringToWordsEnc(const char* text, EpcScheme scheme,
                                                     int32_t filter, int32_t gcpLength,
                                                     int32_t encoding, int32_t maxWords,
                                                     uint16_t* outWords, int32_t* outWordCount);

/**
 * Encodes a Digital Link: path and query. A plus scheme also accepts "https://" and a host before
 * them, but not "http://".
 *
 * Statuses: a plain scheme has those of epc_digitalLinkToGs1ElementString with a dst of 256 bytes,
 * then those of epc_gs1ElementStringToEpcTagUri. A plus scheme has
 *
 *     EPC_ERR_TRUNCATED   no "/" follows "https://" and a host
 *     EPC_ERR_BAD_FORMAT  the text begins with a part of "https://" and goes on otherwise
 *
 * then those of reading a Digital Link. Those of resolving its escapes come up value by value, just
 * before a value is encoded.
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
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t maxBytes, uint8_t* out,
                                                 int32_t* outBytes);

/**
 * Like epc_digitalLinkToBinary, but with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinaryEnc(const char* text, EpcScheme scheme,
                                                    int32_t filter, int32_t gcpLength,
                                                    int32_t encoding, int32_t maxBytes,
                                                    uint8_t* out, int32_t* outBytes);

/**
 * Like epc_digitalLinkToBinary, but writes hexadecimal text.
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
 * Like epc_digitalLinkToBinary, but writes hexadecimal text, with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToHexEnc(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t encoding,
                                                 int32_t dstSize, char* dst);

/**
 * Like epc_digitalLinkToBinary, but writes 16-bit words.
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
 * Like epc_digitalLinkToBinary, but writes 16-bit words, with the encoding of the text fields.
 */
ROSETAG_EXPORT EpcStatus epc_digitalLinkToWordsEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t maxWords,
                                                   uint16_t* outWords, int32_t* outWordCount);

/** @} */

/**
 * @name TID
 *
 * The TID memory bank names the designer of a tag's chip and its model. If its XTID indicator is
 * set, it may also give a serial number and the commands that the chip supports. The whole TID is
 * read before anything is written, except into a record; what follows its last segment is ignored.
 *
 * Reading a TID:
 *
 *     EPC_ERR_TRUNCATED  bits is below 8
 *     EPC_ERR_BAD_TID    the class is not E2
 *     EPC_ERR_TRUNCATED  the bits end inside the designer and model numbers
 *     then, if the XTID indicator is set, header and segments one by one:
 *     EPC_ERR_TRUNCATED  the bits end inside the header or a segment
 *     EPC_ERR_BAD_TID    the header announces another header, or a reserved bit is not 0; a block
 *                        command has the largest block 0 and says more
 *
 * Source: EPC Tag Data Standard, section 16 (tag identification memory bank contents).
 */
/** @{ */

/**
 * Decodes a TID into a record.
 *
 *     bits    valid bits in binary.
 *     binary  the bank from its first bit, (bits + 7) / 8 bytes.
 *     record  receives what the TID says.
 *
 * Statuses:
 *
 *     EPC_ERR_NO_ROOM  record is null
 *
 * then those of reading a TID. A failure leaves in the record what precedes the failing field, and
 * 0 in all other fields. serialBits is set before the serial number is read.
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
 */
ROSETAG_EXPORT EpcStatus tid_binaryDecode(int32_t bits, const uint8_t* binary, TidRecord* record);

/**
 * Decodes a TID and writes designer, model and serial number.
 *
 *     bits        valid bits in binary.
 *     binary      the bank from its first bit, (bits + 7) / 8 bytes.
 *     mdid        receives the field of TidRecord of this name. May be null.
 *     tmid        the same.
 *     serialBits  the same.
 *     serialSize  bytes at serial; TID_SERIAL_SIZE is always enough.
 *     serial      receives the serial number, which may be empty. Required.
 *
 * Statuses: those of reading a TID, then
 *
 *     EPC_ERR_NO_ROOM  the digits and the NUL do not fit into serial; it is untouched, but mdid,
 *                      tmid and serialBits are written
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
 */
ROSETAG_EXPORT EpcStatus tid_binaryToComponents(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                                uint16_t* tmid, uint8_t* serialBits,
                                                uint32_t serialSize, char* serial);

/**
 * Decodes a TID and writes designer, model, serial number, and what the segments of the XTID say,
 * all 0 if there are none.
 *
 *     bits, binary, mdid, tmid, serialBits, serialSize, serial: as in tid_binaryToComponents, and
 *     with the same statuses. The others may be null, and are not written on failure:
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
 * Like tid_binaryDecode, but takes the bank as 16-bit words. EPC_ERR_TOO_LONG comes even before the
 * status of a null record.
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
 * Like tid_binaryToComponents, but takes the bank as 16-bit words.
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
 * Like tid_binaryToXtid, but takes the bank as 16-bit words.
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

/** @} */

/**
 * @name Statuses in words
 *
 * Both are compiled into the program; the library does not export them.
 */
/** @{ */

/**
 * Returns the name of a status, or "unknown".
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
 * Returns what a status says about the input in plain words, or "unknown status".
 *
 * Example:
 *
 *     const char* text = epc_statusText(EPC_ERR_CHECK_DIGIT);
 *     // text is "the check digit of a GS1 key is wrong"
 */
static inline const char* epc_statusText(EpcStatus status) {
    /* In the order of the values. */
    static const char* const texts[] = {
        "success",
        "an output is too small, an AI value is too short, or a character is not a hex digit",
        "the input ends before it is complete",
        "a number does not fit its field: too many digits, too few, or too large",
        "the input, or a part of it, is longer than its limit",
        "the first eight bits are not the header of a tag scheme",
        "no partition exists for these bits or for this length of the company prefix",
        "the input does not match its syntax or layout",
        "the filter value does not fit its field, or the company prefix length is not 6 to 12",
        "the input identifies another kind of object than the requested scheme does",
        "the filter value is negative, or at or above the limit of the scheme",
        "no tag scheme has this name or number",
        "the scheme has no GS1 key and so no AIs",
        "GS1 has not assigned this AI",
        "the text holds two GS1 keys where only one is allowed",
        "the text holds no GS1 key",
        "the AI that must accompany the GS1 key, such as a serial number, is missing",
        "a character is not allowed in its place",
        "the scheme does not have this form",
        "the plus scheme has no GS1 key",
        "the AIs hold no key for a Digital Link, or not all that the scheme needs",
        "there are more than 20 AIs, or more than the arrays have rows",
        "the AIs hold two different keys",
        "the check digit of a GS1 key is wrong",
        "the bits do not match the layout of a TID",
    };
    return status < EPC_OK || status > EPC_ERR_BAD_TID ? "unknown status" : texts[status];
}

/** @} */

#ifdef __cplusplus
}
#endif

#endif
