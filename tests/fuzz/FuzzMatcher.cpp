// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any words and any response: an exact match has the word's letters, a near one is within the limits, cells lose no
// text when they are split, and the second answer is the first one.

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>

#include "Require.h"
#include "tables/import/ResponseMatcher.h"
#include "words/WordKey.h"

using namespace zova;

namespace {

std::string Without(std::string text, std::string_view signs) {
  std::erase_if(text, [&](char c) { return signs.find(c) != std::string_view::npos; });
  return text;
}

void TryMatch(const std::string& response, const WordList& words, bool exactAccents) {
  ResponseMatcher matcher(words, {}, exactAccents);
  const ResponseMatch match = matcher.MatchInPool(response);
  const ResponseMatch& again = matcher.MatchInPool(response);
  Require(match.Kind == again.Kind && match.Item == again.Item && match.Near == again.Near, "an answer stays");
  const std::string key = WordKey(response);
  const auto isKey = [&](const Word& word) { return WordKey(word.Text) == key; };
  const bool isWord = !key.empty() && std::any_of(words.Words.begin(), words.Words.end(), isKey);
  if (isWord) Require(match.Kind == MatchKind::Exact, "a word is found");
  if (match.Kind == MatchKind::Exact) {
    const std::string found = WordKey(words.TextOf(match.Item));
    Require(found == key || (!exactAccents && WithoutAccents(found) == WithoutAccents(key)), "a match has the letters");
  }
  Require((match.Kind == MatchKind::Near) == !match.Near.empty(), "near words make a near match");
  for (const NearItem& near : match.Near) {
    Require(near.Distance >= 1 && near.Distance <= 2 && near.Distance == match.Near.front().Distance,
            "near words are of one distance within the limit");
    Require(near.Word == words.TextOf(near.Item), "a near word is that of its item");
  }
  for (const std::string_view separator : {" ", ",", "ab"}) {
    std::string joined;
    for (const std::string& piece : SplitCell(response, separator, matcher)) {
      Require(!piece.empty(), "a piece holds text");
      joined += piece;
    }
    const bool isOneSign = separator.size() == 1;
    const std::string signs = isOneSign ? std::string(separator) + " \t" : std::string();
    if (isOneSign) Require(Without(joined, signs) == Without(response, signs), "splitting loses no text");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  const bool exactAccents = data.ConsumeBool();
  WordList words;
  for (std::size_t count = data.ConsumeIntegralInRange<std::size_t>(0, 6); count > 0; --count) {
    words.Words.push_back({data.ConsumeRandomLengthString(12), ""});
  }
  TryMatch(data.ConsumeRemainingBytesAsString(), words, exactAccents);
  return 0;
}
