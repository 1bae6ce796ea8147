// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/ForeignWords.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "project/ProjectLimits.h"
#include "text/CsvReader.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

constexpr char kNoDelimiter = '\x1F';
constexpr std::size_t kMostColumns = 3;

struct Row {
  std::vector<std::string> Fields;
  int Line = 0;
};

std::vector<Row> ReadRows(std::string_view text, char delimiter) {
  std::vector<Row> rows;
  CsvReader reader(TextSource(text), delimiter);
  while (reader.Next()) {
    Row& row = rows.emplace_back();
    row.Line = static_cast<int>(reader.Line());
    row.Fields.reserve(reader.Fields().size());
    for (const std::string_view field : reader.Fields()) row.Fields.push_back(TidyWord(field));
  }
  return rows;
}

std::optional<std::size_t> ColumnNamed(const Row& row, std::string_view name) {
  for (std::size_t i = 0; i < row.Fields.size(); ++i) {
    if (EqualsIgnoringCase(row.Fields[i], name)) return i;
  }
  return std::nullopt;
}

// All rows have two columns or all have three, or as many as a header that names the words.
bool IsTable(const std::vector<Row>& rows) {
  if (rows.empty()) return false;
  const std::size_t columns = rows.front().Fields.size();
  return columns >= 2 && (columns <= kMostColumns || ColumnNamed(rows.front(), "word")) &&
         std::all_of(rows.begin(), rows.end(), [&](const Row& row) { return row.Fields.size() == columns; });
}

std::vector<Row> ReadTableOrLines(std::string_view text) {
  for (const char delimiter : {'\t', ';', ','}) {
    if (text.find(delimiter) == std::string_view::npos) continue;
    std::vector<Row> rows = ReadRows(text, delimiter);
    if (IsTable(rows)) return rows;
  }
  return ReadRows(text, kNoDelimiter);
}

// Column numbers from 0.
struct Columns {
  std::optional<std::size_t> Item;
  std::size_t Word = 0;
  std::optional<std::size_t> Category;
  bool HasHeader = false;
};

Columns ColumnsOf(const std::vector<Row>& rows, const ProjectParameters& project) {
  const Row& first = rows.front();
  const std::size_t count = first.Fields.size();
  const auto word = ColumnNamed(first, "word");
  // In a list of one column "word" is a heading only where it is one line too many.
  if (word && (count > 1 || static_cast<int>(rows.size()) > project.ItemCount)) {
    return {ColumnNamed(first, "item"), *word, ColumnNamed(first, "category"), true};
  }
  if (count == 1) return {};
  if (count == kMostColumns) return {0, 1, 2};
  const bool isNumbered =
      std::all_of(rows.begin(), rows.end(), [](const Row& row) { return DigitsInteger16(row.Fields.front()); });
  return isNumbered ? Columns{0, 1, std::nullopt} : Columns{std::nullopt, 0, 1};
}

int ItemOf(const Row& row, std::size_t column, int mostItems) {
  const auto item = DigitsInteger16(row.Fields[column]);
  if (item && *item >= 1 && *item <= mostItems) return *item;
  throw CsvError("'" + row.Fields[column] + "' is no number of an item, from 1 to " + std::to_string(mostItems),
                 static_cast<std::size_t>(row.Line));
}

}  // namespace

std::string TidyWord(std::string_view text) {
  std::string word(text);
  std::replace_if(
      word.begin(), word.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
  word.erase(word.find_last_not_of(' ') + 1);
  word.erase(0, word.find_first_not_of(' '));
  return word;
}

std::vector<ForeignWord> ReadForeignWords(std::string_view text, WordSource source, int firstItem,
                                          const ProjectParameters& project) {
  if (!LooksLikeDataText(text)) {
    throw CsvError("This is no plain text.  Save it as 'CSV UTF-8' or as UTF-8 text", 1);
  }
  const DataText decoded(text);
  std::vector<Row> rows = ReadTableOrLines(decoded.Content());
  if (rows.empty()) throw CsvError("There are no words", 1);
  const Columns columns = ColumnsOf(rows, project);
  const int mostItems = project.ItemCount > 0 ? project.ItemCount : kMaxItems;
  const int firstRow = columns.HasHeader ? 1 : 0;
  std::vector<ForeignWord> words;
  words.reserve(rows.size());
  std::unordered_map<int, int> lines;  // by item
  for (int r = firstRow; r < static_cast<int>(rows.size()); ++r) {
    Row& row = rows[static_cast<std::size_t>(r)];
    const int place = source == WordSource::Pasted ? row.Line - 1 - firstRow : r - firstRow;
    const int item = columns.Item ? ItemOf(row, *columns.Item, mostItems) : firstItem + place;
    const auto line = static_cast<std::size_t>(row.Line);
    if (item > mostItems) {
      throw CsvError("The project has no more than " + std::to_string(mostItems) + " items", line);
    }
    if (const auto [known, isNew] = lines.emplace(item, row.Line); !isNew) {
      throw CsvError("Item " + std::to_string(item) + " is on line " + std::to_string(known->second) + " already",
                     line);
    }
    ForeignWord& word = words.emplace_back();
    word.Item = item;
    word.Line = line;
    word.Text = std::move(row.Fields[columns.Word]);
    if (!columns.Category) continue;
    word.HasCategory = true;
    word.Category = std::move(row.Fields[*columns.Category]);
    if (!word.Category.empty() && project.Categorized != 1) throw CsvError("The project has no categories", line);
  }
  return words;
}

}  // namespace zova
