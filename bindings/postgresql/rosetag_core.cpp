#include "rosetag_core.h"

#include "sql_functions.h"

#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>

namespace rosetag {
namespace {

// Of the process, which serves one session.
std::unique_ptr<SqlRoom> room;

// After a larger value the room is released: a session must not keep it.
constexpr std::size_t LARGE_VALUE = 4096;

SqlRoom& openRoom() {
    if (room == nullptr) {
        room = std::make_unique<SqlRoom>();
    }
    return *room;
}

// Runs work with the room.
// work: RosetagOutcome(SqlRoom& room)
template <typename Work>
RosetagOutcome run(Work work) noexcept {
    static bool wasLarge = false;
    try {
        if (wasLarge) {
            room.reset();
        }
        wasLarge = true; // in case work does not return
        const RosetagOutcome outcome = work(openRoom());
        const Workspace& used = room->item.workspace;
        wasLarge = used.text.capacity() + room->text.capacity() > LARGE_VALUE;
        return outcome;
    } catch (const std::bad_alloc&) {
        return ROSETAG_NO_MEMORY;
    } catch (const std::length_error&) {
        return ROSETAG_NO_MEMORY;
    } catch (...) {
        return ROSETAG_BROKEN;
    }
}

std::string_view viewOf(const RosetagText& text) {
    return {text.data, text.size};
}

RosetagText textOf(std::string_view view) {
    return {view.data(), view.size()};
}

SqlValue valueOf(const RosetagValue& value) {
    return {viewOf(value.text), value.isBinary};
}

RosetagOutcome give(std::string_view view, RosetagText& text) {
    text = textOf(view);
    return view.empty() ? ROSETAG_NULL : ROSETAG_DONE;
}

template <typename Function, std::size_t count>
constexpr auto workOf(const Function (&functions)[count], std::string_view name) {
    for (const Function& function : functions) {
        if (function.name == name) {
            return function.work;
        }
    }
    throw "there is no such function"; // does not compile
}

#define WORK_OF_TEXT(name) workOf(sqlTextFunctions, #name),
#define WORK_OF_NUMBER(name) workOf(sqlNumberFunctions, #name),
constexpr SqlTextWork textWorks[] = {ROSETAG_TEXT_FUNCTIONS(WORK_OF_TEXT)};
constexpr SqlNumberWork numberWorks[] = {ROSETAG_NUMBER_FUNCTIONS(WORK_OF_NUMBER)};
#undef WORK_OF_TEXT
#undef WORK_OF_NUMBER
static_assert(std::size(textWorks) == std::size(sqlTextFunctions));
static_assert(std::size(numberWorks) == std::size(sqlNumberFunctions));

static_assert(std::size(sqlDecodeForms) == ROSETAG_DECODE_FORMS);

std::optional<std::int64_t> numberOf(const std::int32_t* number) {
    return number == nullptr ? std::nullopt : std::optional<std::int64_t>(*number);
}

} // namespace
} // namespace rosetag

using namespace rosetag;

RosetagOutcome rosetagText(RosetagTextFunction function, const RosetagValue* value,
                           RosetagText* text) {
    return run(
        [=](SqlRoom& free) { return give(textWorks[function](free, valueOf(*value)), *text); });
}

RosetagOutcome rosetagNumber(RosetagNumberFunction function, const RosetagValue* value,
                             std::int32_t* number) {
    return run([=](SqlRoom& free) {
        const std::optional<int> found = numberWorks[function](free, valueOf(*value));
        *number = found.value_or(0);
        return found.has_value() ? ROSETAG_DONE : ROSETAG_NULL;
    });
}

RosetagOutcome rosetagAi(const RosetagValue* value, RosetagText ai, RosetagText* text) {
    return run([=](SqlRoom& free) {
        if (std::string fault = sqlAiFault(viewOf(ai)); !fault.empty()) {
            free.text = std::move(fault);
            *text = textOf(free.text);
            return ROSETAG_BAD_ARGUMENT;
        }
        return give(sqlAi(free, valueOf(*value), viewOf(ai)), *text);
    });
}

RosetagOutcome rosetagDecode(const RosetagValue* value, RosetagDecoded* decoded) {
    return run([=](SqlRoom& free) {
        if (!sqlTranslate(free, valueOf(*value), sqlDecodeFormSet())) {
            return ROSETAG_NULL;
        }
        const Translation& item = free.item;
        decoded->scheme = textOf(item.scheme == nullptr ? std::string_view() : item.scheme->name);
        decoded->filter = item.filter.value_or(-1);
        for (std::size_t i = 0; i < std::size(sqlDecodeForms); ++i) {
            decoded->forms[i] = textOf(formText(item, sqlDecodeForms[i].form));
        }
        return ROSETAG_DONE;
    });
}

RosetagOutcome rosetagAis(const RosetagValue* value, std::size_t* count) {
    return run([=](SqlRoom& free) {
        const bool isDecoded = sqlTranslate(free, valueOf(*value), Form::AIS);
        *count = isDecoded ? free.item.ais.size() : 0;
        return isDecoded ? ROSETAG_DONE : ROSETAG_NULL;
    });
}

RosetagAi rosetagAiRow(std::size_t index) {
    const AiValue& row = room->item.ais[index];
    return {textOf(row.ai), textOf(row.value), textOf(row.title)};
}

RosetagOutcome rosetagTid(const RosetagValue* value, RosetagTid* tid) {
    return run([=](SqlRoom& free) {
        if (!sqlTid(free, valueOf(*value))) {
            return ROSETAG_NULL;
        }
        const TidRecord& record = free.tid.record;
        const auto flag = [&](unsigned mask) { return (record.mdid & mask) != 0; };
        *tid = {static_cast<std::int32_t>(record.mdid & TID_DESIGNER_MASK),
                record.tmid,
                flag(TID_XTID_MASK),
                flag(TID_SECURITY_MASK),
                flag(TID_FILE_MASK),
                textOf(record.serial),
                record.serialBits};
        return ROSETAG_DONE;
    });
}

RosetagOutcome rosetagCheck(const RosetagValue* value, RosetagFailure* failure) {
    return run([=](SqlRoom& free) {
        if (sqlTranslate(free, valueOf(*value), {})) {
            return ROSETAG_DONE;
        }
        const Failure& found = free.item.failure;
        *failure = {epc_statusName(found.status), textOf(found.message), textOf(found.remedy),
                    textOf(found.culprit), found.position};
        return ROSETAG_NULL;
    });
}

RosetagOutcome rosetagEncode(RosetagText text, const RosetagEncodeArguments* arguments,
                             RosetagText* result) {
    return run([=](SqlRoom& free) {
        EncodeOptions options;
        std::string fault =
            sqlReadEncodeArguments({viewOf(arguments->scheme), numberOf(arguments->filter),
                                    numberOf(arguments->gcpLength)},
                                   options);
        if (!fault.empty()) {
            free.text = std::move(fault);
            *result = textOf(free.text);
            return ROSETAG_BAD_ARGUMENT;
        }
        const std::string_view hex = sqlEncode(free, {viewOf(text)}, options);
        return give(arguments->asBytes ? sqlBytesOfHex(free, hex) : hex, *result);
    });
}

RosetagText rosetagVersion() {
    return textOf(version());
}

std::size_t rosetagLongestValue() {
    return MAX_VALUE_LENGTH;
}
