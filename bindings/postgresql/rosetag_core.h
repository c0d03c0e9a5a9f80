/*
 * The C++ side of the extension. It knows nothing about PostgreSQL, and no exception leaves it; the
 * other side is C, so an error of PostgreSQL never jumps over an object with a destructor.
 *
 * Results are in room that the next call uses again.
 */
#ifndef ROSETAG_BINDINGS_POSTGRESQL_ROSETAG_CORE_H
#define ROSETAG_BINDINGS_POSTGRESQL_ROSETAG_CORE_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The functions that give one text, and those that give one number. */
/* clang-format off */
#define ROSETAG_TEXT_FUNCTIONS(FUNCTION) \
    FUNCTION(epc_scheme)                 \
    FUNCTION(epc_tag_uri)                \
    FUNCTION(epc_pure_identity)          \
    FUNCTION(epc_element_string)         \
    FUNCTION(epc_barcode_string)         \
    FUNCTION(epc_digital_link)           \
    FUNCTION(epc_hex)                    \
    FUNCTION(epc_gtin)                   \
    FUNCTION(epc_sscc)                   \
    FUNCTION(epc_gln)                    \
    FUNCTION(epc_serial)                 \
    FUNCTION(epc_status)                 \
    FUNCTION(tid_serial)

#define ROSETAG_NUMBER_FUNCTIONS(FUNCTION) \
    FUNCTION(epc_filter)                   \
    FUNCTION(tid_designer)                 \
    FUNCTION(tid_model)
/* clang-format on */

#define ROSETAG_FUNCTION_NUMBER(name) ROSETAG_##name,
enum RosetagTextFunction { ROSETAG_TEXT_FUNCTIONS(ROSETAG_FUNCTION_NUMBER) };
enum RosetagNumberFunction { ROSETAG_NUMBER_FUNCTIONS(ROSETAG_FUNCTION_NUMBER) };

/* Texts are UTF-8, or bytes of an unknown encoding. A text of size 0 is NULL. */
struct RosetagText {
    const char* data;
    size_t size;
};

struct RosetagValue {
    struct RosetagText text;
    bool isBinary; /* the bits of a tag rather than a text */
};

enum { ROSETAG_DECODE_FORMS = 8 };

/* The members of epc_decode in their order. */
struct RosetagDecoded {
    struct RosetagText scheme;
    int32_t filter; /* -1: NULL */
    struct RosetagText forms[ROSETAG_DECODE_FORMS];
};

struct RosetagAi {
    struct RosetagText ai;
    struct RosetagText value;
    struct RosetagText title;
};

struct RosetagTid {
    int32_t designer;
    int32_t model;
    bool xtid;
    bool security;
    bool file;
    struct RosetagText serial;
    int32_t serialBits;
};

struct RosetagFailure {
    const char* statusName;
    struct RosetagText message;
    struct RosetagText remedy;
    struct RosetagText culprit;
    size_t position; /* in bytes */
};

struct RosetagEncodeArguments {
    struct RosetagText scheme;
    const int32_t* filter;    /* null: NULL */
    const int32_t* gcpLength; /* null: NULL */
    bool asBytes;
};

/* The outcome of a call. */
enum RosetagOutcome {
    ROSETAG_DONE,
    ROSETAG_NULL,         /* The value cannot be decoded, or does not have what is asked for. */
    ROSETAG_BAD_ARGUMENT, /* Another argument makes no sense; the text is a sentence. */
    ROSETAG_NO_MEMORY,
    ROSETAG_BROKEN /* An exception that nobody expects. */
};

enum RosetagOutcome rosetagText(enum RosetagTextFunction function, const struct RosetagValue* value,
                                struct RosetagText* text);
enum RosetagOutcome rosetagNumber(enum RosetagNumberFunction function,
                                  const struct RosetagValue* value, int32_t* number);
enum RosetagOutcome rosetagAi(const struct RosetagValue* value, struct RosetagText ai,
                              struct RosetagText* text);
enum RosetagOutcome rosetagDecode(const struct RosetagValue* value, struct RosetagDecoded* decoded);

/* Gives the count of AIs; rosetagAiRow gives each until the next call of another function. */
enum RosetagOutcome rosetagAis(const struct RosetagValue* value, size_t* count);
struct RosetagAi rosetagAiRow(size_t index);

enum RosetagOutcome rosetagTid(const struct RosetagValue* value, struct RosetagTid* tid);

/* ROSETAG_NULL: the value cannot be decoded, and failure says why. */
enum RosetagOutcome rosetagCheck(const struct RosetagValue* value, struct RosetagFailure* failure);

enum RosetagOutcome rosetagEncode(struct RosetagText text,
                                  const struct RosetagEncodeArguments* arguments,
                                  struct RosetagText* result);

struct RosetagText rosetagVersion(void);

/* The longest value that is accepted, in bytes. */
size_t rosetagLongestValue(void);

#ifdef __cplusplus
}
#endif

#endif
