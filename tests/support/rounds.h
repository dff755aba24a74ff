#pragma once
// How often a random test plays in a suite.

namespace velm::test {

/// The sanitizers make a round several times as long; what they look for is met by fewer of them.
#ifdef VELM_ADDRESS_SANITIZER
inline constexpr int oneInHowMany = 5;
#else
inline constexpr int oneInHowMany = 1;
#endif

constexpr int rounds(int usual) {
    return usual / oneInHowMany;
}

} // namespace velm::test
