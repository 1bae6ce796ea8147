// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/NearWords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "words/WordKey.h"

namespace zova {
namespace {

WordList ListOf(const std::vector<std::string>& texts) {
  WordList list;
  for (const std::string& text : texts) list.Words.push_back({text, ""});
  return list;
}

TEST(NearWords, AreThoseAtTheLeastDistanceWithinTheLimit) {
  const NearWords words(ListOf({"vase", "table", "chilli", "ox", "crème", "chapel", "chappel", "c4", "tables"}));
  struct Case {
    std::string Key;
    NearMatch Expected;
    std::vector<int> Within;
  };
  const std::vector<Case> cases = {
      {"vsae", {1, {1}}, {1}},           // neighbours change places: one
      {"vaes", {1, {1}}, {1}},           // so at the end
      {"vas", {1, {1}}, {1}},            // three letters allow one
      {"va", {}, {}},                    // two allow none
      {"ox", {0, {4}}, {4}},             // but themselves
      {"oxx", {}, {}},                   // the shorter key counts
      {"tble", {1, {2}}, {2}},           // one left out
      {"tablles", {1, {9}}, {9}},        // "table", of five letters, is two away
      {"chili", {1, {3}}, {3}},          // five against six
      {"chpael", {1, {6}}, {6, 7}},      // the least; the other is two away
      {"chaple", {1, {6}}, {6, 7}},      // likewise
      {"chaqpel", {1, {6, 7}}, {6, 7}},  // a tie
      {"cremè", {}, {}},                 // two letters differ
      {"creme", {1, {5}}, {5}},          // code points, not bytes
      {"c5", {}, {}},
      {"chapel1", {}, {}},
      {"", {}, {}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(words.Find(c.Key), c.Expected) << c.Key;
    EXPECT_EQ(words.Within(c.Key), c.Within) << c.Key;
  }
}

// The whole table of distances, written down as its definition has it.
int Aligned(const std::string& a, const std::string& b) {
  std::vector<std::vector<int>> d(a.size() + 1, std::vector<int>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      if (i == 0 || j == 0) {
        d[i][j] = static_cast<int>(i + j);
        continue;
      }
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

TEST(NearWords, AgreeWithTheDefinitionOnRandomKeys) {
  std::mt19937 random(7);
  const auto draw = [&] {
    std::string text(1 + random() % 9, ' ');
    for (char& c : text) c = "abc"[random() % 3];
    return text;
  };
  std::vector<std::string> texts(200);
  std::generate(texts.begin(), texts.end(), draw);
  const NearWords words(ListOf(texts));
  for (int n = 0; n < 150; ++n) {
    const std::string key = draw();
    NearMatch expected{3, {}};
    std::vector<int> within;
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const std::size_t shorter = std::min(key.size(), texts[i].size());
      const int distance = Aligned(key, texts[i]);
      if (distance > (shorter < 3 ? 0 : shorter < 6 ? 1 : 2)) continue;
      within.push_back(static_cast<int>(i) + 1);
      if (distance < expected.Distance) expected = {distance, {}};
      if (distance == expected.Distance) expected.Items.push_back(within.back());
    }
    if (within.empty()) expected = {};
    ASSERT_EQ(words.Find(key), expected) << key;
    ASSERT_EQ(words.Within(key), within) << key;
  }
}

}  // namespace
}  // namespace zova
