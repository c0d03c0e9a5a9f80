#include "progress.h"

#include "output.h"
#include "system.h"

#include <unistd.h>

namespace rosetag {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto interval = std::chrono::milliseconds(200);
constexpr const char* clearLine = "\r\x1b[K";

void show(const std::string& text) {
    try {
        writeAll(STDERR_FILENO, "standard error", text);
    } catch (const IoError&) {
        // A terminal that is gone needs no progress.
    }
}

std::string minutesText(double seconds) {
    const auto whole = static_cast<std::uint64_t>(seconds + 0.5);
    const std::string rest = std::to_string(whole % 60);
    return std::to_string(whole / 60) + ':' + (rest.size() < 2 ? "0" : "") + rest;
}

} // namespace

Progress progressStart(bool isWanted, std::uint64_t totalBytes) {
    Progress progress;
    progress.isShown = isWanted && isTerminal(STDERR_FILENO) && !isTerminal(STDOUT_FILENO);
    progress.totalBytes = totalBytes;
    progress.start = Clock::now();
    progress.last = progress.start;
    return progress;
}

void progressUpdate(Progress& progress, std::uint64_t lines, std::uint64_t failures,
                    std::uint64_t bytes) {
    if (!progress.isShown) {
        return;
    }
    const Clock::time_point now = Clock::now();
    if (now - progress.last < interval) {
        return;
    }
    progress.last = now;
    const double seconds = std::chrono::duration<double>(now - progress.start).count();
    const auto rate = static_cast<std::uint64_t>(static_cast<double>(lines) / seconds);
    std::string text = clearLine;
    text += groupedDigits(lines) + " lines, " + groupedDigits(failures) + " failed, " +
            groupedDigits(rate) + " lines/s";
    if (progress.totalBytes > 0 && bytes > 0 && bytes <= progress.totalBytes) {
        const double share = static_cast<double>(bytes) / static_cast<double>(progress.totalBytes);
        text += ", " + std::to_string(static_cast<int>(100 * share)) + " % done, " +
                minutesText(seconds / share - seconds) + " left";
    }
    show(text);
    progress.isOnScreen = true;
}

void progressEnd(Progress& progress) {
    if (progress.isOnScreen) {
        show(clearLine);
        progress.isOnScreen = false;
    }
}

std::string groupedDigits(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, 1, ',');
    }
    return digits;
}

} // namespace rosetag
