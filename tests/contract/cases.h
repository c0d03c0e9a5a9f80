/*
 * Inputs for every export: a handful that succeed, and at least one for each status that it can
 * return.
 */
#ifndef ROSETAG_TESTS_CONTRACT_CASES_H
#define ROSETAG_TESTS_CONTRACT_CASES_H

#include "contract/exports.h"

#include <string>
#include <vector>

struct Case {
    const Export* row;
    std::string name;
    Arguments arguments;
    EpcStatus status; // with enough room
    // What a failure leaves of a text with enough room, for exports that begin their text before
    // the failure is known. Null if the storage is left as it was.
    const char* left = "";
};

std::vector<Case> allCases();

#endif
