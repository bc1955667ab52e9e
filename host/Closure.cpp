#include "host/Closure.h"

#include "host/ElementBalance.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace orvane::host {

std::optional<Closure> closure(const RunResult& result) {
    Closure closure;
    for (const std::string& compound : result.compounds) closure.compounds.push_back({compound});
    closure.energy.name = "energy";
    Balance& energy = closure.energy;
    for (const StreamResult& stream : result.streams) {
        if (stream.composition.size() != result.compounds.size() || std::isnan(stream.flowRate) ||
            std::isnan(stream.enthalpy)) {
            return std::nullopt;
        }
        for (std::size_t i = 0; i < closure.compounds.size(); ++i) {
            Balance& balance = closure.compounds[i];
            (stream.isFeed ? balance.in : balance.out) += stream.flowRate * stream.composition[i];
        }
        const double flow = stream.flowRate * stream.enthalpy;
        (stream.isFeed ? energy.in : energy.out) += flow;
        energy.scale += std::abs(flow);
    }
    for (const ParameterResult& parameter : result.parameters) {
        const auto* power = std::get_if<double>(&parameter.value);
        if (!parameter.isPower || !power || std::isnan(*power)) continue;
        if (!parameter.isInput && !result.energies.empty()) continue;
        closure.supplied += *power;
        closure.suppliedBy.push_back(parameter.name);
        energy.scale += std::abs(*power);
    }
    for (const EnergyResult& stream : result.energies) {
        if (std::isnan(stream.work)) return std::nullopt;
        energy.scale += std::abs(stream.work);
        if (!stream.isFeed) {
            energy.out += stream.work;
            continue;
        }
        closure.supplied += stream.work;
        closure.suppliedBy.push_back(stream.port);
    }
    energy.in += closure.supplied;
    for (Balance& balance : closure.compounds) balance.scale = std::max(balance.in, balance.out);
    closure.elements = elementBalances(closure.compounds);
    return closure;
}

std::vector<std::string> Closure::warnings() const {
    std::vector<std::string> result;
    const auto check = [&](const Balance& balance, std::string_view unit, const std::string& note) {
        if (std::abs(balance.relative()) <= closureTolerance) return;
        result.push_back(
            fmt::format("{} does not close: in {:.7g}, out {:.7g}, difference {:.3g} {} ({:.2g} relative){}",
                        balance.name, balance.in, balance.out, balance.difference(), unit,
                        std::abs(balance.relative()), note));
    };
    const auto isOpen = [](const Balance& balance) {
        return std::abs(balance.relative()) > closureTolerance;
    };
    std::vector<std::string> changed;
    for (const Balance& balance : compounds) {
        if (isOpen(balance)) changed.push_back(fmt::format("{} {:+.3g}", balance.name, balance.difference()));
    }
    if (changed.empty() || std::ranges::any_of(elements, isOpen)) {
        for (const Balance& balance : compounds) check(balance, "mol/s", "");
    } else {
        result.push_back(fmt::format("compounds change, but their elements close, as in a reaction: {} mol/s",
                                     fmt::join(changed, ", ")));
    }
    check(energy, "W",
          suppliedBy.empty()
              ? "; no parameter is a power and no energy stream goes in, so nothing counts as supplied"
              : fmt::format("; supplied by '{}': {:.7g} W", fmt::join(suppliedBy, "', '"), supplied));
    return result;
}

}  // namespace orvane::host
