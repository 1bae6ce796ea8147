// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/EntrySettlement.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DataFileError.h"
#include "project/FileChanges.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/entry/CompletionChecks.h"
#include "subjects/entry/EntryLists.h"
#include "text/Counted.h"
#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::array kColumns = {kItemColumn, kMinuteColumn, kRatingColumn};

std::optional<Recall> EntryAt(const RecallLists& lists, int test, int position) {
  return position == 0 ? std::nullopt : std::optional(lists.At(test, position));
}

std::vector<std::string_view> NumbersIn(std::string_view text) {
  std::vector<std::string_view> numbers;
  constexpr std::string_view kBetween = " ,;\t";
  for (std::size_t begin = text.find_first_not_of(kBetween); begin != std::string_view::npos;) {
    const std::size_t end = std::min(text.find_first_of(kBetween, begin), text.size());
    numbers.push_back(text.substr(begin, end - begin));
    begin = text.find_first_not_of(kBetween, end);
  }
  return numbers;
}

// nullopt for a file that is missing.
std::optional<std::string> ContentOf(Disk& disk, const std::string& path) {
  if (!disk.FileExists(path)) return std::nullopt;
  std::string content;
  disk.Read(path, content);
  return content;
}

}  // namespace

bool EntrySettlement::Open(const std::string& file, const ProjectParameters& project) {
  Close();
  const std::string id = SubjectIdFromFileName(project, file);
  const auto read = [&](SubjectPlace place, SubjectRecord& record, std::string& bytes) {
    const std::string path = JoinPath(PlaceDirectory(project.PrimaryDir, place), file);
    m_platform.Files.Read(path, bytes);
    ParsingFile(path, [&] { ParseSubject(bytes, project, record); });
    record.SubjectId = id;
  };
  std::string secondBytes;
  if (!WithRetry(m_platform.Boxes, [&] {
        read(SubjectPlace::Complete, m_first, m_firstBytes);
        read(SubjectPlace::Second, m_second, secondBytes);
      })) {
    return false;
  }
  m_project = &project;
  m_file = file;
  MakeLines(Compare(m_first, m_second, project));
  if (!m_lines.empty()) m_current = m_lines.size() - 1;  // before the first line
  GoToNext();
  return true;
}

void EntrySettlement::Close() {
  m_project = nullptr;
  m_lines.clear();
  m_history.Clear();
  m_current = 0;
  ++m_revision;
}

void EntrySettlement::MarkDifferent(std::size_t line, std::size_t partner) {
  m_lines[line].IsDifferent = true;
  m_lines[line].IsDecided = false;
  if (partner != line) m_lines[line].Partner = partner;
}

void EntrySettlement::MakeLines(const Comparison& comparison) {
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project->VariableCount); ++v) {
    Line line;
    line.Variable = v;
    line.First = Recall{m_first.Levels[v], 0, 0};
    line.Second = Recall{m_second.Levels[v], 0, 0};
    m_lines.push_back(line);
  }
  std::vector<std::size_t> starts;  // of the tests
  for (int test = 1; test <= m_project->TestCount; ++test) {
    starts.push_back(m_lines.size());
    for (const AlignedLine& aligned : comparison.Tests[static_cast<std::size_t>(test) - 1]) {
      Line line;
      line.Test = test;
      line.First = EntryAt(m_first.Lists, test, aligned.First);
      line.Second = EntryAt(m_second.Lists, test, aligned.Second);
      line.FirstPosition = aligned.First;
      m_lines.push_back(line);
    }
  }
  for (std::size_t i = 0; i < m_lines.size(); ++i) {
    m_lines[i].Partner = i;
    m_lines[i].Result = m_lines[i].First;
  }
  for (const Difference& difference : comparison.Differences) {
    const std::size_t start = difference.Test == 0 ? 0 : starts[static_cast<std::size_t>(difference.Test) - 1];
    const bool isPair = difference.Is == Difference::Kind::Moved || difference.Is == Difference::Kind::Swapped;
    const std::size_t line = start + difference.Line;
    const std::size_t other = isPair ? start + difference.OtherLine : line;
    MarkDifferent(line, other);
    MarkDifferent(other, line);
  }
}

std::string EntrySettlement::SubjectCaption() const {
  return IsOpen() ? "Subject: " + m_first.SubjectId : std::string();
}

