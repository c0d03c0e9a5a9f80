#include "line_pool.h"

#include <atomic>
#include <condition_variable>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>
#include <vector>

namespace rosetag {

namespace {

constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();

// Every thread does the same: it reads the next block, converts it, waits for its turn, delivers
// it. Blocks are numbered from the beginning of the run.
struct Pool {
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t mostBytes = 0; // no block is read while more than this is on its way
    std::size_t bytes = 0;
    bool isReading = false;
    std::uint64_t read = 0;
    std::uint64_t delivered = 0;
    std::uint64_t end = never;          // this block and those after it are not delivered
    std::atomic<bool> hasEnded = false; // nothing more is read
    std::exception_ptr failure;         // that of the first block
    std::uint64_t failedBlock = never;
};

void endBefore(Pool& pool, std::uint64_t block, std::exception_ptr failure) {
    const std::lock_guard lock(pool.mutex);
    pool.hasEnded = true;
    pool.end = std::min(pool.end, block);
    if (failure != nullptr && block < pool.failedBlock) {
        pool.failure = std::move(failure);
        pool.failedBlock = block;
    }
    pool.changed.notify_all();
}

// Reads the next block. False at the end of the run.
bool readBlock(Pool& pool, LineSource& source, LineWork& work, std::uint64_t& block) {
    std::unique_lock lock(pool.mutex);
    pool.changed.wait(
        lock, [&] { return pool.hasEnded || (!pool.isReading && pool.bytes <= pool.mostBytes); });
    if (pool.hasEnded) {
        return false;
    }
    pool.isReading = true;
    block = pool.read;
    lock.unlock();
    const bool isThere = lineSourceRead(source, work.block);
    lock.lock();
    pool.isReading = false;
    if (isThere) {
        ++pool.read;
        pool.bytes += work.block.text.capacity;
    } else {
        pool.hasEnded = true;
    }
    pool.changed.notify_all();
    return isThere;
}

// Delivers a block when those before it are. False if it is not wanted any more.
bool deliverInTurn(Pool& pool, LineWork& work, std::uint64_t block, const LinePoolCalls& calls) {
    std::unique_lock lock(pool.mutex);
    pool.changed.wait(lock, [&] { return pool.delivered == block || block >= pool.end; });
    if (block >= pool.end) {
        return false;
    }
    lock.unlock();
    if (!calls.deliver(work)) {
        endBefore(pool, block + 1, nullptr);
    }
    lock.lock();
    ++pool.delivered;
    pool.bytes -= work.block.text.capacity;
    pool.changed.notify_all();
    return true;
}

void work(Pool& pool, LineSource& source, const LineRules& rules, const LinePoolCalls& calls,
          LineWork* first) {
    LineWork own;
    LineWork& work = first == nullptr ? own : *first;
    std::uint64_t block = 0;
    try {
        while (first != nullptr || readBlock(pool, source, work, block)) {
            first = nullptr;
            lineWorkRun(rules, work);
            if (!deliverInTurn(pool, work, block, calls)) {
                return;
            }
            lineWorkTrim(work);
        }
    } catch (...) {
        endBefore(pool, block, std::current_exception());
    }
}

} // namespace

void linePoolRun(LineSource& source, const LineRules& rules, LineWork first, unsigned threads,
                 const LinePoolCalls& calls) {
    Pool pool;
    // Blocks of ordinary lines never wait; one with a very long line goes alone.
    pool.mostBytes = threads * 8 * LINE_BLOCK_SIZE;
    pool.read = 1;
    pool.bytes = first.block.text.capacity;
    std::vector<std::jthread> others;
    others.reserve(threads);
    source.isGivenUp = threads > 1 ? &pool.hasEnded : nullptr;
    try {
        while (others.size() + 1 < threads) {
            others.emplace_back([&] { work(pool, source, rules, calls, nullptr); });
        }
    } catch (const std::exception& error) {
        calls.onFewerThreads(static_cast<unsigned>(others.size()) + 1, error.what());
    }
    work(pool, source, rules, calls, &first);
    others.clear();
    source.isGivenUp = nullptr;
    if (pool.failure != nullptr) {
        std::rethrow_exception(pool.failure);
    }
}

} // namespace rosetag
