// What every object of ours does for a host: references, interfaces, and what becomes of an exception.
#include "cobia/Object.h"

#include "cobia/Adapters.h"
#include "cobia/Call.h"
#include "tests/cobia/FakeHost.h"

#include <array>
#include <atomic>
#include <doctest/doctest.h>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace COBIA;

namespace {

/// A unit and its identification; both do what the test tells them.
class Subject : public CapeOpenObject<Subject, IdentificationAdapter, UnitAdapter> {
public:
    explicit Subject(int* alive = nullptr) : alive_(alive) {
        if (alive_) ++*alive_;
    }
    ~Subject() override {
        if (alive_) --*alive_;
    }

    std::function<void()> behaviour = [] {};

    std::string name() const {
        behaviour();
        return "Größe";
    }
    void setName(const std::string&) { behaviour(); }
    std::string description() const { return "description"; }
    void setDescription(const std::string&) {}
    Ref<ICapeCollection> portCollection() { return nullptr; }
    CapeValidationStatus validationStatus() const { return CapeValidationStatus::valid; }
    void calculate() { behaviour(); }
    Verdict validate() {
        behaviour();
        return {false, "not yet"};
    }

    std::string errorSource() const override { return "the subject"; }

private:
    int* alive_;
};

const ICapeUnit::Table& tableOf(ICapeUnit* unit) { return *static_cast<const ICapeUnit::Table*>(unit->vTbl); }

CapeResult calculate(Subject& subject) {
    auto* const unit = subject.as<ICapeUnit>();
    return tableOf(unit).Calculate(unit->me);
}

/// The last error through the interface, as a host takes it.
CapeResult lastError(Subject& subject, Ref<ICapeError>& error) {
    auto* const unit = subject.as<ICapeUnit>();
    return tableOf(unit).base.getLastError(unit->me, error.receive());
}

struct ErrorTexts {
    std::string text, scope, source;
    bool operator==(const ErrorTexts&) const = default;
};

ErrorTexts textsOf(const Ref<ICapeError>& error) {
    const auto& table = *static_cast<const ICapeError::Table*>(error->vTbl);
    StringObject text, scope, source;
    table.getErrorText(error->me, text.out());
    table.getScope(error->me, scope.out());
    table.getSource(error->me, source.out());
    return {text.utf8(), scope.utf8(), source.utf8()};
}

Ref<ICapeError> causeOf(const Ref<ICapeError>& error) {
    Ref<ICapeError> cause;
    static_cast<const ICapeError::Table*>(error->vTbl)->getCause(error->me, cause.receive());
    return cause;
}

}  // namespace

TEST_CASE("An object lives until its last reference is released, through whichever interface") {
    int alive = 0;
    auto subject = makeObject<Subject>(&alive);
    CHECK(alive == 1);
    auto unit = query<ICapeUnit>(subject->as<ICapeIdentification>());
    subject = nullptr;
    CHECK(alive == 1);
    auto identification = query<ICapeIdentification>(unit);
    unit = nullptr;
    CHECK(alive == 1);
    CHECK(text<&ICapeIdentification::Table::getComponentName>(identification.get()) == "Größe");
    identification = nullptr;
    CHECK(alive == 0);
}

TEST_CASE("Every interface of an object answers for all of them, and for the object itself") {
    const auto subject = makeObject<Subject>();
    ICapeInterface* const interfaces[] = {subject->as<ICapeIdentification>(), subject->as<ICapeUnit>()};
    for (ICapeInterface* interface : interfaces) {
        CHECK(query<ICapeIdentification>(interface).get() == interfaces[0]);
        CHECK(query<ICapeUnit>(interface).get() == interfaces[1]);
        CHECK(query<ICapeInterface>(interface).get() == interfaces[0]);
        CHECK_FALSE(query<ICapeReport>(interface));
    }

    const auto& table = tableOf(subject->as<ICapeUnit>()).base;
    void* const me = subject->as<ICapeUnit>()->me;
    ICapeInterface* found = interfaces[0];
    CHECK(table.queryInterface(me, &ICapeReport::uuid, &found) == noSuchInterface);
    CHECK(found == nullptr);
    CHECK(table.queryInterface(me, &ICapeUnit::uuid, nullptr) == nullPointer);
    CHECK(table.queryInterface(me, nullptr, &found) == nullPointer);
}

