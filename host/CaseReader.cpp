#include "host/CaseReader.h"

#include "cobia/Text.h"
#include "host/CaseToml.h"
#include "host/CaseValues.h"
#include "host/NearestName.h"
#include "host/Path.h"
#include "host/TextFile.h"
#include "package/CompoundTable.h"
#include "package/PackageError.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <numeric>

namespace orvane::host {
namespace {

using package::CompoundTable;

constexpr double sumTolerance = 1e-6;

/// Walks the document; every error it throws names the file and the line.
class Reader : CaseToml {
public:
    explicit Reader(const std::filesystem::path& file) : CaseToml(file) { case_.file = file; }

    CaseFile read(const toml::table& root) {
        checkKeys(root, "", {"package", "unit", "streams", "energy", "information"});
        const auto* package = root.get("package");
        if (!package) fail(1, "there is no [package], which says the model and the compounds of the streams");
        readPackage(table(*package, "package"));
        if (const auto* unit = root.get("unit")) readUnit(table(*unit, "unit"));
        if (const auto* streams = root.get("streams")) {
            for (const auto& [port, stream] : table(*streams, "streams")) {
                readStream(std::string(port.str()), lineOf(port),
                           table(stream, fmt::format("streams.{}", port.str())));
            }
        }
        if (const auto* energies = root.get("energy")) {
            for (const auto& [port, energy] : table(*energies, "energy")) {
                const std::string name(port.str());
                case_.energies.push_back(
                    readEnergy(*this, name, lineOf(port), table(energy, "energy." + name)));
            }
        }
        if (const auto* informations = root.get("information")) {
            for (const auto& [port, information] : table(*informations, "information")) {
                const std::string name(port.str());
                case_.informations.push_back(
                    readInformation(*this, name, lineOf(port), table(information, "information." + name)));
            }
        }
        return std::move(case_);
    }

private:
    const package::Compound& compound(const std::string& name, int line) const {
        try {
            return CompoundTable::instance().at(name);
        }
        catch (const package::PackageError& error) {
            fail(line, error.what());
        }
    }

    void readPackage(const toml::table& in) {
        checkKeys(in, "package", {"model", "compounds", "interaction"});
        const int line = lineOf(in);
        std::string model(package::modelNames().front());
        if (const auto* given = in.get("model")) {
            model = text(*given, "model");
            if (std::ranges::none_of(package::modelNames(),
                                     [&](auto known) { return COBIA::equalIgnoringCase(model, known); })) {
                fail(lineOf(*given), fmt::format("unknown model '{}'; known: '{}'", model,
                                                 fmt::join(package::modelNames(), "', '")));
            }
        }
        const auto* compounds = in.get("compounds");
        if (!compounds)
            fail(line, "[package] has no 'compounds'; name them: compounds = [\"methane\", \"ethane\"]");
        std::vector<package::Compound> chosen;
        for (const auto& node : array(*compounds, "compounds")) {
            chosen.push_back(compound(text(node, "compounds"), lineOf(node)));
        }
        if (chosen.empty())
            fail(lineOf(*compounds), "'compounds' is empty; a package takes one compound at least");

        std::vector<package::Interaction> overrides;
        if (const auto* interactions = in.get("interaction")) {
            for (const auto& node : array(*interactions, "interaction")) {
                overrides.push_back(readInteraction(table(node, "package.interaction")));
            }
        }
        try {
            case_.package = std::make_shared<PropertyPackage>(std::move(chosen), overrides, model);
        }
        catch (const package::PackageError& error) {
            fail(lineOf(*compounds), error.what());
        }
    }

    package::Interaction readInteraction(const toml::table& in) const {
        checkKeys(in, "package.interaction", {"pair", "kij"});
        const auto* pair = in.get("pair");
        const auto* kij = in.get("kij");
        if (!pair || !kij) fail(lineOf(in), "an interaction takes 'pair', two compounds, and 'kij'");
        const auto& names = array(*pair, "pair");
        if (names.size() != 2) fail(lineOf(*pair), "'pair' is to name two compounds");
        return {compound(text(names[0], "pair"), lineOf(*pair)).id,
                compound(text(names[1], "pair"), lineOf(*pair)).id, number(*kij, "kij")};
    }

