#include "sql_functions.h"

namespace rosetag {
namespace {

const ReadOptions asUsual;

std::span<const std::uint8_t> bytesOf(const SqlValue& value) {
    return {reinterpret_cast<const std::uint8_t*>(value.bytes.data()), value.bytes.size()};
}

const std::string& hexOf(SqlRoom& room, std::span<const std::uint8_t> bytes) {
    room.text.clear();
    appendHex(room.text, bytes);
    return room.text;
}

std::string limits(std::string_view name, int first, int last, std::int64_t given) {
    return std::string(name) + " is " + std::to_string(first) + " to " + std::to_string(last) +
           ", not " + std::to_string(given);
}

} // namespace

bool sqlTranslate(SqlRoom& room, const SqlValue& value, FormSet wanted) {
    if (value.isBinary) {
        translate(bytesOf(value), asUsual, wanted, room.item);
    } else {
        translate(value.bytes, asUsual, wanted, room.item);
    }
    return !isFailure(room.item.failure);
}

std::string_view sqlForm(SqlRoom& room, const SqlValue& value, Form form) {
    return value.isBinary ? convert(bytesOf(value), asUsual, form, room.item)
                          : convert(value.bytes, asUsual, form, room.item);
}

std::string_view sqlScheme(SqlRoom& room, const SqlValue& value) {
    return sqlTranslate(room, value, {}) && room.item.scheme != nullptr ? room.item.scheme->name
                                                                        : std::string_view();
}

std::string_view sqlStatus(SqlRoom& room, const SqlValue& value) {
    sqlTranslate(room, value, {});
    return epc_statusName(room.item.failure.status);
}

std::string_view sqlAi(SqlRoom& room, const SqlValue& value, std::string_view ai) {
    return value.isBinary ? convertToAi(bytesOf(value), asUsual, ai, room.item)
                          : convertToAi(value.bytes, asUsual, ai, room.item);
}

std::optional<int> sqlFilter(SqlRoom& room, const SqlValue& value) {
    return sqlTranslate(room, value, {}) ? room.item.filter : std::nullopt;
}

bool sqlTid(SqlRoom& room, const SqlValue& value) {
    const bool fits = value.bytes.size() <= MAX_VALUE_LENGTH;
    tid(value.isBinary && fits ? hexOf(room, bytesOf(value)) : value.bytes, room.tid);
    return !isFailure(room.tid.failure);
}

std::string_view sqlTidSerial(SqlRoom& room, const SqlValue& value) {
    return sqlTid(room, value) ? room.tid.record.serial : std::string_view();
}

std::optional<int> sqlTidDesigner(SqlRoom& room, const SqlValue& value) {
    return sqlTid(room, value) ? std::optional<int>(room.tid.record.mdid & TID_DESIGNER_MASK)
                               : std::nullopt;
}

std::optional<int> sqlTidModel(SqlRoom& room, const SqlValue& value) {
    return sqlTid(room, value) ? std::optional<int>(room.tid.record.tmid) : std::nullopt;
}

std::string_view sqlRefusal(SqlRoom& room, const SqlValue& value) {
    if (sqlTranslate(room, value, {})) {
        return {};
    }
    room.text = epc_statusName(room.item.failure.status);
    room.text += ": " + failureText(room.item.failure);
    return room.text;
}

std::string sqlAiFault(std::string_view ai) {
    constexpr std::size_t shown = 8;
    return aiTitle(ai).empty() ? "there is no AI \"" + std::string(ai, 0, shown) + "\""
                               : std::string();
}

std::string sqlReadEncodeArguments(const SqlEncodeArguments& arguments, EncodeOptions& options) {
    constexpr std::size_t shown = 40;
    options.scheme = schemeByName(arguments.scheme);
    if (options.scheme == nullptr) {
        return "there is no scheme \"" + std::string(arguments.scheme.substr(0, shown)) + "\"";
    }
    options.filter.reset();
    if (const auto filter = arguments.filter; filter.has_value()) {
        const int last = options.scheme->filterLimit == 0 ? 0 : options.scheme->filterLimit - 1;
        if (*filter < 0 || *filter > last) {
            return limits("the filter of " + std::string(options.scheme->name), 0, last, *filter);
        }
        if (options.scheme->filterLimit > 0) {
            options.filter = static_cast<int>(*filter);
        }
    }
    options.read.gcpLength.reset();
    if (const auto length = arguments.gcpLength; length.has_value()) {
        if (*length < MIN_GCP_LENGTH || *length > MAX_GCP_LENGTH) {
            return limits("gcp_length", MIN_GCP_LENGTH, MAX_GCP_LENGTH, *length);
        }
        options.read.gcpLength = static_cast<int>(*length);
    }
    return {};
}

std::string_view sqlEncode(SqlRoom& room, const SqlValue& value, const EncodeOptions& options) {
    encode(value.bytes, options, Form::HEX, room.item);
    return isFailure(room.item.failure) ? std::string_view() : room.item.hex;
}

std::string_view sqlBytesOfHex(SqlRoom& room, std::string_view hex) {
    const auto digit = [](char character) {
        return character <= '9' ? character - '0' : character - 'A' + 10;
    };
    room.text.clear();
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        room.text += static_cast<char>(digit(hex[i]) << 4 | digit(hex[i + 1]));
    }
    return room.text;
}

std::string_view sqlDecodeJson(SqlRoom& room, const SqlValue& value) {
    if (!sqlTranslate(room, value, sqlDecodeFormSet() | Form::AIS)) {
        return {};
    }
    room.text.clear();
    appendJson(room.text, room.item, value.isBinary ? room.item.hex : value.bytes);
    return room.text;
}

std::string_view sqlTidJson(SqlRoom& room, const SqlValue& value) {
    if (!sqlTid(room, value)) {
        return {};
    }
    const TidRecord& record = room.tid.record;
    const auto member = [&](const char* key, std::string_view json) {
        room.text.append(room.text.size() == 1 ? "\"" : ",\"").append(key).append("\":");
        room.text += json;
    };
    const auto flag = [&](unsigned mask) { return (record.mdid & mask) != 0 ? "true" : "false"; };
    room.text = "{";
    member("designer", std::to_string(record.mdid & TID_DESIGNER_MASK));
    member("model", std::to_string(record.tmid));
    member("xtid", flag(TID_XTID_MASK));
    member("security", flag(TID_SECURITY_MASK));
    member("file", flag(TID_FILE_MASK));
    if (record.serialBits != 0) {
        member("serial", '"' + std::string(record.serial) + '"');
    }
    member("serial_bits", std::to_string(record.serialBits));
    room.text += '}';
    return room.text;
}

} // namespace rosetag
