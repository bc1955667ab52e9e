#include "streams/ParameterChoice.h"

#include "parameters/Dimensionality.h"

namespace orvane {

using namespace COBIA;

namespace {

/// The real-parameter interface of an item with the dimension; empty for all else.
Ref<ICapeRealParameter> suitable(const Ref<ICapeInterface>& item, std::span<const double> dimensionality) {
    const auto parameter = query<ICapeParameter>(item);
    if (!parameter) return nullptr;
    CapeParamType type{};
    call<&ICapeParameter::Table::getType>(parameter, &type);
    if (type != CapeParamType::real) return nullptr;
    auto real = query<ICapeRealParameter>(item);
    if (!real) return nullptr;
    RealArray own;
    call<&ICapeRealParameter::Table::getDimensionality>(real, own.out());
    return sameDimensionality(own.view(), dimensionality) ? real : nullptr;
}

CapeInteger countOf(const Ref<ICapeCollection>& collection) {
    CapeInteger count = 0;
    call<&ICapeCollection::Table::getCount>(collection, &count);
    return count;
}

}  // namespace

std::string chooseParameter(const Ref<ICapeCollection>& collection, const ParameterSpecification& wanted) {
    std::string chosen;
    int bestScore = 0;
    const CapeInteger count = countOf(collection);
    for (CapeInteger i = 0; i < count; ++i) {
        if (countOf(collection) != count) throw cape_open_error(invalidOperation);
        const auto item = obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(collection.get(), i);
        if (!suitable(item, wanted.dimensionality())) continue;
        const auto identification = query<ICapeIdentification>(item);
        if (!identification) continue;  // without a name it cannot be looked up again
        std::string name = text<&ICapeIdentification::Table::getComponentName>(identification.get());
        const int score = equalIgnoringCase(name, wanted.name()) ? 3 : 1;
        if (score <= bestScore) continue;
        chosen = std::move(name);
        bestScore = score;
    }
    if (countOf(collection) != count) throw cape_open_error(invalidOperation);
    if (bestScore == 0)
        throw cape_open_error("object does not contain suitable real parameter with equal dimensionality");
    return chosen;
}

}  // namespace orvane
