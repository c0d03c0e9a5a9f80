/*
 * Compares statuses and prints them by name:
 *
 *     EXPECT_STATUS(EPC_ERR_TRUNCATED, epc_hexToEpcUri("30", size, dst)) << row.name;
 */
#ifndef ROSETAG_TESTS_SUPPORT_STATUS_H
#define ROSETAG_TESTS_SUPPORT_STATUS_H

#include "rosetag/rosetag.h"

#include <gtest/gtest.h>

inline testing::AssertionResult statusesAreEqual(const char*, const char* expression,
                                                 EpcStatus expected, EpcStatus actual) {
    if (expected == actual) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << expression << "\n  gives    " << epc_statusName(actual) << " (" << actual << ")"
           << "\n  expected " << epc_statusName(expected) << " (" << expected << ")";
}

#define EXPECT_STATUS(expected, actual) EXPECT_PRED_FORMAT2(statusesAreEqual, expected, actual)
#define ASSERT_STATUS(expected, actual) ASSERT_PRED_FORMAT2(statusesAreEqual, expected, actual)

#endif
