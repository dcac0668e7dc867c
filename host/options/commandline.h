// The options of a command line as they are described and found again. Its source alone reads the
// library that parses them, which takes a compiler longer than all the options do.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

// One option, for what is said of it where it is added. The command line owns it.
class CommandLineOption {
 public:
  explicit CommandLineOption(CLI::Option* option) : mOption(option) {}

  CommandLineOption& group(const std::string& name);      // its heading in the help
  CommandLineOption& valueName(const std::string& name);  // as the help has it
  CommandLineOption& range(int lowest, int highest);      // anything else is refused
  CommandLineOption& valueOptional();
  CommandLineOption& oneValueEach();  // of a list: the next word is none of its values

 private:
  CLI::Option* mOption;
};

// What a shell needs for completing an option.
struct DescribedOption {
  std::string name;                    // "--output"
  std::string shortName;               // "o", may be empty
  std::vector<std::string> longNames;  // "output"
  std::string help;
  std::string valueName;  // "OUT"
  bool isFlag = false;
  bool valueOptional = false;
};

class CommandLine {
 public:
  // usage, notes: what the help says before the options and after them.
  CommandLine(const std::string& program, const std::string& description, const std::string& usage,
              const std::string& notes);
  ~CommandLine();

  // Values outlive the parsing.
  CommandLineOption option(const std::string& names, std::string& value, const std::string& help);
  CommandLineOption option(const std::string& names, int& value, const std::string& help);
  CommandLineOption option(const std::string& names, std::vector<std::string>& values,
                           const std::string& help);
  CommandLineOption flag(const std::string& names, bool& value, const std::string& help);

  // After all options are there. Returns the help where it was asked for. Throws UsageFailure.
  std::optional<std::string> parse(const std::vector<std::string>& words);

  // After the parsing.
  bool has(const std::string& name) const;
  // None where the option was not used. Throws UsageFailure where it names nothing.
  std::optional<std::string> given(const std::string& name, const std::string& text) const;
  std::vector<std::string> used() const;  // the names, in the order of the help

  std::vector<DescribedOption> described() const;  // in the order of the help, but for the inputs

 private:
  std::unique_ptr<CLI::App> mParser;
};
