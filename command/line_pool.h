/*
 * Converts blocks of lines on several threads and delivers them in the order of the input. A fixed
 * number of blocks is on its way at any time.
 */
#ifndef ROSETAG_COMMAND_LINE_POOL_H
#define ROSETAG_COMMAND_LINE_POOL_H

#include "line_work.h"

#include <functional>

namespace rosetag {

// Takes a block that is done. False ends the run.
using Deliver = std::function<bool(LineWork& work)>;

// first is the block that was read already. What reading or delivering throws comes out here.
void linePoolRun(LineSource& source, const LineRules& rules, LineWork first, unsigned threads,
                 const Deliver& deliver);

} // namespace rosetag

#endif
