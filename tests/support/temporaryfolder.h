// What tests of the platform services need around them: a folder, an environment, and programs that
// are scripts.
#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

// A new folder, removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "trelvan-test-XXXXXX").string();
    path = std::filesystem::canonical(mkdtemp(name.data())).string();
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return path + "/" + name; }

  std::string path;  // without links, no slash at its end
};

// Sets a variable, or takes it away with null, and puts the old value back.
class ScopedVariable {
 public:
  ScopedVariable(const char* variable, const char* value) : name(variable) {
    if (const char* before = std::getenv(variable); before != nullptr) {
      old = before;
      wasSet = true;
    }
    set(value);
  }
  ScopedVariable(const char* variable, const std::string& value)
      : ScopedVariable(variable, value.c_str()) {}
  ~ScopedVariable() { set(wasSet ? old.c_str() : nullptr); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

  void set(const char* value) {
    if (value != nullptr) {
      setenv(name.c_str(), value, 1);
    } else {
      unsetenv(name.c_str());
    }
  }

 private:
  std::string name;
  std::string old;
  bool wasSet = false;
};

// What keeps a test's preferences apart where folders do not: the identifier under which macOS has
// them, in TRELVAN_PREFERENCES. folder: a temporary one.
inline std::string preferencesOf(const std::string& folder) {
  return "com.orv.trelvan.tests." + std::filesystem::path(folder).filename().string();
}

inline std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

inline void writeFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

// A program that is a shell script with this body.
inline void writeProgram(const std::string& path, const std::string& body) {
  writeFile(path, "#!/bin/sh\n" + body + "\n");
  chmod(path.c_str(), 0755);
}
