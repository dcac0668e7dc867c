// What a host may have set for its thread and its process: rounding, traps, and a language whose
// numbers have no point.
#pragma once

#include <cfenv>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <string>

#include "tests/support/temporaryfolder.h"

inline constexpr int kRoundings[] = {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};

// The rounding of this thread while the object lives.
class ScopedRounding {
 public:
  explicit ScopedRounding(int rounding) : before(std::fegetround()) { std::fesetround(rounding); }
  ~ScopedRounding() { std::fesetround(before); }
  ScopedRounding(const ScopedRounding&) = delete;
  ScopedRounding& operator=(const ScopedRounding&) = delete;

 private:
  int before;
};

// The process writes numbers with these bytes for the point while the object lives. The locale is
// made here, in glibc's own file format: which ones a machine has is not known.
class ScopedPoint {
 public:
  explicit ScopedPoint(const std::string& point) {
    std::filesystem::create_directory(folder / "ours");
    writeFile(folder / "ours/LC_NUMERIC", localeFile(point));
    set = std::setlocale(LC_NUMERIC, "ours") != nullptr;
  }
  ~ScopedPoint() { std::setlocale(LC_NUMERIC, "C"); }
  ScopedPoint(const ScopedPoint&) = delete;
  ScopedPoint& operator=(const ScopedPoint&) = delete;

  // What "%.2f" makes of 1.25; without it a test has shown nothing.
  static std::string quarter() {
    char text[16];
    std::snprintf(text, sizeof text, "%.2f", 1.25);
    return text;
  }
  bool isSet() const { return set; }

 private:
  static std::string localeFile(const std::string& point) {
    const std::string data =
        padded(point) + padded(".") + padded("\3") + padded(".") + padded(".") + padded("UTF-8");
    const auto size = static_cast<std::uint32_t>(padded(point).size());
    constexpr std::uint32_t kHead = 32;  // bytes: the magic number, the count and six offsets
    const std::uint32_t head[] = {0x20031115U ^ LC_NUMERIC,
                                  6,
                                  kHead,
                                  kHead + size,
                                  kHead + size + 4,
                                  kHead + size + 8,
                                  kHead + size + 12,
                                  kHead + size + 16};
    return std::string(reinterpret_cast<const char*>(head), sizeof head) + data;
  }
  // With its end, up to a multiple of four bytes.
  static std::string padded(std::string text) {
    text.resize((text.size() / 4 + 1) * 4);
    return text;
  }

  TemporaryFolder folder;
  ScopedVariable path{"LOCPATH", folder.path};
  bool set = false;
};
