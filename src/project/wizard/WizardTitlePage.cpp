// SPDX-License-Identifier: GPL-3.0-or-later
//
// The title is the parameter file's name. An existing project's file is not touched before "Done!"; any other name is
// tested by creating an empty file and deleting it.

#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "project/wizard/WizardPages.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::size_t kExtensionLength = 4;

// Kept: a point as the fourth last character starts a typed extension: "v1.2.3" becomes "v1". The box keeps the typed
// text; a second pass would cut more.
std::string TitleFromText(std::string_view text) {
  std::string_view title = WithoutOuterBlanks(text);
  const std::size_t count = CharacterCount(title);
  if (count >= kExtensionLength) {
    const std::string_view stem = FirstCharacters(title, count - kExtensionLength);
    if (title[stem.size()] == '.') title = stem;
  }
  return std::string(WithoutOuterBlanks(title));
}

bool MayOverwrite(const std::string& title, MessageBoxes& boxes) {
  return Confirm(boxes, {.Text = "There already is an experiment entitled '" + title +
                                 "'!  Are you sure you want to overwrite this data?"});
}

// nullopt if the file is not a parameter file.
std::optional<std::string> AbbreviationIn(const std::string& path, Disk& disk) {
  try {
    return ReadProjectFile(disk, path).Abbreviation;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

void ProveName(const std::string& path, Disk& disk) {
  disk.Write(path, {}, Disk::Durability::Buffered);
  disk.Delete(path);
}

// Keeps a prefix typed by the user. Ignores outer spaces in the comparison, since page 8 trims its box.
void OfferAbbreviation(const std::string& title, WizardState& state) {
  std::string& box = state.Entries.Text(WizardBox::Abbreviation);
  const bool isOurs = box.empty() || WithoutOuterBlanks(box) == WithoutOuterBlanks(state.DefaultAbbreviation);
  state.DefaultAbbreviation = FirstCharacters(title, kMaxAbbreviationLength);
  if (isOurs) box = state.DefaultAbbreviation;
}

}  // namespace

WizardFault LeaveTitlePage(WizardState& state, const Platform& platform) {
  const std::string title = TitleFromText(state.Entries.Text(WizardBox::Title));
  if (title.empty()) {
    return Refuse(platform, "The project must have a title.  Please re-enter.", WizardBox::Title, BoxIcon::Information);
  }
  if (!IsWholeFileName(title)) return Refuse(platform, kBadFileName, WizardBox::Title);
  const std::string fileName = ParameterFileName(title);
  const std::string path = JoinPath(state.ParamDir, fileName);
  std::optional<std::string> overwritten;
  try {
    if (platform.Files.FileExists(path)) {
      if (!MayOverwrite(title, platform.Boxes)) return WizardBox::Title;
      overwritten = AbbreviationIn(path, platform.Files);
    } else {
      ProveName(path, platform.Files);
    }
  } catch (const FileError& error) {
    return Refuse(platform, kBadFileName, WizardBox::Title, error);
  }
  OfferAbbreviation(title, state);
  state.OverwrittenAbbreviation = std::move(overwritten);
  state.Project.ProjectFileName = fileName;
  return std::nullopt;
}

}  // namespace zova
