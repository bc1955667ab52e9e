// The reports and images of a unit that the user asked for by name.
#pragma once

#include "host/RunResult.h"
#include "host/UnitSession.h"

#include <filesystem>
#include <string>
#include <vector>

namespace orvane::host {

struct ImageRequest {
    std::string name;
    std::filesystem::path file;
};

class ReportRequests {
public:
    ReportRequests(std::vector<std::string> reports, std::vector<ImageRequest> images)
        : reports_(std::move(reports)), images_(std::move(images)) {}

    /// Throws CaseError for a name that the unit does not offer, with the nearest one.
    void check(UnitSession& session) const;

    /// Puts the texts of the reports into the result, under the names that the unit gives them.
    void collect(UnitSession& session, RunResult& result) const;

    /// Draws the images into their files. Throws cape_open_error that names the image.
    void draw(UnitSession& session) const;

private:
    std::vector<std::string> reports_;
    std::vector<ImageRequest> images_;
};

}  // namespace orvane::host
