// A locale in which numbers are written with a comma: made here, in the C library's own file
// format, as which ones a machine has is not known.
#include "host/validate/means/decimalcomma.h"

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace {

// With its end, up to a multiple of four bytes.
std::string padded(std::string text) {
  text.resize((text.size() / 4 + 1) * 4);
  return text;
}

// The words of a locale's numbers: point, separator of thousands, their grouping, the first two as
// wide characters, the encoding.
std::string numberFile() {
  const std::string data =
      padded(",") + padded(".") + padded("\3") + padded(",") + padded(".") + padded("UTF-8");
  constexpr std::uint32_t kMagic = 0x20031115;
  constexpr std::uint32_t kHead = 32;  // bytes: the magic number, the count and six offsets
  const std::uint32_t head[] = {kMagic ^ LC_NUMERIC, 6,          kHead,      kHead + 4,
                                kHead + 8,           kHead + 12, kHead + 16, kHead + 20};
  return std::string(reinterpret_cast<const char*>(head), sizeof head) + data;
}

bool useComma() {
  const char* home = std::getenv("HOME");  // the checks', which goes with what is in it
  if (home == nullptr) return false;
  const std::filesystem::path folder = std::filesystem::path(home) / "locales";
  std::error_code error;
  std::filesystem::create_directories(folder / "comma", error);
  std::ofstream(folder / "comma/LC_NUMERIC", std::ios::binary) << numberFile();
  setenv("LOCPATH", folder.c_str(), 1);
  return std::setlocale(LC_NUMERIC, "comma") != nullptr &&
         std::string(std::localeconv()->decimal_point) == ",";
}

}  // namespace

DecimalComma::DecimalComma() : found(useComma()) {}

DecimalComma::~DecimalComma() {
  std::setlocale(LC_NUMERIC, "C");
}
