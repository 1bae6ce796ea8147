// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportQuestions.h"

#include <algorithm>

#include "tables/TableValues.h"
#include "tables/import/SubjectBuilder.h"
#include "text/Counted.h"

namespace zova {

namespace {

void Ask(ImportDraft& draft, bool isAnswered, ImportQuestion question) {
  if (!isAnswered) draft.Plan.Questions.push_back(question);
  draft.Plan.Raised.push_back(std::move(question));
}

// Labels 1 to T are the tests. Otherwise the two ways differ where a subject's own labels are not the first ones.
void AskTests(ImportDraft& draft) {
  const TableSurvey& survey = draft.Survey;
  if (!survey.RankDiffers) return;
  const bool areTests = std::all_of(survey.Labels.begin(), survey.Labels.end(), [&](const SeenText& label) {
    const auto number = WholeNumber(label.Text);
    return number && *number >= 1 && *number <= draft.Context.Project.TestCount;
  });
  if (areTests) return;
  Ask(draft, draft.Options.Tests.has_value(),
      {"--tests",
       "Subjects have different lists.  Are the tests the lists of the table, by their labels, or each subject's own "
       "lists, by rank?",
       {"labels", "rank"}});
}

void AskNumbers(ImportDraft& draft) {
  const TableSurvey& survey = draft.Survey;
  const bool areItems = survey.HasNumbers && draft.Options.Items == ItemsBy::Pool;
  if (areItems && survey.ZeroLine != 0) {
    Ask(draft, draft.Options.FirstItem.has_value(),
        {"--first-item",
         "There are items with the number 0.  Is the first item 0, or 1 and a 0 no recall?",
         {"0", "1"},
         survey.ZeroLine});
  }
  const ProjectParameters& project = draft.Context.Project;
  if (project.MinutesRecorded != 1) return;
  const bool areBroken = survey.BrokenMinuteLine != 0;
  if (!areBroken && survey.LargestMinute <= project.MaxMinutes) return;
  const std::string found = areBroken ? "The minutes are no whole numbers."
                                      : "There are minutes up to " + std::to_string(survey.LargestMinute) +
                                            "; the project has " + std::to_string(project.MaxMinutes) + ".";
  Ask(draft, draft.Options.Times.has_value(),
      {"--times",
       found + "  Are they times, in seconds, milliseconds or minutes, or numbers of minutes, of which some are wrong?",
       {"s", "ms", "min", "number"},
       areBroken ? survey.BrokenMinuteLine : survey.LargestMinuteLine});
}

void AskLists(ImportDraft& draft) {
  const ImportCounts& counts = draft.Plan.Findings.Counts;
  if (counts.Open > 0) {
    Ask(draft, draft.Options.Others.has_value(),
        {"--others",
         Counted(counts.Open, "response is", "responses are") +
             " neither a word nor decided.  Are they intrusions, or skipped?",
         {"intrusion", "skip"}});
  }
  if (counts.TooLong > 0) {
    Ask(draft, draft.Options.Long.has_value(),
        {"--too-long",
         Counted(counts.TooLong, "list is", "lists are") +
             " longer than the study list.  Are they cut, or their subjects left out?",
         {"cut", "leave-out"},
         counts.TooLongRow});
  }
  if (counts.MissingTests > 0) {
    Ask(draft, draft.Options.Missing.has_value(),
        {"--missing-tests",
         Counted(counts.MissingTests, "test is", "tests are") +
             " lacking.  Are they empty, or their subjects left out?",
         {"empty", "leave-out"},
         counts.MissingTestRow});
  }
  if (const std::size_t different = draft.Plan.Different; different > 0) {
    Ask(draft, draft.Options.Existing.has_value(),
        {"--existing",
         Counted(different, "subject is", "subjects are") +
             " in the project with other data.  Are they skipped, or replaced?",
         {"skip", "replace"}});
  }
}

void AskLevels(ImportDraft& draft, const std::array<std::size_t, kMaxVariables>& withoutLevel) {
  const ProjectParameters& project = draft.Context.Project;
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    if (withoutLevel[v] == 0) continue;
    std::vector<std::string> levels;
    for (int level = 1; level <= project.LevelCounts[v]; ++level) levels.push_back(LevelLabel(project, v, level));
    Ask(draft, GivenLevel(draft.Options, project, v) != 0,
        {"--level",
         Counted(withoutLevel[v], "subject has", "subjects have") + " no level of " + project.VariableNames[v] +
             " that fits.  Which one is it?",
         std::move(levels), 0, project.VariableNames[v]});
  }
}

}  // namespace

void AskAboutTable(ImportDraft& draft) {
  AskTests(draft);
  AskNumbers(draft);
}

void AskQuestions(ImportDraft& draft, const std::array<std::size_t, kMaxVariables>& withoutLevel) {
  AskAboutTable(draft);
  AskLists(draft);
  AskLevels(draft, withoutLevel);
  const std::size_t unfinished = draft.Plan.CountOf(SubjectAction::Unfinished);
  if (unfinished > 0 && unfinished + draft.Context.Unfinished.size() > kMaxUnfinished) {
    draft.Plan.Findings.Add(
        {.Kind = CaseKind::Error, .Count = unfinished, .Text = "You cannot have more than 10 unfinished data files"});
  }
}

}  // namespace zova
