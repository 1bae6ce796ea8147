// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the table of subjects writes beside the subjects themselves: its list, the report of agreement, and the sample
// for a second entry.

#include <algorithm>
#include <optional>
#include <random>

#include "compare/Agreement.h"
#include "compare/EntryPairs.h"
#include "means/ResultFiles.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "session/SubjectsScreen.h"
#include "text/Counted.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"
#include "text/TypedText.h"
#include "words/CompanionCsv.h"
#include "words/SecondSample.h"

namespace zova {

namespace {

constexpr const char* kUsualPercent = "20";

std::vector<std::string> CompleteIds(const ProjectParameters& project, Disk& disk) {
  std::vector<std::string> ids;
  for (const std::string& name : ListSubjectFiles(disk, project, SubjectDirectory(project.PrimaryDir))) {
    if (IsOwnSubjectFile(project, name)) ids.push_back(SubjectIdFromFileName(project, name));
  }
  return ids;
}

}  // namespace

void SubjectsScreen::Save(const char* title, const std::string& name, const std::function<std::string()>& text) {
  if (m_project == nullptr) return;
  const auto path =
      m_platform.Dialogs.ChooseNewFile({.Title = title,
                                        .Directory = m_project->PrimaryDir,
                                        .Filters = {{"CSV files (*.csv)", "*.csv"}, {"All files (*.*)", "*"}},
                                        .Name = m_project->Abbreviation + name});
  if (!path) return;
  if (WriteResultFile(*path, text, *m_project, m_platform)) m_done = "Saved: " + *path;
}

void SubjectsScreen::Export() {
  Save("Export List", " Subject List.csv", [this] { return m_table.CsvText(); });
}

void SubjectsScreen::SaveReport() {
  if (m_project == nullptr) return;
  std::optional<AgreementReport> report;
  PassedOver passedOver;
  const BusyPointer busy(m_platform.Pointer);
  const bool isRead = WithRetry(m_platform.Boxes, [&] {
    report.emplace(*m_project);
    passedOver = ReadSecondEntries(*m_project, m_platform.Files, m_platform.Bar,
                                   [&](std::string_view id, const SubjectRecord& first, const SubjectRecord& second) {
                                     report->Add(id, first, second);
                                   });
  });
  if (!isRead) return;
  WarnNotCompared(m_platform.Boxes, passedOver);
  if (report->SubjectCount() == 0) {
    if (passedOver.IsEmpty()) Warn(m_platform.Boxes, "No subject was entered a second time yet.");
    return;
  }
  Save("Save Report", " Agreement.csv", [&] { return report->CsvText(); });
}

void SubjectsScreen::AskSample() {
  if (m_project == nullptr) return;
  m_question = Question::Sample;
  m_newName = kUsualPercent;
  m_seed = std::random_device{}() % 1000000;  // short enough to be written down
}

// The earlier sample may have been entered in part.
void SubjectsScreen::DrawSample() {
  const std::string_view typed = WithoutOuterBlanks(m_newName);
  const std::size_t between = std::min(typed.find(' '), typed.size());
  const auto percent = DigitsInteger16(typed.substr(0, between));
  if (!percent || *percent < 1 || *percent > 100) {
    return Warn(m_platform.Boxes, "The percentage must be a number from 1 to 100.");
  }
  const std::string seed(WithoutOuterBlanks(typed.substr(between)));
  if (!seed.empty() && (!IsDigits(seed) || seed.size() > 9)) {
    return Warn(m_platform.Boxes, "The seed must be a number of up to 9 digits.");
  }
  if (!seed.empty()) m_seed = static_cast<std::uint32_t>(std::stoul(seed));
  std::vector<std::string> ids;
  bool hasSample = false;
  const bool isListed = WithRetry(m_platform.Boxes, [&] {
    hasSample = ReadCompanion(m_platform.Files, *m_project, CompanionFile::SecondSample).has_value();
    ids = CompleteIds(*m_project, m_platform.Files);
  });
  if (!isListed) return;
  if (hasSample &&
      !Confirm(m_platform.Boxes, {.Text = "Subjects were chosen for a second entry before.  Do you wish to "
                                          "replace that choice?",
                                  .Buttons = BoxButtons::YesNo,
                                  .Title = "Warning"})) {
    return;
  }
  const std::vector<SampledSubject> sample = DrawSecondSample(ids, *percent, m_seed);
  const bool isSaved = WithRetry(m_platform.Boxes, [&] {
    WriteCompanion(m_platform.Files, *m_project, CompanionFile::SecondSample, FormatSecondSample(sample));
  });
  if (!isSaved) return;
  EndQuestion();
  Read();
  m_done = Counted(sample.size(), "subject was", "subjects were") + " chosen for a second entry.";
}

}  // namespace zova
