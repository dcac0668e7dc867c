// Memory beyond whose end nothing may be touched.
#pragma once

#include <cstddef>

// Zeroed pages of its own. What is read or written outside of `bytes` bytes crashes: at once after
// their end, and in front of their page.
class PageBuffer {
 public:
  explicit PageBuffer(std::size_t bytes);  // throws Failure where there is none
  ~PageBuffer();
  PageBuffer(const PageBuffer&) = delete;
  PageBuffer& operator=(const PageBuffer&) = delete;

  // The last bytes in front of the page that may not be touched; aligned as `bytes` is.
  template <typename Value>
  Value* atEnd() const {
    return reinterpret_cast<Value*>(first + whole - bytes);
  }
  // The first bytes after the page that may not be touched; aligned to a page.
  template <typename Value>
  Value* atBegin() const {
    return reinterpret_cast<Value*>(first);
  }

 private:
  std::byte* mapping;
  std::byte* first;   // after the page in front
  std::size_t whole;  // bytes, in pages
  std::size_t bytes;
};
