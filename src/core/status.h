/*
 * How a failure travels: every operation returns an EpcStatus, and a caller that gets one other
 * than EPC_OK returns it unchanged. A record that an operation needs is passed by reference, an
 * output that the caller may leave out by pointer.
 */
#ifndef ROSETAG_CORE_STATUS_H
#define ROSETAG_CORE_STATUS_H

#include "rosetag/rosetag.h"

#define EPC_TRY(operation)                                                                         \
    do {                                                                                           \
        if (const EpcStatus tryStatus = (operation); tryStatus != EPC_OK) {                        \
            return tryStatus;                                                                      \
        }                                                                                          \
    } while (false)

#endif
