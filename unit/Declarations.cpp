#include "unit/Declarations.h"

#include "cobia/Error.h"
#include "cobia/Text.h"

#include <algorithm>

namespace orvane {
namespace {

using COBIA::StringException;

/// Of reports and images: texts are kept by the name in upper case, pictures found by it in lower case.
bool sameName(std::string_view a, std::string_view b) {
    return COBIA::upperCase(a) == COBIA::upperCase(b) || COBIA::equalIgnoringCase(a, b);
}

bool hasReport(const std::vector<std::string>& reports, std::string_view name) {
    return std::any_of(reports.begin(), reports.end(),
                       [&](const std::string& report) { return sameName(report, name); });
}

bool hasImage(const std::vector<Image>& images, std::string_view name) {
    return std::any_of(images.begin(), images.end(),
                       [&](const Image& image) { return sameName(image.name, name); });
}

void require(bool holds, const char* rule) {
    if (!holds) throw StringException(rule);
}

}  // namespace

void Declarations::checkCall(const char* method, bool configuring) const {
    if (!configuring) throw StringException() << method << " can only be called from Configure()";
}

void Declarations::checkNotDefined(const char* method) const {
    if (definedFrom_) throw StringException() << "cannot call " << method << " after define_from";
}

std::string Declarations::checkedPort(std::string_view name, bool configuring) const {
    checkCall("add_port", configuring);
    require(!name.empty(), "port cannot have empty name");
    checkNotDefined("add_port");
    std::string key = COBIA::lowerCase(name);
    require(!portNames_.contains(key), "Duplicate port name");
    return key;
}

std::string Declarations::checkedParameter(std::string_view name, bool configuring) const {
    checkCall("add_parameter", configuring);
    require(!name.empty(), "parameter cannot have empty name");
    checkNotDefined("add_parameter");
    std::string key = COBIA::lowerCase(name);
    require(!parameterNames_.contains(key), "duplicate parameter name");
    return key;
}

void Declarations::addReport(const std::string& name, bool configuring) {
    checkCall("add_report", configuring);
    require(!name.empty(), "Report cannot have empty name");
    checkNotDefined("add_report");
    require(!hasReport(reports, name), "Duplicate report name");
    require(!hasImage(images, name), "An image by that name already exists");
    reports.push_back(name);
}

void Declarations::addImage(const std::string& name, const std::string& function, bool configuring) {
    checkCall("add_image", configuring);
    require(!name.empty(), "Image cannot have empty name");
    require(!function.empty(), "Image cannot have empty function name");
    checkNotDefined("add_image");
    require(!hasReport(reports, name), "A report by that name already exists");
    require(!hasImage(images, name), "Duplicate image name");
    images.push_back({name, function});
}

void Declarations::setAllowInconsistentCompounds(bool allow, bool configuring) {
    require(configuring, "allow_inconsistent_compounds can only be specified during Configure()");
    require(!definedFrom_, "cannot set allow_inconsistent_compounds after define_from");
    allowInconsistentCompounds = allow;
    allowWasSet_ = true;
}

void Declarations::defineFrom(PyRef given, bool configuring) {
    checkCall("define_from", configuring);
    require(!module, "cannot call define_from more than once");
    require(parameters.empty(), "cannot call define_from after add_parameter");
    require(ports.empty(), "cannot call define_from after add_port");
    require(reports.empty(), "cannot call define_from after add_report");
    require(images.empty(), "cannot call define_from after add_image");
    require(!allowWasSet_, "cannot call define_from after setting allow_inconsistent_compounds");
    module = std::move(given);
    definedFrom_ = true;
}

}  // namespace orvane
