/*
 * Rosetag: translates identifiers between the forms used in GS1 and RFID data capture.
 */
#ifndef ROSETAG_ROSETAG_H
#define ROSETAG_ROSETAG_H

#include <stdint.h>

/* The version of this header, and the one place where it is written. */
#define ROSETAG_VERSION_MAJOR 1
#define ROSETAG_VERSION_MINOR 0
#define ROSETAG_VERSION_PATCH 0
#define ROSETAG_VERSION "1.0.0"

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

#define EPC_MAX_BINARY_BYTES 62

typedef int32_t EpcStatus;
enum {
    EPC_OK = 0,
    EPC_ERR_NO_ROOM = 1,
    EPC_ERR_TRUNCATED = 2,
    EPC_ERR_OUT_OF_RANGE = 3,
    EPC_ERR_TOO_LONG = 4,
    EPC_ERR_UNKNOWN_HEADER = 5,
    EPC_ERR_BAD_PARTITION = 6,
    EPC_ERR_BAD_FORMAT = 7,
    EPC_ERR_FILTER_FIELD = 8,
    EPC_ERR_SCHEME_MISMATCH = 9,
    EPC_ERR_FILTER_LIMIT = 10,
    EPC_ERR_UNKNOWN_SCHEME = 11,
    EPC_ERR_NO_KEY_DEFINITION = 12,
    EPC_ERR_UNKNOWN_AI = 13,
    EPC_ERR_SECOND_KEY = 14,
    EPC_ERR_NO_KEY_AI = 15,
    EPC_ERR_NO_SECONDARY_AI = 16,
    EPC_ERR_BAD_CHARACTER = 17,
    EPC_ERR_NOT_SUPPORTED = 18,
    EPC_ERR_NO_KEY_FOR_SCHEME = 19,
    EPC_ERR_NO_PRIMARY_KEY = 20,
    EPC_ERR_TOO_MANY_AIS = 21,
    EPC_ERR_KEY_CONFLICT = 22,
    EPC_ERR_CHECK_DIGIT = 23,
    EPC_ERR_BAD_TID = 24
};

typedef int32_t EpcScheme;
enum {
    EPC_SCHEME_SGTIN_96 = 0,
    EPC_SCHEME_SGTIN_198 = 1,
    EPC_SCHEME_SSCC_96 = 2,
    EPC_SCHEME_SGLN_96 = 3,
    EPC_SCHEME_SGLN_195 = 4,
    EPC_SCHEME_GRAI_96 = 5,
    EPC_SCHEME_GRAI_170 = 6,
    EPC_SCHEME_GIAI_96 = 7,
    EPC_SCHEME_GIAI_202 = 8,
    EPC_SCHEME_GSRN_96 = 9,
    EPC_SCHEME_GSRNP_96 = 10,
    EPC_SCHEME_GDTI_96 = 11,
    EPC_SCHEME_GDTI_113 = 12,
    EPC_SCHEME_GDTI_174 = 13,
    EPC_SCHEME_CPI_96 = 14,
    EPC_SCHEME_CPI_VAR = 15,
    EPC_SCHEME_SGCN_96 = 16,
    EPC_SCHEME_GID_96 = 17,
    EPC_SCHEME_USDOD_96 = 18,
    EPC_SCHEME_ADI_VAR = 19,
    EPC_SCHEME_ITIP_110 = 20,
    EPC_SCHEME_ITIP_212 = 21,
    EPC_SCHEME_CPI_PLUS = 22,
    EPC_SCHEME_GRAI_PLUS = 23,
    EPC_SCHEME_SGLN_PLUS = 24,
    EPC_SCHEME_ITIP_PLUS = 25,
    EPC_SCHEME_GSRN_PLUS = 26,
    EPC_SCHEME_GSRNP_PLUS = 27,
    EPC_SCHEME_GDTI_PLUS = 28,
    EPC_SCHEME_SGTIN_PLUS = 29,
    EPC_SCHEME_SGCN_PLUS = 30,
    EPC_SCHEME_SSCC_PLUS = 31,
    EPC_SCHEME_GIAI_PLUS = 32,
    EPC_SCHEME_DSGTIN_PLUS = 33
};
#define EPC_SCHEME_COUNT 34

