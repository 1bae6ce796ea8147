// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/EntrySettlement.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectListing.h"
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

}  // namespace

bool EntrySettlement::Open(const std::string& file, const ProjectParameters& project) {
  Close();
  const auto read = [&](const ResolvedPath& path, SubjectRecord& record, std::string& bytes) {
    m_platform.Files.Read(path, bytes);
    ParsingFile(path.Shown, [&] { ParseSubject(bytes, project, record); });
    record.SubjectId = SubjectIdFromFileName(project, file);
  };
  std::optional<SubjectPlace> first;
  if (!WithRetry(m_platform.Boxes, [&] {
        const SubjectListing listing(m_platform.Files, project, SubjectDirectory(project.PrimaryDir));
        const auto fileIn = [&](SubjectPlace place) { return listing.File(place, file); };
        first = listing.FirstEntry(file);
        if (!first) return;
        m_presentBytes = ReadIfThere(m_platform.Files, fileIn(SubjectPlace::Complete));
        read(fileIn(*first), m_first, m_firstBytes);
        read(fileIn(SubjectPlace::Second), m_second, m_secondBytes);
      })) {
    return false;
  }
  if (!first) {
    Warn(m_platform.Boxes,
         "There is no first entry of subject '" + SubjectIdFromFileName(project, file) + "' any more.",
         "The second entry is kept.  'Settle' in the table of subjects compares both once the first one is there "
         "again.");
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
  m_differences.clear();
  m_history.Clear();
  m_current = 0;
  ++m_revision;
}

bool EntrySettlement::MayLeave() const {
  return !CanUndo() || Confirm(m_platform.Boxes, {.Text = "You will lose all unsaved changes.  Are you sure that you "
                                                          "want to do this?"});
}

void EntrySettlement::MakeLines(const Comparison& comparison) {
  std::size_t count = static_cast<std::size_t>(m_project->VariableCount);
  for (const auto& test : comparison.Tests) count += test.size();
  m_lines.reserve(count);
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project->VariableCount); ++v) {
    Line line;
    line.Variable = v;
    line.First = Recall{m_first.Levels[v], 0, 0};
    line.Second = Recall{m_second.Levels[v], 0, 0};
    m_lines.push_back(line);
  }
  std::vector<std::size_t> starts;  // of the tests
  starts.reserve(comparison.Tests.size());
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
    if (m_lines[i].First) m_lines[i].Result = {*m_lines[i].First};
  }
  m_differences.reserve(comparison.Differences.size());
  for (const Difference& difference : comparison.Differences) {
    const std::size_t start = difference.Test == 0 ? 0 : starts[static_cast<std::size_t>(difference.Test) - 1];
    const bool isPair = difference.Is == Difference::Kind::Moved || difference.Is == Difference::Kind::Swapped;
    const std::size_t line = start + difference.Line;
    const std::size_t other = isPair ? start + difference.OtherLine : line;
    m_differences.push_back(line);
    for (const std::size_t marked : {line, other}) {
      m_lines[marked].IsDifferent = true;
      m_lines[marked].IsDecided = false;
      if (isPair) m_lines[marked].Partner = marked == line ? other : line;
    }
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

std::vector<int> EntrySettlement::ColumnsOf(const Line& line) const {
  if (line.Test == 0) return {kItemColumn};
  std::vector<int> columns;
  std::copy_if(kColumns.begin(), kColumns.end(), std::back_inserter(columns),
               [&](int column) { return IsColumnUsed(*m_project, line.Test, column); });
  return columns;
}

// In brackets what differs from `other`.
std::string EntrySettlement::TextOf(const Line& line, const Recall& recall, const Recall* other) const {
  std::string text;
  for (const int column : ColumnsOf(line)) {
    const int value = CellValue(recall, column);
    const std::string cell = line.Test == 0 ? LevelLabel(*m_project, line.Variable, value) : std::to_string(value);
    const bool isMarked = other != nullptr && CellValue(*other, column) != value;
    text.append(text.empty() ? "" : ", ").append(isMarked ? "[" + cell + "]" : cell);
  }
  return text;
}

std::string EntrySettlement::Text(std::size_t line, Side side) const {
  const Line& at = m_lines[line];
  if (side == Side::Result) {
    if (!at.IsDecided) return {};
    std::string text;
    for (const Recall& recall : at.Result) text.append(text.empty() ? "" : "; ").append(TextOf(at, recall, nullptr));
    return text.empty() ? "(none)" : text;
  }
  const auto& entry = side == Side::First ? at.First : at.Second;
  const auto& other = side == Side::First ? at.Second : at.First;
  return entry ? TextOf(at, *entry, other && at.IsDifferent ? &*other : nullptr) : "(none)";
}

std::string EntrySettlement::TypedText(std::size_t line) const {
  const Line& at = m_lines[line];
  if (at.Test == 0) return std::to_string((at.IsDecided ? at.Result.front() : *at.First).Item);
  if (!at.IsDecided) return at.First ? TextOf(at, *at.First, nullptr) : std::string();
  return at.Result.empty() ? std::string() : Text(line, Side::Result);
}

void EntrySettlement::GoTo(std::size_t line) {
  if (line >= m_lines.size()) return;
  m_current = line;
  ++m_revision;
}

void EntrySettlement::GoToNext() {
  for (std::size_t step = 1; step <= m_lines.size(); ++step) {
    const std::size_t line = (m_current + step) % m_lines.size();
    const std::size_t partner = m_lines[line].Partner;
    const bool isFollower = partner < line && !m_lines[partner].IsDecided;
    if (!m_lines[line].IsDecided && !isFollower) return GoTo(line);
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
    Line& at = m_lines[line];
    if (at.IsTyped && line != m_current) continue;
    const auto& entry = side == Side::First ? at.First : at.Second;
    at.Result.clear();
    if (entry) at.Result = {*entry};
    at.IsDecided = true;
    at.IsTyped = false;
  }
  GoToNext();
}

bool EntrySettlement::IsInRange(const Line& line, int column, int value) const {
  if (line.Test == 0) return value >= 1 && value <= m_project->LevelCounts[line.Variable];
  return value >= 1 && value <= ColumnLimit(*m_project, column);
}

// nullopt for numbers that do not fill whole lines, or are out of range.
std::optional<std::vector<Recall>> EntrySettlement::Parse(const Line& line, const std::string& text) const {
  const std::vector<int> columns = ColumnsOf(line);
  const std::vector<std::string_view> numbers = NumbersIn(text);
  if (numbers.size() % columns.size() != 0) return std::nullopt;
  std::vector<Recall> typed(numbers.size() / columns.size());
  if (line.Test == 0 && typed.size() != 1) return std::nullopt;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const int column = columns[i % columns.size()];
    const std::int16_t value = DigitsInteger16(numbers[i]).value_or(0);
    if (!IsInRange(line, column, value)) return std::nullopt;
    SetCellValue(typed[i / columns.size()], column, value);
  }
  return typed;
}

