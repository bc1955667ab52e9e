#include "cobia/Error.h"

#include "cobia/Call.h"
#include "tests/cobia/FakeHost.h"

#include <doctest/doctest.h>
#include <stdexcept>
#include <string>

using namespace COBIA;

namespace {

/// What a caller of the host catches.
cape_open_error failureOf(HostDiagnostic& host) {
    try {
        call<&ICapeDiagnostic::Table::LogMessage>(&host, StringObject("message").in());
    }
    catch (const cape_open_error& error) {
        return error;
    }
    throw std::logic_error("the call succeeded");
}

std::string messageOf(HostError& error) {
    HostDiagnostic host(&error);
    return failureOf(host).what();
}

/// Our own texts whatever a runtime says, again at the end of a test.
struct OwnDescriptions {
    ~OwnDescriptions() { setErrorDescriptions(nullptr); }
};

}  // namespace

TEST_CASE("A host's error tells its scope, source and text, and the whole chain of its causes") {
    HostError innermost("no root in [0, 1]", "Flash::TP", "Peng-Robinson");
    HostError middle("flash failed", "ICapeThermoEquilibriumRoutine::CalcEquilibrium", "Ströme", &innermost);
    HostError outer("cannot solve", "ICapeUnit::Calculate", "unit", &middle);

    CHECK(messageOf(innermost) == "in Flash::TP of Peng-Robinson: no root in [0, 1]");
    CHECK(messageOf(middle) == "in ICapeThermoEquilibriumRoutine::CalcEquilibrium of Ströme: flash failed, "
                               "caused by: in Flash::TP of Peng-Robinson: no root in [0, 1]");
    CHECK(messageOf(outer) ==
          "in ICapeUnit::Calculate of unit: cannot solve, "
          "caused by: in ICapeThermoEquilibriumRoutine::CalcEquilibrium of Ströme: flash failed, "
          "caused by: in Flash::TP of Peng-Robinson: no root in [0, 1]");
    CHECK(innermost.references == 1);
    CHECK(middle.references == 1);
    CHECK(outer.references == 1);
}

TEST_CASE("What a host's error withholds is said to be unknown") {
    HostError error("text", "scope", "source");
    error.scopeCode = capeOpenError;
    CHECK(messageOf(error) == "in <unknown scope> of source: text");
    error.sourceCode = capeOpenError;
    CHECK(messageOf(error) == "in <unknown scope> of <unknown source>: text");
    error.textCode = capeOpenError;
    CHECK(messageOf(error) == "in <unknown scope> of <unknown source>: Failed to obtain error text; " +
                                  errorDescription(capeOpenError));

    HostError cause("cause", "a", "b");
    HostError cut("text", "scope", "source", &cause);
    cut.causeCode = unknownFailure;
    CHECK(messageOf(cut) == "in scope of source: text");
    CHECK(cause.references == 1);

    HostError silent("", "", "");
    CHECK(messageOf(silent) == "in  of : ");
}

TEST_CASE("Percent marks in a host's texts are only texts") {
    HostError cause("%SCOPE%", "%SCOPE%", "%SOURCE%");
    HostError error("100 %SOURCE% %s", "a %SOURCE% b", "c %SCOPE% d", &cause);
    CHECK(messageOf(error) == "in a %SOURCE% b of c %SCOPE% d: 100 %SOURCE% %s, "
                              "caused by: in %SCOPE% of %SOURCE%: %SCOPE%");
}

TEST_CASE("A failed call throws the code, and the host's own error object for code 1 only") {
    HostError error("text", "scope", "source");
    HostDiagnostic host(&error);
    {
        const auto failure = failureOf(host);
        CHECK(failure.code() == capeOpenError);
        CHECK(failure.errorObject() == &error);
        CHECK(failure.directText() == "text");
        CHECK(error.references == 2);

        const cape_open_error copy = failure;
        CHECK(copy.errorObject() == &error);
        CHECK(error.references == 3);
        CHECK(std::string(copy.what()) == failure.what());
    }
    CHECK(error.references == 1);
    CHECK(host.lastErrorsAsked == 1);

    host.code = invalidArgument;
    const auto bare = failureOf(host);
    CHECK(bare.code() == invalidArgument);
    CHECK(bare.errorObject() == nullptr);
    CHECK(bare.what() == errorDescription(invalidArgument));
    CHECK(host.lastErrorsAsked == 1);

    host.code = noError;
    CHECK_NOTHROW(call<&ICapeDiagnostic::Table::LogMessage>(&host, StringObject("!").in()));
    CHECK(host.logged == "messagemessage!");
    CHECK(host.references == 1);
}

