// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the commands share in reading their command lines.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace zova {

/// Wrong usage of the command; the text names the fault.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline constexpr std::size_t kUsageColumn = 24;  ///< column of the explanations

/// Options with one value each. A list is one value with commas, so that it cannot swallow the project's file. Values
/// are kept as typed, also an empty one, which the library's optional types would drop. The last value of a repeated
/// option counts.
class OptionTable {
 public:
  explicit OptionTable(CLI::App& app);

  CLI::Option* Add(const char* name, const char* kind, const std::string& description,
                   const std::function<void(const std::string&)>& use);
  CLI::Option* Add(const char* name, const char* kind, const std::string& description,
                   std::optional<std::string>& target);
  CLI::Option* AddFile(const char* name, const std::string& description, std::optional<std::string>& target);
  /// Every value of a repeated option counts.
  CLI::Option* AddRepeated(const char* name, const char* kind, const std::string& description,
                           const std::function<void(const std::string&)>& use);
  CLI::Option* AddFlag(const char* name, const std::string& description, bool& target);
  /// A file that must be given, without an option's name.
  CLI::Option* AddArgument(const char* name, const std::string& description, std::string& target);
  /// Help and version: last in the usage text.
  void AddStandardFlags();

 private:
  CLI::App& m_app;
};

/// What a command line asks for.
enum class ParsedLine { Work, Help, Version };

/// Parses the arguments after the program's name. `files` are the arguments without an option's name that were read.
/// Throws UsageError.
ParsedLine ParseLine(CLI::App& app, const std::vector<std::string>& arguments,
                     const std::vector<const std::string*>& files);

}  // namespace zova
