#include "thermo/PropertyName.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace orvane {
namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>()(text);
    }
};
template <class Value> using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

/// What is known of a property's basis, by its name in lower case.
TextMap<Basis> knownBases() {
    TextMap<Basis> bases;
    for (const char* name :
         {"density", "enthalpy", "enthalpyf", "enthalpynf", "entropy", "entropyf", "entropynf",
          "excessenthalpy", "excessentropy", "excessgibbsenergy", "excesshelmholtzenergy",
          "excessinternalenergy", "excessvolume", "gibbsenergy", "heatcapacitycp", "heatcapacitycv",
          "helmholtzenergy", "internalenergy", "volume"})
        bases[name] = Basis::mole;
    for (const char* name :
         {"activity", "activitycoefficient", "compressibility", "compressibilityfactor",
          "diffusioncoefficient", "dissociationconstant", "fugacity", "fugacitycoefficient",
          "joulethomsoncoefficient", "logfugacity", "logfugacitycoefficient", "meanactivitycoefficient",
          "osmoticcoefficient", "ph", "poh", "speedofsound", "thermalconductivity", "viscosity"})
        bases[name] = Basis::none;
    return bases;
}

struct Tables {
    TextMap<Basis> bases = knownBases();  // its elements never move
    TextMap<std::unique_ptr<PropertyName>> names;
};

}  // namespace

const PropertyName& PropertyName::of(std::string_view text) {
    static Tables& tables = *new Tables;  // never destroyed: scripts may run while static objects go
    const auto found = tables.names.find(text);
    if (found != tables.names.end()) return *found->second;
    Basis& basis = tables.bases.try_emplace(COBIA::lowerCase(text), Basis::unknown).first->second;
    return *tables.names.emplace(text, std::make_unique<PropertyName>(text, basis)).first->second;
}

}  // namespace orvane
