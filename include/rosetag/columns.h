/**
 * @file
 * Columns of values: the toolkit over arrays in the memory layout of Apache Arrow.
 *
 * One call converts a whole array. Values are read in place from the caller's buffers; each form
 * that is asked for becomes a column, beside a column with the status of each row. A row
 * that fails is null in all columns but the status; a null stays null, its status too. One bad row
 * never ends a call. With a column of texts, of the type valuesType:
 *
 *     const char* const outputs[] = {"element_string", "status"};
 *     struct ArrowSchema type;
 *     struct ArrowArray rows;
 *     char error[ROSETAG_COLUMNS_ERROR_SIZE];
 *     int32_t result =
 *         rosetag_columnsDecode(&valuesType, &values, outputs, 2, NULL, &type, &rows, error);
 *     // result is ROSETAG_COLUMNS_OK
 *     // rows.n_children is 2
 *     rows.release(&rows);
 *     type.release(&type);
 *
 * What follows holds for every function.
 *
 * Arrays cross the boundary by the Arrow C data interface. Input arrays stay the caller's: they are
 * read during the call, not released and not kept. They may be utf8, large_utf8, utf8_view (texts
 * in any form that rosetag::recognise knows), binary, large_binary, binary_view, fixed-size binary
 * (the bytes of tag values), dictionaries of these, the null type, and a table (a struct) whose
 * only column is one of these; with any offset and with or without a validity buffer. The result is
 * a struct array of the same length, with one child for each output in the order in which they were
 * asked for; the caller releases it. Its texts are utf8, or large_utf8 where the input has 64-bit
 * offsets.
 *
 * Room is reserved for the whole array and grows rarely; no row allocates memory of its own. Only
 * the words of "message" and "findings" do, and what rosetag_columnsCheck finds.
 *
 * The functions return 0, or a code other than 0: then nothing is to be released, and error holds a
 * sentence. They keep no state, and any number of threads may call them.
 *
 * Source: The Arrow C data interface; Arrow Columnar Format.
 */
#ifndef ROSETAG_COLUMNS_H
#define ROSETAG_COLUMNS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#ifndef ARROW_C_DATA_INTERFACE
#define ARROW_C_DATA_INTERFACE

#define ARROW_FLAG_DICTIONARY_ORDERED 1
#define ARROW_FLAG_NULLABLE 2
#define ARROW_FLAG_MAP_KEYS_SORTED 4

// The names are those of the interface. NOLINTBEGIN(readability-identifier-naming)
struct ArrowSchema {
    const char* format;
    const char* name;
    const char* metadata;
    int64_t flags;
    int64_t n_children;
    struct ArrowSchema** children;
    struct ArrowSchema* dictionary;
    void (*release)(struct ArrowSchema*);
    void* private_data;
};

struct ArrowArray {
    int64_t length;
    int64_t null_count;
    int64_t offset;
    int64_t n_buffers;
    int64_t n_children;
    const void** buffers;
    struct ArrowArray** children;
    struct ArrowArray* dictionary;
    void (*release)(struct ArrowArray*);
    void* private_data;
};
// NOLINTEND(readability-identifier-naming)

#endif

/** Room for any sentence in error, including its NUL. */
#define ROSETAG_COLUMNS_ERROR_SIZE 256

/** The outcome of a call. */
enum RosetagColumnsResult {
    ROSETAG_COLUMNS_OK = 0,
    ROSETAG_COLUMNS_BAD_TYPE = 1,   /**< An array is of a type that is not accepted. */
    ROSETAG_COLUMNS_BAD_ARRAY = 2,  /**< An array contradicts its type, or another's length. */
    ROSETAG_COLUMNS_BAD_OUTPUT = 3, /**< An output that does not exist, or none. */
    ROSETAG_COLUMNS_BAD_OPTION = 4, /**< An option, such as a scheme that does not exist. */
    ROSETAG_COLUMNS_TOO_LARGE = 5, /**< A column of more than 2^31 - 1 bytes with 32-bit offsets. */
    ROSETAG_COLUMNS_NO_MEMORY = 6
};

/** An argument that is one value for all rows, or a column with one for each row. */
struct RosetagColumn {
    const struct ArrowSchema* type; /**< Null: there is no such column. */
    const struct ArrowArray* values;
};

/** Which words of a tag's EPC memory bank hex and bytes begin with. */
enum RosetagColumnsBank {
    ROSETAG_COLUMNS_BANK_AUTO = 0,  /**< Find out. */
    ROSETAG_COLUMNS_BANK_EPC = 1,   /**< The EPC. */
    ROSETAG_COLUMNS_BANK_PC = 2,    /**< The PC word, then the EPC. */
    ROSETAG_COLUMNS_BANK_CRC_PC = 3 /**< The CRC and the PC word, then the EPC. */
};

