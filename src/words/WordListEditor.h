// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "grid/TypedGrid.h"
#include "platform/desktop/Platform.h"
#include "words/WordList.h"

namespace zova {

/// The screen for the project's word list: a grid with a line for each item.
class WordListEditor {
 public:
  static constexpr int kWordColumn = 1;
  static constexpr int kCategoryColumn = 2;

  explicit WordListEditor(const Platform& platform);

  /// Shows the project's word list; a blank one when there is none, or when its file does not fit, after a message.
  /// False when the file could not be read. `project` must outlive the screen.
  bool Open(const ProjectParameters& project);
  TypedGrid& Cells() noexcept { return m_cells; }
  /// What stands in the grid.
  [[nodiscard]] const WordList& List() const noexcept { return m_list; }
  /// How many items have a word, and what is wrong first.
  [[nodiscard]] const std::string& Told();
  [[nodiscard]] bool HasUnsavedChanges() const { return m_list != m_saved || !m_cells.EntryText().empty(); }

  /// Replaces the list by that of a file which the user chooses.
  void ChooseFile();
  /// Checks the list and saves it. For the first fault shows its message with the cursor on it, and returns false.
  bool Save();
  /// True when there is nothing to lose, or the user agrees.
  bool MayLeave();

 private:
  [[nodiscard]] GridRules Rules();
  [[nodiscard]] CellInput Typed(GridCell cell, std::string_view text) const;
  [[nodiscard]] PastedBlock Pasted(GridCell start, std::string_view text) const;
  void SetText(GridCell cell, const std::string& text);
  [[nodiscard]] std::string* CellText(GridCell cell);
  [[nodiscard]] std::string ToldText() const;
  bool MayReplace(const std::string& content);
  bool Write();
  bool Remove();
  [[nodiscard]] std::string FilePath() const;

  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  WordList m_list;
  WordList m_saved;
  std::optional<std::string> m_known;  // the file's bytes when it was read or written; nullopt for no file
  bool m_isUnfit = false;              // the file did not fit when it was read
  std::size_t m_categories = 0;        // items that have one
  std::string m_told;
  int m_toldRevision = -1;
  bool m_toldSaved = false;  // m_told is that of a saved list
  TypedGrid m_cells;
};

}  // namespace zova
