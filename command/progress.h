/*
 * A line on the terminal that shows how far a run is, kept apart from its output.
 */
#ifndef ROSETAG_COMMAND_PROGRESS_H
#define ROSETAG_COMMAND_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <string>

namespace rosetag {

struct Progress {
    bool isShown = false;
    std::uint64_t totalBytes = 0; // 0: not known
    std::chrono::steady_clock::time_point start;
    std::chrono::steady_clock::time_point last;
    bool isOnScreen = false;
};

// Shown where standard error is a terminal and standard output is not.
Progress progressStart(bool isWanted, std::uint64_t totalBytes);

// Rewrites the line a few times a second.
void progressUpdate(Progress& progress, std::uint64_t lines, std::uint64_t failures,
                    std::uint64_t bytes);

// Takes the line off the screen.
void progressEnd(Progress& progress);

// "1,234,567".
std::string groupedDigits(std::uint64_t number);

} // namespace rosetag

#endif
