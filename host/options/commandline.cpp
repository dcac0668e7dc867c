// The options of a command line, parsed by CLI11.
#include "host/options/commandline.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "host/base/failure.h"

namespace {

class Formatter : public CLI::Formatter {
 public:
  explicit Formatter(const std::string& usage) : mUsage(usage) { column_width(32); }
  // The library marks the flags that switch something off.
  std::string make_option_name(const CLI::Option* option, bool positional) const override {
    std::string name = CLI::Formatter::make_option_name(option, positional);
    const auto mark = name.find("{false}");
    return mark == std::string::npos ? name : name.erase(mark, 7);
  }
  std::string make_usage(const CLI::App*, std::string) const override { return mUsage; }

 private:
  std::string mUsage;
};

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

// A script's own options can be followed by those of who runs it.
void letTheLastWin(CLI::App& parser) {
  for (CLI::Option* option : parser.get_options()) {
    if (!option->get_positional() && option->get_items_expected_max() <= 1)
      option->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  }
}

}  // namespace

CommandLineOption& CommandLineOption::group(const std::string& name) {
  mOption->group(name);
  return *this;
}

CommandLineOption& CommandLineOption::valueName(const std::string& name) {
  mOption->type_name(name);
  return *this;
}

CommandLineOption& CommandLineOption::range(int lowest, int highest) {
  mOption->check(CLI::Range(lowest, highest).description(""));
  return *this;
}

CommandLineOption& CommandLineOption::valueOptional() {
  mOption->expected(0, 1);
  return *this;
}

CommandLineOption& CommandLineOption::oneValueEach() {
  mOption->allow_extra_args(false);
  return *this;
}

CommandLine::CommandLine(const std::string& program, const std::string& description,
                         const std::string& usage, const std::string& notes)
    : mParser(std::make_unique<CLI::App>(description, program)) {
  mParser->formatter(std::make_shared<Formatter>(usage));
  mParser->footer(notes);
}

CommandLine::~CommandLine() = default;

CommandLineOption CommandLine::option(const std::string& names, std::string& value,
                                      const std::string& help) {
  return CommandLineOption(mParser->add_option(names, value, help));
}

CommandLineOption CommandLine::option(const std::string& names, int& value,
                                      const std::string& help) {
  return CommandLineOption(mParser->add_option(names, value, help));
}

CommandLineOption CommandLine::option(const std::string& names, std::vector<std::string>& values,
                                      const std::string& help) {
  return CommandLineOption(mParser->add_option(names, values, help));
}

CommandLineOption CommandLine::flag(const std::string& names, bool& value,
                                    const std::string& help) {
  return CommandLineOption(mParser->add_flag(names, value, help));
}

std::optional<std::string> CommandLine::parse(const std::vector<std::string>& words) {
  letTheLastWin(*mParser);
  try {
    // the parser takes the last word first
    mParser->parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    return mParser->help();
  } catch (const CLI::ParseError& error) {
    throw UsageFailure(oneLine(error.what()));
  }
  return std::nullopt;
}

bool CommandLine::has(const std::string& name) const {
  return mParser->count(name) != 0;
}

std::optional<std::string> CommandLine::given(const std::string& name,
                                              const std::string& text) const {
  if (!has(name)) return std::nullopt;
  if (text.empty()) throw UsageFailure(name + ": nothing named");
  return text;
}

std::vector<std::string> CommandLine::used() const {
  std::vector<std::string> names;
  for (const CLI::Option* option : std::as_const(*mParser).get_options()) {
    if (option->count() != 0) names.push_back(option->get_name());
  }
  return names;
}

std::vector<DescribedOption> CommandLine::described() const {
  std::vector<DescribedOption> options;
  for (const CLI::Option* option : std::as_const(*mParser).get_options()) {
    if (option->get_lnames().empty() || option->get_group().empty()) continue;  // IN, and hidden
    DescribedOption described;
    described.name = option->get_name();
    if (!option->get_snames().empty()) described.shortName = option->get_snames().front();
    described.longNames = option->get_lnames();
    described.help = option->get_description();
    described.valueName = option->get_type_name();
    described.isFlag = option->get_items_expected_max() == 0;
    described.valueOptional = option->get_items_expected_min() == 0;
    options.push_back(described);
  }
  return options;
}
