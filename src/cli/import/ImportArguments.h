// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/OptionTable.h"
#include "tables/ImportOptions.h"

namespace zova {

/// The command line of zova-import.
struct ImportArguments {
  bool Help = false;
  bool Version = false;
  std::string Table;
  std::string ProjectFile;  ///< "" with NewProject
  ImportOptions Options;
  bool IsDryRun = false;
  bool HasNoHeader = false;
  std::optional<std::string> ResponsesFile;  ///< decisions to be used
  std::optional<std::string> UnmatchedFile;  ///< where the undecided responses go
  std::optional<std::string> NewProject;     ///< title; requires Directory
  std::optional<std::string> Directory;
  std::optional<std::string> ParamDirectory;
  std::optional<std::string> WordsFile;
  std::vector<std::string> Variables;
};

/// Parses the arguments after the program's name. Throws UsageError.
ImportArguments ParseImportArguments(const std::vector<std::string>& arguments);

std::string ImportUsageText();

}  // namespace zova