TEST_CASE("A failure with a message becomes code 1 and a last error, handed out once") {
    const auto subject = makeObject<Subject>();
    Ref<ICapeError> error;
    CHECK(lastError(*subject, error) == noSuchItem);
    CHECK_FALSE(error);

    subject->behaviour = [] { throw StringException() << "Zero feed flow rate"; };
    CHECK(calculate(*subject) == capeOpenError);
    CHECK(lastError(*subject, error) == noError);
    CHECK(textsOf(error) == ErrorTexts{"Zero feed flow rate", "ICapeUnit::Calculate", "the subject"});
    CHECK_FALSE(causeOf(error));

    CHECK(lastError(*subject, error) == noSuchItem);
    CHECK_FALSE(error);
}

TEST_CASE("Each operation names its own scope, and a later failure replaces the one before") {
    const auto subject = makeObject<Subject>();
    subject->behaviour = [] { throw std::runtime_error("first"); };
    CHECK(calculate(*subject) == capeOpenError);

    subject->behaviour = [] { throw cape_open_error("second"); };
    auto* const identification = subject->as<ICapeIdentification>();
    const auto& table = *static_cast<const ICapeIdentification::Table*>(identification->vTbl);
    CHECK(table.putComponentName(identification->me, StringObject("x").in()) == capeOpenError);

    Ref<ICapeError> error;
    CHECK(lastError(*subject, error) == noError);
    CHECK(textsOf(error) == ErrorTexts{"second", "ICapeIdentification::ComponentName", "the subject"});
}

TEST_CASE("An exception with an empty message leaves an error with an empty text") {
    const auto subject = makeObject<Subject>();
    subject->behaviour = [] { throw std::runtime_error(""); };
    CHECK(calculate(*subject) == capeOpenError);
    Ref<ICapeError> error;
    REQUIRE(lastError(*subject, error) == noError);
    CHECK(textsOf(error) == ErrorTexts{"", "ICapeUnit::Calculate", "the subject"});
    CHECK_FALSE(causeOf(error));
}

TEST_CASE("A host's error passes through as the cause, unchanged") {
    HostError hostError("flash failed", "CalcEquilibrium", "stream");
    HostDiagnostic host(&hostError);
    const auto subject = makeObject<Subject>();
    subject->behaviour = [&] { call<&ICapeDiagnostic::Table::LogMessage>(&host, StringObject("x").in()); };
    CHECK(calculate(*subject) == capeOpenError);
    {
        Ref<ICapeError> error;
        REQUIRE(lastError(*subject, error) == noError);
        CHECK(textsOf(error) == ErrorTexts{"CAPE-OPEN error", "ICapeUnit::Calculate", "the subject"});
        CHECK(causeOf(error).get() == &hostError);
    }
    CHECK(hostError.references == 1);

    // Without an error object of the host's there is a description, and no cause.
    host.error = nullptr;
    CHECK(calculate(*subject) == capeOpenError);
    Ref<ICapeError> error;
    REQUIRE(lastError(*subject, error) == noError);
    CHECK(textsOf(error).text == errorDescription(capeOpenError));
    CHECK_FALSE(causeOf(error));
}

TEST_CASE("Other codes and other exceptions leave the last error as it was") {
    const auto subject = makeObject<Subject>();
    subject->behaviour = [] { throw StringException("kept"); };
    CHECK(calculate(*subject) == capeOpenError);

    for (const CapeResult code : std::array<CapeResult, 4>{denied, noSuchItem, invalidArgument, 4711}) {
        subject->behaviour = [=] { throw cape_open_error(code); };
        CHECK(calculate(*subject) == code);
    }
    subject->behaviour = [] { throw 42; };
    CHECK(calculate(*subject) == unknownFailure);
    subject->behaviour = [] {};
    CHECK(calculate(*subject) == noError);

    auto* const unit = subject->as<ICapeUnit>();
    CHECK(tableOf(unit).getValStatus(unit->me, nullptr) == nullPointer);

    Ref<ICapeError> error;
    REQUIRE(lastError(*subject, error) == noError);
    CHECK(textsOf(error).text == "kept");
}

