#include "platform/TextMode.h"

namespace orvane {

std::string inTextMode(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A CR that is there already would double each time the text is saved and loaded.
        if (text.substr(i).starts_with("\r\n")) ++i;
        if (text[i] == '\n') result += '\r';
        result += text[i];
    }
    return result;
}

}  // namespace orvane
