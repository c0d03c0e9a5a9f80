/*
 * The functions of the extension as PostgreSQL calls them: values come out of its datums, results
 * go into them. What they are is worked out in rosetag_core.
 */
#include "rosetag_core.h"

#include <postgres.h>

#include <access/detoast.h>
#include <access/htup_details.h>
#include <catalog/namespace.h>
#include <fmgr.h>
#include <funcapi.h>
#include <mb/pg_wchar.h>
#include <miscadmin.h>
#include <utils/tuplestore.h>

PG_MODULE_MAGIC;

/*
 * ---- Character sets ----
 */

static bool isAscii(struct RosetagText text) {
    uint64 bits = 0;
    uint64 eight;
    size_t i = 0;
    for (; i + sizeof eight <= text.size; i += sizeof eight) {
        memcpy(&eight, text.data + i, sizeof eight);
        bits |= eight;
    }
    if (i > 0) { /* what is left, with some of what was seen */
        memcpy(&eight, text.data + text.size - sizeof eight, sizeof eight);
        bits |= eight;
        i = text.size;
    }
    for (; i < text.size; ++i) {
        bits |= (uint64)(unsigned char)text.data[i];
    }
    return (bits & UINT64CONST(0x8080808080808080)) == 0;
}

/* False if a character has no counterpart; then converted is not written. */
static bool convertCharacters(struct RosetagText text, int from, int to,
                              struct RosetagText* converted) {
    const Oid conversion = FindDefaultConversionProc(from, to);
    const Size room = text.size * MAX_CONVERSION_GROWTH + 1;
    if (!OidIsValid(conversion)) {
        return false;
    }
    char* const result = palloc(room);
    const int read = pg_do_encoding_conversion_buf(conversion, from, to, (unsigned char*)text.data,
                                                   text.size, (unsigned char*)result, room, true);
    if ((size_t)read < text.size) {
        return false;
    }
    converted->data = result;
    converted->size = strlen(result);
    return true;
}

/* A text of the database in UTF-8, unchanged if it cannot be converted. */
static struct RosetagText utf8Of(struct RosetagText text) {
    static int encoding = -1; /* that of a session's database never changes */
    if (encoding < 0) {
        encoding = GetDatabaseEncoding();
    }
    if (encoding != PG_UTF8 && encoding != PG_SQL_ASCII && text.size <= rosetagLongestValue() &&
        !isAscii(text)) {
        (void)convertCharacters(text, encoding, PG_UTF8, &text);
    }
    return text;
}

/* A result in the encoding of the database. False: it cannot be written in that. */
static bool serverTextOf(struct RosetagText* text) {
    if (isAscii(*text)) {
        return true;
    }
    const int encoding = GetDatabaseEncoding();
    if (encoding == PG_SQL_ASCII) {
        return true;
    }
    if (!pg_verify_mbstr(PG_UTF8, text->data, (int)text->size, true)) {
        return false;
    }
    return encoding == PG_UTF8 || convertCharacters(*text, PG_UTF8, encoding, text);
}

/* A sentence for a message: what cannot be written is spelled. */
static char* sentenceOf(struct RosetagText text) {
    if (serverTextOf(&text)) {
        return pnstrdup(text.data, text.size);
    }
    StringInfoData spelled;
    initStringInfo(&spelled);
    for (size_t i = 0; i < text.size; ++i) {
        const unsigned char byte = (unsigned char)text.data[i];
        if (byte < 0x80) {
            appendStringInfoChar(&spelled, (char)byte);
        } else {
            appendStringInfo(&spelled, "\\x%02X", byte);
        }
    }
    return spelled.data;
}

/*
 * ---- Values that come in ----
 */

/*
 * Only enough of a stored value is fetched to see that it is too long: it may have a gigabyte,
 * compressed or in another file.
 */
static struct varlena* fetch(Datum datum) {
    struct varlena* const given = (struct varlena*)DatumGetPointer(datum);
    if (!VARATT_IS_COMPRESSED(given) && !VARATT_IS_EXTERNAL(given)) {
        return given;
    }
    const Size longest = rosetagLongestValue();
    return toast_raw_datum_size(datum) - VARHDRSZ > longest
               ? pg_detoast_datum_slice(given, 0, (int32)longest + 1)
               : pg_detoast_datum(given);
}

static struct RosetagText bytesOf(const struct varlena* stored) {
    return (struct RosetagText){VARDATA_ANY(stored), VARSIZE_ANY_EXHDR(stored)};
}

static struct RosetagValue valueOf(Datum datum, bool isBinary) {
    const struct RosetagText text = bytesOf(fetch(datum));
    return (struct RosetagValue){isBinary ? text : utf8Of(text), isBinary};
}

/*
 * ---- Results that go out ----
 */

/* False: the result is NULL. */
static bool isThere(enum RosetagOutcome outcome) {
    if (outcome == ROSETAG_NO_MEMORY) {
        ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory")));
    }
    if (outcome == ROSETAG_BROKEN) {
        elog(ERROR, "rosetag failed in a way that it does not know");
    }
    return outcome == ROSETAG_DONE;
}

