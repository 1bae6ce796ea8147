// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/proposal/ProposalItems.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "text/Counted.h"
#include "words/WordKey.h"

namespace zova {

namespace {

// Makes a categorised project of a word list with categories. Returns why there can be none, or "".
std::string Categorize(const WordList& list, ProjectParameters& project) {
  const std::vector<Word>& words = list.Words;
  std::set<std::string> names;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i].Category.empty()) return "Item " + std::to_string(i + 1) + " has no category";
    names.insert(WordKey(words[i].Category));
  }
  if (words.size() % names.size() != 0) return "All categories must have an equal number of items.";
  const std::size_t size = words.size() / names.size();
  ProjectParameters categorized = project;
  categorized.Categorized = 1;
  categorized.ItemsPerCategory = static_cast<std::int16_t>(size);
  categorized.CategoryCount = static_cast<std::int16_t>(words.size() / size);
  const std::vector<WordFault> faults = FindWordFaults(list, categorized);
  if (!faults.empty()) return faults.front().Text;
  project = categorized;
  return {};
}

// Those of the table are left out where they do not fit the order of the items.
void CategorizeByTable(WordList list, bool hasWords, ProjectProposal& proposal) {
  list.HasCategories = true;
  if (const std::string fault = Categorize(list, proposal.Project); !fault.empty()) {
    proposal.Notes.push_back("made without categories: " + fault);
  } else if (hasWords) {
    proposal.Words = std::move(list);
  }
}

// Categories need equal sizes; the items of one stand together, in the order of their first rows.
void OrderByCategory(const ProposalSurvey& survey, ProjectProposal& proposal) {
  const auto hasNone = [](const StudiedWord& word) { return word.Category.empty(); };
  if (std::all_of(survey.Words.begin(), survey.Words.end(), hasNone)) return;
  std::vector<std::string> names;
  std::map<std::string, std::vector<Word>> members;
  for (const StudiedWord& word : survey.Words) {
    if (hasNone(word)) {
      proposal.Notes.push_back("made without categories: '" + word.Text + "' has none");
      return;
    }
    std::vector<Word>& category = members[word.Category];
    if (category.empty()) names.push_back(word.Category);
    category.push_back({word.Text, word.Category});
  }
  const std::size_t size = members[names.front()].size();
  for (const std::string& name : names) {
    if (members[name].size() == size) continue;
    proposal.Notes.push_back("made without categories: '" + names.front() + "' has " + Counted(size, "item", "items") +
                             ", '" + name + "' has " + std::to_string(members[name].size()));
    return;
  }
  WordList list;
  list.Words.reserve(survey.Words.size());
  for (const std::string& name : names) {
    for (Word& word : members[name]) list.Words.push_back(std::move(word));
  }
  CategorizeByTable(std::move(list), true, proposal);
}

// Which numbers are items: with categories those that have one, with study rows those that are studied.
int LargestItem(const ProposalSurvey& survey) {
  const auto& items = survey.Numbered;
  using Entry = std::pair<const int, NumberedItem>;
  const auto last = [&](auto&& fits) {
    const auto found = std::find_if(items.rbegin(), items.rend(), fits);
    return found == items.rend() ? 0 : found->first;
  };
  if (const int item = last([](const Entry& e) { return !e.second.Category.Text.empty(); }); item > 0) return item;
  if (const int item = last([](const Entry& e) { return e.second.IsStudied; }); item > 0) return item;
  return survey.LargestNumber;
}

// A number far above the others may be a code.
void NoteOddNumbers(const ProposalSurvey& survey, int count, ProjectProposal& proposal) {
  const auto beyond = survey.Numbered.upper_bound(count);
  if (beyond != survey.Numbered.end()) {
    proposal.Notes.push_back("the largest item is " + std::to_string(count) + ": " + std::to_string(beyond->first) +
                             " on line " + std::to_string(beyond->second.Line) + " is none");
  }
  auto last = survey.Numbered.find(count);
  if (last == survey.Numbered.end() || last == survey.Numbered.begin()) return;
  const std::size_t line = last->second.Line;
  const int before = (--last)->first;
  if (before + 1 >= count) return;
  proposal.Notes.push_back("no row has the items from " + std::to_string(before + 1) + " to " +
                           std::to_string(count - 1) + "; " + std::to_string(count) + " stands on line " +
                           std::to_string(line));
}

