// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the responses of a test are: items, intrusions, or nothing.
//
// In position mode the same response may be near other words in other lists: each set of nearest words is a scope of
// its own, with a row of its own in the review. What was decided for a scope goes before what was decided for the
// subject in whose list it stands first, and that before what was decided for all lists.

#include <algorithm>

#include "project/StudyItems.h"
#include "tables/TableValues.h"
#include "tables/import/ListBuilder.h"
#include "tables/import/ListSink.h"
#include "words/WordKey.h"

namespace zova {

namespace {

// In other lists the same response may be near other words: the nearest ones are shown, of one distance all.
void AddNear(std::vector<NearItem>& shown, const std::vector<NearItem>& near) {
  if (near.empty()) return;
  if (shown.empty() || near.front().Distance < shown.front().Distance) {
    shown = near;
  } else if (near.front().Distance == shown.front().Distance) {
    for (const NearItem& item : near) {
      const auto isSame = [&](const NearItem& other) { return other.Item == item.Item; };
      if (std::none_of(shown.begin(), shown.end(), isSame)) shown.push_back(item);
    }
  }
}

std::string ScopeOf(const ResponseMatch& match) {
  std::string scope = "near";
  for (const NearItem& near : match.Near) scope += ' ' + WordKey(near.Word);
  return scope;
}

void NoteTaken(OpenResponse& open, int item) {
  if (open.Open > 0) return;
  open.IsTaken = !open.Decided || (open.IsTaken && open.Decided->Item == item);
  if (!open.Decided) open.Decided = Decision{Verdict::Item, item};
}

void NoteOpen(OpenResponse& open) {
  ++open.Open;
  open.IsTaken = false;
  open.Decided.reset();
}

}  // namespace

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
  if (!m_byPosition && !m_context.Words.IsEmpty()) {
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

std::string_view ListBuilder::NumberOf(const TableEntry& entry) const {
  return m_rows->TextOf(m_hasItems ? entry.Item : entry.Response);
}

bool ListBuilder::IsNoNumber(std::string_view number) const {
  return IsNothing(number) || (m_options.FirstItem.value_or(1) == 1 && WholeNumber(number) == 0);
}

// Of a number and another word the number counts.
void ListBuilder::CheckWord(const TableEntry& entry, int item) {
  const std::string_view word = m_rows->TextOf(entry.Response);
  if (!m_hasItems || entry.Column == m_setup.Columns.Of(ColumnRole::Item) || m_context.Words.IsEmpty()) return;
  const int other = m_matcher.ItemInPool(WordKey(word));
  if (other == 0 || other == item) return;
  Report(CaseKind::Check, entry, entry.Column,
         "'" + std::string(word) + "' is item " + std::to_string(other) + "; item " + std::to_string(item) +
             " of the row is taken");
}

void ListBuilder::AddEntry(const TableEntry& entry, Sink& sink) {
  if (entry.IsCell) return AddCell(entry, sink);
  const std::string_view text = m_rows->TextOf(entry.Response);
  const std::string_view number = NumberOf(entry);
  // A row may have a word without a number.
  const bool isWord = m_hasItems && entry.Column != m_setup.Columns.Of(ColumnRole::Item) && IsNoNumber(number);
  if (!m_survey.HasNumbers || m_byPosition || isWord) return Place(entry, text, Interpret(entry, text), sink);
  const Interpreted what = InterpretNumber(number);
  if (what.What == Outcome::Item) CheckWord(entry, what.Item);
  Place(entry, IsNothing(text) ? number : text, what, sink);
}

void ListBuilder::AddCell(const TableEntry& entry, Sink& sink) {
  const std::vector<std::string> pieces =
      SplitCell(m_rows->TextOf(entry.Response), m_setup.Layout.Separator, m_matcher);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (m_survey.HasNumbers && !m_byPosition) {
      Place(entry, pieces[i], InterpretNumber(pieces[i]), sink);
      continue;
    }
    if (i + 1 < pieces.size() && IsLoose(pieces[i]) && IsLoose(pieces[i + 1])) {
      const std::string joined = pieces[i] + " " + pieces[i + 1];
      if (const auto match = MatchAsOne(joined)) {
        ++m_findings.Counts.Recalls;
        Place(entry, joined, InterpretUnmatched(entry, joined, *match), sink);
        ++i;
        continue;
      }
    }
    Place(entry, pieces[i], Interpret(entry, pieces[i]), sink);
  }
}

// A piece of a cell that is no word and was not decided by itself.
bool ListBuilder::IsLoose(std::string_view text) {
  const ResponseMatch& match = Match(text);
  return (match.Kind == MatchKind::Near || match.Kind == MatchKind::Unknown) && !IsNothing(text) &&
         !IsDecided(text, match);
}

// Two pieces whose joined key is a word's are offered as that word, like a near one: the separator says that they are
// two.
std::optional<ResponseMatch> ListBuilder::MatchAsOne(const std::string& joined) {
  ResponseMatch match = Match(joined);
  if (match.Kind == MatchKind::OtherList) return std::nullopt;
  if (match.Kind == MatchKind::Exact) {
    const std::string_view word = m_byPosition ? m_own.WordOf(match.Item) : m_context.Words.TextOf(match.Item);
    return ResponseMatch{MatchKind::Near, 0, {{match.Item, std::string(word), 0}}};
  }
  const bool isNear = match.Near.size() == 1 && match.Near.front().Distance <= 1;
  if (!isNear && !IsDecided(joined, match)) return std::nullopt;
  return match;
}

ListBuilder::Interpreted ListBuilder::InterpretNumber(std::string_view text) {
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

// The project's numbers are those of its word list: they mean nothing by position.
const DecidedResponse* ListBuilder::DecidedForAll(std::string_view text) const {
  const DecidedResponse* const decided = m_context.Decided.Find(text);
  const bool isOfWordList = decided != nullptr && decided->What.Kind == Verdict::Item && decided->File.empty();
  return m_byPosition && isOfWordList ? nullptr : decided;
}

const DecidedResponse* ListBuilder::DecidedForList(std::string_view text, std::string_view scope) const {
  const Responses& decided = m_context.Decided;
  const std::string& subject = m_rows->Original;
  const DecidedResponse* found = decided.Find(text, scope);
  if (found == nullptr) found = decided.Find(text, SubjectScope(subject, m_label));
  return found != nullptr ? found : decided.Find(text, SubjectScope(subject, {}));
}

bool ListBuilder::IsDecided(std::string_view text, const ResponseMatch& match) const {
  if (DecidedForAll(text) != nullptr) return true;
  if (!m_byPosition) return false;
  const std::string scope = ScopeOf(match);
  const TextMap<ListDecision>& known = m_matcher.ListDecisions();
  const auto found = known.find(ResponsePlace(text, scope));
  if (found != known.end()) return found->second.What.has_value();
  return DecidedForList(text, scope) != nullptr;
}

// In position mode the first list with a response settles what its number means.
ListDecision ListBuilder::DecisionFor(std::string_view text, const ResponseMatch& match) {
  const DecidedResponse* const forAll = DecidedForAll(text);
  if (!m_byPosition) return forAll == nullptr ? ListDecision{} : ListDecision{forAll->What, {}};
  const auto settle = [&](std::string_view scope, const DecidedResponse* given) {
    const auto [place, isNew] = m_matcher.ListDecisions().try_emplace(ResponsePlace(text, scope));
    if (isNew && given != nullptr) place->second = {given->What, WordKey(m_own.WordOf(given->What.Item))};
    return place->second;
  };
  const std::string scope = ScopeOf(match);
  ListDecision known = settle(scope, DecidedForList(text, scope));
  return known.What || forAll == nullptr ? known : settle({}, forAll);
}

ListBuilder::Interpreted ListBuilder::InterpretUnmatched(const TableEntry& entry, std::string_view text,
                                                         const ResponseMatch& match) {
  ImportCounts& counts = m_findings.Counts;
  OpenResponse& open =
      m_findings.Note(text, m_byPosition ? ScopeOf(match) : std::string(), m_rows->Original, entry.Line);
  if (open.Count == 1) open.Test = m_label;
  if (open.Near.empty() || !m_byPosition) AddNear(open.Near, match.Near);
  if (const ListDecision decided = DecisionFor(text, match); decided.What) {
    ++counts.Decided;
    open.Decided = decided.What;
    return Decide(decided);
  }
  if (match.Near.size() == 1) {
    ++counts.Proposed;
    const NearItem& near = match.Near.front();
    if (std::max(near.Distance, 1) <= m_options.AcceptDistance) {
      ++counts.Taken;
      NoteTaken(open, near.Item);
      return {Outcome::Item, near.Item};
    }
  }
  ++counts.Open;
  NoteOpen(open);
  return {m_options.Others == Leftovers::Skip ? Outcome::Skip : Outcome::Intrusion};
}

ListBuilder::Interpreted ListBuilder::Decide(const ListDecision& decision) {
  if (decision.What->Kind == Verdict::Skip) return {Outcome::Skip};
  if (decision.What->Kind == Verdict::Intrusion) return {Outcome::Intrusion};
  const int item = m_byPosition ? m_own.FindExact(decision.Key) : decision.What->Item;
  if (item >= 1 && item <= m_context.Project.ItemCount && IsOnList(item)) return {Outcome::Item, item};
  ++m_findings.Counts.OtherList;
  return {Outcome::Intrusion};
}

}  // namespace zova
