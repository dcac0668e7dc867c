// Compares sounds bit by bit.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "tests/support/testsignals.h"

inline testing::AssertionResult sameBits(const std::vector<float>& a, const std::vector<float>& b) {
  if (a.size() != b.size()) return testing::AssertionFailure() << "other lengths";
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::memcmp(&a[i], &b[i], sizeof a[i]) != 0)
      return testing::AssertionFailure() << "frame " << i << ": " << a[i] << " and " << b[i];
  }
  return testing::AssertionSuccess();
}

inline testing::AssertionResult sameBits(const Stereo<float>& a, const Stereo<float>& b) {
  const testing::AssertionResult left = sameBits(a.left, b.left);
  return left ? sameBits(a.right, b.right) : left;
}
