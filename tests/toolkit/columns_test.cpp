/*
 * Columns against single values: whatever the layout of an array, each row is what the toolkit says
 * of its value alone.
 */
#include "rosetag/columns.h"
#include "rosetag/toolkit.hpp"
#include "support/counted_allocations.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using Cell = std::optional<std::string>;
using Cells = std::vector<Cell>;

// An array of some layout, with the memory that it lies in. The rows follow three that are not part
// of it.
struct Array {
    static constexpr std::int64_t SKIPPED = 3;

    std::string format;
    std::vector<std::uint8_t> validity;
    std::string data;
    std::string rows; // offsets, views, numbers
    std::vector<const void*> buffers;
    ArrowSchema type{};
    ArrowArray values{};
    std::unique_ptr<Array> dictionary;
    std::vector<std::unique_ptr<Array>> columns; // of a table
    std::vector<ArrowSchema*> columnTypes;
    std::vector<ArrowArray*> columnValues;

    template <typename Number>
    void add(Number number) {
        rows.append(reinterpret_cast<const char*>(&number), sizeof number);
    }

    void finish(std::int64_t length) {
        type.format = format.c_str();
        type.name = "";
        values.length = length;
        values.offset = SKIPPED;
        values.null_count = -1;
        values.n_buffers = static_cast<std::int64_t>(buffers.size());
        values.buffers = buffers.data();
        if (dictionary != nullptr) {
            type.dictionary = &dictionary->type;
            values.dictionary = &dictionary->values;
        }
    }
};

Cells withSkipped(const Cells& cells) {
    Cells all(Array::SKIPPED, Cell("not part of it"));
    all.insert(all.end(), cells.begin(), cells.end());
    return all;
}

void addValidity(Array& array, const Cells& all) {
    array.validity.assign(all.size() / 8 + 1, 0);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].has_value()) {
            array.validity[i / 8] = static_cast<std::uint8_t>(array.validity[i / 8] | 1 << (i % 8));
        }
    }
}

template <typename Offset>
void addOffsets(Array& array, const Cells& all) {
    array.add(Offset{0});
    for (const Cell& cell : all) {
        array.data += cell.value_or("");
        array.add(static_cast<Offset>(array.data.size()));
    }
}

void addViews(Array& array, const Cells& all) {
    for (const Cell& cell : all) {
        const std::string text = cell.value_or("");
        std::string view(16, '\0');
        const auto length = static_cast<std::int32_t>(text.size());
        const auto offset = static_cast<std::int32_t>(array.data.size());
        std::memcpy(view.data(), &length, 4);
        if (text.size() <= 12) {
            text.copy(view.data() + 4, 12);
        } else {
            text.copy(view.data() + 4, 4);
            std::memcpy(view.data() + 12, &offset, 4);
            array.data += text;
        }
        array.rows += view;
    }
}

void addInteger(Array& array, std::size_t number) {
    switch (array.format.front()) {
    case 'c':
    case 'C':
        return array.add(static_cast<std::uint8_t>(number));
    case 's':
    case 'S':
        return array.add(static_cast<std::uint16_t>(number));
    case 'i':
    case 'I':
        return array.add(static_cast<std::uint32_t>(number));
    default:
        return array.add(static_cast<std::uint64_t>(number));
    }
}

// Calls itself once, for a dictionary.
// NOLINTNEXTLINE(misc-no-recursion)
std::unique_ptr<Array> arrayOf(const std::string& format, const Cells& cells) {
    auto array = std::make_unique<Array>();
    array->format = format;
    Cells all = withSkipped(cells);
    if (format == "n") {
        array->finish(static_cast<std::int64_t>(cells.size()));
        return array;
    }
    if (format.starts_with("dictionary:")) {
        array->format = format.back();
        array->dictionary = arrayOf("u", cells);
        for (std::size_t i = 0; i < all.size(); ++i) {
            addInteger(*array, i < Array::SKIPPED ? 0 : i - Array::SKIPPED);
        }
    } else if (format.starts_with("w:")) {
        for (const Cell& cell : all) {
            std::string bytes = cell.value_or("");
            bytes.resize(static_cast<std::size_t>(std::stoi(format.substr(2))));
            array->rows += bytes;
        }
    } else if (format == "vu" || format == "vz") {
        addViews(*array, all);
    } else if (format == "U" || format == "Z") {
        addOffsets<std::int64_t>(*array, all);
    } else {
        addOffsets<std::int32_t>(*array, all);
    }
    addValidity(*array, all);
    array->buffers = {array->validity.data(), array->rows.data()};
    if (array->dictionary == nullptr && !format.starts_with("w:")) {
        array->buffers.push_back(array->data.data());
    }
    if (format.starts_with('v')) {
        array->buffers.push_back(nullptr); // the lengths of the buffers
    }
    array->finish(static_cast<std::int64_t>(cells.size()));
    return array;
}

