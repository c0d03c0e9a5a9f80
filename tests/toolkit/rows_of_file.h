/*
 * The rows of a table beside the tests: fields apart by tabs, "#" begins a comment.
 */
#ifndef ROSETAG_TESTS_TOOLKIT_ROWS_OF_FILE_H
#define ROSETAG_TESTS_TOOLKIT_ROWS_OF_FILE_H

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using RowsOfFile = std::vector<std::vector<std::string>>;

inline RowsOfFile rowsOfFile(const std::string& name) {
    std::ifstream file(std::string(ROSETAG_TEST_TABLES) + '/' + name);
    RowsOfFile rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        std::vector<std::string> fields;
        std::istringstream rest(line);
        for (std::string field; std::getline(rest, field, '\t');) {
            fields.push_back(field);
        }
        rows.push_back(fields);
    }
    return rows;
}

#endif