std::string EntrySettlement::Place(std::size_t line) const {
  const Line& at = m_lines[line];
  if (at.Test == 0) return m_project->VariableNames[at.Variable];
  const std::string test = "Test " + std::to_string(at.Test);
  return at.FirstPosition == 0 ? test : test + ", line " + std::to_string(at.FirstPosition);
}

std::string EntrySettlement::Text(std::size_t line, Side side) const {
  const Line& at = m_lines[line];
  if (side == Side::Result && !at.IsDecided) return {};
  const std::optional<Recall>& entry = side == Side::First ? at.First : side == Side::Second ? at.Second : at.Result;
  if (!entry) return "(none)";
  if (at.Test == 0) return LevelLabel(*m_project, at.Variable, entry->Item);
  std::string text;
  for (const int column : kColumns) {
    if (!IsColumnUsed(*m_project, at.Test, column)) continue;
    text.append(text.empty() ? "" : ", ").append(std::to_string(CellValue(*entry, column)));
  }
  return text;
}

void EntrySettlement::GoTo(std::size_t line) {
  if (line >= m_lines.size()) return;
  m_current = line;
  ++m_revision;
}

void EntrySettlement::GoToNext() {
  for (std::size_t step = 1; step <= m_lines.size(); ++step) {
    const std::size_t line = (m_current + step) % m_lines.size();
    if (!m_lines[line].IsDecided) return GoTo(line);
  }
}

void EntrySettlement::Keep(const std::vector<std::size_t>& lines) {
  Step step;
  step.reserve(lines.size());
  for (const std::size_t line : lines) step.emplace_back(line, m_lines[line]);
  m_history.Push(std::move(step));
  ++m_revision;
}

void EntrySettlement::Take(Side side) {
  if (!IsOpen() || m_lines.empty() || !m_lines[m_current].IsDifferent) return m_platform.Pointer.Beep();
  const std::size_t partner = m_lines[m_current].Partner;
  Keep({m_current, partner});
  for (const std::size_t line : {m_current, partner}) {
    m_lines[line].Result = side == Side::First ? m_lines[line].First : m_lines[line].Second;
    m_lines[line].IsDecided = true;
  }
  GoToNext();
}

bool EntrySettlement::IsInRange(const Line& line, int column, int value) const {
  if (line.Test == 0) return value >= 1 && value <= m_project->LevelCounts[line.Variable];
  return value >= 1 && value <= ColumnLimit(*m_project, column);
}

bool EntrySettlement::Type(const std::string& text) {
  if (!IsOpen() || m_lines.empty()) return false;
  Line& line = m_lines[m_current];
  std::vector<int> columns = {kItemColumn};
  if (line.Test > 0) {
    std::erase_if(columns, [](int) { return true; });
    std::copy_if(kColumns.begin(), kColumns.end(), std::back_inserter(columns),
                 [&](int column) { return IsColumnUsed(*m_project, line.Test, column); });
  }
  const std::vector<std::string_view> numbers = NumbersIn(text);
  const bool isNone = numbers.empty() && line.Test > 0;
  bool isValid = isNone || numbers.size() == columns.size();
  Recall typed;
  for (std::size_t i = 0; isValid && i < numbers.size(); ++i) {
    const std::int16_t value = DigitsInteger16(numbers[i]).value_or(0);
    isValid = IsInRange(line, columns[i], value);
    SetCellValue(typed, columns[i], value);
  }
  if (!isValid) {
    m_platform.Pointer.Beep();
    Warn(m_platform.Boxes, "Invalid Format.",
         line.Test == 0
             ? "Type the number of a level."
             : "Type " + Counted(columns.size(), "number", "numbers") + " within the limits of the project.");
    return false;
  }
  Keep({m_current});
  line.Result = isNone ? std::nullopt : std::optional(typed);
  line.IsDecided = true;
  GoToNext();
  return true;
}

void EntrySettlement::Undo() {
  const Step* const step = m_history.Undo();
  if (step == nullptr) return;
  for (const auto& [line, before] : *step) m_lines[line] = before;
  GoTo(step->front().first);
}

std::size_t EntrySettlement::OpenCount() const {
  std::size_t count = 0;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (!m_lines[line].IsDecided && m_lines[line].Partner >= line) ++count;
  }
  return count;
}

