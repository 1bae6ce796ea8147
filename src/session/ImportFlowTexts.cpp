// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the pages of an import say.

#include <algorithm>
#include <array>

#include "platform/files/PathParts.h"
#include "session/ImportFlow.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr std::size_t kSampleValues = 5;

}  // namespace

std::string ImportFlow::ProposalText() const {
  std::string text = std::string(LastPathComponent(m_draft->Setup.Path)) + ": " + ProjectSummary(m_proposal.Project);
  for (const std::string& note : m_proposal.Notes) text += "\n" + OnScreen(note);
  return text;
}

std::string ImportFlow::TableLine() const {
  const TableSurvey& survey = m_draft->Survey;
  return std::string(LastPathComponent(m_draft->Setup.Path)) + ": " + Counted(survey.Rows, "row", "rows") + ", " +
         Counted(survey.Subjects.size(), "subject", "subjects") + ", " + Counted(survey.Labels.size(), "test", "tests");
}

std::string ImportFlow::ColumnNotes() const {
  std::string notes;
  for (const auto* list : {&m_draft->Setup.Columns.Faults, &m_draft->Setup.Columns.Notes}) {
    for (const ColumnNote& note : *list) notes += (notes.empty() ? "" : "\n") + OnScreen(note.Text);
  }
  return notes;
}

std::vector<ImportChoice> ImportFlow::HowRead() const {
  std::vector<ImportChoice> choices = TableChoices(*m_draft);
  if (m_isNew) choices.insert(choices.end(), m_choices.begin(), m_choices.end());
  return choices;
}

std::string ImportFlow::WordsLine() const {
  if (m_wordsFile.empty()) return "A table without study rows and item numbers needs the list of words:";
  return "Word list: " + std::string(LastPathComponent(m_wordsFile)) + ", " +
         Counted(m_draft->Context.Words.Words.size(), "word", "words");
}

std::string ImportFlow::TableTold() const {
  if (m_stage != Stage::Table || !m_isNew || m_draft->Plan.Questions.empty()) return {};
  const std::size_t open = m_draft->Plan.Questions.size();
  return Counted(open, "question is", "questions are") + " open: please choose on the left";
}

std::string ImportFlow::ColumnName(int column) const {
  if (!m_draft || column >= ColumnCount()) return {};
  return m_draft->Setup.Format.Names[static_cast<std::size_t>(column)];
}

std::string ImportFlow::ColumnSample(int column) const {
  std::string sample;
  std::vector<std::string_view> seen;
  if (!m_draft) return sample;
  for (const auto& row : m_draft->Setup.Format.Sample) {
    if (static_cast<std::size_t>(column) >= row.size() || seen.size() == kSampleValues) continue;
    const std::string& value = row[static_cast<std::size_t>(column)];
    if (std::find(seen.begin(), seen.end(), value) != seen.end()) continue;
    seen.push_back(value);
    if (!sample.empty()) sample += ", ";
    sample += value;
  }
  return sample;
}

std::vector<std::string> ImportFlow::Uses() const { return ColumnUses(*m_project); }

int ImportFlow::ColumnUse(int column) const {
  return m_draft ? UseOfColumn(m_draft->Setup.Columns, column, *m_project) : 0;
}

std::string ImportFlow::ReviewLine() const {
  const auto rows = static_cast<std::size_t>(m_review.RowCount());
  return Counted(rows, "response is no word of its list", "responses are no words of their lists") + "; " +
         std::to_string(m_review.OpenCount()) + " still open";
}

int ImportFlow::DryRunRows() const noexcept {
  return static_cast<int>(m_totals.size() + m_draft->Plan.Findings.Cases.size() + (m_rest ? 1 : 0));
}

std::string ImportFlow::DryRunText(int row, int column) const {
  const auto index = static_cast<std::size_t>(row);
  if (!m_draft || row >= DryRunRows()) return {};
  if (index < m_totals.size()) {
    const ImportTotal& total = m_totals[index];
    const std::array<std::string, 7> texts = {total.What, std::to_string(total.Count), "", total.Column, "",
                                              total.Test, OnScreen(total.Text)};
    return texts.at(static_cast<std::size_t>(column));
  }
  const std::vector<ImportCase>& cases = m_draft->Plan.Findings.Cases;
  const std::size_t at = index - m_totals.size();
  const ImportCase& found = at < cases.size() ? cases[at] : *m_rest;
  const std::array<std::string, 7> texts = {std::string(CaseName(found.Kind)),
                                            std::to_string(found.Count),
                                            found.Row == 0 ? "" : std::to_string(found.Row),
                                            found.Column,
                                            found.Subject,
                                            found.Test,
                                            OnScreen(found.Text)};
  return texts.at(static_cast<std::size_t>(column));
}

std::string ImportFlow::DryRunLine() const {
  const ImportPlan& plan = m_draft->Plan;
  const std::size_t unfinished = plan.CountOf(SubjectAction::Unfinished);
  const std::size_t written = plan.CountOf(SubjectAction::Write) + plan.CountOf(SubjectAction::Replace) + unfinished;
  std::string line = Counted(written, "subject", "subjects") + " would be written";
  if (unfinished > 0) line += ", " + std::to_string(unfinished) + " of them as unfinished";
  if (const std::size_t refused = plan.CountOf(SubjectAction::Refuse); refused > 0) {
    line += ", " + std::to_string(refused) + " refused by the checks";
  }
  if (!plan.Questions.empty()) line += "; " + Counted(plan.Questions.size(), "question is", "questions are") + " open";
  if (m_rest) line += "; " + Counted(m_rest->Count, "more case is", "more cases are") + " not listed";
  if (plan.HasErrors()) line += "; the faults in the list have to be mended first";
  return line;
}

}  // namespace zova
