// Command-line options of one subcommand: "--name value", "--name=value",
// bare flags, short aliases such as "-o", and positional arguments. "--" ends
// the options and "-" alone is a positional argument (standard input).
#ifndef ZRFX_ARGS_H
#define ZRFX_ARGS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zrfx {

struct Option {
  const char* name;   // long form without the dashes, e.g. "code"
  const char* alias;  // short form with its dash, e.g. "-o", or nullptr
  bool takesValue;
  bool repeatable;
};

class Args {
 public:
  // Parses argv[first..argc). Throws UsageError for an unknown option, a
  // missing value or an option given twice that may not be.
  Args(const std::vector<Option>& options, int argc, char** argv, int first);

  bool Has(const std::string& name) const;
  // The value of a single-valued option.
  std::optional<std::string> Value(const std::string& name) const;
  // Every value of a repeatable option, in order.
  std::vector<std::string> Values(const std::string& name) const;
  // The value of an option that must be given.
  std::string Required(const std::string& name) const;
  const std::vector<std::string>& Positional() const { return positional_; }
  // Throws UsageError unless there are exactly `count` positional arguments.
  void ExpectPositional(size_t count, const char* what) const;

 private:
  std::map<std::string, std::vector<std::string>> options_;
  std::vector<std::string> positional_;
};

}  // namespace zrfx

#endif
