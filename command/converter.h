/*
 * What a command does with one value after another. Each thread of a run has a converter of its
 * own.
 */
#ifndef ROSETAG_COMMAND_CONVERTER_H
#define ROSETAG_COMMAND_CONVERTER_H

#include <rosetag/toolkit.hpp>

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace rosetag {

// A value as an argument, a line, or a row of a table.
struct InputItem {
    std::string_view value;
    std::uint64_t line = 0;             // 0: an argument
    std::span<const std::string> cells; // of a row, those of the columns that were asked for
};

class Converter {
public:
    virtual ~Converter() = default;

    // Converts a value. True if there is nothing to tell about it: no failure, no note and no
    // finding; false if there may be. Throws UsageError where the arguments of the command do not
    // suffice.
    virtual bool convert(const InputItem& item) = 0;

    // Takes a value as one that failed, without looking at it.
    virtual void refuse(const InputItem& item, Failure failure) = 0;

    // All that follows is about the last value.
    virtual const Failure& failure() const = 0;

    // The word for the failure.
    virtual std::string_view failureWord() const {
        return epc_statusName(failure().status);
    }

    // The value itself, where it was made from several cells.
    virtual std::string_view value() const = 0;
    virtual const Rows<Note>* notes() const {
        return nullptr;
    }
    virtual const Rows<Finding>* findings() const {
        return nullptr;
    }

    // What a run writes, with its line ends.
    virtual void writeLine(std::string& out) = 0;

    // Converts a value and writes its line. False if there may be something to tell: the line is
    // not written then.
    virtual bool convertLine(const InputItem& item, std::string& out) {
        if (!convert(item)) {
            return false;
        }
        writeLine(out);
        return true;
    }

    // What is written of an argument.
    virtual void writeArgument(std::string& out) {
        writeLine(out);
    }

    // True where an argument that failed says so in what is written of it.
    virtual bool showsFailures() const {
        return false;
    }

    // The same of lines: with position, culprit and remedy.
    virtual bool linesTellFailures() const {
        return false;
    }
    virtual bool linesTellNotes() const {
        return false;
    }

    // True where the texts of several arguments want an empty line between them.
    virtual bool writesBlocks() const {
        return false;
    }

    // What is added to the row of a table, a cell for each column that the command adds.
    virtual void writeCells(std::vector<std::string>&) {}
};

using MakeConverter = std::function<std::unique_ptr<Converter>()>;

} // namespace rosetag

#endif
