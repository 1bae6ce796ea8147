// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the responses of a test are: items, intrusions, or nothing.
//
// In position mode a decided number is an item of the list in which the response stands first; in other lists it means
// the same word.

#include <algorithm>

#include "project/StudyItems.h"
#include "tables/ListBuilder.h"
#include "tables/ListSink.h"
#include "tables/TableValues.h"
#include "words/WordKey.h"

namespace zova {

// Lures are recalled without having been studied.
bool ListBuilder::IsOnList(int item) const {
  return !m_hasStudy || m_isStudied[static_cast<std::size_t>(item)] || !IsStudied(item, m_context.Project);
}

const ListWords& ListBuilder::OwnWords() {
  if (!m_hasStudy && !m_byPosition) return m_matcher.Pool();
  if (!m_hasOwn) {
    m_own.Clear();
    for (const int item : m_studied) m_own.Add(item, m_context.Words.TextOf(item));
    m_hasOwn = true;
  }
  return m_own;
}

bool ListBuilder::IsWordHere(std::string_view text) const {
  const std::string key = WordKey(text);
  return !key.empty() && (m_matcher.IsWord(key) || (m_byPosition && m_own.FindExact(key) > 0));
}

const ResponseMatch& ListBuilder::Match(std::string_view text) {
  if (!m_byPosition) {
    const ResponseMatch& known = m_matcher.MatchInPool(text);
    if (!m_hasStudy || (known.Kind == MatchKind::Exact && IsOnList(known.Item))) return known;
    if (known.Kind == MatchKind::Exact || known.Kind == MatchKind::OtherList) {
      m_match = {.Kind = MatchKind::OtherList, .Item = 0, .Near = {}};
      return m_match;
    }
  }
  m_match = m_matcher.MatchInList(text, OwnWords());
  return m_match;
}

void ListBuilder::AddEntry(const TableEntry& entry, Sink& sink) {
  if (entry.IsCell) return AddCell(entry, sink);
  const std::string_view text = m_rows->TextOf(entry.Response);
  if (m_survey.HasNumbers && !m_byPosition) {
    const std::string_view number = m_rows->TextOf(entry.Item);
    return Place(entry, IsNothing(text) ? number : text, InterpretNumber(entry, number.empty() ? text : number), sink);
  }
  Place(entry, text, Interpret(entry, text), sink);
}

void ListBuilder::AddCell(const TableEntry& entry, Sink& sink) {
  const std::vector<std::string> pieces =
      SplitCell(m_rows->TextOf(entry.Response), m_setup.Layout.Separator, m_matcher);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (m_survey.HasNumbers && !m_byPosition) {
      Place(entry, pieces[i], InterpretNumber(entry, pieces[i]), sink);
      continue;
    }
    if (i + 1 < pieces.size() && IsLoose(pieces[i]) && IsLoose(pieces[i + 1])) {
      const std::string joined = pieces[i] + " " + pieces[i + 1];
      if (AreOne(joined)) {
        Place(entry, joined, Interpret(entry, joined), sink);
        ++i;
        continue;
      }
    }
    Place(entry, pieces[i], Interpret(entry, pieces[i]), sink);
  }
}

// A piece of a cell that is no word and was not decided by itself.
bool ListBuilder::IsLoose(std::string_view text) {
  const MatchKind kind = Match(text).Kind;
  return (kind == MatchKind::Near || kind == MatchKind::Unknown) && !IsNothing(text) &&
         m_context.Decided.Find(text) == nullptr;
}

bool ListBuilder::AreOne(const std::string& joined) {
  if (m_context.Decided.Find(joined) != nullptr) return true;
  const ResponseMatch& match = Match(joined);
  return match.Kind == MatchKind::Near && match.Near.size() == 1 && match.Near.front().Distance <= 1;
}

ListBuilder::Interpreted ListBuilder::InterpretNumber(const TableEntry& /*entry*/, std::string_view text) {
  const auto given = WholeNumber(text);
  const bool fromZero = m_options.FirstItem.value_or(1) == 0;
  if (!given || (*given == 0 && !fromZero)) return {};
  ImportCounts& counts = m_findings.Counts;
  ++counts.Recalls;
  const int last = m_context.Project.ItemCount - (fromZero ? 1 : 0);
  if (*given < (fromZero ? 0 : 1) || *given > last) return {Outcome::Intrusion};
  const int item = *given + (fromZero ? 1 : 0);
  if (!IsOnList(item)) {
    ++counts.OtherList;
    return {Outcome::Intrusion};
  }
  ++counts.Exact;
  return {Outcome::Item, item};
}

ListBuilder::Interpreted ListBuilder::Interpret(const TableEntry& entry, std::string_view text) {
  if (IsNothing(text) && !IsWordHere(text)) return {};
  ImportCounts& counts = m_findings.Counts;
  ++counts.Recalls;
  const ResponseMatch& match = Match(text);
  if (match.Kind == MatchKind::Exact) {
    ++counts.Exact;
    return {Outcome::Item, match.Item};
  }
  if (match.Kind == MatchKind::OtherList) {
    ++counts.OtherList;
    return {Outcome::Intrusion};
  }
  return InterpretUnmatched(entry, text, match);
}

ListBuilder::Interpreted ListBuilder::InterpretUnmatched(const TableEntry& entry, std::string_view text,
                                                         const ResponseMatch& match) {
  ImportCounts& counts = m_findings.Counts;
  const std::string key = WordKey(text);
  OpenResponse& open = m_findings.Responses[m_findings.Note(text, key, m_rows->Original, entry.Line)];
  // In other lists the same response may be near other words: the nearest ones are shown, of one distance all.
  if (open.Near.empty() || (!match.Near.empty() && match.Near.front().Distance < open.Near.front().Distance)) {
    open.Near = match.Near;
  } else if (!match.Near.empty() && match.Near.front().Distance == open.Near.front().Distance && !m_byPosition) {
    for (const NearItem& near : match.Near) {
      const auto isSame = [&](const NearItem& other) { return other.Item == near.Item; };
      if (std::none_of(open.Near.begin(), open.Near.end(), isSame)) open.Near.push_back(near);
    }
  }
  if (const DecidedResponse* decided = m_context.Decided.Find(text); decided != nullptr) {
    ++counts.Decided;
    open.Decided = decided->What;
    return Decide(text, decided->What);
  }
  if (match.Near.size() == 1) {
    ++counts.Proposed;
    if (match.Near.front().Distance <= m_options.AcceptDistance) {
      ++counts.Taken;
      open.Decided = Decision{Verdict::Item, match.Near.front().Item};
      return {Outcome::Item, match.Near.front().Item};
    }
  }
  ++counts.Open;
  return {m_options.Others == Leftovers::Skip ? Outcome::Skip : Outcome::Intrusion};
}

ListBuilder::Interpreted ListBuilder::Decide(std::string_view text, const Decision& decision) {
  if (decision.Kind == Verdict::Skip) return {Outcome::Skip};
  if (decision.Kind == Verdict::Intrusion) return {Outcome::Intrusion};
  int item = decision.Item;
  if (m_byPosition) {
    const auto [known, isNew] = m_decidedWords.try_emplace(WordKey(text), WordKey(m_own.WordOf(item)));
    if (!isNew) item = m_own.FindExact(known->second);
  }
  if (item >= 1 && item <= m_context.Project.ItemCount && IsOnList(item)) return {Outcome::Item, item};
  ++m_findings.Counts.OtherList;
  return {Outcome::Intrusion};
}

}  // namespace zova
