// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportReview.h"

#include <algorithm>
#include <utility>

#include "text/LeadingNumber.h"
#include "words/WordKey.h"

namespace zova {

namespace {

std::string PlaceOf(const OpenResponse& response) { return ResponsePlace(response.Response, response.Scope); }

// Several nearest words are a tie, of which none is proposed.
const NearItem* ProposalOf(const OpenResponse& response) {
  return response.Near.size() == 1 ? &response.Near.front() : nullptr;
}

bool IsTakenWithAll(const OpenResponse& response) {
  const NearItem* proposal = ProposalOf(response);
  return proposal != nullptr && proposal->Distance <= 1 && !response.Decided;
}

template <typename TextOf>
std::string Joined(const std::vector<NearItem>& items, TextOf&& textOf) {
  std::string text;
  for (const NearItem& item : items) {
    if (!text.empty()) text += ", ";
    text += textOf(item);
  }
  return text;
}

}  // namespace

void ImportReview::Open(const ImportPlan& plan, const ImportContext& context) {
  m_rows = plan.Findings.Responses;
  m_first.clear();
  m_first.reserve(m_rows.size());
  for (const OpenResponse& row : m_rows) m_first.push_back(row.Decided);
  m_decided = context.Decided;
  m_words = context.Words;
  m_itemCount = context.Project.ItemCount;
  m_places.clear();
  for (std::size_t row = 0; row < m_rows.size(); ++row) m_places.emplace(PlaceOf(m_rows[row]), row);
  ++m_revision;
}

void ImportReview::Clear() {
  m_rows.clear();
  m_places.clear();
  m_first.clear();
  m_history.Clear();
  ++m_revision;
}

std::string ImportReview::WordOf(int item) const { return std::string(m_words.TextOf(item)); }

std::string ImportReview::Text(int row, int column) const {
  const OpenResponse& response = m_rows[static_cast<std::size_t>(row)];
  const std::optional<Decision>& decided = response.Decided;
  switch (column) {
    case ResponseColumn: return response.Response;
    case CountColumn: return std::to_string(response.Count);
    case SubjectColumn: return response.Subject;
    case ItemColumn:
      if (!decided) return Joined(response.Near, [](const NearItem& near) { return std::to_string(near.Item) + "?"; });
      if (decided->Kind == Verdict::Intrusion) return "intrusion";
      return decided->Kind == Verdict::Skip ? "skip" : std::to_string(decided->Item);
    case WordColumn:
      if (!decided) return Joined(response.Near, [](const NearItem& near) { return near.Word + "?"; });
      return decided->Kind == Verdict::Item ? WordOf(decided->Item) : std::string();
    case DistanceColumn: return response.Near.empty() ? "" : std::to_string(response.Near.front().Distance);
    default: return {};
  }
}

bool ImportReview::HasProposal(int row) const { return ProposalOf(m_rows[static_cast<std::size_t>(row)]) != nullptr; }

std::optional<int> ImportReview::NextOpen(int row) const {
  for (int step = 1; step <= RowCount(); ++step) {
    const int next = (row + step) % RowCount();
    if (!IsDecided(next)) return next;
  }
  return std::nullopt;
}

std::size_t ImportReview::OpenCount() const noexcept {
  return static_cast<std::size_t>(
      std::count_if(m_rows.begin(), m_rows.end(), [](const OpenResponse& row) { return !row.Decided; }));
}

std::size_t ImportReview::NearCount() const {
  return static_cast<std::size_t>(std::count_if(m_rows.begin(), m_rows.end(), IsTakenWithAll));
}

ImportReview::Change ImportReview::ChangeOf(std::size_t row, const Decision& decision) const {
  return {PlaceOf(m_rows[row]), m_rows[row].Decided, decision};
}

// False when the response is in no row.
bool ImportReview::SetDecision(const std::string& place, const std::optional<Decision>& decision) {
  const auto row = m_places.find(place);
  if (row == m_places.end()) return false;
  m_rows[row->second].Decided = decision;
  return true;
}

void ImportReview::Apply(std::vector<Change> changes) {
  std::erase_if(changes, [](const Change& change) { return change.Before == change.After; });
  if (changes.empty()) return;
  for (const Change& change : changes) SetDecision(change.Place, change.After);
  m_history.Push(std::move(changes));
  ++m_revision;
}

void ImportReview::Decide(const std::vector<int>& rows, const Decision& decision) {
  std::vector<Change> changes;
  changes.reserve(rows.size());
  for (const int row : rows) changes.push_back(ChangeOf(static_cast<std::size_t>(row), decision));
  Apply(std::move(changes));
}

bool ImportReview::TakeProposals(const std::vector<int>& rows) {
  std::vector<Change> changes;
  changes.reserve(rows.size());
  for (const int row : rows) {
    const auto index = static_cast<std::size_t>(row);
    const NearItem* proposal = ProposalOf(m_rows[index]);
    if (proposal != nullptr) changes.push_back(ChangeOf(index, {Verdict::Item, proposal->Item}));
  }
  const bool hasAny = !changes.empty();
  Apply(std::move(changes));
  return hasAny;
}

void ImportReview::TakeNear() {
  std::vector<Change> changes;
  changes.reserve(m_rows.size());
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    if (!IsTakenWithAll(m_rows[row])) continue;
    changes.push_back(ChangeOf(row, {Verdict::Item, ProposalOf(m_rows[row])->Item}));
  }
  Apply(std::move(changes));
}

std::string ImportReview::Assign(const std::vector<int>& rows, const std::string& text) {
  int item = 0;
  if (IsDigits(text)) {
    item = DigitsInteger16(text).value_or(std::int16_t{0});
    if (item < 1 || item > m_itemCount)
      return "'" + text + "' is no item from 1 to " + std::to_string(m_itemCount) + ".";
  } else {
    const std::string key = WordKey(text);
    for (int i = 1; i <= static_cast<int>(m_words.Words.size()) && item == 0; ++i) {
      if (WordKey(m_words.TextOf(i)) == key) item = i;
    }
    if (item == 0 || key.empty()) return "'" + text + "' is not on the word list.";
  }
  Decide(rows, {Verdict::Item, item});
  return {};
}

void ImportReview::Undo() {
  bool hasChanged = false;
  while (const auto* step = hasChanged ? nullptr : m_history.Undo()) {
    for (const Change& change : *step) hasChanged = SetDecision(change.Place, change.Before) || hasChanged;
  }
  ++m_revision;
}

bool ImportReview::HasChanges() const {
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    if (m_rows[row].Decided != m_first[row]) return true;
  }
  return false;
}

Responses ImportReview::Decisions() const {
  const auto decisionOn = [](const OpenResponse& row, const Decision& decision) {
    return DecidedResponse{row.Response, decision, 0, row.Scope};
  };
  Responses reopened;
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    if (!m_rows[row].Decided && m_first[row]) reopened.Replace(decisionOn(m_rows[row], *m_first[row]));
  }
  Responses decided;
  for (const DecidedResponse& known : m_decided.All()) {
    if (reopened.Find(known.Response, known.Scope) == nullptr) decided.Replace(known);
  }
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    const std::optional<Decision>& decision = m_rows[row].Decided;
    if (decision && decision != m_first[row]) decided.Replace(decisionOn(m_rows[row], *decision));
  }
  return decided;
}

}  // namespace zova
