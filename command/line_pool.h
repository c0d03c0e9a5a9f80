/*
 * Converts the blocks of an input on one thread or several and delivers them in the order of the
 * input. Memory does not grow with the length of the input, nor with long lines times threads.
 */
#ifndef ROSETAG_COMMAND_LINE_POOL_H
#define ROSETAG_COMMAND_LINE_POOL_H

#include "line_work.h"

#include <functional>

namespace rosetag {

struct LinePoolCalls {
    // Takes a block that is done, never two at once. False ends the run.
    std::function<bool(LineWork& work)> deliver;
    // Fewer threads than asked for could be started. Blocks may be delivered at the same time.
    std::function<void(unsigned started, const std::string& reason)> onFewerThreads;
};

// first is the block that was read already. What reading, converting or delivering throws comes
// out here, after all blocks before it were delivered.
void linePoolRun(LineSource& source, const LineRules& rules, LineWork first, unsigned threads,
                 const LinePoolCalls& calls);

} // namespace rosetag

#endif
