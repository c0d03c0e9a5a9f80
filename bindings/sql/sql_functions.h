/*
 * What the SQL functions of all engines have in common: their names, and what they give for a
 * value. An engine brings its values here and takes results from here; it knows nothing about EPCs.
 */
#ifndef ROSETAG_BINDINGS_SQL_SQL_FUNCTIONS_H
#define ROSETAG_BINDINGS_SQL_SQL_FUNCTIONS_H

#include "rosetag/toolkit.hpp"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace rosetag {

// A value that is not null, where the engine has it.
struct SqlValue {
    std::string_view bytes;
    bool isBinary = false; // the bits of a tag rather than a text
};

// Room for the work of a call, kept for the next. It holds the texts that are returned.
struct SqlRoom {
    Translation item;
    Tid tid;
    std::string text;
};

// A text that a function gives; none is NULL, and so is an empty one.
using SqlTextWork = std::string_view (*)(SqlRoom& room, const SqlValue& value);

// A number that a function gives; none is NULL.
using SqlNumberWork = std::optional<int> (*)(SqlRoom& room, const SqlValue& value);

struct SqlTextFunction {
    const char* name;
    SqlTextWork work;
};

struct SqlNumberFunction {
    const char* name;
    SqlNumberWork work;
};

std::string_view sqlScheme(SqlRoom& room, const SqlValue& value);
std::string_view sqlStatus(SqlRoom& room, const SqlValue& value);
std::string_view sqlForm(SqlRoom& room, const SqlValue& value, Form form);
std::string_view sqlAi(SqlRoom& room, const SqlValue& value, std::string_view ai);
std::string_view sqlTidSerial(SqlRoom& room, const SqlValue& value);
std::optional<int> sqlFilter(SqlRoom& room, const SqlValue& value);
std::optional<int> sqlTidDesigner(SqlRoom& room, const SqlValue& value);
std::optional<int> sqlTidModel(SqlRoom& room, const SqlValue& value);

template <Form form>
std::string_view sqlForm(SqlRoom& room, const SqlValue& value) {
    return sqlForm(room, value, form);
}

inline std::string_view sqlSscc(SqlRoom& room, const SqlValue& value) {
    return sqlAi(room, value, "00");
}

inline std::string_view sqlGln(SqlRoom& room, const SqlValue& value) {
    return sqlAi(room, value, "414");
}

// clang-format off
inline constexpr SqlTextFunction sqlTextFunctions[] = {
    {"epc_scheme",         sqlScheme},
    {"epc_tag_uri",        sqlForm<Form::TAG_URI>},
    {"epc_pure_identity",  sqlForm<Form::PURE_IDENTITY>},
    {"epc_element_string", sqlForm<Form::ELEMENT_STRING>},
    {"epc_barcode_string", sqlForm<Form::BARCODE_STRING>},
    {"epc_digital_link",   sqlForm<Form::DIGITAL_LINK>},
    {"epc_hex",            sqlForm<Form::HEX>},
    {"epc_gtin",           sqlForm<Form::GTIN>},
    {"epc_sscc",           sqlSscc},
    {"epc_gln",            sqlGln},
    {"epc_serial",         sqlForm<Form::SERIAL>},
    {"epc_status",         sqlStatus},
    {"tid_serial",         sqlTidSerial},
};

inline constexpr SqlNumberFunction sqlNumberFunctions[] = {
    {"epc_filter",         sqlFilter},
    {"tid_designer",       sqlTidDesigner},
    {"tid_model",          sqlTidModel},
};

// What epc_decode gives: the scheme, the filter, and these forms. Each is what the function of that
// name gives.
struct SqlDecodeForm {
    const char* name;
    Form form;
};

inline constexpr SqlDecodeForm sqlDecodeForms[] = {
    {"tag_uri",        Form::TAG_URI},
    {"pure_identity",  Form::PURE_IDENTITY},
    {"element_string", Form::ELEMENT_STRING},
    {"barcode_string", Form::BARCODE_STRING},
    {"digital_link",   Form::DIGITAL_LINK},
    {"hex",            Form::HEX},
    {"gtin",           Form::GTIN},
    {"serial",         Form::SERIAL},
};
// clang-format on

constexpr FormSet sqlDecodeFormSet() {
    FormSet forms;
    for (const SqlDecodeForm& row : sqlDecodeForms) {
        forms = forms | row.form;
    }
    return forms;
}

// Translates a value into room.item. False: it cannot be decoded.
bool sqlTranslate(SqlRoom& room, const SqlValue& value, FormSet wanted);

// Reads a TID memory into room.tid. False: it is not one.
bool sqlTid(SqlRoom& room, const SqlValue& value);

// Why epc_check refuses a value, as a sentence; empty: it does not.
std::string_view sqlRefusal(SqlRoom& room, const SqlValue& value);

// What is wrong with the AI that epc_ai is asked for, as a sentence; empty: nothing.
std::string sqlAiFault(std::string_view ai);

// The arguments of epc_encode besides the text; none is NULL.
struct SqlEncodeArguments {
    std::string_view scheme;
    std::optional<std::int64_t> filter = 0;
    std::optional<std::int64_t> gcpLength;
};

// Reads the arguments. What is wrong with them, as a sentence; empty: nothing.
std::string sqlReadEncodeArguments(const SqlEncodeArguments& arguments, EncodeOptions& options);

// The hex of epc_encode; empty is NULL.
std::string_view sqlEncode(SqlRoom& room, const SqlValue& value, const EncodeOptions& options);

// The bytes of hex, in room.text.
std::string_view sqlBytesOfHex(SqlRoom& room, std::string_view hex);

// The results of epc_decode and tid_decode as JSON, in room.text; empty is NULL.
std::string_view sqlDecodeJson(SqlRoom& room, const SqlValue& value);
std::string_view sqlTidJson(SqlRoom& room, const SqlValue& value);

} // namespace rosetag

#endif
