// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "subjects/SubjectFile.h"
#include "support/FakePlatform.h"
#include "support/Study.h"
#include "tables/import/ImportPlan.h"
#include "tables/import/ImportReport.h"
#include "tables/import/ImportRun.h"

namespace zova::testing {

using Options = std::vector<std::pair<std::string, std::string>>;

/// Imports tables into the project "AB" with the words apple, table, chilipowder, yo-yo, vase, crème.
struct ImportDesk : Study {
  explicit ImportDesk(const Shape& shape = {.Tests = 2, .Items = 6}) : Study(shape) {
    for (const char* word : {"apple", "table", "chilipowder", "yo-yo", "vase", "crème"})
      Words.Words.push_back({word, ""});
    Files.MakeDirectory("C:\\Data");
  }

  ImportDraft Draft(const std::string& table, const Options& given = {}) {
    Files.Put("C:\\t.csv", table);
    ImportOptions options;
    for (const auto& [name, value] : given) EXPECT_EQ(SetImportOption(options, name, value), "") << name;
    ImportContext context = ReadImportContext(Files.Files, Project);
    if (context.Words.IsEmpty()) context.Words = Words;
    return DraftImport(Files.Files, "C:\\t.csv", options, std::move(context));
  }

  ImportOutcome Run(const ImportDraft& draft, MessageBoxes& boxes) {
    return RunImport(draft, Desk.With(Files.Files, boxes));
  }
  ImportOutcome Run(const ImportDraft& draft) { return Run(draft, Desk.Boxes); }

  /// "a: 1 2/3 | 4;b: | 2": what the subject files hold; item, then minute and rating if there.
  std::string Lists() {
    std::string text;
    for (const std::string& name : ListSubjectFiles(OfFiles, Project, "C:\\Data\\Sdata")) {
      SubjectRecord record;
      LoadSubjectFile(OfFiles, "C:\\Data\\Sdata\\" + name, Project, record);
      text += (text.empty() ? "" : "; ") + SubjectIdFromFileName(Project, name) + ":";
      for (int test = 1; test <= Project.TestCount; ++test) {
        if (test > 1) text += " |";
        for (int position = 1; position <= Project.ItemCount; ++position) {
          const Recall& recall = record.Lists.At(test, position);
          if (recall.Item == 0) continue;
          text += " " + std::to_string(recall.Item);
          if (recall.Minute != 0) text += "/" + std::to_string(recall.Minute);
          if (recall.Rating != 0) text += "/" + std::to_string(recall.Rating);
        }
      }
    }
    return text;
  }

  /// The report's rows below the totals: "what row column subject test text".
  static std::string CasesOf(const ImportDraft& draft) {
    std::string text;
    for (const ImportQuestion& question : draft.Plan.Questions) {
      text += "undecided " + question.Option;
      if (question.Row != 0) text += " " + std::to_string(question.Row);
      text += "\n";
    }
    for (const ImportCase& found : draft.Plan.Findings.Cases) {
      text += std::string(CaseName(found.Kind)) + " " + std::to_string(found.Row);
      for (const std::string* field : {&found.Column, &found.Subject, &found.Test, &found.Text}) text += " " + *field;
      text += "\n";
    }
    return text;
  }

  WordList Words;
  FakePlatform Desk;
};

}  // namespace zova::testing