std::unique_ptr<Array> integersOf(const std::vector<std::optional<int>>& numbers) {
    auto array = std::make_unique<Array>();
    array->format = "i";
    Cells all(Array::SKIPPED, Cell(""));
    for (std::int64_t i = 0; i < Array::SKIPPED; ++i) {
        array->add(std::int32_t{99});
    }
    for (const std::optional<int> number : numbers) {
        array->add(std::int32_t{number.value_or(77)});
        all.push_back(number.has_value() ? Cell("") : Cell());
    }
    addValidity(*array, all);
    array->buffers = {array->validity.data(), array->rows.data()};
    array->finish(static_cast<std::int64_t>(numbers.size()));
    return array;
}

RosetagColumn columnOf(const Array& array) {
    return {&array.type, &array.values};
}

// A result as texts, numbers in decimal.
struct Result {
    std::int32_t code = 0;
    std::string error;
    std::string formats;
    std::vector<Cells> columns;
};

Cell cellOf(const ArrowSchema& type, const ArrowArray& column, std::int64_t row) {
    const auto* const validity = static_cast<const std::uint8_t*>(column.buffers[0]);
    if ((validity[row / 8] >> (row % 8) & 1) == 0) {
        return std::nullopt;
    }
    const auto text = [&](auto offsets) {
        const auto* const data = static_cast<const char*>(column.buffers[2]);
        return std::string(data + offsets[row], data + offsets[row + 1]);
    };
    switch (*type.format) {
    case 'u':
    case 'z':
        return text(static_cast<const std::int32_t*>(column.buffers[1]));
    case 'U':
    case 'Z':
        return text(static_cast<const std::int64_t*>(column.buffers[1]));
    case 'S':
        return std::to_string(static_cast<const std::uint16_t*>(column.buffers[1])[row]);
    case 'i':
        return std::to_string(static_cast<const std::int32_t*>(column.buffers[1])[row]);
    case 'b':
        return std::to_string(
            static_cast<const std::uint8_t*>(column.buffers[1])[row / 8] >> (row % 8) & 1);
    default:
        return std::to_string(static_cast<const std::uint8_t*>(column.buffers[1])[row]);
    }
}

// call: std::int32_t(ArrowSchema* type, ArrowArray* rows, char* error)
template <typename Call>
Result resultOf(Call call) {
    ArrowSchema type{};
    ArrowArray rows{};
    char error[ROSETAG_COLUMNS_ERROR_SIZE] = "";
    Result result;
    result.code = call(&type, &rows, error);
    result.error = error;
    if (result.code != 0) {
        EXPECT_EQ(nullptr, type.release);
        EXPECT_EQ(nullptr, rows.release);
        return result;
    }
    EXPECT_EQ(type.n_children, rows.n_children);
    for (std::int64_t i = 0; i < rows.n_children; ++i) {
        Cells& cells = result.columns.emplace_back();
        std::int64_t nulls = 0;
        for (std::int64_t row = 0; row < rows.length; ++row) {
            cells.push_back(cellOf(*type.children[i], *rows.children[i], row));
            nulls += cells.back().has_value() ? 0 : 1;
        }
        EXPECT_EQ(nulls, rows.children[i]->null_count);
        result.formats += type.children[i]->format;
    }
    rows.release(&rows);
    type.release(&type);
    return result;
}

