// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "text/CsvReader.h"
#include "words/Intrusions.h"
#include "words/OriginalIds.h"
#include "words/Responses.h"
#include "words/StudyOrders.h"
#include "words/SubjectRows.h"
#include "words/WordKey.h"
#include "words/WordList.h"

namespace zova {
namespace {

// Two categories of three; the third of each is a lure.
ProjectParameters LureProject() {
  ProjectParameters project;
  project.TestCount = 2;
  project.ItemCount = 6;
  project.Categorized = 1;
  project.CategoryCount = 2;
  project.ItemsPerCategory = 3;
  project.FalseMemory = 1;
  return project;
}

// What comes back from a file's text, or its fault.
template <typename Parse, typename Format>
std::string RoundTrip(const std::string& text, Parse&& parse, Format&& format) {
  try {
    return format(parse(text));
  } catch (const CsvError& error) {
    return std::to_string(error.Line()) + ": " + error.what();
  }
}

TEST(WordKeys, AreLettersAndDigitsWithoutCase) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"yo-yo", "yoyo"}, {"YO YO", "yoyo"}, {"Straße 7", "strasse7"}, {"CRÈME", "crème"}, {"cre\u0300me", "crème"},
      {"?!", ""},        {"ＡＢ", "ab"},    {"Ёлка", "ёлка"},         {"का", "का"},       {"\xFF", ""},
  };
  for (const auto& [text, key] : cases) EXPECT_EQ(WordKey(text), key) << text;
  EXPECT_EQ(WithoutAccents("crème"), "creme");
  EXPECT_EQ(WithoutAccents("ёлка"), "елка");
}

TEST(WordLists, AreReadAndWrittenOrRefusedWithTheirLine) {
  const std::string words = "item,word,category\r\n1,rose,plants\r\n2,oak,plants\r\n3,tree,plants\r\n";
  const std::string whole = words + "4,\"cat, big\",animals\r\n5,dog,animals\r\n6,pet,animals\r\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {whole, whole},
      {"item,word\n6,f\n5,e\n4,d\n3,c\n2,b\n1,a\n", "item,word\r\n1,a\r\n2,b\r\n3,c\r\n4,d\r\n5,e\r\n6,f\r\n"},
      {"Item,word\n", "1: The header is not 'item,word,category'"},
      {"item,word\n1,a\n7,b\n", "3: '7' is no item from 1 to 6"},
      {"item,word\n1,a\n2,b,c\n", "3: There are 3 fields instead of 2"},
      {"item,word\n1,a\n1,b\n", "3: Item 1 is on line 2 already"},
      {"item,word\n1,a\n2,b\n3,c\n4,d\n5,e\n", "6: Item 6 has no word"},
      {"item,word\n1,yo-yo\n2,b\n3,c\n4,d\n5,e\n6,YoYo\n",
       "7: The words of item 1, 'yo-yo' and of item 6, 'YoYo' are one"},
      {words + "4,cat,animals\r\n5,dog,plants\r\n6,pet,animals\r\n",
       "6: Item 5 is in 'plants', but category 2 of the project is 'animals'"},
      {words + "4,cat,Plants\r\n5,dog,Plants\r\n6,pet,Plants\r\n",
       "5: Category 2 has the name of category 1, 'Plants'"},
  };
  const ProjectParameters project = LureProject();
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(RoundTrip(
                  text, [&](const std::string& bytes) { return ParseWordList(bytes, project); }, FormatWordList),
              expected);
  }
  EXPECT_EQ(ParseWordList(whole, project).CategoryName(2, project), "animals");
}

TEST(CompanionFiles, AreReadAndWrittenOrRefusedWithTheirLine) {
  const ProjectParameters project = LureProject();
  const auto responses = [&](const std::string& bytes) { return ParseResponses(bytes, project); };
  const std::string decided = "response,item\r\nrosse,1\r\nfoo,intrusion\r\n\"um, no\",skip\r\n";
  EXPECT_EQ(RoundTrip(decided, responses, FormatResponses), decided);
  EXPECT_EQ(RoundTrip(decided + "ROSSE,1\r\n", responses, FormatResponses), decided);
  EXPECT_EQ(RoundTrip(decided + "Rosse,2\r\n", responses, FormatResponses),
            "5: 'Rosse' was decided otherwise on line 2");
  EXPECT_EQ(RoundTrip("response,item\nx,Skip\n", responses, FormatResponses), "response,item\r\nx,skip\r\n");
  EXPECT_EQ(RoundTrip("response,item\nx,7\n", responses, FormatResponses), "2: '7' is no item from 1 to 6");

  const auto intrusions = [&](const std::string& bytes) { return ParseIntrusions(bytes, project); };
  const std::string header = "subject,test,place,response,minute,rating\r\n";
  EXPECT_EQ(RoundTrip(header + "b,1,0,foo,,\r\nA,2,3,x,1,2\r\nA,2,0,bar,,\r\n", intrusions, FormatIntrusions),
            header + "A,2,0,bar,,\r\nA,2,3,x,1,2\r\nb,1,0,foo,,\r\n");
  EXPECT_EQ(RoundTrip(header + "b,3,0,foo,,\r\n", intrusions, FormatIntrusions), "2: '3' is no test from 1 to 2");

  const auto orders = [&](const std::string& bytes) { return ParseStudyOrders(bytes, project); };
  const std::string order = "subject,test,position,item\r\ns,2,1,5\r\ns,2,2,4\r\ns,2,3,1\r\ns,2,4,2\r\n";
  EXPECT_EQ(RoundTrip(order, orders, FormatStudyOrders), order);
  EXPECT_EQ(RoundTrip(order + "s,1,1,3\r\n", orders, FormatStudyOrders), "6: Item 3 is a lure, which is not studied");
  EXPECT_EQ(RoundTrip(order + "t,1,2,1\r\n", orders, FormatStudyOrders),
            "6: Position 1 of subject 't' on test 1 is missing");
  EXPECT_EQ(RoundTrip(order + "s,2,1,5\r\n", orders, FormatStudyOrders),
            "6: Item 5 of subject 's' on test 2 stands twice");

  const std::string ids = "subject,original\r\n1,Anna-Maria von Hohenstein\r\n2,b\r\n";
  EXPECT_EQ(RoundTrip(ids, ParseOriginalIds, FormatOriginalIds), ids);
  EXPECT_EQ(RoundTrip(ids + "3,b\r\n", ParseOriginalIds, FormatOriginalIds), "4: 'b' is on line 3 already");
}

TEST(CompanionFiles, ReplaceTheRowsOfASubject) {
  std::vector<Intrusion> rows = {{"a", 1, 0, "x"}, {"B", 1, 0, "y"}, {"c", 1, 0, "z"}};
  ReplaceRows(rows, [](const std::string& id) { return id == "B"; }, {{"B", 2, 1, "v"}, {"B", 1, 1, "w"}});
  const auto own = RowsOf(rows, "B");
  ASSERT_EQ(own.size(), 2U);
  EXPECT_EQ(own[0].Response + own[1].Response, "wv");
  EXPECT_EQ(rows.back().Subject, "c");
}

}  // namespace
}  // namespace zova
