// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "grid/UndoStack.h"
#include "tables/import/ImportPlan.h"
#include "words/Responses.h"
#include "words/WordList.h"

namespace zova {

/// The rules of the review: each response of a table that is no word of its list stands in one row, until something is
/// decided about it with a proposal. Rows count from 0.
class ImportReview {
 public:
  enum Column { ResponseColumn, CountColumn, ItemColumn, WordColumn, DistanceColumn, SubjectColumn };
  static constexpr int kColumns = 6;

  /// Decisions of the project are those of `context`; the project's words give the words of items. What was done since
  /// Clear can still be undone.
  void Open(const ImportPlan& plan, const ImportContext& context);

  void Clear();

  [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(m_rows.size()); }
  [[nodiscard]] std::string Text(int row, int column) const;
  /// Something is decided about it.
  [[nodiscard]] bool IsDecided(int row) const { return m_rows[static_cast<std::size_t>(row)].Decided.has_value(); }
  [[nodiscard]] bool HasProposal(int row) const;
  /// The next row behind `row` about which nothing is decided, from the first again at the end; nullopt for none.
  [[nodiscard]] std::optional<int> NextOpen(int row) const;
  [[nodiscard]] std::size_t OpenCount() const noexcept;
  /// How many proposals TakeNear would take.
  [[nodiscard]] std::size_t NearCount() const;

  // Each is one step to undo.
  void Decide(const std::vector<int>& rows, const Decision& decision);
  /// Takes the proposals of these rows; rows without one stay. False when there was none.
  bool TakeProposals(const std::vector<int>& rows);
  /// Takes all proposals of distance 1, and of words in two pieces.
  void TakeNear();
  /// Decides for the item with this number or this word. Returns what is wrong with the text, or "".
  std::string Assign(const std::vector<int>& rows, const std::string& text);
  [[nodiscard]] bool CanUndo() const noexcept { return m_history.CanUndo(); }
  void Undo();

  /// The decisions of this review differ from those with which it was opened.
  [[nodiscard]] bool HasChanges() const;
  /// The project's decisions with those of the review.
  [[nodiscard]] Responses Decisions() const;
  [[nodiscard]] int Revision() const noexcept { return m_revision; }

 private:
  struct Change {
    std::string Place;  // ResponsePlace: planned again, the response may stand in another row
    std::optional<Decision> Before;
    std::optional<Decision> After;
  };

  [[nodiscard]] Change ChangeOf(std::size_t row, const Decision& decision) const;
  bool SetDecision(const std::string& place, const std::optional<Decision>& decision);
  void Apply(std::vector<Change> changes);
  [[nodiscard]] std::string WordOf(int item) const;

  std::vector<OpenResponse> m_rows;
  TextMap<std::size_t> m_places;                 // of the rows, by ResponsePlace
  std::vector<std::optional<Decision>> m_first;  // when the review was opened
  Responses m_decided;
  WordList m_words;
  int m_itemCount = 0;
  UndoStack<std::vector<Change>> m_history;
  int m_revision = 0;
};

}  // namespace zova
