// A locale in which numbers are written with a comma: one of the system's.
#include "host/validate/means/decimalcomma.h"

#include <array>
#include <clocale>
#include <string>

namespace {

// They write 0,5.
constexpr std::array kLanguages{"de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8", "it_IT.UTF-8"};

bool hasComma() {
  const std::lconv* conventions = std::localeconv();
  return conventions != nullptr && std::string(conventions->decimal_point) == ",";
}

bool useComma() {
  for (const char* language : kLanguages) {
    if (std::setlocale(LC_NUMERIC, language) != nullptr && hasComma()) return true;
  }
  return false;
}

}  // namespace

DecimalComma::DecimalComma() : found(useComma()) {
  if (!found) std::setlocale(LC_NUMERIC, "C");
}

DecimalComma::~DecimalComma() {
  std::setlocale(LC_NUMERIC, "C");
}