    void readUnit(const toml::table& in) {
        checkKeys(in, "unit", {"script", "name", "parameters"});
        if (const auto* script = in.get("script")) case_.script = scriptOf(*script);
        if (const auto* name = in.get("name")) case_.unitName = text(*name, "name");
        if (const auto* parameters = in.get("parameters")) {
            for (const auto& [name, value] : table(*parameters, "unit.parameters")) {
                case_.parameters.push_back({std::string(name.str()),
                                            parameterValue(std::string(name.str()), value),
                                            fmt::format("{}:{}", textOf(case_.file), lineOf(name))});
            }
        }
    }

    std::string scriptOf(const toml::node& node) const {
        const std::filesystem::path script = case_.file.parent_path() / pathOf(text(node, "script"));
        try {
            return readScript(script);
        }
        catch (const std::runtime_error& error) {
            fail(lineOf(node),
                 fmt::format("the script '{}' cannot be read: {}", textOf(script), error.what()));
        }
    }

    CaseValue parameterValue(const std::string& name, const toml::node& node) const {
        switch (node.type()) {
        case toml::node_type::string: return node.as_string()->get();
        case toml::node_type::boolean: return node.as_boolean()->get();
        case toml::node_type::integer: return node.as_integer()->get();
        case toml::node_type::floating_point: return node.as_floating_point()->get();
        case toml::node_type::array: {
            std::vector<double> values;
            for (const auto& element : *node.as_array()) {
                const auto value = element.is_number() ? element.value<double>() : std::nullopt;
                if (!value) {
                    fail(lineOf(element), fmt::format("parameter '{}': an array holds numbers, not {}", name,
                                                      typeName(element)));
                }
                values.push_back(*value);
            }
            return values;
        }
        default:
            fail(lineOf(node),
                 fmt::format("parameter '{}' is to be a number, a text, true or false, or an array "
                             "of numbers, not {}",
                             name, typeName(node)));
        }
    }

    void readStream(const std::string& port, int line, const toml::table& in) {
        CaseStream stream{port, line, std::nullopt};
        const std::string where = fmt::format("streams.{}", port);
        checkKeys(in, where,
                  {"temperature", "pressure", "vapor_fraction", "enthalpy", "entropy", "volume", "flow_rate",
                   "composition"});
        if (!in.empty()) stream.state = readState(where, line, in);
        case_.streams.push_back(std::move(stream));
    }

    CaseState readState(const std::string& where, int line, const toml::table& in) const {
        std::vector<Condition> conditions;
        for (const ConditionKind kind :
             {ConditionKind::temperature, ConditionKind::pressure, ConditionKind::vaporFraction,
              ConditionKind::enthalpy, ConditionKind::entropy, ConditionKind::volume}) {
            const auto* node = in.get(conditionName(kind));
            if (!node) continue;
            const double value = number(*node, conditionName(kind));
            const bool absolute = kind == ConditionKind::temperature || kind == ConditionKind::pressure ||
                                  kind == ConditionKind::volume;
            if (absolute && value <= 0) {
                fail(lineOf(*node),
                     fmt::format("'{}' is {}, which is not positive{}", conditionName(kind), value,
                                 kind == ConditionKind::temperature ? "; it is in K" : ""));
            }
            if (kind == ConditionKind::vaporFraction && (value < 0 || value > 1)) {
                fail(lineOf(*node),
                     fmt::format("'{}' is {}, which is not between 0 and 1", conditionName(kind), value));
            }
            conditions.push_back({kind, value});
        }
        if (conditions.size() != 2) {
            fail(line,
                 fmt::format(
                     "[{}] has {} of the conditions temperature [K], pressure [Pa], vapor_fraction "
                     "[mol/mol], enthalpy [J/mol], entropy [J/mol/K], volume [m3/mol]; a stream takes two "
                     "of them",
                     where, conditions.size()));
        }
        if (!PropertyPackage::supports(conditions[0].kind, conditions[1].kind)) {
            fail(line, fmt::format(
                           "[{}]: {} and {} together are not supported; temperature or pressure with one of "
                           "the others is",
                           where, conditionName(conditions[0].kind), conditionName(conditions[1].kind)));
        }
        const auto* flow = in.get("flow_rate");
        if (!flow) fail(line, fmt::format("[{}] has no 'flow_rate' [mol/s]", where));
        const double flowRate = number(*flow, "flow_rate");
        if (flowRate < 0) fail(lineOf(*flow), fmt::format("'flow_rate' is {}, which is negative", flowRate));
        const auto* composition = in.get("composition");
        if (!composition) {
            fail(line, fmt::format(
                           "[{}] has no 'composition'; write composition = {{ methane = 0.9, ethane = 0.1 }}",
                           where));
        }
        return {conditions[0], conditions[1], flowRate, readComposition(*composition)};
    }

