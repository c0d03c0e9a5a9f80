#include <rosetag/toolkit.hpp>

namespace rosetag {

std::span<const std::string_view> bankWords() {
    static constexpr std::string_view words[] = {"auto", "epc", "pc", "crc-pc"};
    return words;
}

} // namespace rosetag
