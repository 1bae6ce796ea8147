// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "compare/Differences.h"
#include "grid/UndoStack.h"
#include "platform/desktop/Platform.h"
#include "project/FileChanges.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// The screen of the differences between two entries of a subject: both side by side, and beside them the result, line
/// by line. Lines count from 0: the levels, then the aligned lines of every test.
class EntrySettlement {
 public:
  explicit EntrySettlement(const Platform& platform) : m_platform(platform) {}

  /// Reads both entries of a subject by its file's name, the first one as it was typed (SubjectListing::FirstEntry).
  /// `project` must outlive the screen. False when one cannot be read and the user gave up.
  bool Open(const std::string& file, const ProjectParameters& project);
  void Close();
  /// Asks, if there are decisions that would be lost.
  [[nodiscard]] bool MayLeave() const;
  [[nodiscard]] bool IsOpen() const noexcept { return m_project != nullptr; }
  [[nodiscard]] std::string SubjectCaption() const;

  [[nodiscard]] std::size_t LineCount() const noexcept { return m_lines.size(); }
  [[nodiscard]] bool IsDifferent(std::size_t line) const { return m_lines[line].IsDifferent; }
  [[nodiscard]] bool IsDecided(std::size_t line) const { return m_lines[line].IsDecided; }
  /// "Age", or "Test 1, line 3" by the first entry.
  [[nodiscard]] std::string Place(std::size_t line) const;
  enum class Side { First, Second, Result };
  /// The item, minute and rating in use, or the level; in brackets what differs from the other entry. "(none)" for a
  /// line that is not there, "" for an open result.
  [[nodiscard]] std::string Text(std::size_t line, Side side) const;
  /// The result so far, or else the first entry, as Type takes it.
  [[nodiscard]] std::string TypedText(std::size_t line) const;

  [[nodiscard]] std::size_t Current() const noexcept { return m_current; }
  /// Increases when another line becomes the current one, or a result changes.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }
  void GoTo(std::size_t line);
  /// The next line with a difference without a result, beginning again at the top. Of the two lines of one difference
  /// the earlier one, unless only the other one is open.
  void GoToNext();
  /// The result of the current line, and of the other one of a moved or exchanged item unless it was typed; then goes
  /// to the next difference.
  void TakeFirst() { Take(Side::First); }
  void TakeSecond() { Take(Side::Second); }
  /// What the protocol says, numbers separated by blanks, commas or semicolons; none for a line that is not there,
  /// those of several lines where both entries left lines out. False after a message.
  bool Type(const std::string& text);
  [[nodiscard]] bool CanUndo() const noexcept { return m_history.CanUndo(); }
  void Undo();
  /// The differences without a result.
  [[nodiscard]] std::size_t OpenCount() const;
  /// What the user has to know of the subject's data: that they are gone, or that an earlier settlement has made others
  /// of them than the result; "" else.
  [[nodiscard]] std::string DataNote() const;
  [[nodiscard]] std::string StatusLine() const;

  /// Saves the result as the subject after the checks of a complete one, and puts the first entry aside as it was
  /// typed. False when it stays open.
  bool Settle();

 private:
  struct Line {
    int Test = 0;                         // 0 for a level
    std::size_t Variable = 0;             // of a level
    std::optional<Recall> First, Second;  // a level stands for the item
    std::vector<Recall> Result;           // mostly one line
    int FirstPosition = 0;
    std::size_t Partner = 0;  // the other line of a moved or exchanged item, or this one
    bool IsDifferent = false;
    bool IsDecided = true;
    bool IsTyped = false;
  };
  using Step = std::vector<std::pair<std::size_t, Line>>;  // lines before it
  struct Spot {
    std::size_t Line = 0;
    std::size_t Index = 0;  // in the line's result
  };

  // The subject's data are the result of an earlier settlement, and not the first entry.
  [[nodiscard]] bool WasSettled() const { return m_presentBytes && *m_presentBytes != m_firstBytes; }
  [[nodiscard]] std::string OpenCaption() const;
  void MakeLines(const Comparison& comparison);
  void Take(Side side);
  void Keep(const std::vector<std::size_t>& lines);
  [[nodiscard]] SubjectRecord Result() const;
  [[nodiscard]] std::optional<FileChanges> Plan(const std::string& content) const;
  [[nodiscard]] Spot SpotOf(int test, int position) const;
  [[nodiscard]] std::vector<int> ColumnsOf(const Line& line) const;
  [[nodiscard]] std::optional<std::vector<Recall>> Parse(const Line& line, const std::string& text) const;
  [[nodiscard]] std::string TextOf(const Line& line, const Recall& recall, const Recall* other) const;
  [[nodiscard]] bool IsOpenPair(std::size_t line) const {
    return !m_lines[line].IsDecided || !m_lines[m_lines[line].Partner].IsDecided;
  }
  bool FitsInTheLists();
  bool PassesTheChecks(const SubjectRecord& result);
  [[nodiscard]] bool IsInRange(const Line& line, int column, int value) const;

  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  std::string m_file;
  std::optional<std::string> m_presentBytes;  // of the subject's data
  std::string m_firstBytes;
  std::string m_secondBytes;
  SubjectRecord m_first;
  SubjectRecord m_second;
  std::vector<Line> m_lines;
  std::vector<std::size_t> m_differences;  // the line of each, of two the earlier one
  UndoStack<Step> m_history;
  std::size_t m_current = 0;
  int m_revision = 0;
};

}  // namespace zova
