#pragma once
// A run-time error as an exception, for tests that must observe the end of the program.
#include "platform/base/failure.h"

#include <stdexcept>
#include <utility>

namespace velm::test {

struct Arret : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// While one lives, a run-time error throws Arret.
class GardeArret {
public:
    GardeArret()
        : avant_(
              setRuntimeErrorHandler([](const RuntimeFailure& f) { throw Arret(f.parts.join(u' ').toStdString()); })) {}
    ~GardeArret() { setRuntimeErrorHandler(std::move(avant_)); }
    GardeArret(const GardeArret&) = delete;
    GardeArret& operator=(const GardeArret&) = delete;

private:
    RuntimeErrorHandler avant_;
};

} // namespace velm::test
