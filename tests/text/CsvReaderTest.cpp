// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/CsvReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zova {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// In pieces of `piece` bytes; a fault is a last row "!<line> <text>".
Rows Read(std::string_view text, char delimiter = ',', std::size_t piece = 1) {
  CsvReader reader(
      [&, source = TextSource(text)](char* buffer, std::size_t size) { return source(buffer, std::min(size, piece)); },
      delimiter);
  Rows rows;
  try {
    while (reader.Next()) rows.emplace_back(reader.Fields().begin(), reader.Fields().end());
  } catch (const CsvError& error) {
    rows.push_back({"!" + std::to_string(error.Line()) + " " + error.what()});
  }
  return rows;
}

TEST(CsvReader, ReadsQuotesAndLineEndsInPiecesOfAnySize) {
  using std::string_literals::operator""s;
  const std::vector<std::pair<std::string, Rows>> cases = {
      {"a,b\r\nc,d", {{"a", "b"}, {"c", "d"}}},
      {"\xEF\xBB\xBF"
       "a\rb\n\r\n\nc\n",
       {{"a"}, {"b"}, {"c"}}},
      {"\"a,\"\"b\"\"\r\nc\",d\r\n", {{"a,\"b\"\r\nc", "d"}}},
      {",\n\"\"\n", {{"", ""}, {""}}},
      {"a\"b,\"c\"d\"e\",\"f", {{"!1 A quote is never closed (column 3)"}}},
      {"a\"b,\"c\"d\"e\",f", {{"a\"b", "cd\"e\"", "f"}}},
      {"a\n\n\"b\nc\n", {{"a"}, {"!3 A quote is never closed (column 1)"}}},
      {"a\nb\0"s, {{"a"}, {"!2 The bytes are no text: one of them is NUL (column 1); save the file as CSV UTF-8"}}},
      {"", {}},
  };
  for (const auto& [text, rows] : cases) {
    for (const std::size_t piece : {1, 2, 3, 100000}) EXPECT_EQ(Read(text, ',', piece), rows) << text << piece;
  }
  EXPECT_EQ(Read("a;b,c\n", ';'), (Rows{{"a", "b,c"}}));
}

TEST(CsvReader, RefusesFieldsAndRowsThatAreTooLong) {
  constexpr std::size_t kWhole = 100000;
  const std::string field(CsvReader::kMaxField, 'x');
  EXPECT_EQ(Read("a\n" + field + "\n", ',', kWhole).size(), 2U);
  EXPECT_EQ(Read("a\n" + field + "x\n", ',', kWhole).back(),
            std::vector<std::string>{"!2 A field is longer than 1 MiB (column 1)"});
  std::string row = "a\n";
  for (int i = 0; i < 17; ++i) row += field + ",";
  EXPECT_EQ(Read(row, ',', kWhole).back(), std::vector<std::string>{"!2 A row is longer than 16 MiB"});
}

}  // namespace
}  // namespace zova