static void refuseArgument(struct RosetagText sentence) {
    ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE), errmsg("%s", sentenceOf(sentence))));
}

static Datum bytesDatum(struct RosetagText bytes) {
    struct varlena* const stored = palloc(VARHDRSZ + bytes.size);
    SET_VARSIZE(stored, VARHDRSZ + bytes.size);
    memcpy(VARDATA(stored), bytes.data, bytes.size);
    return PointerGetDatum(stored);
}

static Datum textDatum(struct RosetagText text, bool* isNull) {
    *isNull = text.size == 0 || !serverTextOf(&text);
    return *isNull ? (Datum)0 : bytesDatum(text);
}

/* The row type of a function that gives rows, kept for the next call. */
static TupleDesc rowTypeOf(FunctionCallInfo fcinfo) {
    if (fcinfo->flinfo->fn_extra == NULL) {
        TupleDesc type;
        if (get_call_result_type(fcinfo, NULL, &type) != TYPEFUNC_COMPOSITE) {
            elog(ERROR, "this function returns a row");
        }
        const MemoryContext before = MemoryContextSwitchTo(fcinfo->flinfo->fn_mcxt);
        fcinfo->flinfo->fn_extra = BlessTupleDesc(CreateTupleDescCopy(type));
        MemoryContextSwitchTo(before);
    }
    return (TupleDesc)fcinfo->flinfo->fn_extra;
}

/*
 * ---- One text, one number ----
 */

static Datum giveText(FunctionCallInfo fcinfo, enum RosetagTextFunction function, bool isBinary) {
    struct RosetagText text;
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    if (!isThere(rosetagText(function, &value, &text))) {
        PG_RETURN_NULL();
    }
    return textDatum(text, &fcinfo->isnull);
}

static Datum giveNumber(FunctionCallInfo fcinfo, enum RosetagNumberFunction function,
                        bool isBinary) {
    int32_t number;
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    if (!isThere(rosetagNumber(function, &value, &number))) {
        PG_RETURN_NULL();
    }
    PG_RETURN_INT32(number);
}

/* Of text, and of bytea. */
#define FUNCTION_OF_BOTH(name, give, ...)                                                          \
    PG_FUNCTION_INFO_V1(name##_of_text);                                                           \
    Datum name##_of_text(PG_FUNCTION_ARGS) {                                                       \
        return give(fcinfo, __VA_ARGS__ false);                                                    \
    }                                                                                              \
    PG_FUNCTION_INFO_V1(name##_of_bytea);                                                          \
    Datum name##_of_bytea(PG_FUNCTION_ARGS) {                                                      \
        return give(fcinfo, __VA_ARGS__ true);                                                     \
    }

#define TEXT_FUNCTION(name) FUNCTION_OF_BOTH(name, giveText, ROSETAG_##name, )
#define NUMBER_FUNCTION(name) FUNCTION_OF_BOTH(name, giveNumber, ROSETAG_##name, )
ROSETAG_TEXT_FUNCTIONS(TEXT_FUNCTION)
ROSETAG_NUMBER_FUNCTIONS(NUMBER_FUNCTION)

static Datum giveAi(FunctionCallInfo fcinfo, bool isBinary) {
    struct RosetagText text;
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    const struct RosetagText ai = bytesOf(PG_GETARG_VARLENA_PP(1));
    const enum RosetagOutcome outcome = rosetagAi(&value, ai, &text);
    if (outcome == ROSETAG_BAD_ARGUMENT) {
        refuseArgument(text);
    }
    if (!isThere(outcome)) {
        PG_RETURN_NULL();
    }
    return textDatum(text, &fcinfo->isnull);
}

FUNCTION_OF_BOTH(epc_ai, giveAi)

/*
 * ---- Rows ----
 */

static Datum giveForms(FunctionCallInfo fcinfo, bool isBinary) {
    struct RosetagDecoded decoded;
    Datum values[2 + ROSETAG_DECODE_FORMS];
    bool nulls[2 + ROSETAG_DECODE_FORMS];
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    if (!isThere(rosetagDecode(&value, &decoded))) {
        PG_RETURN_NULL();
    }
    values[0] = textDatum(decoded.scheme, &nulls[0]);
    values[1] = Int32GetDatum(decoded.filter);
    nulls[1] = decoded.filter < 0;
    for (int i = 0; i < ROSETAG_DECODE_FORMS; ++i) {
        values[2 + i] = textDatum(decoded.forms[i], &nulls[2 + i]);
    }
    return HeapTupleGetDatum(heap_form_tuple(rowTypeOf(fcinfo), values, nulls));
}

FUNCTION_OF_BOTH(epc_decode, giveForms)

static Datum giveAis(FunctionCallInfo fcinfo, bool isBinary) {
    size_t count;
    InitMaterializedSRF(fcinfo, 0);
    const ReturnSetInfo* const result = (ReturnSetInfo*)fcinfo->resultinfo;
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    if (!isThere(rosetagAis(&value, &count))) {
        return (Datum)0;
    }
    for (size_t i = 0; i < count; ++i) {
        const struct RosetagAi row = rosetagAiRow(i);
        Datum values[3];
        bool nulls[3];
        CHECK_FOR_INTERRUPTS();
        values[0] = textDatum(row.ai, &nulls[0]);
        values[1] = textDatum(row.value, &nulls[1]);
        values[2] = textDatum(row.title, &nulls[2]);
        tuplestore_putvalues(result->setResult, result->setDesc, values, nulls);
    }
    return (Datum)0;
}

