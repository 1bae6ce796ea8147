// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportReport.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "text/Cells.h"
#include "text/Csv.h"

namespace zova {

namespace {

class ReportRows {
 public:
  ReportRows() : m_text("what,count,row,column,subject,test,text") { m_text += kCsvLineEnd; }

  void Add(std::string_view what, const ImportCase& row) {
    AppendCsvField(m_text, what);
    m_text += ',' + std::to_string(row.Count) + ',';
    if (row.Row != 0) m_text += std::to_string(row.Row);
    for (const std::string* field : {&row.Column, &row.Subject, &row.Test, &row.Text}) {
      m_text += ',';
      AppendCsvField(m_text, *field);
    }
    m_text += kCsvLineEnd;
  }

  [[nodiscard]] std::string Release() { return std::move(m_text); }

 private:
  std::string m_text;
};

// By position a response may stand first in two lists of one subject, near other words in each.
bool HaveSeveralLists(const std::vector<OpenResponse>& responses) {
  TextMap<int> seen;
  return std::any_of(responses.begin(), responses.end(), [&](const OpenResponse& open) {
    const std::string place = ResponsePlace(open.Response, SubjectScope(open.Subject, {}));
    return !open.Scope.empty() && !seen.emplace(place, 0).second;
  });
}

std::string NearText(const OpenResponse& open) {
  std::string text = "'" + open.Response + "'";
  if (open.Near.empty()) return text + " is near no word";
  text += open.Near.size() == 1 ? ": nearest word " : ": nearest words ";
  for (std::size_t i = 0; i < open.Near.size(); ++i) {
    const NearItem& near = open.Near[i];
    text.append(i == 0 ? "" : ", ").append(std::to_string(near.Item)).append(" ").append(near.Word);
  }
  return text + ", distance " + std::to_string(open.Near.front().Distance);
}

}  // namespace

std::string FormatImportReport(const ImportPlan& plan) {
  ReportRows rows;
  for (const ImportTotal& total : plan.Totals) {
    rows.Add(total.What, {.Count = total.Count, .Column = total.Column, .Test = total.Test, .Text = total.Text});
  }
  for (const ImportQuestion& question : plan.Questions) {
    rows.Add(CaseName(CaseKind::Undecided),
             {.Row = question.Row,
              .Column = question.Option,
              .Text = question.Text + "  " + question.Option + " " +
                      (question.Variable.empty() ? "" : question.Variable + "=") + Joined(question.Answers, "|")});
  }
  for (const OpenResponse& open : plan.Findings.Responses) {
    if (open.Decided) continue;
    rows.Add(CaseName(CaseKind::Decide),
             {.Count = open.Count, .Row = open.Row, .Subject = open.Subject, .Text = NearText(open)});
  }
  for (const ImportCase& found : plan.Findings.Cases) rows.Add(CaseName(found.Kind), found);
  if (const auto rest = plan.Findings.Uncounted()) rows.Add(CaseName(rest->Kind), *rest);
  return rows.Release();
}

std::string FormatImportReport(const FileError& error) {
  ReportRows rows;
  ImportCase found{.Text = FaultText(error)};
  for (std::size_t end = found.Text.find('\n'); end != std::string::npos; end = found.Text.find('\n', end)) {
    found.Text.replace(end, 1, ": ");
  }
  constexpr std::string_view kLine = "Line ";
  const std::string_view detail = error.Detail();
  if (detail.starts_with(kLine)) {
    for (const char c : detail.substr(kLine.size())) {
      if (c < '0' || c > '9') break;
      found.Row = found.Row * 10 + static_cast<std::size_t>(c - '0');
    }
  }
  rows.Add(CaseName(CaseKind::Error), found);
  return rows.Release();
}

std::string FormatUnmatched(const ImportPlan& plan) {
  const bool hasTests = HaveSeveralLists(plan.Findings.Responses);
  std::string text = "response,item,distance,count,subject";
  if (hasTests) text += ",test";
  text += kCsvLineEnd;
  for (const OpenResponse& open : plan.Findings.Responses) {
    if (open.Decided) continue;
    AppendCsvField(text, open.Response);
    text += ',';
    if (open.Near.size() == 1) text += std::to_string(open.Near.front().Item);
    text += ',';
    if (!open.Near.empty()) text += std::to_string(open.Near.front().Distance);
    text += ',' + std::to_string(open.Count) + ',';
    AppendCsvField(text, open.Subject);
    if (hasTests) AppendCsvField(text += ',', open.Test);
    text += kCsvLineEnd;
  }
  return text;
}

}  // namespace zova
