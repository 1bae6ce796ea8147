// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/OptionTable.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace zova {

namespace {

std::string NameFault(const std::string& file) { return file.empty() ? "a file needs a name" : ""; }

// The arguments in the library's order, last first. It would skip the empty value of "--clean=" and use the next
// argument instead.
std::vector<std::string> ForLibrary(const std::vector<std::string>& arguments) {
  std::vector<std::string> reversed;
  const auto filesFrom = std::find(arguments.begin(), arguments.end(), "--");
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const bool hasEmptyValue =
        argument < filesFrom && argument->starts_with("--") && argument->find('=') == argument->size() - 1;
    reversed.push_back(hasEmptyValue ? argument->substr(0, argument->size() - 1) : *argument);
    if (hasEmptyValue) reversed.emplace_back();
  }
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

}  // namespace

OptionTable::OptionTable(CLI::App& app) : m_app(app) {
  app.allow_windows_style_options(false);  // "/data/Study.prm" is a file on every system
  app.get_formatter()->column_width(kUsageColumn);
}

void OptionTable::AddStandardFlags() {
  m_app.set_help_flag("-h,--help", "print this text");
  m_app.set_version_flag("--version", "", "print the version");
}

CLI::Option* OptionTable::Add(const char* name, const char* kind, const std::string& description,
                              const std::function<void(const std::string&)>& use) {
  return m_app.add_option_function<std::string>(name, use, description)->type_name(kind)->take_last();
}

CLI::Option* OptionTable::Add(const char* name, const char* kind, const std::string& description,
                              std::optional<std::string>& target) {
  return Add(name, kind, description, [&target](const std::string& value) { target = value; });
}

CLI::Option* OptionTable::AddFile(const char* name, const std::string& description,
                                  std::optional<std::string>& target) {
  return Add(name, "FILE", description, target)->check(NameFault);
}

CLI::Option* OptionTable::AddRepeated(const char* name, const char* kind, const std::string& description,
                                      const std::function<void(const std::string&)>& use) {
  const auto useAll = [use](const std::vector<std::string>& values) {
    std::for_each(values.begin(), values.end(), use);
  };
  return m_app.add_option_function<std::vector<std::string>>(name, useAll, description)
      ->type_name(kind)
      ->expected(1)
      ->allow_extra_args(false)
      ->option_text(kind)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option* OptionTable::AddFlag(const char* name, const std::string& description, bool& target) {
  return m_app.add_flag(name, target, description)->disable_flag_override()->option_text(" ");
}

CLI::Option* OptionTable::AddArgument(const char* name, const std::string& description, std::string& target) {
  return m_app.add_option(name, target, description)->option_text(" ")->check(NameFault);
}

ParsedLine ParseLine(CLI::App& app, const std::vector<std::string>& arguments,
                     const std::vector<const std::string*>& files) {
  try {
    app.parse(ForLibrary(arguments));
  } catch (const CLI::CallForHelp&) {
    return ParsedLine::Help;
  } catch (const CLI::CallForVersion&) {
    return ParsedLine::Version;
  } catch (const CLI::ExtrasError&) {  // its text lists the arguments in reverse
    const std::vector<std::string> extra = app.remaining();
    throw UsageError(
        "unexpected argument: " +
        *std::find_if(extra.begin(), extra.end(), [](const std::string& argument) { return argument != "--"; }));
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  // The library does not treat "-" and negative numbers as options.
  const bool haveMark = std::find(arguments.begin(), arguments.end(), "--") != arguments.end();
  for (const std::string* file : files) {
    if (!haveMark && file->starts_with('-')) throw UsageError("unexpected argument: " + *file);
  }
  return ParsedLine::Work;
}

}  // namespace zova
