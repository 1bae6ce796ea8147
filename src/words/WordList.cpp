// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/WordList.h"

#include <algorithm>
#include <unordered_map>

#include "platform/desktop/FileErrorBoxes.h"
#include "text/Csv.h"
#include "words/CompanionCsv.h"
#include "words/WordKey.h"

namespace zova {

namespace {

std::string Named(int item, std::string_view word) {
  return "item " + std::to_string(item) + ", '" + std::string(word) + "'";
}

std::string_view CategoryAt(const WordList& list, int item) {
  return list.Words[static_cast<std::size_t>(item) - 1].Category;
}

// The message for an item's category, or "". `owners` has the categories seen so far by their names.
std::string CategoryFault(const WordList& list, const ProjectParameters& project, int item,
                          std::unordered_map<std::string, int>& owners) {
  const int size = project.ItemsPerCategory;
  if (size < 1) return {};
  const int category = (item - 1) / size + 1;
  const std::string_view name = CategoryAt(list, item);
  const std::string_view first = CategoryAt(list, (category - 1) * size + 1);
  if (name.empty()) return "Item " + std::to_string(item) + " has no category";
  if (name != first) {
    return "Item " + std::to_string(item) + " is in '" + std::string(name) + "', but category " +
           std::to_string(category) + " of the project is '" + std::string(first) + "'";
  }
  const int owner = owners.emplace(WordKey(name), category).first->second;
  if (owner == category) return {};
  return "Category " + std::to_string(category) + " has the name of category " + std::to_string(owner) + ", '" +
         std::string(name) + "'";
}

}  // namespace

std::string_view WordList::CategoryName(int category, const ProjectParameters& project) const noexcept {
  const int item = (category - 1) * project.ItemsPerCategory;
  if (category < 1 || item < 0 || static_cast<std::size_t>(item) >= Words.size()) return {};
  return Words[static_cast<std::size_t>(item)].Category;
}

std::vector<WordFault> FindWordFaults(const WordList& list, const ProjectParameters& project) {
  std::vector<WordFault> faults;
  std::unordered_map<std::string, int> items;
  std::unordered_map<std::string, int> owners;
  for (int item = 1; item <= static_cast<int>(list.Words.size()); ++item) {
    const std::string_view text = list.TextOf(item);
    const std::string key = WordKey(text);
    if (text.empty()) {
      faults.push_back({"Item " + std::to_string(item) + " has no word", item});
    } else if (key.empty()) {
      faults.push_back({"'" + std::string(text) + "' has no letter or digit", item});
    } else if (const auto [other, isNew] = items.emplace(key, item); !isNew) {
      const std::string first = Named(other->second, list.TextOf(other->second));
      faults.push_back({"The words of " + first + " and of " + Named(item, text) + " are one", item});
    }
    if (!list.HasCategories) continue;
    std::string fault = CategoryFault(list, project, item, owners);
    if (!fault.empty()) faults.push_back({std::move(fault), item, true});
  }
  return faults;
}

WordList ParseWordList(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"item", "word", "category"}, 1);
  WordList list;
  list.HasCategories = rows.ColumnCount() == 3;
  list.Words.resize(static_cast<std::size_t>(project.ItemCount));
  std::vector<std::size_t> lines(list.Words.size());
  while (rows.Next()) {
    const auto index = static_cast<std::size_t>(rows.Number(0, 1, project.ItemCount)) - 1;
    if (lines[index] != 0) {
      rows.Refuse("Item " + std::to_string(index + 1) + " is on line " + std::to_string(lines[index]) + " already");
    }
    lines[index] = rows.Line();
    list.Words[index].Text = rows.Text(1);
    if (list.HasCategories) list.Words[index].Category = rows.Text(2);
  }
  if (list.HasCategories && project.Categorized != 1) throw CsvError("The project has no categories", 1);
  const std::vector<WordFault> faults = FindWordFaults(list, project);
  if (faults.empty()) return list;
  const std::size_t line = lines[static_cast<std::size_t>(faults.front().Item) - 1];
  throw CsvError(faults.front().Text, line == 0 ? rows.Line() : line);
}

std::string FormatWordList(const WordList& list) {
  std::string text = list.HasCategories ? "item,word,category" : "item,word";
  text += kCsvLineEnd;
  for (std::size_t i = 0; i < list.Words.size(); ++i) {
    text += std::to_string(i + 1) + ',';
    AppendCsvField(text, list.Words[i].Text);
    if (list.HasCategories) {
      text += ',';
      AppendCsvField(text, list.Words[i].Category);
    }
    text += kCsvLineEnd;
  }
  return text;
}

WordList ReadWordList(Disk& disk, const ProjectParameters& project) {
  return LoadCompanion(disk, project, CompanionFile::Words,
                       [&](std::string_view bytes) { return ParseWordList(bytes, project); })
      .value_or(WordList{});
}

WordList WordListOf(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes) {
  WordList list;
  WithRetry(boxes, [&] {
    try {
      list = ReadWordList(disk, project);
    } catch (const FileError& fault) {
      if (fault.Cause() != FileCause::EndOfData) throw;
      WarnPassedOver(boxes, fault);
    }
  });
  return list;
}

}  // namespace zova
