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
#include "subjects/SubjectRecord.h"

namespace zova {

/// The screen of the differences between two entries of a subject: both side by side, and beside them the result, line
/// by line. Lines count from 0: the levels, then the aligned lines of every test.
class EntrySettlement {
 public:
  explicit EntrySettlement(const Platform& platform) : m_platform(platform) {}

  /// Reads both entries of a subject by its file's name. `project` must outlive the screen. False when one cannot be
  /// read and the user gave up.
  bool Open(const std::string& file, const ProjectParameters& project);
  void Close();
  [[nodiscard]] bool IsOpen() const noexcept { return m_project != nullptr; }
  [[nodiscard]] std::string SubjectCaption() const;

  [[nodiscard]] std::size_t LineCount() const noexcept { return m_lines.size(); }
  [[nodiscard]] bool IsDifferent(std::size_t line) const { return m_lines[line].IsDifferent; }
  [[nodiscard]] bool IsDecided(std::size_t line) const { return m_lines[line].IsDecided; }
  /// "Age", or "Test 1, line 3" by the first entry.
  [[nodiscard]] std::string Place(std::size_t line) const;
  enum class Side { First, Second, Result };
  /// The item, minute and rating in use, or the level; "(none)" for a line that is not there, "" for an open result.
  [[nodiscard]] std::string Text(std::size_t line, Side side) const;

  [[nodiscard]] std::size_t Current() const noexcept { return m_current; }
  /// Increases when another line becomes the current one, or a result changes.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }
  void GoTo(std::size_t line);
  /// The next difference without a result, beginning again at the top.
  void GoToNext();
  /// The result of the current line, and of the other one of a moved or exchanged item; then goes to the next
  /// difference.
  void TakeFirst() { Take(Side::First); }
  void TakeSecond() { Take(Side::Second); }
  /// What the protocol says, numbers separated by blanks or commas; none for a line that is not there. False after a
  /// message.
  bool Type(const std::string& text);
  [[nodiscard]] bool CanUndo() const noexcept { return m_history.CanUndo(); }
  void Undo();
  /// The differences without a result.
  [[nodiscard]] std::size_t OpenCount() const;
  [[nodiscard]] std::string StatusLine() const;

  /// Saves the result as the subject after the checks of a complete one, and puts the first entry aside as it was
  /// typed. False when it stays open.
  bool Settle();

 private:
  struct Line {
    int Test = 0;                                 // 0 for a level
    std::size_t Variable = 0;                     // of a level
    std::optional<Recall> First, Second, Result;  // a level stands for the item
    int FirstPosition = 0;
    std::size_t Partner = 0;  // the other line of the difference, or this one
    bool IsDifferent = false;
    bool IsDecided = true;
  };
  using Step = std::vector<std::pair<std::size_t, Line>>;  // lines before it

  void MakeLines(const Comparison& comparison);
  void MarkDifferent(std::size_t line, std::size_t partner);
  void Take(Side side);
  void Keep(const std::vector<std::size_t>& lines);
  [[nodiscard]] SubjectRecord Result() const;
  [[nodiscard]] std::size_t LineAt(int test, int position) const;
  bool PassesTheChecks(const SubjectRecord& result);
  [[nodiscard]] bool IsInRange(const Line& line, int column, int value) const;

  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  std::string m_file;
  std::string m_firstBytes;
  SubjectRecord m_first;
  SubjectRecord m_second;
  std::vector<Line> m_lines;
  UndoStack<Step> m_history;
  std::size_t m_current = 0;
  int m_revision = 0;
};

}  // namespace zova
