// The reports and images of the unit operation: listing them, and making them.
#include "cobia/Call.h"
#include "platform/Files.h"
#include "unit/OrvaneOperation.h"

#include <algorithm>

namespace orvane {

using namespace COBIA;

namespace {

constexpr const char* calculationReport = "Last Calculation";
constexpr const char* textType = "text/plain";
constexpr const char* imageType = "image/png";
constexpr const char* onlyLocale = "eng";

[[noreturn]] void failUnknown() { throw cape_open_error(noSuchItem); }

std::string withWindowsLineEnds(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\n')
            result += "\r\n";
        else if (c != '\r')
            result += c;
    }
    return result;
}

bool isPng(const std::string& bytes) { return bytes.starts_with("\x89PNG\r\n\x1a\n"); }

}  // namespace

void OrvaneOperation::reportNames(TextsOut names) {
    ensureConfigured();
    std::vector<std::string> all = declared_.reports;
    all.emplace_back(calculationReport);
    for (const Image& image : declared_.images) all.push_back(image.name);
    try {
        names.assign(all);
    }
    catch (const cape_open_error&) {
        throw cape_open_error(invalidArgument);
    }
}

std::vector<std::string> OrvaneOperation::reportTypes(const std::string& name) {
    ensureConfigured();
    if (reportText(name)) return {textType};
    if (findImage(name)) return {imageType};
    failUnknown();
}

std::vector<std::string> OrvaneOperation::reportLocales(const std::string& name, const std::string& type) {
    if (!equalIgnoringCase(reportTypes(name).front(), type)) failUnknown();
    return {onlyLocale};
}

bool OrvaneOperation::checkReportSpec(const std::string& name, const std::string& type,
                                      const std::string& locale) {
    ensureConfigured();
    const char* offered = reportText(name) ? textType : findImage(name) ? imageType : nullptr;
    return offered && equalIgnoringCase(offered, type) && equalIgnoringCase(onlyLocale, locale);
}

std::string OrvaneOperation::generateReport(const std::string& name, const std::string& type,
                                            const std::string& locale) {
    ensureConfigured();
    const std::optional<std::string> text = reportText(name);
    if (!text || !equalIgnoringCase(type, textType) || !equalIgnoringCase(locale, onlyLocale)) failUnknown();
    return *text;
}

void OrvaneOperation::generateReportFile(const std::string& name, const std::string& type,
                                         const std::string& locale, const std::string& fileName) {
    ensureConfigured();
    const Image* image = reportText(name) ? nullptr : findImage(name);
    if (!image) {
        writeFile(fileName, generateReport(name, type, locale));
        return;
    }
    if (type != imageType) throw cape_open_error(invalidArgument);
    if (!equalIgnoringCase(locale, onlyLocale)) failUnknown();
    writeFile(fileName, drawImage(*image));
}

std::optional<std::string> OrvaneOperation::reportText(const std::string& name) const {
    if (equalIgnoringCase(name, calculationReport))
        return runReportHeader_ + withWindowsLineEnds(lastOutput_) + runReportFooter_;
    const auto found = reports_.find(upperCase(name));
    return found == reports_.end() ? std::nullopt : std::optional(found->second);
}

const Image* OrvaneOperation::findImage(const std::string& name) const {
    const auto found = std::find_if(declared_.images.begin(), declared_.images.end(),
                                    [&](const Image& image) { return equalIgnoringCase(image.name, name); });
    return found == declared_.images.end() ? nullptr : &*found;
}

int OrvaneOperation::contextValue(const char* name, int usual) const {
    if (!contextValues_) return usual;
    ValueObject value;
    try {
        call<&ICapeCOSEUtilities::Table::NamedValue>(contextValues_, StringObject(name).in(), value.out());
    }
    catch (const cape_open_error&) {
        return usual;  // a host need not know the name
    }
    const ValueObject::Content content = value.content();
    const auto* number = std::get_if<CapeInteger>(&content);
    if (number && *number < 1)
        throw StringException() << "the simulation environment asks for images of " << name << " " << *number
                                << ", which is not positive";
    return number ? *number : usual;
}

std::string OrvaneOperation::drawImage(const Image& image) {
    const int width = contextValue("ImageWidth", 1024);
    const int height = contextValue("ImageHeight", 640);
    if (!configureError_.empty()) throw StringException(configureError_);
    const TemporaryFile file(".png");
    CallTexts texts = callImageFunction(*this, script_, {image.function, file.path(), width, height});
    scriptOutput_ = std::move(texts.output);
    scriptError_ = texts.errors;
    if (!texts.errors.empty()) throw StringException(texts.errors);
    std::string bytes;
    try {
        bytes = readFile(file.path());
    }
    catch (const StringException& error) {
        throw StringException() << "function '" << image.function << "' left no image file: " << error.what();
    }
    if (bytes.empty())
        throw StringException() << "function '" << image.function << "' wrote nothing to the image file";
    if (!isPng(bytes))
        throw StringException() << "function '" << image.function << "' wrote a file that is no PNG image";
    return bytes;
}

}  // namespace orvane
