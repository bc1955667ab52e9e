#include "platform/Clock.h"

#include <locale>
#include <sstream>

namespace orvane {

std::string elapsedText(std::chrono::nanoseconds elapsed) {
    // Single precision throughout: it decides which millisecond a time next to a whole one is cut to.
    const float seconds = static_cast<float>(elapsed.count()) / 1e9f;
    const auto milliseconds = static_cast<long long>(seconds * 1000.0f);
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(3);
    text << static_cast<double>(milliseconds) * 0.001;
    return text.str();
}

}  // namespace orvane