Result decode(const Array& array, const std::vector<const char*>& outputs,
              const RosetagColumnsReadOptions* options = nullptr) {
    return resultOf([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsDecode(&array.type, &array.values, outputs.data(),
                                     static_cast<std::int32_t>(outputs.size()), options, type, rows,
                                     error);
    });
}

Result check(const Array& array, const std::vector<const char*>& outputs) {
    return resultOf([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsCheck(&array.type, &array.values, outputs.data(),
                                    static_cast<std::int32_t>(outputs.size()), nullptr, type, rows,
                                    error);
    });
}

Result encode(const Array& array, const RosetagColumnsEncodeOptions& options,
              const std::vector<const char*>& outputs = {"hex", "status"}) {
    return resultOf([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsEncode(&array.type, &array.values, outputs.data(),
                                     static_cast<std::int32_t>(outputs.size()), &options, type,
                                     rows, error);
    });
}

const std::vector<const char*> ALL_OUTPUTS = {
    "hex",          "tag_uri", "pure_identity", "element_string", "barcode_string",
    "digital_link", "gtin",    "serial",        "scheme",         "filter",
    "bytes",        "ai_10",   "status",        "message"};

std::string bytesOf(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    }
    return bytes;
}

// What the columns of ALL_OUTPUTS hold of one value.
Cells expectedRow(const Cell& cell, const rosetag::ReadOptions& options) {
    if (!cell.has_value()) {
        return Cells(ALL_OUTPUTS.size());
    }
    const rosetag::Translation item = rosetag::translate(*cell, options);
    const bool isGood = !rosetag::isFailure(item.failure);
    Cells row;
    const auto add = [&](std::string_view text) {
        row.push_back(isGood && !text.empty() ? Cell(text) : Cell());
    };
    for (std::size_t i = 0; i < 8; ++i) {
        add(rosetag::formText(item, rosetag::formByWord(ALL_OUTPUTS[i])));
    }
    add(item.scheme != nullptr ? item.scheme->name : std::string_view());
    add(item.filter.has_value() ? std::to_string(*item.filter) : "");
    add(bytesOf(item.hex));
    add(rosetag::aiValueOf(item, "10"));
    row.push_back(std::to_string(item.failure.status));
    row.push_back(isGood ? Cell() : Cell(rosetag::failureText(item.failure)));
    return row;
}

const Cells VALUES = {
    "3074257BF7194E4000001A85",                         // of 96 bits, a key
    "3074257bf7194e4000001a85",                         // in lower case
    std::nullopt,                                       //
    "35000000100000200000003D",                         // of 96 bits, no GS1 form
    "307C257BF7194E4000001A85",                         // an invalid partition
    "3674257BF7194E58C1830000000000000000000000000000", // of variable characters
    "F70218061414112345844E2C1A0",                      // a plus scheme, an odd digit count
    "(01)80614141123458(21)6789(10)LOT7",               //
    "(01)80614141123459",                               // a check digit
    "urn:epc:tag:sgtin-96:3.0614141.812345.6789",       //
    "https://example.com/01/09506000134352/10/A",       //
    "",                                                 //
    "3",                                                //
    std::string("30\0", 3),                             //
    "grüße",                                            //
};

// A table of columns that are alike.
std::unique_ptr<Array> tableOf(const std::vector<const char*>& names, const char* format = "u") {
    auto table = std::make_unique<Array>();
    table->format = "+s";
    table->buffers = {nullptr};
    for (const char* const name : names) {
        Array& column = *table->columns.emplace_back(arrayOf(format, VALUES));
        column.type.name = name;
        table->columnTypes.push_back(&column.type);
        table->columnValues.push_back(&column.values);
    }
    table->finish(static_cast<std::int64_t>(VALUES.size()));
    table->type.n_children = table->values.n_children = static_cast<std::int64_t>(names.size());
    table->type.children = table->columnTypes.data();
    table->values.children = table->columnValues.data();
    table->values.offset = 0;
    return table;
}