enum {
    AI_ENC_AUTO = -1,
    AI_ENC_INTEGER = 0,
    AI_ENC_HEX_UPPER = 1,
    AI_ENC_HEX_LOWER = 2,
    AI_ENC_BASE64URL = 3,
    AI_ENC_ISO646 = 4,
    AI_ENC_CODE40 = 5
};

typedef struct TidBlockInfo {
    uint8_t maxBlockSize;
    uint8_t variableSize;
    uint8_t epcAddressOffset;
    uint8_t noEpcAlignment;
    uint8_t userAddressOffset;
    uint8_t noUserAlignment;
} TidBlockInfo;

typedef struct TidRecord {
    uint16_t mdid;
    uint16_t tmid;
    uint8_t serialBits;
    char serial[37];
    uint8_t hasOptionalCommands;
    uint8_t maxEpcSize;
    uint8_t recomSupport;
    uint8_t accessSupport;
    uint8_t separateLockbits;
    uint8_t autoUmiSupport;
    uint8_t pjmSupport;
    uint8_t blockWriteSupported;
    uint8_t blockEraseSupported;
    uint8_t blockPermaLockSupported;
    uint16_t blockPermaLockBlockSize;
    uint16_t userMemorySize;
    TidBlockInfo blockErase;
    TidBlockInfo blockWrite;
} TidRecord;

/* ---- Scheme names ---- */