bool EntrySettlement::Type(const std::string& text) {
  if (!IsOpen() || m_lines.empty()) return false;
  Line& line = m_lines[m_current];
  auto typed = Parse(line, text);
  if (!typed) {
    m_platform.Pointer.Beep();
    Warn(m_platform.Boxes, "Invalid Format.",
         line.Test == 0
             ? "Type the number of a level."
             : "Type " + Counted(ColumnsOf(line).size(), "number", "numbers") + " within the limits of the project.");
    return false;
  }
  Keep({m_current});
  line.Result = std::move(*typed);
  line.IsDecided = line.IsTyped = true;
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
  return static_cast<std::size_t>(
      std::count_if(m_differences.begin(), m_differences.end(), [&](std::size_t line) { return IsOpenPair(line); }));
}

std::string EntrySettlement::OpenCaption() const {
  return Counted(OpenCount(), "difference is left", "differences are left");
}

std::string EntrySettlement::DataNote() const {
  if (!IsOpen()) return {};
  if (!m_presentBytes) return "The data of this subject are gone.";
  const bool isOther = WasSettled() && OpenCount() == 0 && FormatSubject(Result(), *m_project) != *m_presentBytes;
  return isOther ? "This subject was settled otherwise before." : "";
}

std::string EntrySettlement::StatusLine() const {
  if (!IsOpen()) return {};
  const std::string note = DataNote();
  return note.empty() ? OpenCaption() : OpenCaption() + ".  " + note;
}

}  // namespace zova