void expectRows(const Result& result, const Cells& values, const rosetag::ReadOptions& options) {
    ASSERT_EQ(0, result.code) << result.error;
    ASSERT_EQ(ALL_OUTPUTS.size(), result.columns.size());
    for (std::size_t row = 0; row < values.size(); ++row) {
        const Cells expected = expectedRow(values[row], options);
        for (std::size_t i = 0; i < ALL_OUTPUTS.size(); ++i) {
            EXPECT_EQ(expected[i], result.columns[i][row])
                << ALL_OUTPUTS[i] << " of " << values[row].value_or("null");
        }
    }
}

TEST(Columns, DecodeEachRowAsAValueAloneInEveryLayout) {
    for (const char* const format :
         {"u", "U", "vu", "dictionary:c", "dictionary:C", "dictionary:s", "dictionary:S",
          "dictionary:i", "dictionary:I", "dictionary:l", "dictionary:L"}) {
        SCOPED_TRACE(format);
        expectRows(decode(*arrayOf(format, VALUES), ALL_OUTPUTS), VALUES, {});
    }
}

TEST(Columns, TakeBytesAsTheirHex) {
    const Cells hexes = {"3074257BF7194E4000001A85", std::nullopt, "307C257BF7194E4000001A85",
                         "3174257BF4499602D2000000"};
    Cells bytes;
    for (const Cell& hex : hexes) {
        bytes.push_back(hex.has_value() ? Cell(bytesOf(*hex)) : Cell());
    }
    for (const char* const format : {"z", "Z", "vz", "w:12"}) {
        SCOPED_TRACE(format);
        expectRows(decode(*arrayOf(format, bytes), ALL_OUTPUTS), hexes, {});
    }
}

TEST(Columns, GiveWhatIsAskedForInItsType) {
    const std::vector<const char*> outputs = {"element_string", "bytes", "filter", "status"};
    EXPECT_EQ("uzcC", decode(*arrayOf("u", VALUES), outputs).formats);
    EXPECT_EQ("uzcC", decode(*arrayOf("vu", VALUES), outputs).formats);
    EXPECT_EQ("UZcC", decode(*arrayOf("U", VALUES), outputs).formats);
}

// Forms that plain rows have are made separately.
TEST(Columns, DecodePlainRowsAsAllOthers) {
    Cells values = VALUES;
    for (int i = 0; i < 5000; ++i) {
        char hex[25];
        std::snprintf(hex, sizeof hex, "%02X%022X", i % 256,
                      static_cast<unsigned>(i) * 2654435761U);
        values.emplace_back(hex);
    }
    const std::vector<const char*> outputs = {"tag_uri",        "pure_identity", "element_string",
                                              "barcode_string", "digital_link",  "status"};
    const Result result = decode(*arrayOf("u", values), outputs);
    ASSERT_EQ(0, result.code);
    for (std::size_t row = 0; row < values.size(); ++row) {
        const Cells expected = expectedRow(values[row], {});
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(expected[i + 1], result.columns[i][row]) << values[row].value_or("null");
        }
        EXPECT_EQ(expected[12], result.columns[5][row]) << values[row].value_or("null");
    }
    // Without a form, too, a value has to be read.
    EXPECT_EQ(result.columns[5], decode(*arrayOf("u", values), {"status"}).columns[0]);
}

TEST(Columns, TakeATableForItsOnlyColumn) {
    for (const char* const format : {"u", "vu", "dictionary:s"}) {
        const auto table = tableOf({"epc"}, format);
        table->values.offset = 1;
        table->values.length = static_cast<std::int64_t>(VALUES.size()) - 1;
        Cells expected(VALUES.begin() + 1, VALUES.end());
        expectRows(decode(*table, ALL_OUTPUTS), expected, {});
        addValidity(*table, VALUES);
        table->validity[0] &= 0xFD; // the first row that is part of it
        table->buffers[0] = table->validity.data();
        expected[0].reset();
        expectRows(decode(*table, ALL_OUTPUTS), expected, {});
    }
}