ROSETAG_EXPORT EpcStatus epc_tagSchemeEnumToName(EpcScheme scheme, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_tagSchemeNameToEnum(const char* name, EpcScheme* outScheme);
ROSETAG_EXPORT EpcStatus epc_binaryToTagSchemeName(int32_t bits, const uint8_t* binary,
                                                   int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToTagSchemeName(const char* hex, int32_t dstSize, char* dst);

/* ---- EPC binary to text ---- */

ROSETAG_EXPORT EpcStatus epc_binaryToEpcTagUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                               char* dst);
ROSETAG_EXPORT EpcStatus epc_binaryToEpcUri(int32_t bits, const uint8_t* binary, int32_t dstSize,
                                            char* dst);
ROSETAG_EXPORT EpcStatus epc_binaryToGs1ElementString(int32_t bits, const uint8_t* binary,
                                                      int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_binaryToBarcodeString(int32_t bits, const uint8_t* binary,
                                                   int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_binaryToDigitalLink(int32_t bits, const uint8_t* binary,
                                                 int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_binaryToAIs(int32_t bits, const uint8_t* binary, int32_t maxAIs,
                                         uint32_t valueSize, char* aiCodes, char* aiValues,
                                         uint32_t* aiCount);
ROSETAG_EXPORT EpcStatus epc_hexToEpcTagUri(const char* hex, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToEpcUri(const char* hex, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToGs1ElementString(const char* hex, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToBarcodeString(const char* hex, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToDigitalLink(const char* hex, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexToAIs(const char* hex, int32_t maxAIs, uint32_t valueSize,
                                      char* aiCodes, char* aiValues, uint32_t* aiCount);
ROSETAG_EXPORT EpcStatus epc_wordsToEpcTagUri(int32_t bits, const uint16_t* words, int32_t dstSize,
                                              char* dst);
ROSETAG_EXPORT EpcStatus epc_wordsToEpcUri(int32_t bits, const uint16_t* words, int32_t dstSize,
                                           char* dst);
ROSETAG_EXPORT EpcStatus epc_wordsToGs1ElementString(int32_t bits, const uint16_t* words,
                                                     int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_wordsToBarcodeString(int32_t bits, const uint16_t* words,
                                                  int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_wordsToDigitalLink(int32_t bits, const uint16_t* words,
                                                int32_t dstSize, char* dst);

/* ---- EPC URIs to binary ---- */

ROSETAG_EXPORT EpcStatus epc_epcTagUriToBinary(const char* text, int32_t maxBytes, uint8_t* out,
                                               int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_epcTagUriToHex(const char* text, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_epcTagUriToWords(const char* text, int32_t maxWords,
                                              uint16_t* outWords, int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_epcUriToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                            int32_t maxBytes, uint8_t* out, int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_epcUriToHex(const char* text, EpcScheme scheme, int32_t filter,
                                         int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_epcUriToWords(const char* text, EpcScheme scheme, int32_t filter,
                                           int32_t maxWords, uint16_t* outWords,
                                           int32_t* outWordCount);

/* ---- GS1 text to binary ---- */

ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinary(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t maxBytes, uint8_t* out,
                                                   int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToBinaryEnc(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t encoding, int32_t maxBytes,
                                                      uint8_t* out, int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToHex(const char* text, EpcScheme scheme, int32_t filter,
                                                int32_t gcpLength, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToHexEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToWords(const char* text, EpcScheme scheme,
                                                  int32_t filter, int32_t gcpLength,
                                                  int32_t maxWords, uint16_t* outWords,
                                                  int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToWordsEnc(const char* text, EpcScheme scheme,
                                                     int32_t filter, int32_t gcpLength,
                                                     int32_t encoding, int32_t maxWords,
                                                     uint16_t* outWords, int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinary(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t maxBytes, uint8_t* out,
                                                 int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToBinaryEnc(const char* text, EpcScheme scheme,
                                                    int32_t filter, int32_t gcpLength,
                                                    int32_t encoding, int32_t maxBytes,
                                                    uint8_t* out, int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToHex(const char* text, EpcScheme scheme, int32_t filter,
                                              int32_t gcpLength, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToHexEnc(const char* text, EpcScheme scheme, int32_t filter,
                                                 int32_t gcpLength, int32_t encoding,
                                                 int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToWords(const char* text, EpcScheme scheme, int32_t filter,
                                                int32_t gcpLength, int32_t maxWords,
                                                uint16_t* outWords, int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToWordsEnc(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t encoding, int32_t maxWords,
                                                   uint16_t* outWords, int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToBinary(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t maxBytes, uint8_t* out,
                                                      int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToBinaryEnc(const char* text, EpcScheme scheme,
                                                         int32_t filter, int32_t gcpLength,
                                                         int32_t encoding, int32_t maxBytes,
                                                         uint8_t* out, int32_t* outBytes);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToHex(const char* text, EpcScheme scheme,
                                                   int32_t filter, int32_t gcpLength,
                                                   int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToHexEnc(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t encoding, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToWords(const char* text, EpcScheme scheme,
                                                     int32_t filter, int32_t gcpLength,
                                                     int32_t maxWords, uint16_t* outWords,
                                                     int32_t* outWordCount);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToWordsEnc(const char* text, EpcScheme scheme,
                                                        int32_t filter, int32_t gcpLength,
                                                        int32_t encoding, int32_t maxWords,
                                                        uint16_t* outWords, int32_t* outWordCount);

/* ---- Text to text ---- */

ROSETAG_EXPORT EpcStatus epc_barcodeStringToAIs(const char* text, int32_t separator, int32_t maxAIs,
                                                uint32_t valueSize, char* aiCodes, char* aiValues,
                                                uint32_t* aiCount);
ROSETAG_EXPORT EpcStatus epc_barcodeStringToEpcTagUri(const char* text, EpcScheme scheme,
                                                      int32_t filter, int32_t gcpLength,
                                                      int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToAIs(const char* text, int32_t maxAIs, uint32_t valueSize,
                                              char* aiCodes, char* aiValues, uint32_t* aiCount);
ROSETAG_EXPORT EpcStatus epc_digitalLinkToGs1ElementString(const char* text, int32_t dstSize,
                                                           char* dst);
ROSETAG_EXPORT EpcStatus epc_epcTagUriToBarcodeString(const char* text, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_epcTagUriToDigitalLink(const char* text, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_epcTagUriToGs1ElementString(const char* text, int32_t dstSize,
                                                         char* dst);
ROSETAG_EXPORT EpcStatus epc_epcUriToBarcodeString(const char* text, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_epcUriToGs1ElementString(const char* text, int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToAIs(const char* text, int32_t maxAIs,
                                                   uint32_t valueSize, char* aiCodes,
                                                   char* aiValues, uint32_t* aiCount);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToDigitalLink(const char* text, int32_t dstSize,
                                                           char* dst);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcTagUri(const char* text, EpcScheme scheme,
                                                         int32_t filter, int32_t gcpLength,
                                                         int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_gs1ElementStringToEpcUri(const char* text, int32_t gcpLength,
                                                      int32_t dstSize, char* dst);

/* ---- Single AI values ---- */

ROSETAG_EXPORT EpcStatus epc_AIToBinary(const char* ai, const char* value, int32_t withCode,
                                        int32_t maxBytes, uint8_t* out, int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_AIToBinaryEnc(const char* ai, const char* value, int32_t withCode,
                                           int32_t encoding, int32_t maxBytes, uint8_t* out,
                                           int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_AIToHex(const char* ai, const char* value, int32_t withCode,
                                     int32_t dstSize, char* dst, int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_AIToHexEnc(const char* ai, const char* value, int32_t withCode,
                                        int32_t encoding, int32_t dstSize, char* dst,
                                        int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_AIToWords(const char* ai, const char* value, int32_t withCode,
                                       int32_t maxWords, uint16_t* outWords, int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_AIToWordsEnc(const char* ai, const char* value, int32_t withCode,
                                          int32_t encoding, int32_t maxWords, uint16_t* outWords,
                                          int32_t* outBits);
ROSETAG_EXPORT EpcStatus epc_binaryValueToAI(int32_t bits, const uint8_t* binary, const char* ai,
                                             int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_hexValueToAI(const char* hex, const char* ai, int32_t dstSize,
                                          char* dst);
ROSETAG_EXPORT EpcStatus epc_wordsValueToAI(int32_t bits, const uint16_t* words, const char* ai,
                                            int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_plusAidcBinaryToAI(int32_t bits, const uint8_t* binary, char* aiOut,
                                                int32_t dstSize, char* dst);
ROSETAG_EXPORT EpcStatus epc_plusAidcHexToAI(const char* hex, char* aiOut, int32_t dstSize,
                                             char* dst);
ROSETAG_EXPORT EpcStatus epc_plusAidcWordsToAI(int32_t bits, const uint16_t* words, char* aiOut,
                                               int32_t dstSize, char* dst);

/* ---- TID ---- */

ROSETAG_EXPORT EpcStatus tid_binaryDecode(int32_t bits, const uint8_t* binary, TidRecord* record);
ROSETAG_EXPORT EpcStatus tid_binaryToComponents(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                                uint16_t* tmid, uint8_t* serialBits,
                                                uint32_t serialSize, char* serial);
ROSETAG_EXPORT EpcStatus tid_binaryToXtid(int32_t bits, const uint8_t* binary, uint16_t* mdid,
                                          uint16_t* tmid, uint8_t* serialBits, uint32_t serialSize,
                                          char* serial, uint8_t* maxEpcSize,
                                          uint8_t* optionalCommands, uint8_t* blockWrite,
                                          uint8_t* blockErase, uint16_t* userMemorySize,
                                          uint16_t* blockPermaLockBlockSize);
ROSETAG_EXPORT EpcStatus tid_wordsDecode(int32_t bits, const uint16_t* words, TidRecord* record);
ROSETAG_EXPORT EpcStatus tid_wordsToComponents(int32_t bits, const uint16_t* words, uint16_t* mdid,
                                               uint16_t* tmid, uint8_t* serialBits,
                                               uint32_t serialSize, char* serial);
ROSETAG_EXPORT EpcStatus tid_wordsToXtid(int32_t bits, const uint16_t* words, uint16_t* mdid,
                                         uint16_t* tmid, uint8_t* serialBits, uint32_t serialSize,
                                         char* serial, uint8_t* maxEpcSize,
                                         uint8_t* optionalCommands, uint8_t* blockWrite,
                                         uint8_t* blockErase, uint16_t* userMemorySize,
                                         uint16_t* blockPermaLockBlockSize);

/* ---- Statuses in words ---- */

/* Tells the name of a status, for example "EPC_ERR_NO_ROOM"; "unknown" if there is none. */
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

/* Tells in plain words what a status means; "unknown status" if there is none. */
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
