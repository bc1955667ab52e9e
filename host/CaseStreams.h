// The streams of a case: made from what the case gives, connected to the unit's ports, and read after the run.
// Not here: what a case says (CaseFile), how streams are shown (ResultTables, ResultJson).
#pragma once

#include "host/CaseFile.h"
#include "host/MaterialObject.h"
#include "host/ParameterStream.h"
#include "host/RunResult.h"
#include "host/UnitSession.h"

#include <vector>

namespace orvane::host {

class CaseStreams {
public:
    /// Connects each port of the unit: a feed where the case gives it a stream, a product always. Whether a port that is
    /// left out may be so is the unit's to say. Throws CaseError for what does not fit the unit.
    void connect(const CaseFile& caseFile, UnitSession& session);

    /// Puts what the streams hold now, and what the user should know of it, into the result.
    void collect(RunResult& result) const;

private:
    template <class Stream> struct Connected {
        UnitPort port;
        COBIA::Ref<Stream> stream;
    };
    struct Information : Connected<ParameterStream> {
        std::string parameter;
        std::string unit;
    };

    void connectMaterial(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                         const CaseStream* given);
    void connectEnergy(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                       const CaseEnergy* given);
    void connectInformation(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                            const CaseInformation* given);

    std::vector<Connected<MaterialObject>> materials_;
    std::vector<Connected<ParameterStream>> energies_;
    std::vector<Information> informations_;
};

}  // namespace orvane::host
