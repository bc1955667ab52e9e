#include "parameters/MakeParameter.h"

#include "parameters/BooleanParameter.h"
#include "parameters/IntegerParameter.h"
#include "parameters/RealArrayParameter.h"
#include "parameters/RealParameter.h"
#include "parameters/StringParameter.h"

namespace orvane {
namespace {

template <class Values> struct TypeFor;
template <> struct TypeFor<RealValues> { using type = RealParameter; };
template <> struct TypeFor<IntegerValues> { using type = IntegerParameter; };
template <> struct TypeFor<StringValues> { using type = StringParameter; };
template <> struct TypeFor<BooleanValues> { using type = BooleanParameter; };
template <> struct TypeFor<RealArrayValues> { using type = RealArrayParameter; };

}  // namespace

COBIA::Ref<Parameter> makeParameter(ParameterOwner& owner, const ParameterDeclaration& declaration) {
    return std::visit(
        [&]<class Values>(const Values&) -> COBIA::Ref<Parameter> {
            return COBIA::makeObject<typename TypeFor<Values>::type>(owner, declaration);
        },
        declaration.values);
}

}  // namespace orvane
