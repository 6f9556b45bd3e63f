// Byte comparison with a readable first difference, for the dissolve tests.
#ifndef ZR_TESTS_FX_DISSOLVE_DISSOLVE_TEST_SUPPORT_H
#define ZR_TESTS_FX_DISSOLVE_DISSOLVE_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace zr::test {

// Succeeds when the n bytes are equal; otherwise names the first differing
// byte as x, y of a picture whose rows are `pitch` bytes apart.
inline ::testing::AssertionResult SameBytes(const uint8_t* got, const uint8_t* want, size_t n, size_t pitch,
                                            const std::string& context) {
  for (size_t i = 0; i < n; ++i)
    if (got[i] != want[i])
      return ::testing::AssertionFailure()
             << context << ": first difference at byte x=" << i % pitch << " y=" << i / pitch << " (got "
             << int{got[i]} << ", want " << int{want[i]} << ")";
  return ::testing::AssertionSuccess();
}

}  // namespace zr::test

#endif
