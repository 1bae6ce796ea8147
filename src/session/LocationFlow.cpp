// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/LocationFlow.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "text/TypedText.h"

namespace zova {

LocationFlow::LocationFlow(ParamDirectory& param, std::string programDir, const Platform& platform)
    : m_platform(platform),
      m_param(param, std::move(programDir), platform),
      m_browser(platform.Files, platform.Boxes, kPathNotFound) {}

void LocationFlow::OpenParam() {
  m_project = nullptr;
  m_param.Open();
  Show();
}

void LocationFlow::OpenBackup(ProjectParameters& project, const SavedProject& saved) {
  m_project = &project;
  m_saved = &saved;
  Show();
}

void LocationFlow::Show() {
  m_browser.Reset();
  m_text = IsBackup() ? std::string() : m_browser.Path();
}

LocationFlow::Form LocationFlow::CurrentForm() const noexcept {
  if (IsBackup()) return Form::BackupDestination;
  return m_param.Changes() ? Form::ChangeParam : Form::SelectParam;
}

LocationTexts LocationFlow::Texts() const {
  switch (CurrentForm()) {
    case Form::SelectParam:
      return {
          "Select Location of 'Param' Directory",
          "Please select the location of the moved 'Param' folder or the location for a new one by double-clicking on "
          "the appropriate directory.",
          "NOTE:  If you would like to change this location in the future please select the appropriate option on the "
          "'Preferences' menu."};
    case Form::ChangeParam:
      return {"Change Location of 'Param' Directory",
              "Please select the new location of the 'Param' folder by double clicking on the appropriate directory.",
              "NOTE: All files in this folder will be moved to the new location."};
    case Form::BackupDestination:
      return {"New Backup Destination",
              "Please choose the location for the backup information by selecting the appropriate drive and "
              "double-clicking on the appropriate directory or typing it in directly.",
              "NOTE: This will not change your parameter settings.  If you restore this data using the 'Restore "
              "From Backup' feature, your original destination directories will remain unchanged."};
  }
  return {};
}

void LocationFlow::SetText(const std::string& text) {
  m_text = FieldText(text);
  NoteOtherAct();
}

std::string LocationFlow::Result() const { return IsBackup() ? std::string() : m_param.Target(m_text); }

std::string LocationFlow::NativeResult() const {
  const std::string result = Result();
  try {
    const std::string native = NativeText(m_platform.Files.Resolve(result, FileOperation::Read));
    return native == result ? std::string() : native;
  } catch (const FileError&) {
    return {};
  }
}

std::string LocationFlow::ParentOffered() {
  if (IsBackup()) return {};
  const std::string chosen = m_platform.Files.Drives().ToDrivePath(m_text);
  if (!HasDrive(chosen) || !IsParamName(LastPathComponent(chosen))) return {};
  try {
    if (m_platform.Files.ListFiles(chosen, "", kParameterFileEnd).empty()) return {};
  } catch (const FileError&) {
    return {};  // reported when it is accepted
  }
  return std::string(DirectoryOfPath(chosen));
}

void LocationFlow::TakeParent() {
  if (const std::string parent = ParentOffered(); !parent.empty()) SetText(parent);
}

void LocationFlow::Accept() {
  m_text = m_platform.Files.Drives().ToDrivePath(m_text);
  LocationOutcome outcome;
  if (!IsBackup()) {
    outcome = m_param.Accept(m_text);
  } else if (const auto message = BackUpTo(*m_project, m_text, *m_saved, m_platform)) {
    outcome = {LocationOutcome::Step::Close, message};
  }
  m_observer(outcome);
}

void LocationFlow::Cancel() {
  m_observer(IsBackup() ? LocationOutcome{LocationOutcome::Step::Close} : m_param.Cancel());
}

bool LocationFlow::MayClose() { return IsBackup() || m_param.Close().Next != LocationOutcome::Step::Stay; }

}  // namespace zova
