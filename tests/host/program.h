// Runs the built widen as a person does: with arguments, and with what it prints and its exit
// status in return.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/host/foldertest.h"

struct Outcome {
  int status = -1;  // exit status; -number where a signal ended it
  std::string out;
  std::string error;
  long mostMemory = 0;  // kB
};

struct Surroundings {
  std::map<std::string, std::string> environment = {};  // on top of the test's own
  long fileSizeLimit = 0;           // bytes that the program may write into one file; 0: any
  long openFilesLimit = 0;          // descriptors; 0: any
  int standardInput = -1;           // descriptor; -1: the test's own
  std::string standardOutput = "";  // file; empty: as below; "closed": none
};

// In the working folder `folder`. Ends the program after 30 s.
Outcome runProgram(const std::filesystem::path& folder, const std::vector<std::string>& words,
                   const Surroundings& surroundings = {});
// Starts it and returns its process; its output goes to the files "out" and "error"
// beside the folder.
int startProgram(const std::filesystem::path& folder, const std::vector<std::string>& words,
                 const Surroundings& surroundings = {});
Outcome waitForProgram(int process, const std::filesystem::path& folder);

// Tests in a folder of their own; relative file names are in it.
class ProgramTest : public FolderTest {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  Outcome widen(const std::vector<std::string>& words, const Surroundings& surroundings = {}) {
    return runProgram(folder, words, surroundings);
  }
  // It failed with the status, said exactly one line on the error stream, which contains the text,
  // and nothing else.
  static void expectRefusal(const Outcome& outcome, int status, const std::string& text);

  // The error stream without the warnings that a result is narrower than its input: of noise that
  // is another one on each side, every result is.
  static std::string butForNarrowing(const Outcome& outcome);

  // A pipe that brings the file's bytes, from a process of its own.
  int pipeFrom(const std::filesystem::path& file);

  static std::string plugin(const std::string& name) {
    return std::string(WIDEN_TEST_PLUGINS) + "/" + name + ".so";
  }

 private:
  std::vector<int> pipes;
};