    std::vector<double> readComposition(const toml::node& node) const {
        const auto& ids = case_.package->ids();
        std::vector<double> fractions(ids.size());
        if (const auto* given = node.as_array()) {
            if (given->size() != ids.size()) {
                fail(lineOf(node), fmt::format("'composition' has {} fractions for {} compounds ({})",
                                               given->size(), ids.size(), listed(ids)));
            }
            for (std::size_t i = 0; i < ids.size(); ++i) fractions[i] = fraction((*given)[i], ids[i]);
        } else {
            std::vector<bool> seen(ids.size());
            for (const auto& [name, value] : table(node, "composition")) {
                const std::size_t i = indexOf(std::string(name.str()), lineOf(name));
                if (seen[i])
                    fail(lineOf(name), fmt::format("compound '{}' stands in 'composition' twice", ids[i]));
                seen[i] = true;
                fractions[i] = fraction(value, ids[i]);
            }
        }
        const double sum = std::accumulate(fractions.begin(), fractions.end(), 0.0);
        if (!(std::abs(sum - 1) <= sumTolerance)) {
            fail(lineOf(node),
                 fmt::format("the mole fractions of 'composition' add up to {:.7g}, not to 1", sum));
        }
        for (double& value : fractions) value /= sum;
        return fractions;
    }

    double fraction(const toml::node& node, const std::string& compound) const {
        const double value = number(node, compound);
        if (value < 0)
            fail(lineOf(node),
                 fmt::format("the mole fraction of '{}' is {}, which is negative", compound, value));
        return value;
    }

    std::size_t indexOf(const std::string& name, int line) const {
        const auto& ids = case_.package->ids();
        const package::Compound* found = CompoundTable::instance().find(name);
        const auto position = std::ranges::find(ids, found ? found->id : name);
        if (position == ids.end()) {
            fail(line, fmt::format("the package has no compound '{}'{}", name, suggestion(name, ids)));
        }
        return static_cast<std::size_t>(position - ids.begin());
    }

    CaseFile case_;
};

}  // namespace

CaseFile readCase(const std::filesystem::path& file) {
    std::string text;
    try {
        text = readText(file);
    }
    catch (const std::runtime_error& error) {
        throw CaseError(fmt::format("{}: the case file cannot be read: {}", textOf(file), error.what()));
    }
    return readCase(text, file);
}

CaseFile readCase(std::string_view text, const std::filesystem::path& file) {
    try {
        return Reader(file).read(toml::parse(text, textOf(file)));
    }
    catch (const toml::parse_error& error) {
        throw CaseError(file, static_cast<int>(error.source().begin.line), std::string(error.description()));
    }
}

std::pair<std::string, std::string> readAssignment(std::string_view text, std::string_view option,
                                                   std::string_view form) {
    const auto trimmed = [](std::string_view part) {
        while (!part.empty() && part.front() == ' ') part.remove_prefix(1);
        while (!part.empty() && part.back() == ' ') part.remove_suffix(1);
        return std::string(part);
    };
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || trimmed(text.substr(0, equals)).empty()) {
        throw CaseError(fmt::format("{} '{}' is not {}", option, text, form));
    }
    return {trimmed(text.substr(0, equals)), trimmed(text.substr(equals + 1))};
}

CaseParameter readSetting(std::string_view text) {
    auto [name, value] = readAssignment(text, "--set", "NAME=VALUE, such as --set \"Heat Duty=5e4\"");
    return {std::move(name), RawText{std::move(value)}, "--set"};
}

}  // namespace orvane::host