TEST_CASE("A null output answers 103 before anything runs") {
    const auto subject = makeObject<Subject>();
    bool ran = false;
    subject->behaviour = [&] { ran = true; };
    auto* const unit = subject->as<ICapeUnit>();
    auto* const identification = subject->as<ICapeIdentification>();
    const auto& names = *static_cast<const ICapeIdentification::Table*>(identification->vTbl);
    StringObject message;
    CapeBoolean valid = 7;

    CHECK(names.getComponentName(identification->me, nullptr) == nullPointer);
    CHECK(names.putComponentName(identification->me, nullptr) == nullPointer);
    CHECK(tableOf(unit).ports(unit->me, nullptr) == nullPointer);
    CHECK(tableOf(unit).Validate(unit->me, nullptr, &valid) == nullPointer);
    CHECK(tableOf(unit).Validate(unit->me, message.out(), nullptr) == nullPointer);
    CHECK(tableOf(unit).base.getLastError(unit->me, nullptr) == nullPointer);
    CHECK_FALSE(ran);
    CHECK(valid == 7);

    Ref<ICapeError> error;
    CHECK(lastError(*subject, error) == noSuchItem);
}

TEST_CASE("An output that refuses to be written is the code of the operation") {
    const auto subject = makeObject<Subject>();
    auto* const identification = subject->as<ICapeIdentification>();
    const auto& names = *static_cast<const ICapeIdentification::Table*>(identification->vTbl);
    CHECK(names.getComponentName(identification->me, StringObject("input").in()) == denied);
}

TEST_CASE("References, interfaces and last errors are taken on many threads at once") {
    constexpr int threads = 8, rounds = 2000;
    int alive = 0;
    HostError hostError("cause", "scope", "source");
    std::atomic<int> failures = 0;
    {
        const auto subject = makeObject<Subject>(&alive);
        std::vector<std::thread> workers;
        for (int i = 0; i < threads; ++i) {
            workers.emplace_back([&, i] {
                const auto unit = query<ICapeUnit>(subject->as<ICapeIdentification>());
                for (int round = 0; round < rounds; ++round) {
                    const auto again = query<ICapeIdentification>(unit);
                    const auto copy = again;
                    if (!copy) ++failures;

                    if (i % 2 == 0) {
                        HostDiagnostic host(&hostError);
                        subject->storeLastError(cape_open_error(capeOpenError, &host), "scope");
                    } else if (const auto error = subject->takeLastError()) {
                        if (causeOf(error).get() != &hostError) ++failures;
                    }
                }
            });
        }
        for (auto& worker : workers) worker.join();
        CHECK(alive == 1);
    }
    CHECK(alive == 0);
    CHECK(failures == 0);
    CHECK(hostError.references == 1);
}

TEST_CASE("An error object is released by whichever thread holds it last") {
    constexpr int threads = 8, rounds = 200;
    HostError cause("cause", "scope", "source");
    std::atomic<int> wrongTexts = 0;
    for (int round = 0; round < rounds; ++round) {
        auto error = makeError("text", "scope", "source", Ref<ICapeError>::share(&cause));
        std::vector<std::thread> holders;
        for (int i = 0; i < threads; ++i)
            holders.emplace_back([held = error, &wrongTexts] {
                if (textsOf(held) != ErrorTexts{"text", "scope", "source"}) ++wrongTexts;
            });
        error = nullptr;
        for (auto& holder : holders) holder.join();
    }
    CHECK(cause.references == 1);
    CHECK(wrongTexts == 0);
}
