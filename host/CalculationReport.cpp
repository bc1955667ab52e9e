#include "host/CalculationReport.h"

namespace orvane::host {
namespace {

constexpr std::string_view frameStart = "Calculation starts: ";
constexpr std::string_view headerEnd = "\n\n";
constexpr std::string_view footer = "\n\nCalculation took ";

}  // namespace

std::string plainLineEnds(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c != '\r') result += c;
    }
    return result;
}

std::string printedOutput(std::string_view report, std::string_view error) {
    std::string text = plainLineEnds(report);
    if (text.starts_with(frameStart)) {
        // The header's end stays until the footer is gone: with nothing printed between, the two share it.
        if (const auto end = text.rfind(footer); end != std::string::npos) text.resize(end);
        const auto start = text.find(headerEnd);
        text.erase(0, start == std::string::npos ? text.size() : start + headerEnd.size());
    }
    std::string tail = plainLineEnds(error);
    while (tail.ends_with('\n')) tail.pop_back();
    while (text.ends_with('\n')) text.pop_back();
    // The report ends with the error as the unit had it, which is the end of the chain that the host was told.
    for (std::size_t line = 0; line < text.size();) {
        if (tail.ends_with(std::string_view(text).substr(line))) {
            text.resize(line);
            break;
        }
        const auto end = text.find('\n', line);
        if (end == std::string::npos) break;
        line = end + 1;
    }
    while (text.ends_with('\n')) text.pop_back();
    return text;
}

}  // namespace orvane::host
