// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Encoding.h"

#include <gtest/gtest.h>

using namespace zova;
using namespace std::string_literals;

TEST(Encoding, GivesTheTextOfAFile) {
  const std::pair<std::string, std::string> cases[] = {
      {"plain", "plain"},
      {"\xEF\xBB\xBFmarked", "marked"},
      {"a\x1A tail", "a"},  // the end-of-file byte ends it
      {"a\x1A\xE4", "a"},   // and what follows does not spoil the UTF-8
      {"\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E", "\xC3\xA4\xE2\x82\xAC\xF0\x9D\x84\x9E"},
      {"M\xFCller \x80\x9F\x81", "M\xC3\xBCller \xE2\x82\xAC\xC5\xB8\xC2\x81"},  // Windows-1252
      {"\xC3\xA4 \xE4", "\xC3\x83\xC2\xA4 \xC3\xA4"},    // one bad byte decides for the whole file
      {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},  // a surrogate, an overlong form, and a text
      {"\xC0\xAF", "\xC3\x80\xC2\xAF"},                  // cut within a character are no UTF-8
      {"12345678\xC3", "12345678\xC3\x83"},
      {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(DataText(bytes).Content(), text) << bytes;

  for (const auto& bad : {"\0"s, "12345678\0"s, "\xFF\xFE"s, "\xFE\xFF"s, "a,b\xFF\xFE"s}) {
    EXPECT_FALSE(LooksLikeDataText(bad));
  }
  for (const auto& good : {""s, "\xFF"s, "M\xFCller"s, "\xEF\xBB\xBF"s}) EXPECT_TRUE(LooksLikeDataText(good)) << good;
}

TEST(Encoding, FoldsAsciiAndLatin1Only) {
  // adieresis, thorn, division sign, multiplication sign, sharp s, y with diaeresis, Greek alpha, a bad byte
  EXPECT_EQ(UpperCase("az{`\xC3\xA4\xC3\xBE\xC3\xB7\xC3\x97\xC3\x9F\xC3\xBF\xCE\xB1\xE4\xC3"),
            "AZ{`\xC3\x84\xC3\x9E\xC3\xB7\xC3\x97\xC3\x9F\xC3\xBF\xCE\xB1\xE4\xC3");
  EXPECT_EQ(InCapitals("az{`ä÷ßÿαя žẃŽ\xE4\xC3"), "AZ{`Ä÷ßŸΑЯ ŽẂŽ\xE4\xC3") << "for the screen, all letters";
  EXPECT_TRUE(EqualsIgnoringCase("M\xC3\xA4x", "m\xC3\x84X"));
  EXPECT_TRUE(BeginsIgnoringCase("Exp12.DAT", "eXP"));
  EXPECT_TRUE(EndsIgnoringCase("Exp12.DAT", ".dat"));
  EXPECT_FALSE(EqualsIgnoringCase("ab", "abc"));
  EXPECT_FALSE(BeginsIgnoringCase("Ex", "Exp"));
  EXPECT_FALSE(EndsIgnoringCase("dat", ".dat"));
}