// The words of the items 1 to `count`; empty with a note where the table does not give each item its own.
WordList WordsOfNumbers(const ProposalSurvey& survey, int count, ProjectProposal& proposal) {
  WordList list;
  if (!survey.HasNumberedWords) return list;
  const auto without = [&](const std::string& why) {
    proposal.Notes.push_back("made without a word list: " + why);
    return WordList{};
  };
  list.Words.reserve(static_cast<std::size_t>(count));
  for (int item = 1; item <= count; ++item) {
    const auto found = survey.Numbered.find(item);
    const bool isKnown = found != survey.Numbered.end() && !found->second.Word.Text.empty();
    if (!isKnown) return without("item " + std::to_string(item) + " has no word");
    const SaidOfItem& word = found->second.Word;
    if (word.OtherLine != 0) {
      return without("item " + std::to_string(item) + " is '" + word.Text + "' on line " + std::to_string(word.Line) +
                     " and '" + word.Other + "' on line " + std::to_string(word.OtherLine));
    }
    list.Words.push_back({word.Text, {}});
  }
  const std::vector<WordFault> faults = FindWordFaults(list, proposal.Project);
  return faults.empty() ? list : without(faults.front().Text);
}

// Categories by number, or of a given list by word.
void FindCategories(const ProposalSurvey& survey, ProjectProposal& proposal) {
  WordList list = proposal.Words;
  const bool hasWords = !list.IsEmpty();
  TextMap<const std::string*> studied;
  for (const StudiedWord& word : survey.Words) studied.emplace(WordKey(word.Text), &word.Category);
  list.Words.resize(static_cast<std::size_t>(proposal.Project.ItemCount));
  bool hasAny = false;
  for (std::size_t i = 0; i < list.Words.size(); ++i) {
    Word& word = list.Words[i];
    const auto numbered = survey.Numbered.find(static_cast<int>(i) + 1);
    const auto found = studied.find(WordKey(word.Text));
    if (numbered != survey.Numbered.end()) {
      const SaidOfItem& category = numbered->second.Category;
      if (category.OtherLine != 0) {
        proposal.Notes.push_back("made without categories: item " + std::to_string(i + 1) + " is in '" + category.Text +
                                 "' on line " + std::to_string(category.Line) + " and in '" + category.Other +
                                 "' on line " + std::to_string(category.OtherLine));
        return;
      }
      word.Category = category.Text;
    } else if (found != studied.end()) {
      word.Category = *found->second;
    }
    hasAny = hasAny || !word.Category.empty();
    if (!hasWords) word.Text = std::to_string(i + 1);
  }
  if (hasAny) CategorizeByTable(std::move(list), hasWords, proposal);
}

std::size_t CountItems(const ProposalSurvey& survey, const ImportDraft& draft, ProjectProposal& proposal) {
  if (draft.Options.Items == ItemsBy::Position) {
    proposal.Words = {};
    return survey.LongestStudy;
  }
  if (!proposal.Words.IsEmpty()) return proposal.Words.Words.size();
  if (draft.Survey.HasNumbers) return static_cast<std::size_t>(std::max(0, LargestItem(survey)));
  proposal.Words.Words.reserve(survey.Words.size());
  for (const StudiedWord& word : survey.Words) proposal.Words.Words.push_back({word.Text, {}});
  return survey.Words.size();
}

std::string CountFault(Disk& disk, const ProposalSurvey& survey, const ImportDraft& draft, std::size_t items) {
  if (items < 1) {
    return draft.Options.Items == ItemsBy::Position
               ? "There are no study rows, which --items position needs."
               : "The table has neither study rows nor item numbers; a new project needs one of them, or --words.";
  }
  if (items <= static_cast<std::size_t>(kMaxItems)) return {};
  const bool mayBePositions = draft.Options.Items == ItemsBy::Pool && survey.LongestStudy > 0 &&
                              survey.LongestStudy <= static_cast<std::size_t>(kMaxItems);
  return "The table has " + std::to_string(items) + " items; a project has at most 999" +
         (mayBePositions ? "; --items position counts the " + std::to_string(survey.LongestStudy) + " of one list"
                         : "") +
         PartsText(disk, draft.Setup);
}

}  // namespace

void ProposeItems(Disk& disk, const ProposalSurvey& survey, const ImportDraft& draft, ProjectProposal& proposal) {
  const bool isGiven = !proposal.Words.IsEmpty();
  const std::size_t items = CountItems(survey, draft, proposal);
  proposal.Fault = CountFault(disk, survey, draft, items);
  if (!proposal.Fault.empty()) return;
  proposal.Project.ItemCount = static_cast<std::int16_t>(items);
  if (draft.Options.Items == ItemsBy::Position) return;
  const bool isNumbered = draft.Survey.HasNumbers && !isGiven;
  if (isNumbered) {
    NoteOddNumbers(survey, static_cast<int>(items), proposal);
    proposal.Words = WordsOfNumbers(survey, static_cast<int>(items), proposal);
  }
  if (proposal.Words.HasCategories) {
    proposal.Fault = Categorize(proposal.Words, proposal.Project);
  } else if (survey.HasCategories) {
    isNumbered || isGiven ? FindCategories(survey, proposal) : OrderByCategory(survey, proposal);
  }
}

}  // namespace zova
