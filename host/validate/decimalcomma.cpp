// A locale in which numbers are written with a comma.
#include "host/validate/decimalcomma.h"

#include <array>
#include <clocale>
#include <string>

namespace {

// Of languages that write 0,5; one of them is on most machines outside of English countries.
constexpr std::array kLanguages{"de_DE", "fr_FR", "es_ES", "it_IT", "nl_NL", "pt_BR", "ru_RU",
                                "pl_PL", "sv_SE", "de_AT", "fr_CA", "da_DK", "fi_FI", "cs_CZ"};

bool hasComma() {
  const std::lconv* conventions = std::localeconv();
  return conventions != nullptr && std::string(conventions->decimal_point) == ",";
}

bool useComma() {
  if (std::setlocale(LC_ALL, "") != nullptr && hasComma()) return true;  // the person's own
  for (const char* language : kLanguages) {
    for (const char* encoding : {".UTF-8", ".utf8", ""}) {
      if (std::setlocale(LC_ALL, (std::string(language) + encoding).c_str()) != nullptr &&
          hasComma())
        return true;
    }
  }
  return false;
}

}  // namespace

DecimalComma::DecimalComma() : found(useComma()) {
  if (!found) std::setlocale(LC_ALL, "C");
}

DecimalComma::~DecimalComma() {
  std::setlocale(LC_ALL, "C");
}
