// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/SecondSample.h"

#include <algorithm>
#include <charconv>
#include <random>
#include <unordered_set>

#include "platform/files/EntryNames.h"
#include "text/Csv.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

bool StandsBefore(const SampledSubject& left, const SampledSubject& right) {
  return ListsBefore(left.Subject, right.Subject);
}

std::uint32_t SeedIn(const CompanionRows& rows) {
  const std::string_view text = rows.Text(2);
  std::uint32_t seed = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), seed);
  if (fault != std::errc() || end != text.data() + text.size()) {
    rows.Refuse("'" + std::string(text) + "' is no seed from 0 to 4294967295");
  }
  return seed;
}

}  // namespace

std::vector<SampledSubject> ParseSecondSample(std::string_view bytes) {
  CompanionRows rows(bytes, {"subject", "percent", "seed"});
  std::vector<SampledSubject> sample;
  std::unordered_set<std::string> seen;
  while (rows.Next()) {
    sample.push_back({std::string(rows.Text(0)), rows.Number(1, 1, 100), SeedIn(rows)});
    if (!seen.insert(sample.back().Subject).second) rows.Refuse("'" + sample.back().Subject + "' stands twice");
  }
  std::sort(sample.begin(), sample.end(),
            [](const SampledSubject& left, const SampledSubject& right) { return StandsBefore(left, right); });
  return sample;
}

std::string FormatSecondSample(const std::vector<SampledSubject>& sample) {
  std::string text = "subject,percent,seed";
  text += kCsvLineEnd;
  for (const SampledSubject& subject : sample) {
    AppendCsvField(text, subject.Subject);
    text += ',' + std::to_string(subject.Percent) + ',' + std::to_string(subject.Seed);
    text += kCsvLineEnd;
  }
  return text;
}

// The library's own shuffle and distributions differ between compilers; the generator does not. The numbers of 32 bits
// are cut to a range without their last, uneven part, so that every subject is as likely as every other.
std::vector<SampledSubject> DrawSecondSample(const std::vector<std::string>& subjectIds, int percent,
                                             std::uint32_t seed) {
  std::vector<std::string> left = subjectIds;
  const std::size_t count = (left.size() * static_cast<std::size_t>(percent) + 99) / 100;
  std::mt19937 random(seed);
  std::vector<SampledSubject> sample;
  sample.reserve(count);
  for (std::size_t drawn = 0; drawn < count; ++drawn) {
    const std::uint64_t range = left.size() - drawn;
    const std::uint64_t end = (std::uint64_t{1} << 32U) / range * range;
    std::uint64_t number = random();
    while (number >= end) number = random();
    std::swap(left[drawn], left[drawn + number % range]);
    sample.push_back({left[drawn], percent, seed});
  }
  std::sort(sample.begin(), sample.end(),
            [](const SampledSubject& one, const SampledSubject& other) { return StandsBefore(one, other); });
  return sample;
}

}  // namespace zova
