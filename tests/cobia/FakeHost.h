// Host objects for tests: an error object that can be told what to withhold, and an interface that fails with
// it.
#pragma once

#include "cobia/Data.h"
#include "cobia/Error.h"

#include <atomic>
#include <string>

/// Lives on the test's stack; `references` is 1 when all who took it have released it.
class HostError : public COBIA::ICapeError {
public:
    HostError(std::string text, std::string scope, std::string source, HostError* cause = nullptr)
        : ICapeError{{this, &table}},
          text_(std::move(text)),
          scope_(std::move(scope)),
          source_(std::move(source)),
          cause_(cause) {}

    std::atomic<int> references = 1;
    // What the getters answer; on any other code than success they leave nonsense in their outputs.
    COBIA::CapeResult textCode = COBIA::noError, scopeCode = COBIA::noError, sourceCode = COBIA::noError,
                      causeCode = COBIA::noError;

private:
    static HostError& self(void* me) { return *static_cast<HostError*>(me); }

    template <std::string HostError::*text, COBIA::CapeResult HostError::*code>
    static COBIA::CapeResult get(void* me, COBIA::ICapeString* out) {
        write(out, COBIA::toCape(self(me).*code == COBIA::noError ? self(me).*text : "nonsense"));
        return self(me).*code;
    }
    static COBIA::CapeResult getCause(void* me, COBIA::ICapeError** out) {
        if (self(me).causeCode != COBIA::noError) {
            *out = reinterpret_cast<COBIA::ICapeError*>(0x10);
            return self(me).causeCode;
        }
        *out = self(me).cause_;
        if (self(me).cause_) ++self(me).cause_->references;
        return COBIA::noError;
    }

    static const Table table;

    std::string text_, scope_, source_;
    HostError* cause_;
};

inline const HostError::Table HostError::table = {
    .addReference = [](void* me) { ++self(me).references; },
    .release = [](void* me) { --self(me).references; },
    .getErrorText = get<&HostError::text_, &HostError::textCode>,
    .getCause = getCause,
    .getSource = get<&HostError::source_, &HostError::sourceCode>,
    .getScope = get<&HostError::scope_, &HostError::scopeCode>,
};

/// A host's diagnostics of which every operation answers `code` and leaves `error` behind.
class HostDiagnostic : public COBIA::ICapeDiagnostic {
public:
    explicit HostDiagnostic(HostError* lastError = nullptr) : error(lastError) {
        me = this;
        vTbl = &table;
    }

    COBIA::CapeResult code = COBIA::capeOpenError;
    HostError* error;
    int references = 1;
    int lastErrorsAsked = 0;
    std::string logged;

private:
    static HostDiagnostic& self(void* me) { return *static_cast<HostDiagnostic*>(me); }

    static const Table table;
};

inline const HostDiagnostic::Table HostDiagnostic::table = {
    .base =
        {
            .addReference = [](void* me) { ++self(me).references; },
            .release = [](void* me) { --self(me).references; },
            .queryInterface =
                [](void* me, const COBIA::CapeUUID* uuid, COBIA::ICapeInterface** found) {
                    *found = reinterpret_cast<COBIA::ICapeInterface*>(0x10);
                    if (*uuid != COBIA::ICapeDiagnostic::uuid)
                        return COBIA::CapeResult{COBIA::noSuchInterface};
                    *found = &self(me);
                    ++self(me).references;
                    return COBIA::CapeResult{COBIA::noError};
                },
            .getLastError =
                [](void* me, COBIA::ICapeError** out) {
                    ++self(me).lastErrorsAsked;
                    *out = reinterpret_cast<COBIA::ICapeError*>(0x10);
                    if (!self(me).error) return COBIA::CapeResult{COBIA::noSuchItem};
                    *out = self(me).error;
                    ++self(me).error->references;
                    return COBIA::CapeResult{COBIA::noError};
                },
        },
    .PopUpMessage = [](void* me, COBIA::ICapeString*) { return self(me).code; },
    .LogMessage =
        [](void* me, COBIA::ICapeString* message) {
            self(me).logged += COBIA::toUtf8(COBIA::read(message));
            return self(me).code;
        },
};
