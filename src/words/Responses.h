// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Responses.csv": what the lab decided about responses that are no words of the list. Columns: response, item. The
// item is a number, "intrusion" or "skip".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

enum class Verdict { Item, Intrusion, Skip };

/// What a response counts as.
struct Decision {
  Verdict Kind = Verdict::Skip;
  int Item = 0;  ///< with Verdict::Item, from 1

  bool operator==(const Decision&) const = default;
};

struct DecidedResponse {
  std::string Response;
  Decision What;
  std::size_t Line = 0;    ///< in the file it was read from
  std::string Scope = {};  ///< the lists for which it was decided; "" for all
  std::string File = {};   ///< the user's file it was read from; "" for the project's
};

/// What responses of one key have in common, in lists of one scope.
std::string ResponsePlace(std::string_view response, std::string_view scope);

/// Decisions by the responses' keys and their scopes.
class Responses {
 public:
  /// False, without effect, when the key has another decision. A response without a key is found by its text.
  bool Add(DecidedResponse decided);
  /// As Add, in place of an earlier decision.
  void Replace(DecidedResponse decided);
  /// The decision for exactly this scope.
  [[nodiscard]] const DecidedResponse* Find(std::string_view response, std::string_view scope = {}) const;
  /// In the order in which they were added.
  [[nodiscard]] const std::vector<DecidedResponse>& All() const noexcept { return m_all; }

 private:
  std::vector<DecidedResponse> m_all;
  std::unordered_map<std::string, std::size_t> m_places;  // by key
};

/// Throws CsvError, also for one key with two decisions, naming both lines.
Responses ParseResponses(std::string_view bytes, const ProjectParameters& project);
/// Likewise a table of proposals: columns distance, count, subject and test may follow; rows without an item are passed
/// over. Columns may be separated by semicolons or tabs. `areBySubject`: a decision is for the lists of its subject
/// alone, with a test for that of this test.
Responses ParseProposedResponses(std::string_view bytes, const ProjectParameters& project, bool areBySubject);
/// The scope of a subject's list on a test, as the table labels it; "" for all of them.
std::string SubjectScope(std::string_view subject, std::string_view test);
std::string FormatResponses(const Responses& responses);

}  // namespace zova
