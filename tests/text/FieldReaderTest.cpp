// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/FieldReader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "text/Csv.h"
#include "text/DecimalNumber.h"
#include "text/LeadingNumber.h"
#include "text/NumberText.h"

using namespace zova;

namespace {

using Fields = std::vector<std::string>;

Fields FieldsOf(std::string_view text) {
  Fields fields;
  FieldReader reader(text);
  while (!reader.AtEnd()) fields.emplace_back(reader.Next());
  EXPECT_THROW(reader.Next(), FieldError) << text;
  return fields;
}

// "fault:line", or "" when `read` does not throw.
std::string FaultOf(const std::function<void()>& read) {
  try {
    read();
  } catch (const FieldError& fault) {
    return std::string(fault.what()) + ":" + std::to_string(fault.Line());
  }
  return "";
}

}  // namespace

TEST(FieldReader, SplitsByTheGrammar) {
  const std::pair<std::string, Fields> cases[] = {
      {"", {}},
      {"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
      {"a,\r\n", {"a", ""}},  // a comma before a line end opens a field, one at the very end does not
      {"a,", {"a"}},
      {"a\r\n\r\nb", {"a", "", "b"}},  // a blank line is an empty field, and LF CR are two line ends
      {"\n\r", {"", ""}},
      {" \t a b \t, c", {"a b", "c"}},
      {"\"a, b\" ,\" c \"", {"a, b", " c "}},
      {"\"a\"junk,\"b,c\r\nd", {"a", "b,c", "d"}},     // an unclosed quote ends with the line
      {"a\"b,c\"d,\"\"\"x\"", {"a\"b", "c\"d", ""}}};  // nothing is escaped
  for (const auto& [text, fields] : cases) EXPECT_EQ(FieldsOf(text), fields) << text;
}

TEST(FieldReader, NamesTheLineOfAFault) {
  FieldReader reader("\"a,b\r\nx,32768\r\n12,-1,11\r\nlast");
  reader.SkipLine();  // by line, never by quotes
  EXPECT_EQ(FaultOf([&] { reader.NextStrictNumber(); }), "number expected:2");
  EXPECT_EQ(FaultOf([&] { reader.NextNumber(); }), "number beyond the 16-bit range:2");
  EXPECT_TRUE(reader.AtLineStart());
  EXPECT_EQ(reader.NextCount(12), 12);
  EXPECT_FALSE(reader.AtLineStart());
  EXPECT_EQ(FaultOf([&] { reader.NextCount(); }), "number too small:3");
  EXPECT_EQ(FaultOf([&] { reader.NextCount(10); }), "number too large:3");
  EXPECT_EQ(reader.NextNumber(), 0);
  EXPECT_EQ(FaultOf([&] { reader.NextNumber(); }), "input past end of file:4");
  EXPECT_EQ(FaultOf([&] { reader.SkipLine(); }), "input past end of file:4");
}

TEST(LeadingNumber, ReadsRoundsAndLimits) {
  using Cases = std::vector<std::pair<const char*, int>>;
  const Cases whole = {{" \t7 ", 7},      {"+5", 5},          {".5", 0},           {"1.5", 2},   {"2.5", 2},
                       {"2.50000001", 3}, {"3.5", 4},         {"-1.5", -2},        {"-2.5", -2}, {"0.49999999999", 0},
                       {"5.", 5},         {"32767.4", 32767}, {"-32768.5", -32768}};
  const Cases leading = {{"12abc", 12}, {"1e3", 1}, {"0x10", 0}, {"1,5", 1}, {"1.2.3", 1}};
  for (const Cases& cases : {whole, leading}) {
    for (const auto& [text, value] : cases) {
      EXPECT_EQ(LeadingInteger16(text), value) << text;
      EXPECT_TRUE(HasLeadingNumber(text)) << text;
      EXPECT_EQ(IsWholeNumberText(text), cases == whole) << text;
    }
  }
  for (const char* text : {"", "abc", "-", ".", "- 5", "--5"}) {
    EXPECT_EQ(LeadingInteger16(text), 0) << text;
    EXPECT_FALSE(HasLeadingNumber(text)) << text;
    EXPECT_FALSE(IsWholeNumberText(text)) << text;
  }
  for (const char* text : {"32767.5", "-32769", "65537", "99999999999999999999999"}) {
    EXPECT_FALSE(LeadingInteger16(text).has_value()) << text;
  }
}

TEST(DecimalNumber, IsTheWholeTextInNoLocale) {
  const std::pair<const char*, double> numbers[] = {
      {".285", .285}, {"-.457", -.457}, {"12.", 12}, {"-0", 0}, {"0.1000000000000000055511151231257827", .1}};
  const std::pair<const char*, double> powers[] = {{"1.5e3", 1500}, {"-2E-1", -.2}, {"4e+0", 4}};
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(DecimalNumber(text, Exponent::None), value) << text;
    EXPECT_EQ(DecimalNumber(text, Exponent::Optional), value) << text;
  }
  for (const auto& [text, value] : powers) {
    EXPECT_EQ(DecimalNumber(text, Exponent::None), std::nullopt) << text;
    EXPECT_EQ(DecimalNumber(text, Exponent::Optional), value) << text;
  }
  for (const char* text : {"", "-", ".", "--1", "+1", " 1", "1 ", "1,5", "1.2.3", "1e", "0x10", "0x1p3", "inf", "-nan",
                           "1e999", "1e-999"}) {
    EXPECT_EQ(DecimalNumber(text, Exponent::Optional), std::nullopt) << text;
  }
}