TEST_CASE("A host that fails with code 1 and has no error object is described by the code") {
    HostDiagnostic host;
    const auto failure = failureOf(host);
    CHECK(failure.code() == capeOpenError);
    CHECK(failure.errorObject() == nullptr);
    CHECK(failure.what() == errorDescription(capeOpenError));
}

TEST_CASE("A direct text that the host withholds is said to be missing") {
    HostError error("text", "scope", "source");
    error.textCode = unknownFailure;
    HostDiagnostic host(&error);
    CHECK(failureOf(host).directText() == "Failed to obtain error text; " + errorDescription(capeOpenError));
}

TEST_CASE("A null interface is never called") {
    ICapeDiagnostic* nobody = nullptr;
    try {
        call<&ICapeDiagnostic::Table::LogMessage>(nobody, StringObject("x").in());
        FAIL("nothing was thrown");
    }
    catch (const cape_open_error& error) {
        CHECK(error.code() == nullPointer);
        CHECK(error.errorObject() == nullptr);
        CHECK(error.what() == errorDescription(nullPointer));
    }
    CHECK_FALSE(query<ICapeDiagnostic>(nobody));
}

TEST_CASE("Asking for an interface gives a reference, or nothing") {
    HostDiagnostic host;
    {
        const auto found = query<ICapeDiagnostic>(&host);
        CHECK(found.get() == &host);
        CHECK(host.references == 2);
    }
    CHECK(host.references == 1);
    CHECK_FALSE(query<ICapeUnit>(&host));
}

TEST_CASE("A message of our own is the whole text, an empty one too") {
    for (const std::string& message :
         {std::string("Zero feed flow rate"), std::string(), std::string("50 %SCOPE%")}) {
        const cape_open_error error(message);
        CHECK(error.code() == capeOpenError);
        CHECK(error.what() == message);
        CHECK(error.directText() == message);
        CHECK(error.errorObject() == nullptr);
    }
    CHECK(std::string(cape_open_error(std::runtime_error("plain")).what()) == "plain");
    CHECK(cape_open_error(denied).what() == errorDescription(denied));
}

TEST_CASE("A message is composed of texts and numbers") {
    const StringException error = StringException()
                                  << "port '" << std::string("Feed") << "' has " << 3 << " of " << 2.5;
    CHECK(std::string(error.what()) == "port 'Feed' has 3 of 2.5");
    CHECK(std::string(StringException().what()).empty());
    CHECK(std::string(StringException("given").what()) == "given");
}

TEST_CASE("Codes are described by the runtime where it knows them, else by our table") {
    const OwnDescriptions restored;
    const std::string ours = errorDescription(denied);
    CHECK_FALSE(ours.empty());
    CHECK(errorDescription(4711).find("4711") != std::string::npos);

    setErrorDescriptions(
        [](CapeResult code) { return code == nullPointer ? std::string("runtime: null") : ""; });
    CHECK(errorDescription(nullPointer) == "runtime: null");
    CHECK(errorDescription(denied) == ours);
    CHECK(std::string(cape_open_error(nullPointer).what()) == "runtime: null");
}

TEST_CASE("An error object gives its texts and its cause, and nothing to a null pointer") {
    HostError cause("cause", "scope", "source");
    {
        const auto error = makeError("Größe", "ICapeUnit::Calculate", "unit", Ref<ICapeError>::share(&cause));
        CHECK(cause.references == 2);
        const auto& table = *static_cast<const ICapeError::Table*>(error->vTbl);
        const auto text = [&](auto getter) {
            StringObject result("before");
            CHECK(getter(error->me, result.out()) == noError);
            CHECK(getter(error->me, nullptr) == nullPointer);
            return result.utf8();
        };
        CHECK(text(table.getErrorText) == "Größe");
        CHECK(text(table.getScope) == "ICapeUnit::Calculate");
        CHECK(text(table.getSource) == "unit");

        Ref<ICapeError> handedOut;
        CHECK(table.getCause(error->me, handedOut.receive()) == noError);
        CHECK(handedOut.get() == &cause);
        CHECK(cause.references == 3);
        CHECK(table.getCause(error->me, nullptr) == nullPointer);
    }
    CHECK(cause.references == 1);

    const auto alone = makeError("", "", "", nullptr);
    ICapeError* none = &cause;
    CHECK(static_cast<const ICapeError::Table*>(alone->vTbl)->getCause(alone->me, &none) == noError);
    CHECK(none == nullptr);
}
