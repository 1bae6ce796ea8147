// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportCases.h"

#include <utility>

namespace zova {

std::string_view CaseName(CaseKind kind) noexcept {
  switch (kind) {
    case CaseKind::Undecided: return "undecided";
    case CaseKind::Decide: return "decide";
    case CaseKind::TooLong: return "too-long";
    case CaseKind::Level: return "level";
    case CaseKind::Minute: return "minute";
    case CaseKind::Rating: return "rating";
    case CaseKind::Check: return "check";
    case CaseKind::Error: break;
  }
  return "error";
}

void ImportFindings::Add(ImportCase found) {
  const bool isError = found.Kind == CaseKind::Error;
  HasErrors = HasErrors || isError;
  if (Cases.size() < (isError ? 2 * kMaxCases : kMaxCases)) {
    Cases.push_back(std::move(found));
  } else {
    ++m_uncounted;
  }
}

std::optional<ImportCase> ImportFindings::Uncounted() const {
  if (m_uncounted == 0) return std::nullopt;
  return ImportCase{.Kind = CaseKind::Check, .Count = m_uncounted, .Text = "more cases, not listed"};
}

bool ImportFindings::HasNoted(std::string_view response) const {
  return m_places.find(ResponsePlace(response, {})) != m_places.end();
}

OpenResponse& ImportFindings::Note(std::string_view response, std::string_view scope, std::string_view subject,
                                   std::size_t row) {
  const std::string place = ResponsePlace(response, scope);
  auto found = m_places.find(place);
  if (found == m_places.end()) {
    m_places.emplace(ResponsePlace(response, {}), Responses.size());
    found = m_places.emplace(place, Responses.size()).first;
    OpenResponse& added = Responses.emplace_back();
    added.Response = response;
    added.Subject = subject;
    added.Row = row;
    added.Scope = scope;
  }
  OpenResponse& open = Responses[found->second];
  ++open.Count;
  return open;
}

}  // namespace zova