std::string EntrySettlement::StatusLine() const {
  return IsOpen() ? Counted(OpenCount(), "difference is left", "differences are left") : std::string();
}

SubjectRecord EntrySettlement::Result() const {
  SubjectRecord result;
  result.SubjectId = m_first.SubjectId;
  ResetLists(result, *m_project);
  int test = 0;
  int position = 0;
  for (const Line& line : m_lines) {
    if (line.Test == 0) {
      result.Levels[line.Variable] = line.Result->Item;
      continue;
    }
    if (std::exchange(test, line.Test) != line.Test) position = 0;
    if (!line.Result || position == m_project->ItemCount) continue;
    result.Lists.At(test, ++position) = *line.Result;
    if (line.Result->Item >= 1) ++result.Lists.RecallCount(test);
  }
  return result;
}

std::size_t EntrySettlement::LineAt(int test, int position) const {
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (m_lines[line].Test == test && m_lines[line].Result && --position == 0) return line;
  }
  return m_current;
}

// What the checks find is corrected here, in the result.
bool EntrySettlement::PassesTheChecks(const SubjectRecord& result) {
  RecallLists lists = result.Lists;
  CheckResult checked = CheckLists(lists, *m_project);
  for (const CheckFinding& warning : checked.Warnings) {
    const MessageBox box{warning.Message, BoxIcon::Exclamation, BoxButtons::YesNo, BoxAnswer::Yes, "Warning"};
    if (m_platform.Boxes.Show(box) != BoxAnswer::Yes) continue;
    GoTo(LineAt(warning.Test, warning.Position));
    return false;
  }
  if (!checked.Fault) {
    checked.Fault = RemoveFirstDuplicate(lists);
    if (checked.Fault) {
      const std::size_t line = LineAt(checked.Fault->Test, checked.Fault->Position);
      Keep({line});
      m_lines[line].Result = std::nullopt;
    }
  }
  if (checked.Fault) {
    GoTo(LineAt(checked.Fault->Test, checked.Fault->Position));
    m_platform.Pointer.Beep();
    Warn(m_platform.Boxes, checked.Fault->Message);
    return false;
  }
  const auto finding = FindOutOfRange(result, *m_project);
  return !finding ||
         Confirm(m_platform.Boxes, {.Text = finding->Message, .Buttons = BoxButtons::YesNo, .Title = "Warning"});
}

bool EntrySettlement::Settle() {
  if (!IsOpen()) return false;
  if (OpenCount() > 0) {
    GoToNext();
    Warn(m_platform.Boxes, "The differences that are left have to be settled first.", StatusLine() + ".");
    return false;
  }
  const SubjectRecord result = Result();
  if (!PassesTheChecks(result) || !FinishInterruptedChanges(*m_project, m_platform)) return false;
  const std::string content = FormatSubject(result, *m_project);
  const std::string file = PlaceName(SubjectPlace::Complete) + "/" + m_file;
  const std::string first = PlaceName(SubjectPlace::First) + "/" + m_file;
  FileChanges changes{"Settling subject '" + result.SubjectId + "'", {}};
  const bool isPlanned = WithRetry(m_platform.Boxes, [&] {
    changes.Files.clear();
    for (const std::string& root : {m_project->PrimaryDir, m_project->BackupDir}) {
      const bool inBackup = !changes.Files.empty();
      if (inBackup && IsNoDirectory(root)) continue;
      auto present = ContentOf(m_platform.Files, PathBelow(root, file));
      auto aside = ContentOf(m_platform.Files, PathBelow(root, first));
      changes.Files.push_back({.InBackup = inBackup, .Name = first, .Before = aside, .After = m_firstBytes});
      changes.Files.push_back({.InBackup = inBackup, .Name = file, .Before = std::move(present), .After = content});
    }
  });
  if (!isPlanned) return false;
  if (changes.Files[1].Before != m_firstBytes) {
    Warn(m_platform.Boxes, "The data have changed on the disk since they were read.  Please try again.");
    return false;
  }
  if (!MakeChanges(changes, *m_project, m_platform)) return false;
  Inform(m_platform.Boxes, "Completed subject saved.");
  return true;
}

}  // namespace zova
