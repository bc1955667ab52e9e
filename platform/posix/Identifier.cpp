#include "platform/Identifier.h"

#include <array>
#include <cstdint>
#include <random>

namespace orvane {

std::string randomIdentifier() {
    std::random_device source;
    std::uniform_int_distribution<std::uint32_t> anyWord;
    std::array<std::uint32_t, 4> words;
    for (auto& word : words) word = anyWord(source);
    words[1] = (words[1] & 0xFFFF0FFFu) | 0x00004000u;  // version 4: random
    words[2] = (words[2] & 0x3FFFFFFFu) | 0x80000000u;  // the usual variant

    std::string digits;
    for (const std::uint32_t word : words)
        for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(word >> shift) & 0xF];
    return digits;
}

}  // namespace orvane
