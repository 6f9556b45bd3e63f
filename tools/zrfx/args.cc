#include "zrfx/args.h"

#include "zrfx/errors.h"

namespace zrfx {
namespace {

const Option* Find(const std::vector<Option>& options, const std::string& token) {
  for (const Option& option : options) {
    if (token == std::string("--") + option.name) return &option;
    if (option.alias && token == option.alias) return &option;
  }
  return nullptr;
}

}  // namespace

Args::Args(const std::vector<Option>& options, int argc, char** argv, int first) {
  bool optionsEnded = false;
  for (int i = first; i < argc; ++i) {
    std::string token = argv[i];
    if (optionsEnded || token == "-" || token.empty() || token[0] != '-') {
      positional_.push_back(token);
      continue;
    }
    if (token == "--") {
      optionsEnded = true;
      continue;
    }
    std::optional<std::string> inlineValue;
    if (const size_t eq = token.find('='); token.rfind("--", 0) == 0 && eq != std::string::npos) {
      inlineValue = token.substr(eq + 1);
      token.resize(eq);
    }
    const Option* option = Find(options, token);
    if (!option) throw UsageError("unknown option " + token + " (see --help)");
    std::vector<std::string>& values = options_[option->name];
    if (!option->repeatable && !values.empty()) throw UsageError("option " + token + " is given twice");
    if (!option->takesValue) {
      if (inlineValue) throw UsageError("option " + token + " takes no value");
      values.emplace_back();
      continue;
    }
    if (inlineValue) {
      values.push_back(*inlineValue);
    } else {
      if (i + 1 >= argc) throw UsageError("option " + token + " needs a value");
      values.push_back(argv[++i]);
    }
  }
}

bool Args::Has(const std::string& name) const { return options_.count(name) != 0; }

std::optional<std::string> Args::Value(const std::string& name) const {
  const auto it = options_.find(name);
  if (it == options_.end()) return std::nullopt;
  return it->second.back();
}

std::vector<std::string> Args::Values(const std::string& name) const {
  const auto it = options_.find(name);
  return it == options_.end() ? std::vector<std::string>{} : it->second;
}

std::string Args::Required(const std::string& name) const {
  std::optional<std::string> value = Value(name);
  if (!value) throw UsageError("option --" + name + " is required (see --help)");
  return *value;
}

void Args::ExpectPositional(size_t count, const char* what) const {
  if (positional_.size() != count)
    throw UsageError("expected " + std::string(what) + ", got " + std::to_string(positional_.size()) +
                     " argument" + (positional_.size() == 1 ? "" : "s") + " (see --help)");
}

}  // namespace zrfx
