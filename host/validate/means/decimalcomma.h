// A locale in which numbers are written with a comma.
#pragma once

// While it lives, the process has one, where one could be had: see `works`.
class DecimalComma {
 public:
  DecimalComma();
  ~DecimalComma();  // back to the "C" locale
  DecimalComma(const DecimalComma&) = delete;
  DecimalComma& operator=(const DecimalComma&) = delete;

  bool works() const { return found; }

 private:
  bool found;
};
