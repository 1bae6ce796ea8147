// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Responses.h"

#include "text/Csv.h"
#include "words/CompanionCsv.h"
#include "words/WordKey.h"

namespace zova {

namespace {

constexpr std::string_view kIntrusion = "intrusion";
constexpr std::string_view kSkip = "skip";

// A response of signs alone has no key.
std::string PlaceOf(std::string_view response) {
  std::string key = WordKey(response);
  return key.empty() ? std::string(response) : key;
}

std::string DecisionText(const Decision& decision) {
  switch (decision.Kind) {
    case Verdict::Item: return std::to_string(decision.Item);
    case Verdict::Intrusion: return std::string(kIntrusion);
    case Verdict::Skip: return std::string(kSkip);
  }
  return {};
}

Responses ReadDecisions(CompanionRows& rows, const ProjectParameters& project, bool maySkipItems) {
  Responses responses;
  while (rows.Next()) {
    if (maySkipItems && rows.Text(1).empty()) continue;
    DecidedResponse decided{std::string(rows.Text(0)), {}, rows.Line()};
    if (rows.Text(1) == kIntrusion) {
      decided.What = {Verdict::Intrusion};
    } else if (rows.Text(1) != kSkip) {
      decided.What = {Verdict::Item, rows.Number(1, 1, project.ItemCount)};
    }
    const std::string text = decided.Response;
    if (responses.Add(std::move(decided))) continue;
    rows.Refuse("'" + text + "' was decided otherwise on line " + std::to_string(responses.Find(text)->Line));
  }
  return responses;
}

}  // namespace

bool Responses::Add(DecidedResponse decided) {
  const auto [place, isNew] = m_places.emplace(PlaceOf(decided.Response), m_all.size());
  if (!isNew) return m_all[place->second].What == decided.What;
  m_all.push_back(std::move(decided));
  return true;
}

void Responses::Replace(DecidedResponse decided) {
  const auto [place, isNew] = m_places.emplace(PlaceOf(decided.Response), m_all.size());
  if (isNew) {
    m_all.push_back(std::move(decided));
  } else {
    m_all[place->second] = std::move(decided);
  }
}

const DecidedResponse* Responses::Find(std::string_view response) const {
  const auto found = m_places.find(PlaceOf(response));
  return found == m_places.end() ? nullptr : &m_all[found->second];
}

Responses ParseResponses(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"response", "item"});
  return ReadDecisions(rows, project, false);
}

Responses ParseProposedResponses(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"response", "item", "distance", "count", "subject"}, 3);
  return ReadDecisions(rows, project, true);
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