/** How rows are read; all members 0 is the usual way. */
struct RosetagColumnsReadOptions {
    int32_t asBarcode;               /**< 1: digits without any mark are a barcode string. */
    int32_t strict;                  /**< 1: links are taken as they are. */
    int32_t gcpLength;               /**< Digits of the company prefix, 6 to 12; 0: not known. */
    struct RosetagColumn gcpLengths; /**< The same for each row, integers; null: as gcpLength. */
    int32_t bank;                    /**< ROSETAG_COLUMNS_BANK_...: where hex begins. */
    int32_t separator;   /**< An ASCII character that stands for GS in barcode strings; 0: none. */
    const void* gcpList; /**< A rosetag::GcpList, which gives the length where gcpLength does not;
                              may be null. */
};

/**
 * Translates a column of values.
 *
 *     type, values   the column.
 *     outputs        what to make of each row, outputCount words: "hex", "tag_uri",
 *                    "pure_identity", "element_string", "barcode_string", "digital_link", "gtin",
 *                    "serial", "scheme" (text), "bytes" (binary), "filter" (int8), "status"
 *                    (uint8, an EpcStatus), "status_name" (text), "message" (text, null where the
 *                    row did not fail), or "ai_" and the code of an AI: "ai_10".
 *     options        how to read; may be null.
 *     outType, out   receive the result.
 *     error          receives a sentence, ROSETAG_COLUMNS_ERROR_SIZE characters.
 */
int32_t rosetag_columnsDecode(const struct ArrowSchema* type, const struct ArrowArray* values,
                              const char* const* outputs, int32_t outputCount,
                              const struct RosetagColumnsReadOptions* options,
                              struct ArrowSchema* outType, struct ArrowArray* out, char* error);

/**
 * Checks a column of values: finds what is not as GS1 demands, as rosetag::check does. Like
 * rosetag_columnsDecode, but a row with errors has its outputs too. These are: "is_valid" (bool,
 * true where there is no error), "status" and "status_name" (of the first error: why a tag value
 * cannot be read, EPC_ERR_CHECK_DIGIT, or EPC_ERR_BAD_FORMAT; without one EPC_OK), "severity"
 * (text, "error" or "warning", that of the worst finding), "errors" and "warnings" (int32, how many
 * there are), "rule" and "message" (text, those of the first finding of that severity), "findings"
 * (text, all of them as a JSON array). severity, rule and message are null where nothing was found.
 */
int32_t rosetag_columnsCheck(const struct ArrowSchema* type, const struct ArrowArray* values,
                             const char* const* outputs, int32_t outputCount,
                             const struct RosetagColumnsReadOptions* options,
                             struct ArrowSchema* outType, struct ArrowArray* out, char* error);

/** What the rows of a column become; each a value for all, or a column. */
struct RosetagColumnsEncodeOptions {
    struct RosetagColumnsReadOptions read;
    const char* scheme;           /**< "sgtin-96"; null: tag values keep their own. */
    struct RosetagColumn schemes; /**< The same for each row, texts. */
    int32_t filter;               /**< -1: that of a tag value, otherwise 0. */
    struct RosetagColumn filters; /**< The same for each row, integers. */
    int32_t encoding;             /**< AI_ENC_AUTO, or the encoding for texts of plus schemes. */
};

/**
 * Encodes a column of values as tag values. Like rosetag_columnsDecode, but outputs are those of
 * the tag value: "hex" or "bytes" as a rule.
 */
int32_t rosetag_columnsEncode(const struct ArrowSchema* type, const struct ArrowArray* values,
                              const char* const* outputs, int32_t outputCount,
                              const struct RosetagColumnsEncodeOptions* options,
                              struct ArrowSchema* outType, struct ArrowArray* out, char* error);

/**
 * Reads a column of TID memories. Outputs: "designer" (uint16, the MDID), "model" (uint16, the
 * TMN), "xtid", "security", "file" (bool), "serial" (text), "serial_bits" (uint8), "status",
 * "status_name", "message".
 */
int32_t rosetag_columnsTid(const struct ArrowSchema* type, const struct ArrowArray* values,
                           const char* const* outputs, int32_t outputCount,
                           struct ArrowSchema* outType, struct ArrowArray* out, char* error);

#ifdef __cplusplus
}
#endif

#endif
