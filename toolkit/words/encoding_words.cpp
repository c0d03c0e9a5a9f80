#include "values/text_encoding.h"

#include <rosetag/toolkit.hpp>

#include <array>

namespace rosetag {

std::span<const std::string_view> encodingWords() {
    static constexpr auto words = []() {
        std::array<std::string_view, std::size(textEncodings)> names;
        for (std::size_t encoding = 0; encoding < names.size(); ++encoding) {
            names[encoding] = textEncodings[encoding].name;
        }
        return names;
    }();
    return words;
}

} // namespace rosetag