TEST(Columns, TakeOptionsFromColumns) {
    const Cells values = {"(01)80614141123458(21)6789", "(01)80614141123458(21)6789",
                          "(01)80614141123458(21)6789"};
    const auto lengths = integersOf({7, std::nullopt, 8});
    RosetagColumnsReadOptions options{};
    options.gcpLengths = columnOf(*lengths);
    const Result result = decode(*arrayOf("u", values), {"pure_identity"}, &options);
    ASSERT_EQ(0, result.code) << result.error;
    EXPECT_EQ((Cells{"urn:epc:id:sgtin:0614141.812345.6789", std::nullopt,
                     "urn:epc:id:sgtin:06141411.82345.6789"}),
              result.columns[0]);
}

TEST(Columns, EncodeByConstantsAndByColumns) {
    const Cells values = {"(01)80614141123458(21)6789", "(00)106141412345678908", std::nullopt,
                          "(01)80614141123458(21)6789", "(01)80614141123458(21)6789"};
    const auto schemes = arrayOf("u", {"sgtin-96", "sscc-96", "sgtin-96", "nonsense", "sgtin-96"});
    const auto filters = integersOf({3, 0, 1, 1, 8});
    RosetagColumnsEncodeOptions options{};
    options.read.gcpLength = 7;
    options.encoding = AI_ENC_AUTO;
    options.schemes = columnOf(*schemes);
    options.filters = columnOf(*filters);
    const Result byColumns = encode(*arrayOf("u", values), options);
    ASSERT_EQ(0, byColumns.code) << byColumns.error;
    EXPECT_EQ((Cells{"3074257BF7194E4000001A85", "3114257BF4499602D2000000", std::nullopt,
                     std::nullopt, std::nullopt}),
              byColumns.columns[0]);
    EXPECT_EQ((Cells{"0", "0", std::nullopt, std::to_string(EPC_ERR_UNKNOWN_SCHEME),
                     std::to_string(EPC_ERR_FILTER_LIMIT)}),
              byColumns.columns[1]);

    RosetagColumnsEncodeOptions constants{};
    constants.read.gcpLength = 7;
    constants.encoding = AI_ENC_AUTO;
    constants.scheme = "sgtin-96";
    constants.filter = 3;
    EXPECT_EQ("3074257BF7194E4000001A85", encode(*arrayOf("U", values), constants).columns[0][0]);
}

template <typename Options, typename Member>
Options with(Member Options::*member, std::type_identity_t<Member> value) {
    Options options{};
    options.*member = value;
    return options;
}

// A value that reads differently with each option, and without any.
TEST(Columns, ReadRowsByTheOptionsOfACall) {
    rosetag::GcpList list;
    list.entries = {{61414100000, 7, 7}};
    using Options = RosetagColumnsReadOptions;
    using Same = rosetag::ReadOptions;
    const struct {
        const char* value;
        Options options;
        Same same;
    } cases[] = {
        {"310212345678901234567890", with(&Options::asBarcode, 1), with(&Same::asBarcode, true)},
        {"https://example.com/01/9506000134352?x=1", with(&Options::strict, 1),
         with(&Same::strict, true)},
        {"3074257BF7194E4000001A85", with(&Options::bank, ROSETAG_COLUMNS_BANK_PC),
         with(&Same::bank, rosetag::Bank::PC)},
        {"018061414112345810LOT7^1725123121A", with(&Options::separator, '^'),
         with(&Same::separator, '^')},
        {"3074257BF7194E4000001A85", with(&Options::separator, 'F'), with(&Same::separator, 'F')},
        {"(01)80614141123458(21)6789", with(&Options::gcpList, &list), with(&Same::gcpList, &list)},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.value);
        const Cells values = {row.value};
        expectRows(decode(*arrayOf("u", values), ALL_OUTPUTS, &row.options), values, row.same);
        const std::vector<const char*> plain = {"tag_uri", "status"};
        const Result result = decode(*arrayOf("u", values), plain, &row.options);
        EXPECT_EQ(expectedRow(values[0], row.same)[1], result.columns[0][0]);
        EXPECT_NE(expectedRow(values[0], row.same), expectedRow(values[0], {}));
        rosetag::Translation item;
        EXPECT_EQ(expectedRow(values[0], row.same)[1].value_or(""),
                  rosetag::convert(row.value, row.same, rosetag::Form::TAG_URI, item));
    }
}