FUNCTION_OF_BOTH(epc_ais, giveAis)

static Datum giveTid(FunctionCallInfo fcinfo, bool isBinary) {
    struct RosetagTid tid;
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), isBinary);
    if (!isThere(rosetagTid(&value, &tid))) {
        PG_RETURN_NULL();
    }
    bool nulls[7] = {false};
    const Datum serial = textDatum(tid.serial, &nulls[5]);
    Datum values[] = {Int32GetDatum(tid.designer),  Int32GetDatum(tid.model),
                      BoolGetDatum(tid.xtid),       BoolGetDatum(tid.security),
                      BoolGetDatum(tid.file),       serial,
                      Int32GetDatum(tid.serialBits)};
    return HeapTupleGetDatum(heap_form_tuple(rowTypeOf(fcinfo), values, nulls));
}

FUNCTION_OF_BOTH(tid_decode, giveTid)

/*
 * ---- Check ----
 */

/* A hint is a sentence: with a full stop, and a capital letter unless it begins with a name. */
static char* hintOf(struct RosetagText text) {
    char* const sentence = sentenceOf(text);
    if (sentence[strspn(sentence, "abcdefghijklmnopqrstuvwxyz")] == ' ') {
        sentence[0] = (char)pg_toupper((unsigned char)sentence[0]);
    }
    return psprintf("%s.", sentence);
}

/* Characters before a position, which counts bytes; values of tags have none. */
static int characterAt(struct RosetagValue value, size_t position) {
    const struct RosetagText text = value.text;
    int count = 0;
    for (size_t i = 0; i < position && i < text.size; ++i) {
        const bool continues = ((unsigned char)text.data[i] & 0xC0) == 0x80;
        count += continues && GetDatabaseEncoding() != PG_SQL_ASCII ? 0 : 1;
    }
    return count + 1;
}

static char* placeOf(struct RosetagValue value, const struct RosetagFailure* failure) {
    if (value.isBinary) {
        return psprintf("%s in byte %zu.", failure->statusName, failure->position / 2 + 1);
    }
    return psprintf("%s at character %d.", failure->statusName,
                    characterAt(value, failure->position));
}

static Datum check(FunctionCallInfo fcinfo, bool isBinary) {
    struct RosetagFailure failure;
    /* All of a long value, so that the message has its length. */
    const struct RosetagText text = bytesOf(PG_GETARG_VARLENA_PP(0));
    const struct RosetagValue value = {isBinary ? text : utf8Of(text), isBinary};
    if (!isThere(rosetagCheck(&value, &failure))) {
        ereport(ERROR, (errcode(ERRCODE_INVALID_TEXT_REPRESENTATION),
                        errmsg("%s", sentenceOf(failure.message)),
                        errdetail("%s", placeOf(value, &failure)),
                        failure.remedy.size > 0 ? errhint("%s", hintOf(failure.remedy)) : 0));
    }
    PG_RETURN_DATUM(PG_GETARG_DATUM(0));
}

FUNCTION_OF_BOTH(epc_check, check)

/*
 * ---- Encode ----
 */

static Datum encode(FunctionCallInfo fcinfo, bool asBytes) {
    struct RosetagText result;
    if (PG_ARGISNULL(0) || PG_ARGISNULL(1)) {
        PG_RETURN_NULL();
    }
    const struct RosetagValue value = valueOf(PG_GETARG_DATUM(0), false);
    const int32_t filter = PG_ARGISNULL(2) ? 0 : PG_GETARG_INT32(2);
    const int32_t gcpLength = PG_ARGISNULL(3) ? 0 : PG_GETARG_INT32(3);
    const struct RosetagEncodeArguments arguments = {bytesOf(PG_GETARG_VARLENA_PP(1)),
                                                     PG_ARGISNULL(2) ? NULL : &filter,
                                                     PG_ARGISNULL(3) ? NULL : &gcpLength, asBytes};
    const enum RosetagOutcome outcome = rosetagEncode(value.text, &arguments, &result);
    if (outcome == ROSETAG_BAD_ARGUMENT) {
        refuseArgument(result);
    }
    if (!isThere(outcome)) {
        PG_RETURN_NULL();
    }
    return bytesDatum(result);
}

PG_FUNCTION_INFO_V1(epc_encode);
Datum epc_encode(PG_FUNCTION_ARGS) {
    return encode(fcinfo, false);
}

PG_FUNCTION_INFO_V1(epc_encode_bytes);
Datum epc_encode_bytes(PG_FUNCTION_ARGS) {
    return encode(fcinfo, true);
}

PG_FUNCTION_INFO_V1(rosetag_version);
Datum rosetag_version(PG_FUNCTION_ARGS) {
    return bytesDatum(rosetagVersion());
}