TEST(NumberText, HasNoZeroBeforeThePoint) {
  const std::pair<float, const char*> singles[] = {
      {0.F, " 0"},       {-0.F, " 0"},       {.285F, " .285"}, {4.66F, " 4.66"},       {-.457F, "-.457"},
      {10.F, " 10"},     {100.5F, " 100.5"}, {-3.F, "-3"},     {1.F / 3, " .3333333"}, {12345.678F, " 12345.68"},
      {.1F + .2F, " .3"}};
  for (const auto& [value, text] : singles) {
    std::string spaced;
    AppendSpacedNumber(spaced, value);
    EXPECT_EQ(spaced, text);
  }
  std::string others;
  AppendNumber(others, .1 + .2);
  AppendNumber(others, -2.0 / 3);
  AppendNumber(others, -32768);
  EXPECT_EQ(others, ".3-.666666666666667-32768");
}

TEST(NumberText, ExactNumbersReadBackAsTheSameSingle) {
  for (const auto& [value, text] : {std::pair(1.F / 3, "0.33333334"),
                                    {-2.F / 3, "-0.6666667"},
                                    {4.2F, "4.2"},
                                    {1e-7F, "0.0000001"},
                                    {16777216.F, "16777216"},
                                    {-0.F, "0"}}) {
    std::string out;
    AppendExactNumber(out, value);
    EXPECT_EQ(out, text);
    EXPECT_EQ(std::strtof(out.c_str(), nullptr), value);
  }
}

TEST(Csv, QuotesWhatAReaderWouldTakeApart) {
  for (const auto& [text, field] : {std::pair("a b", "a b"),
                                    {"", ""},
                                    {"a,b", "\"a,b\""},
                                    {"a\"", "\"a\"\"\""},
                                    {"a\nb", "\"a\nb\""},
                                    {"a\r", "\"a\r\""},
                                    {" a", "\" a\""},
                                    {"a\t", "\"a\t\""}}) {
    std::string line = "x,";
    AppendCsvField(line, text);
    EXPECT_EQ(line, std::string("x,") + field);
  }
  CsvHeader header;
  for (const char* name : {"", "a", "a", "a (2)", "a", "b,c"}) header.Add(name);
  EXPECT_EQ(header.Line(), ",a,a (2),a (2) (2),a (3),\"b,c\"");
  CsvHeader table;
  table.Add("Measure");
  for (const char* name : {"n", "n", "Sex"}) table.AddVariable(name);
  table.Add("n");
  EXPECT_EQ(table.Line(), "Measure,n (2),n (3),Sex,n");
}
