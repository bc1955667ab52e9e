#include "cobia/Ref.h"

#include <doctest/doctest.h>
#include <functional>
#include <utility>

using namespace COBIA;

namespace {

struct CountedThing {
    int references = 1;
    std::function<void()> onRelease = [] {};

    void addReference() { ++references; }
    void release() {
        --references;
        onRelease();
    }
};
struct DerivedThing : CountedThing {};

/// A host's interface of which only the count is of interest.
struct HostInterface : ICapeInterface {
    HostInterface() : ICapeInterface{{this, &table}} {}
    int references = 1;

    static const ICapeInterface::Table table;
};
const ICapeInterface::Table HostInterface::table = {
    .addReference = [](void* me) { ++static_cast<HostInterface*>(me)->references; },
    .release = [](void* me) { --static_cast<HostInterface*>(me)->references; },
    .queryInterface = nullptr,
    .getLastError = nullptr,
};

}  // namespace

TEST_CASE("A handle gives back as many references as it took") {
    CountedThing thing;
    {
        const auto adopted = Ref<CountedThing>::adopt(&thing);
        CHECK(thing.references == 1);
        const auto shared = Ref<CountedThing>::share(&thing);
        CHECK(thing.references == 2);
        const Ref<CountedThing> copy = shared;
        CHECK(thing.references == 3);
        CHECK(copy == adopted);
    }
    CHECK(thing.references == 0);
}

TEST_CASE("Moving a handle moves its reference") {
    CountedThing thing;
    auto first = Ref<CountedThing>::adopt(&thing);
    Ref<CountedThing> second = std::move(first);
    CHECK(second.get() == &thing);
    CHECK_FALSE(first);  // the moved-from handle is empty by contract
    CHECK(thing.references == 1);

    first = std::move(second);
    CHECK(thing.references == 1);
    auto& same = first;
    first = same;
    CHECK(first.get() == &thing);
    CHECK(thing.references == 1);
}

TEST_CASE("Assigning releases what was held, when the handle is whole again") {
    CountedThing old, fresh;
    auto handle = Ref<CountedThing>::adopt(&old);
    CountedThing* seen = nullptr;
    old.onRelease = [&] { seen = handle.get(); };
    handle = Ref<CountedThing>::adopt(&fresh);
    CHECK(old.references == 0);
    CHECK(seen == &fresh);

    handle = nullptr;
    CHECK(fresh.references == 0);
    CHECK_FALSE(handle);
}

TEST_CASE("A handle gives its reference away or receives one") {
    CountedThing thing, other;
    auto handle = Ref<CountedThing>::adopt(&thing);
    CHECK(handle.detach() == &thing);
    CHECK_FALSE(handle);
    CHECK(thing.references == 1);

    handle = Ref<CountedThing>::adopt(&thing);
    *handle.receive() = &other;
    CHECK(thing.references == 0);
    CHECK(handle.get() == &other);
    handle = nullptr;
    CHECK(other.references == 0);
}

TEST_CASE("A handle to a derived thing becomes one to its base") {
    DerivedThing thing;
    {
        const Ref<CountedThing> base = Ref<DerivedThing>::adopt(&thing);
        CHECK(base.get() == &thing);
        CHECK(thing.references == 1);
    }
    CHECK(thing.references == 0);
}

TEST_CASE("A handle counts on an interface through its table") {
    HostInterface host;
    {
        const auto shared = Ref<ICapeInterface>::share(&host);
        CHECK(host.references == 2);
        const auto copy = shared;
        CHECK(host.references == 3);
    }
    CHECK(host.references == 1);
    CHECK_FALSE(Ref<ICapeInterface>::share(nullptr));
}