TEST(Columns, TakeBytesForTheBitsOfATagWhateverTheirDigitsCouldBe) {
    const Cells bytes = {bytesOf("302512345678901234567890")};
    const auto options = with(&RosetagColumnsReadOptions::asBarcode, 1);
    EXPECT_EQ(decode(*arrayOf("z", bytes), {"tag_uri"}).columns,
              decode(*arrayOf("z", bytes), {"tag_uri"}, &options).columns);
    const Result likeGtin = decode(*arrayOf("z", {bytesOf("30506000134352")}), {"gtin", "status"});
    EXPECT_EQ(std::nullopt, likeGtin.columns[0][0]);
    EXPECT_EQ(std::to_string(EPC_ERR_TRUNCATED), likeGtin.columns[1][0]);
}

void expectCheckedStatuses() {
    const Cells values = {"(01)80614141123458",
                          "(01)80614141123459(17)261301", // the first of two errors counts
                          "(17)261301(01)80614141123459",
                          "(01)09506000134352(10)A(10)A", // a warning
                          "307C257BF7194E4000001A85",     "]E09506000134353", "", std::nullopt};
    const Result result = check(*arrayOf("u", values), {"status", "status_name"});
    ASSERT_EQ("Cu", result.formats) << result.error;
    EXPECT_EQ(
        (Cells{"EPC_OK", "EPC_ERR_CHECK_DIGIT", "EPC_ERR_BAD_FORMAT", "EPC_OK",
               "EPC_ERR_BAD_PARTITION", "EPC_ERR_CHECK_DIGIT", "EPC_ERR_BAD_FORMAT", std::nullopt}),
        result.columns[1]);
    for (std::size_t row = 0; row + 1 < values.size(); ++row) {
        const auto status = static_cast<EpcStatus>(std::stoi(*result.columns[0][row]));
        EXPECT_EQ(epc_statusName(status), result.columns[1][row]);
    }
}

TEST(Columns, CheckEachRowAsAValueAlone) {
    Cells values = VALUES;
    values.emplace_back("(01)80614141123459(17)261301"); // two errors
    values.emplace_back("(01)09506000134352(10)A(10)A"); // a warning
    const std::vector<const char*> outputs = {"is_valid", "severity", "errors",  "warnings",
                                              "rule",     "message",  "findings"};
    const Result result = check(*arrayOf("u", values), outputs);
    ASSERT_EQ(0, result.code) << result.error;
    EXPECT_EQ("buiiuuu", result.formats);
    expectCheckedStatuses();
    Cells severities;
    for (std::size_t row = 0; row < values.size(); ++row) {
        SCOPED_TRACE(values[row].value_or("null"));
        Cells found;
        for (const Cells& column : result.columns) {
            found.push_back(column[row]);
        }
        Cells expected(outputs.size());
        if (values[row].has_value()) {
            const auto findings = rosetag::check(*values[row]);
            int errors = 0;
            const rosetag::Finding* worst = nullptr;
            for (const rosetag::Finding& finding : findings) {
                const bool isError = finding.severity == rosetag::Severity::ERROR;
                worst = worst == nullptr || (isError && errors == 0) ? &finding : worst;
                errors += isError ? 1 : 0;
            }
            expected[0] = errors == 0 ? "1" : "0";
            expected[2] = std::to_string(errors);
            expected[3] = std::to_string(findings.size() - static_cast<std::size_t>(errors));
            if (worst != nullptr) {
                expected[1] = rosetag::severityWord(worst->severity);
                expected[4] = rosetag::checkRuleWord(worst->rule);
                expected[5] = rosetag::findingText(*worst);
            }
            const std::string json = rosetag::toJson(findings, *values[row]);
            const std::size_t array = json.find("\"findings\":") + 11;
            expected[6] = json.substr(array, json.size() - array - 1);
        }
        EXPECT_EQ(expected, found);
        severities.push_back(found[1]);
    }
    EXPECT_EQ(Cell("error"), severities[VALUES.size()]);
    EXPECT_EQ(Cell("warning"), severities[VALUES.size() + 1]);
    EXPECT_EQ(Cell(), severities[0]);
}

