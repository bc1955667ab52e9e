#include "platform/Identifier.h"

#include "cobia/Error.h"

#include <objbase.h>

namespace orvane {

std::string randomIdentifier() {
    GUID identifier;
    if (CoCreateGuid(&identifier) != S_OK) throw COBIA::StringException("Windows gave no new GUID");
    wchar_t braced[39];
    StringFromGUID2(identifier, braced, 39);
    std::string digits;
    for (const wchar_t c : std::wstring(braced))
        if ((c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'))
            digits += static_cast<char>(c);
    return digits;
}

}  // namespace orvane
