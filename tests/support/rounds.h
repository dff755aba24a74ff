#pragma once
// How often a random test plays in a suite.

namespace velm::test {

/// The sanitizers make a round several times as long; what they look for is met by fewer of them.
constexpr int rounds(int usual) {
#ifdef VELM_ADDRESS_SANITIZER
    return usual / 5;
#else
    return usual;
#endif
}

} // namespace velm::test
