// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"
#include "project/ProjectLayout.h"
#include "project/wizard/WizardPages.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

bool HasDataFiles(const std::string& primaryDir, const std::string& abbreviation, Disk& disk) {
  try {
    return !ListDataFiles(disk, abbreviation, SubjectDirectory(primaryDir)).empty();
  } catch (const FileError&) {
    return false;  // saving the first subject will report it
  }
}

// Another project's subjects would appear in this one's masters.
bool MayShare(const std::string& abbreviation, MessageBoxes& boxes) {
  return Confirm(boxes, {.Text = "There are already data files with the prefix '" + abbreviation +
                                 "' in the primary directory.  Do you want to use this prefix anyway?",
                         .Buttons = BoxButtons::YesNo,
                         .Title = "Warning"});
}

}  // namespace

WizardFault LeaveAbbreviationPage(WizardState& state, const Platform& platform) {
  constexpr WizardBox kBox = WizardBox::Abbreviation;
  std::string& text = state.Entries.Text(kBox);
  const std::string abbreviation(WithoutOuterBlanks(FirstCharacters(WithoutOuterBlanks(text), kMaxAbbreviationLength)));
  text = abbreviation;
  if (abbreviation.empty()) return Refuse(platform, "You must have an abbreviation.", kBox, BoxIcon::Information);
  // Kept, although the spaces are already trimmed.
  if (abbreviation.front() == ' ') return Refuse(platform, "You cannot begin the abbreviation with a space.", kBox);
  if (!IsFileNamePart(abbreviation)) return Refuse(platform, kBadFileName, kBox);
  const bool isOverwritten =
      state.OverwrittenAbbreviation && EqualsIgnoringCase(*state.OverwrittenAbbreviation, abbreviation);
  if (!isOverwritten && HasDataFiles(state.Project.PrimaryDir, abbreviation, platform.Files) &&
      !MayShare(abbreviation, platform.Boxes)) {
    return kBox;
  }
  state.Project.Abbreviation = abbreviation;
  return std::nullopt;
}

}  // namespace zova
