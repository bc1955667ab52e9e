#include "host/CaseStreams.h"

#include "cobia/Text.h"
#include "host/NearestName.h"
#include "host/UnitText.h"
#include "package/PackageError.h"

#include <algorithm>
#include <fmt/format.h>

namespace orvane::host {
namespace {

using COBIA::CapePortType;

/// How case files call the streams of a kind of port.
const char* tableOf(CapePortType type) {
    switch (type) {
    case CapePortType::material: return "streams";
    case CapePortType::energy: return "energy";
    default: return "information";
    }
}

/// Entries by the index of their port. Throws CaseError for one that has no port of the kind, and for a second one.
template <class Entry>
std::vector<const Entry*> entriesOf(const CaseFile& caseFile, const std::vector<UnitPort>& ports,
                                    CapePortType type, const std::vector<Entry>& entries) {
    std::vector<const Entry*> result(ports.size());
    for (const Entry& entry : entries) {
        const auto fail = [&](const std::string& what) { throw CaseError(caseFile.file, entry.line, what); };
        const auto port = std::ranges::find_if(ports, [&](const UnitPort& candidate) {
            return COBIA::equalIgnoringCase(candidate.name(), entry.port);
        });
        if (port != ports.end() && port->type() != type) {
            fail(fmt::format("port '{}' carries {}; write [{}.{}]", port->name(), port->typeName(),
                             tableOf(port->type()), entry.port));
        }
        if (port == ports.end()) {
            std::vector<std::string> known;
            for (const UnitPort& candidate : ports) {
                if (candidate.type() == type) known.push_back(candidate.name());
            }
            fail(fmt::format("the unit has no {} port '{}'{}", UnitPort::typeName(type), entry.port,
                             suggestion(entry.port, known)));
        }
        const Entry*& place = result[static_cast<std::size_t>(port - ports.begin())];
        if (place) fail(fmt::format("port '{}' has a stream already", port->name()));
        place = &entry;
    }
    return result;
}

[[noreturn]] void failProduct(const CaseFile& caseFile, int line, const UnitPort& port) {
    throw CaseError(
        caseFile.file, line,
        fmt::format("port '{}' is a product: the unit calculates its stream; remove what [{}.{}] says",
                    port.name(), tableOf(port.type()), port.name()));
}

constexpr double none = std::numeric_limits<double>::quiet_NaN();

}  // namespace

void CaseStreams::connect(const CaseFile& caseFile, UnitSession& session) {
    const std::vector<UnitPort> ports = session.ports();
    const auto materials = entriesOf(caseFile, ports, CapePortType::material, caseFile.streams);
    const auto energies = entriesOf(caseFile, ports, CapePortType::energy, caseFile.energies);
    const auto informations = entriesOf(caseFile, ports, CapePortType::information, caseFile.informations);
    for (std::size_t i = 0; i < ports.size(); ++i) {
        if (ports[i].isFeed() && !materials[i] && !energies[i] && !informations[i]) continue;
        switch (ports[i].type()) {
        case CapePortType::material: connectMaterial(caseFile, session, ports[i], materials[i]); break;
        case CapePortType::energy: connectEnergy(caseFile, session, ports[i], energies[i]); break;
        case CapePortType::information:
            connectInformation(caseFile, session, ports[i], informations[i]);
            break;
        default: break;  // a kind that no unit of ours declares stays unconnected, of which the unit tells
        }
    }
}

void CaseStreams::connectMaterial(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                                  const CaseStream* given) {
    if (given && !port.isFeed() && given->state) failProduct(caseFile, given->line, port);
    if (given && port.isFeed() && !given->state) {
        throw CaseError(
            caseFile.file, given->line,
            fmt::format("[streams.{}] is empty; a feed takes two conditions, flow_rate and composition",
                        given->port));
    }
    auto material = COBIA::makeObject<MaterialObject>(port.name(), caseFile.package);
    if (given && given->state) {
        const CaseState& state = *given->state;
        try {
            material->specify(state.composition, state.flowRate, state.first, state.second);
        }
        catch (const package::PackageError& error) {
            throw CaseError(
                caseFile.file, given->line,
                fmt::format("the state of stream '{}' cannot be found: {}", port.name(), error.what()));
        }
    }
    session.connect(port, material->as<COBIA::ICapeThermoMaterial>());
    materials_.push_back({port, std::move(material)});
}

void CaseStreams::connectEnergy(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                                const CaseEnergy* given) {
    const CaseEnergy values = given ? *given : CaseEnergy();
    if (!port.isFeed() && values.isGiven()) failProduct(caseFile, values.line, port);
    if (port.isFeed() && !values.work) {
        throw CaseError(caseFile.file, values.line,
                        fmt::format("[energy.{}] has no 'work' [W]", values.port));
    }
    // Each stream has all that any kind of energy port looks for; what is not given is not known.
    auto stream = COBIA::makeObject<ParameterStream>(
        port.name(), "energy", port.isFeed(),
        std::vector<StreamParameter::Definition>{
            {"work", {2, 1, -3}, none, values.work.value_or(none)},
            {"temperatureLow", {0, 0, 0, 0, 1}, 0, values.temperatureLow.value_or(none)},
            {"temperatureHigh", {0, 0, 0, 0, 1}, 0, values.temperatureHigh.value_or(none)},
            {"axisFrequency", {0, 0, -1}, 0, values.axisFrequency.value_or(none)}});
    session.connect(port, stream->as<COBIA::ICapeCollection>());
    energies_.push_back({port, std::move(stream)});
}

void CaseStreams::connectInformation(const CaseFile& caseFile, UnitSession& session, const UnitPort& port,
                                     const CaseInformation* given) {
    const CaseInformation values = given ? *given : CaseInformation();
    if (!port.isFeed() && values.value) failProduct(caseFile, values.line, port);
    if (port.isFeed() && !values.value)
        throw CaseError(caseFile.file, values.line,
                        fmt::format("[information.{}] has no 'value'", values.port));
    const UnitPort::Wanted wanted = port.wanted();
    const std::string name = values.name.value_or(wanted.name);
    const std::vector<double> dimensionality = values.dimensionality.value_or(wanted.dimensionality);
    auto stream = COBIA::makeObject<ParameterStream>(
        port.name(), "information", port.isFeed(),
        std::vector<StreamParameter::Definition>{{name, dimensionality, none, values.value.value_or(none)}});
    try {
        session.connect(port, stream->as<COBIA::ICapeCollection>());
    }
    catch (const COBIA::cape_open_error& error) {
        if (!given) throw;
        throw CaseError(caseFile.file, values.line,
                        fmt::format("port '{}' does not take the parameter '{}'{} of [information.{}]: {}",
                                    port.name(), name,
                                    dimensionality.empty() ? "" : " in " + unitText(dimensionality),
                                    values.port, error.directText()));
    }
    informations_.push_back({{port, std::move(stream)}, name, unitText(dimensionality)});
}

void CaseStreams::collect(RunResult& result) const {
    result.streams.clear();
    for (const auto& [port, material] : materials_) {
        result.streams.push_back(streamResult(port.name(), port.isFeed(), *material));
        for (auto& warning : streamWarnings(port.name(), *material))
            result.warnings.push_back(std::move(warning));
    }
    result.energies.clear();
    for (const auto& [port, stream] : energies_) {
        result.energies.push_back({port.name(), port.isFeed(), stream->value(0), stream->value(1),
                                   stream->value(2), stream->value(3)});
    }
    result.informations.clear();
    for (const Information& information : informations_) {
        result.informations.push_back({information.port.name(), information.port.isFeed(),
                                       information.parameter, information.unit,
                                       information.stream->value(0)});
    }
}

}  // namespace orvane::host