TEST(Columns, ReadTids) {
    const auto array = arrayOf("u", {"E2003412", "E28011302000123456789ABC", "3034", std::nullopt});
    const std::vector<const char*> outputs = {"designer", "model", "xtid", "serial", "status"};
    const Result result = resultOf([&](ArrowSchema* type, ArrowArray* rows, char* error) {
        return rosetag_columnsTid(&array->type, &array->values, outputs.data(), 5, type, rows,
                                  error);
    });
    ASSERT_EQ(0, result.code) << result.error;
    EXPECT_EQ("SSbuC", result.formats);
    EXPECT_EQ((Cells{"3", "1", std::nullopt, std::nullopt}), result.columns[0]);
    EXPECT_EQ((Cells{"1042", "304", std::nullopt, std::nullopt}), result.columns[1]);
    EXPECT_EQ((Cells{"0", "1", std::nullopt, std::nullopt}), result.columns[2]);
    EXPECT_EQ((Cells{std::nullopt, "123456789ABC", std::nullopt, std::nullopt}), result.columns[3]);
    EXPECT_EQ((Cells{"0", "0", std::to_string(EPC_ERR_BAD_TID), std::nullopt}), result.columns[4]);
}

#ifdef COUNTS_ALLOCATIONS

enum class Made { DECODED, ENCODED, CHECKED, TIDS };

// How often a call on a column of a value repeated allocates and frees.
int allocationsOfColumn(const Cell& value, std::size_t rows, Made made) {
    const auto array = arrayOf("u", Cells(rows, value));
    const std::vector<const char*> outputs = {
        made == Made::TIDS || made == Made::CHECKED ? "status_name" : "element_string", "status"};
    RosetagColumnsEncodeOptions options{};
    options.read.gcpLength = 7;
    options.encoding = AI_ENC_AUTO;
    options.scheme = "sgtin-96";
    options.filter = 1;
    ArrowSchema type{};
    ArrowArray result{};
    char error[ROSETAG_COLUMNS_ERROR_SIZE] = "";
    const int count = allocationsOf([&] {
        switch (made) {
        case Made::DECODED:
            rosetag_columnsDecode(&array->type, &array->values, outputs.data(), 2, nullptr, &type,
                                  &result, error);
            break;
        case Made::ENCODED:
            rosetag_columnsEncode(&array->type, &array->values, outputs.data(), 2, &options, &type,
                                  &result, error);
            break;
        case Made::CHECKED:
            rosetag_columnsCheck(&array->type, &array->values, outputs.data(), 2, nullptr, &type,
                                 &result, error);
            break;
        case Made::TIDS:
            rosetag_columnsTid(&array->type, &array->values, outputs.data(), 2, &type, &result,
                               error);
        }
    });
    EXPECT_STREQ("", error);
    result.release(&result);
    type.release(&type);
    return count;
}

#endif

TEST(Columns, AllocateNothingForARow) {
#ifdef COUNTS_ALLOCATIONS
    Cells values = VALUES;
    values.insert(values.end(),
                  {"(01)80614141123458(21)6789", "urn:epc:id:sgtin:0614141.812345.6789",
                   "]d2018061414112345810LOT7", "3G74257BF7194E4000001A85", "nonsense",
                   "E28011302000123456789ABC", "30003074257BF7194E4000001A85", "urn:epc:x"});
    for (const Cell& value : values) {
        for (const Made made : {Made::DECODED, Made::ENCODED, Made::CHECKED, Made::TIDS}) {
            const int few = allocationsOfColumn(value, 100, made);
            const int many = allocationsOfColumn(value, 2000, made);
            EXPECT_GT(20, many - few) << value.value_or("null") << static_cast<int>(made);
        }
    }
#else
    GTEST_SKIP() << "the allocator of this build cannot be replaced";
#endif
}

