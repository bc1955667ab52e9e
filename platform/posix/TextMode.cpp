#include "platform/TextMode.h"

namespace orvane {

std::string inTextMode(std::string_view text) { return std::string(text); }

}  // namespace orvane
