#include "line_pool.h"

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace rosetag {

namespace {

enum class SlotState { FREE, READ, CONVERTED };

struct Slot {
    SlotState state = SlotState::FREE;
    LineWork work;
};

// A ring of blocks: the reader fills them, the workers take them as they come, the calling thread
// delivers them in order. The counters count blocks from the beginning of the run.
struct Pool {
    explicit Pool(std::size_t slotCount) : slots(slotCount) {}

    std::mutex mutex;
    std::condition_variable changed;
    std::vector<Slot> slots;
    std::uint64_t read = 0;
    std::uint64_t taken = 0;
    std::uint64_t delivered = 0;
    std::atomic<bool> hasEnded = false; // nothing more is read
    bool isBroken = false;              // a block that was read will not be converted
    std::exception_ptr failure;         // the first
};

Slot& slotOf(Pool& pool, std::uint64_t number) {
    return pool.slots[number % pool.slots.size()];
}

void end(Pool& pool, std::exception_ptr failure) {
    const std::lock_guard lock(pool.mutex);
    pool.hasEnded = true;
    if (pool.failure == nullptr) {
        pool.failure = std::move(failure);
    }
    pool.changed.notify_all();
}

// Waits for a slot to read into, or gives null at the end of the run.
Slot* freeSlot(Pool& pool) {
    std::unique_lock lock(pool.mutex);
    Slot& slot = slotOf(pool, pool.read);
    pool.changed.wait(lock, [&] { return pool.hasEnded || slot.state == SlotState::FREE; });
    return pool.hasEnded ? nullptr : &slot;
}

void markRead(Pool& pool, Slot& slot) {
    const std::lock_guard lock(pool.mutex);
    slot.state = SlotState::READ;
    ++pool.read;
    pool.changed.notify_all();
}

void readBlocks(Pool& pool, LineSource& source) {
    try {
        while (Slot* slot = freeSlot(pool)) {
            if (!lineSourceRead(source, slot->work.block)) {
                break;
            }
            markRead(pool, *slot);
        }
        end(pool, nullptr);
    } catch (...) {
        end(pool, std::current_exception());
    }
}

// Waits for a block to convert, or gives null when there will be none.
Slot* takeRead(Pool& pool) {
    std::unique_lock lock(pool.mutex);
    pool.changed.wait(lock, [&] { return pool.taken < pool.read || pool.hasEnded; });
    return pool.taken < pool.read ? &slotOf(pool, pool.taken++) : nullptr;
}

void convertBlocks(Pool& pool, const LineRules& rules) {
    try {
        while (Slot* slot = takeRead(pool)) {
            lineWorkRun(rules, slot->work);
            const std::lock_guard lock(pool.mutex);
            slot->state = SlotState::CONVERTED;
            pool.changed.notify_all();
        }
    } catch (...) {
        end(pool, std::current_exception());
        const std::lock_guard lock(pool.mutex);
        pool.isBroken = true;
        pool.changed.notify_all();
    }
}

// Waits for the next block in order, or gives null when all are delivered.
Slot* takeConverted(Pool& pool) {
    std::unique_lock lock(pool.mutex);
    Slot& slot = slotOf(pool, pool.delivered);
    pool.changed.wait(lock, [&] {
        return slot.state == SlotState::CONVERTED || pool.isBroken ||
               (pool.hasEnded && pool.delivered == pool.read);
    });
    return slot.state == SlotState::CONVERTED ? &slot : nullptr;
}

void deliverBlocks(Pool& pool, const Deliver& deliver) {
    try {
        while (Slot* slot = takeConverted(pool)) {
            if (!deliver(slot->work)) {
                break;
            }
            const std::lock_guard lock(pool.mutex);
            slot->state = SlotState::FREE;
            ++pool.delivered;
            pool.changed.notify_all();
        }
        end(pool, nullptr);
    } catch (...) {
        end(pool, std::current_exception());
    }
}

} // namespace

void linePoolRun(LineSource& source, const LineRules& rules, LineWork first, unsigned threads,
                 const Deliver& deliver) {
    Pool pool(std::size_t{2} * threads + 2);
    pool.slots.front().work = std::move(first);
    markRead(pool, pool.slots.front());
    source.isGivenUp = &pool.hasEnded;
    std::vector<std::jthread> workers;
    workers.reserve(threads + 1);
    workers.emplace_back([&] { readBlocks(pool, source); });
    for (unsigned i = 0; i < threads; ++i) {
        workers.emplace_back([&] { convertBlocks(pool, rules); });
    }
    deliverBlocks(pool, deliver);
    workers.clear();
    source.isGivenUp = nullptr;
    if (pool.failure != nullptr) {
        std::rethrow_exception(pool.failure);
    }
}

} // namespace rosetag