TEST(Columns, TakeArraysWithoutRowsAndWithoutValues) {
    const auto table = tableOf({"epc"});
    table->values.length = table->values.n_children = 0;
    EXPECT_EQ(Cells{}, decode(*table, {"gtin"}).columns.at(0));
    for (const char* const format : {"u", "U", "vu", "z", "w:12", "dictionary:s", "n"}) {
        SCOPED_TRACE(format);
        const Result empty = decode(*arrayOf(format, {}), {"gtin", "status"});
        ASSERT_EQ(0, empty.code) << empty.error;
        EXPECT_TRUE(empty.columns[0].empty());
        const Result nulls = decode(*arrayOf(format, Cells(20)), {"gtin", "status"});
        ASSERT_EQ(0, nulls.code) << nulls.error;
        EXPECT_EQ(Cells(20), nulls.columns[0]);
        EXPECT_EQ(Cells(20), nulls.columns[1]);
    }
}

TEST(Columns, RefuseWhatTheyCannotTake) {
    const auto values = arrayOf("u", VALUES);
    const auto integers = integersOf({1, 2});
    const auto texts = arrayOf("u", Cells(VALUES.size()));
    RosetagColumnsReadOptions shortColumn{};
    shortColumn.gcpLengths = columnOf(*integers);
    RosetagColumnsReadOptions textColumn{};
    textColumn.gcpLengths = columnOf(*texts);
    RosetagColumnsEncodeOptions unknownScheme{};
    unknownScheme.scheme = "nonsense";
    const auto unknownBank = with(&RosetagColumnsReadOptions::bank, 4);
    const auto wideSeparator = with(&RosetagColumnsReadOptions::separator, 0xE9);
    const auto longTable = tableOf({"epc"});
    ++longTable->values.length;
    RosetagColumnsReadOptions tableColumn{};
    const auto table = tableOf({"length", "further"});
    tableColumn.gcpLengths = columnOf(*table);
    Array unknownType;
    unknownType.format = "tsu:";
    unknownType.finish(0);
    Array noBuffers;
    noBuffers.format = "u";
    noBuffers.finish(1);

    const struct {
        std::int32_t code;
        const char* word; // in the sentence
        Result result;
    } cases[] = {
        {ROSETAG_COLUMNS_BAD_TYPE, "\"i\"", decode(*integers, {"gtin"})},
        {ROSETAG_COLUMNS_BAD_TYPE, "\"tsu:\"", decode(unknownType, {"gtin"})},
        {ROSETAG_COLUMNS_BAD_ARRAY, "lacks buffers", decode(noBuffers, {"gtin"})},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "\"colour\"", decode(*values, {"gtin", "colour"})},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "\"ai_9999\"", decode(*values, {"ai_9999"})},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "\"ais\"", decode(*values, {"ais"})},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "no output", decode(*values, {})},
        {ROSETAG_COLUMNS_BAD_ARRAY, "2 rows", decode(*values, {"gtin"}, &shortColumn)},
        {ROSETAG_COLUMNS_BAD_TYPE, "integers", decode(*values, {"gtin"}, &textColumn)},
        {ROSETAG_COLUMNS_BAD_OPTION, "nonsense", encode(*values, unknownScheme)},
        {ROSETAG_COLUMNS_BAD_OPTION, "bank 4", decode(*values, {"gtin"}, &unknownBank)},
        {ROSETAG_COLUMNS_BAD_OPTION, "ASCII", decode(*values, {"gtin"}, &wideSeparator)},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "\"gtin\"", check(*values, {"gtin"})},
        {ROSETAG_COLUMNS_BAD_TYPE, "epc, place", decode(*tableOf({"epc", "place"}), {"gtin"})},
        {ROSETAG_COLUMNS_BAD_TYPE, "none", decode(*tableOf({}), {"gtin"})},
        {ROSETAG_COLUMNS_BAD_ARRAY, "lacks rows", decode(*longTable, {"gtin"})},
        {ROSETAG_COLUMNS_BAD_TYPE, "gcp_length", decode(*values, {"gtin"}, &tableColumn)},
        {ROSETAG_COLUMNS_BAD_OUTPUT, "\"is_valid\"", decode(*values, {"is_valid"})},
    };
    for (const auto& refused : cases) {
        EXPECT_EQ(refused.code, refused.result.code) << refused.word;
        EXPECT_NE(std::string::npos, refused.result.error.find(refused.word))
            << refused.result.error;
    }
}

} // namespace
