#include "platform/DefaultScript.h"

extern "C" {
extern const unsigned char defaultScript[];
extern const unsigned char defaultScript_end[];
}

namespace orvane {

std::string_view defaultScriptText() {
    return {reinterpret_cast<const char*>(defaultScript),
            static_cast<std::size_t>(defaultScript_end - defaultScript)};
}

}  // namespace orvane
