#include "host/ReportRequests.h"

#include "cobia/Text.h"
#include "host/NearestName.h"

#include <algorithm>
#include <fmt/format.h>

namespace orvane::host {
namespace {

/// The name as the unit writes it.
std::string find(const std::vector<UnitReport>& reports, const std::string& name, bool isImage) {
    std::vector<std::string> known;
    for (const UnitReport& report : reports) {
        if (report.isImage() != isImage) continue;
        if (COBIA::equalIgnoringCase(report.name, name)) return report.name;
        known.push_back(report.name);
    }
    throw CaseError(fmt::format("the unit has no {} '{}'{}", isImage ? "image" : "report", name,
                                suggestion(name, known)));
}

}  // namespace

void ReportRequests::check(UnitSession& session) const {
    if (reports_.empty() && images_.empty()) return;
    const std::vector<UnitReport> offered = session.reports();
    for (const std::string& report : reports_) find(offered, report, false);
    for (const ImageRequest& image : images_) find(offered, image.name, true);
}

void ReportRequests::collect(UnitSession& session, RunResult& result) const {
    result.reports.clear();
    if (reports_.empty()) return;
    const std::vector<UnitReport> offered = session.reports();
    for (const std::string& report : reports_) {
        const std::string name = find(offered, report, false);
        result.reports.emplace_back(name, session.reportText(name));
    }
}

void ReportRequests::draw(UnitSession& session) const {
    for (const auto& [name, file] : images_) {
        try {
            session.drawImage(name, file);
        }
        catch (const COBIA::cape_open_error& error) {
            throw COBIA::cape_open_error(fmt::format("image '{}': {}", name, error.directText()));
        }
    }
}

}  // namespace orvane::host
