#include "host/CaseRun.h"

#include "cobia/Text.h"
#include "host/CalculationReport.h"
#include "host/NearestName.h"
#include "host/Path.h"
#include "package/PackageError.h"

#include <algorithm>
#include <chrono>
#include <fmt/format.h>

namespace orvane::host {
namespace {

template <class Items> auto named(Items& items, const std::string& name) {
    return std::ranges::find_if(
        items, [&](const auto& item) { return COBIA::equalIgnoringCase(item.name(), name); });
}

template <class Items> std::vector<std::string> names(const Items& items) {
    std::vector<std::string> result;
    for (const auto& item : items) result.push_back(item.name());
    return result;
}

}  // namespace

CaseRun::CaseRun(const CaseFile& caseFile, std::vector<CaseParameter> settings, UnitSession& session,
                 COBIA::Ref<SimulationContext> context)
    : case_(caseFile), settings_(std::move(settings)), session_(session), context_(std::move(context)) {
    result_.unitName = case_.unitName.value_or("");
    result_.compounds = case_.package->ids();
    if (case_.unitName) session_.setName(*case_.unitName);
    if (case_.script) session_.loadScript(*case_.script);
}

void CaseRun::prepare() {
    connectStreams();
    setParameters();
}

void CaseRun::failToFit(const std::string& message) {
    // A Configure that failed declares nothing, and then nothing in the case fits: its error is the one to
    // show.
    const COBIA::Verdict verdict = session_.validate();
    if (!verdict.valid && verdict.message.starts_with("Configure() failed")) {
        result_.valid = false;
        result_.message = verdict.message;
        throw UnitInvalid(verdict.message);
    }
    throw CaseError(message);
}

void CaseRun::connectStreams() {
    std::vector<UnitPort> ports = session_.ports();
    std::erase_if(ports, [](const UnitPort& port) { return !port.isMaterial(); });

    std::vector<const CaseStream*> given(ports.size());
    for (const CaseStream& stream : case_.streams) {
        const auto place = fmt::format("{}:{}: ", textOf(case_.file), stream.line);
        const auto port = named(ports, stream.port);
        if (port == ports.end()) {
            failToFit(fmt::format("{}the unit has no material port '{}'{}", place, stream.port,
                                  suggestion(stream.port, names(ports))));
        }
        if (!port->isFeed() && stream.state) {
            throw CaseError(
                fmt::format("{}port '{}' is a product: the unit calculates its stream; remove what "
                            "[streams.{}] says",
                            place, port->name(), stream.port));
        }
        if (port->isFeed() && !stream.state) {
            throw CaseError(fmt::format("{}[streams.{}] is empty; a feed takes two conditions, flow_rate and "
                                        "composition",
                                        place, stream.port));
        }
        const CaseStream*& entry = given[static_cast<std::size_t>(port - ports.begin())];
        if (entry) throw CaseError(fmt::format("{}port '{}' has a stream already", place, port->name()));
        entry = &stream;
    }

    for (std::size_t i = 0; i < ports.size(); ++i) {
        if (ports[i].isFeed() && !given[i]) continue;  // whether the port is optional is the unit's to say
        auto material = COBIA::makeObject<MaterialObject>(ports[i].name(), case_.package);
        if (given[i] && given[i]->state) {
            const CaseState& state = *given[i]->state;
            try {
                material->specify(state.composition, state.flowRate, state.first, state.second);
            }
            catch (const package::PackageError& error) {
                throw CaseError(case_.file, given[i]->line,
                                fmt::format("the state of stream '{}' cannot be found: {}", ports[i].name(),
                                            error.what()));
            }
        }
        session_.connect(ports[i], material->as<COBIA::ICapeThermoMaterial>());
        streams_.push_back({ports[i], std::move(material)});
    }
}

void CaseRun::setParameters() {
    parameters_ = session_.parameters();
    const auto set = [&](const CaseParameter& given) {
        const auto parameter = named(parameters_, given.name);
        if (parameter == parameters_.end()) {
            failToFit(fmt::format("{}: the unit has no parameter '{}'{}", given.place, given.name,
                                  suggestion(given.name, names(parameters_))));
        }
        parameter->set(given);
    };
    for (const CaseParameter& given : case_.parameters) set(given);
    for (const CaseParameter& given : settings_) set(given);
}

bool CaseRun::validate() {
    const COBIA::Verdict verdict = session_.validate();
    result_.valid = verdict.valid;
    result_.message = verdict.message;
    return verdict.valid;
}

void CaseRun::calculate() {
    result_.success = false;
    context_->forgetMessages();
    const auto start = std::chrono::steady_clock::now();
    const auto stop = [&] {
        result_.elapsedSeconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    try {
        session_.calculate();
    }
    catch (const COBIA::cape_open_error&) {
        stop();
        throw;
    }
    stop();
    result_.success = true;
}

void CaseRun::collect(const std::string& error) {
    result_.warnings = context_->messages();
    result_.output = printedOutput(session_.lastCalculation().value_or(""), error);
    result_.streams.clear();
    for (const Stream& stream : streams_) {
        result_.streams.push_back(streamResult(stream.port.name(), stream.port.isFeed(), *stream.material));
        for (auto& warning : streamWarnings(stream.port.name(), *stream.material)) {
            result_.warnings.push_back(std::move(warning));
        }
    }
    result_.parameters.clear();
    for (const UnitParameter& parameter : parameters_) {
        result_.parameters.push_back({parameter.name(), parameter.unit(), parameter.isInput(),
                                      parameter.isPower(), parameter.value()});
    }
    if (!result_.success) return;
    closure_ = host::closure(result_);
    if (!closure_) return;
    for (auto& warning : closure_->warnings()) result_.warnings.push_back(std::move(warning));
}

}  // namespace orvane::host
