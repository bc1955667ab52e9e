#include "host/windows/Error.h"

#include "cobia/Text.h"

namespace orvane::host {

std::string errorText(DWORD code) {
    wchar_t text[1024];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text, std::size(text), nullptr);
    std::string message = COBIA::toUtf8({text, length});
    message.erase(message.find_last_not_of("\r\n ") + 1);
    return message.empty() ? "error " + std::to_string(code) : message;
}

}  // namespace orvane::host
