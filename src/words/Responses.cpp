// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Responses.h"

#include "text/Csv.h"
#include "text/Encoding.h"
#include "words/CompanionCsv.h"
#include "words/WordKey.h"

namespace zova {

namespace {

constexpr std::string_view kIntrusion = "intrusion";
constexpr std::string_view kSkip = "skip";

std::string DecisionText(const Decision& decision) {
  switch (decision.Kind) {
    case Verdict::Item: return std::to_string(decision.Item);
    case Verdict::Intrusion: return std::string(kIntrusion);
    case Verdict::Skip: return std::string(kSkip);
  }
  return {};
}

Decision DecisionOf(const CompanionRows& rows, const ProjectParameters& project) {
  if (EqualsIgnoringCase(rows.Text(1), kIntrusion)) return {Verdict::Intrusion};
  if (EqualsIgnoringCase(rows.Text(1), kSkip)) return {Verdict::Skip};
  return {Verdict::Item, rows.Number(1, 1, project.ItemCount)};
}

void AddOrRefuse(Responses& responses, const DecidedResponse& decided, const CompanionRows& rows) {
  if (responses.Add(decided)) return;
  rows.Refuse("'" + decided.Response + "' was decided otherwise on line " +
              std::to_string(responses.Find(decided.Response, decided.Scope)->Line));
}

// Spreadsheets of many countries write semicolons.
char DelimiterOf(std::string_view bytes) {
  const std::size_t sign = bytes.find_first_of(",;\t\r\n");
  return sign != std::string_view::npos && (bytes[sign] == ';' || bytes[sign] == '\t') ? bytes[sign] : ',';
}

}  // namespace

// A response of signs alone has no key.
std::string ResponsePlace(std::string_view response, std::string_view scope) {
  std::string place = WordKey(response);
  if (place.empty()) place = response;
  if (!scope.empty()) place.append("\n").append(scope);
  return place;
}

bool Responses::Add(DecidedResponse decided) {
  const auto [place, isNew] = m_places.emplace(ResponsePlace(decided.Response, decided.Scope), m_all.size());
  if (!isNew) return m_all[place->second].What == decided.What;
  m_all.push_back(std::move(decided));
  return true;
}

void Responses::Replace(DecidedResponse decided) {
  const auto [place, isNew] = m_places.emplace(ResponsePlace(decided.Response, decided.Scope), m_all.size());
  if (isNew) {
    m_all.push_back(std::move(decided));
  } else {
    m_all[place->second] = std::move(decided);
  }
}

const DecidedResponse* Responses::Find(std::string_view response, std::string_view scope) const {
  const auto found = m_places.find(ResponsePlace(response, scope));
  return found == m_places.end() ? nullptr : &m_all[found->second];
}

Responses ParseResponses(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"response", "item"});
  Responses responses;
  while (rows.Next()) {
    AddOrRefuse(responses, {std::string(rows.Text(0)), DecisionOf(rows, project), rows.Line()}, rows);
  }
  return responses;
}

Responses ParseProposedResponses(std::string_view bytes, const ProjectParameters& project, bool areBySubject) {
  constexpr std::size_t kSubject = 4;
  constexpr std::size_t kTest = 5;
  CompanionRows rows(bytes, {"response", "item", "distance", "count", "subject", "test"}, 4, DelimiterOf(bytes));
  Responses responses;
  while (rows.Next()) {
    if (rows.Text(1).empty()) continue;
    DecidedResponse decided{std::string(rows.Text(0)), DecisionOf(rows, project), rows.Line()};
    const bool hasSubject = rows.ColumnCount() > kSubject && !rows.Text(kSubject).empty();
    if (areBySubject && hasSubject) {
      decided.Scope = SubjectScope(rows.Text(kSubject), rows.ColumnCount() > kTest ? rows.Text(kTest) : "");
    }
    AddOrRefuse(responses, decided, rows);
  }
  return responses;
}

std::string SubjectScope(std::string_view subject, std::string_view test) {
  std::string scope = "subject ";
  scope += subject;
  if (!test.empty()) scope.append("\n").append(test);
  return scope;
}

std::string FormatResponses(const Responses& responses) {
  std::string text = "response,item";
  text += kCsvLineEnd;
  for (const DecidedResponse& decided : responses.All()) {
    AppendCsvField(text, decided.Response);
    text += ',' + DecisionText(decided.What);
    text += kCsvLineEnd;
  }
  return text;
}

}  // namespace zova
