// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/ReportFamilies.h"

#include <algorithm>
#include <cctype>

#include "master/columns/ColumnName.h"
#include "means/UncomputedValues.h"

namespace zova {

namespace {

struct Symbol {
  std::string_view Token;  // as it stands in a definition
  std::string_view Meaning;
};

// A meaning may use the symbols behind it.
constexpr Symbol kSymbols[] = {
    {"E", "E: the number of neighbours of one category to be expected by chance, sum of n_c squared / r - 1"},
    {"R", "R: neighbours of one category on the list"},
    {"r", "r: items recalled, each once"},
    {"k", "k: categories of which an item was recalled"},
    {"n_c", "n_c: items recalled of category c"},
    {"N", "N: items studied, without lures"},
    {"m", "m: items studied of each category, without lures"},
    {"frequency", "pair frequency: pairs of neighbours repeated in either order - 2c(c - 1) / (hq)"},
    {"hq", "h, q, c: items on the first and on the second of the two lists, and on both"},
    {"n_ij", "n_ij: how often item j follows item i, over all tests; n_i: the sum of n_ij over j"},
    {"lag", "lag: the study position of an item less that of the item recalled before it"},
    {"t", "t: the test of the column"},
    {"T", "T: the last test"},
};

bool IsOfToken(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

bool HasToken(std::string_view text, std::string_view token) {
  for (std::size_t at = text.find(token); at != std::string_view::npos; at = text.find(token, at + 1)) {
    const std::size_t end = at + token.size();
    if ((at == 0 || !IsOfToken(text[at - 1])) && (end == text.size() || !IsOfToken(text[end]))) return true;
  }
  return false;
}

// The definitions of the master's families explain their own symbols.
void AddSymbols(const std::vector<ReportFamily>& families, std::vector<std::string>& sentences) {
  std::vector<std::string_view> texts;
  for (const ReportFamily& family : families) {
    if (family.Further != nullptr) texts.push_back(family.Definition);
  }
  for (const auto& [token, meaning] : kSymbols) {
    const bool isUsed =
        std::any_of(texts.begin(), texts.end(), [&, sought = token](auto text) { return HasToken(text, sought); });
    if (!isUsed) continue;
    texts.push_back(meaning);
    sentences.push_back(std::string(meaning) + ".");
  }
}

void AddRule(const std::vector<ReportFamily>& families, unsigned rule, std::string_view text,
             std::vector<std::string>& sentences) {
  std::string stems;
  for (const ReportFamily& family : families) {
    if (family.Further == nullptr || (family.Further->Rules & rule) == 0) continue;
    stems.append(stems.empty() ? "" : ", ").append(family.Stem);
  }
  if (!stems.empty()) sentences.push_back(stems + ": " + std::string(text));
}

ReportFamily FamilyOf(const MasterTable& table, std::size_t measure) {
  const std::string& name = table.MeasureName(measure);
  if (const auto further = FurtherColumnByName(name); further && table.IsFurther(measure)) {
    const FurtherFamily& family = *further->Family;
    return {family.Stem, family.Label, family.Definition, family.Source, &family, {measure}};
  }
  if (const auto known = ColumnByName(name)) {
    const MeasureFamily& family = *known->Family;
    return {family.Stem, family.Label, family.Definition, family.Source, nullptr, {measure}};
  }
  return {name, name, "", "", nullptr, {measure}};
}

}  // namespace

std::vector<ReportFamily> FamiliesOf(const MasterTable& table, const std::vector<std::size_t>& measures,
                                     bool withGroups) {
  std::vector<ReportFamily> families;
  for (const std::size_t measure : measures) {
    const ReportFamily family = FamilyOf(table, measure);
    // A master's and a further family may have one name, Gains.
    const auto known = std::find_if(families.begin(), families.end(), [&](const ReportFamily& other) {
      return other.Stem == family.Stem && other.Further == family.Further;
    });
    if (known == families.end()) {
      families.push_back(family);
    } else {
      known->Measures.push_back(measure);
    }
  }
  if (!withGroups) return families;
  for (const FurtherFamily& family : AllFurtherFamilies()) {
    if ((family.Rules & FurtherFamily::OfGroups) == 0) continue;
    families.push_back({family.Stem, family.Label, family.Definition, family.Source, &family, {}});
  }
  return families;
}

std::vector<std::string> ConventionsOf(const std::vector<ReportFamily>& families) {
  std::vector<std::string> sentences = {
      "n: subjects with a value. A value that could not be computed is left out, also where a master has 0.",
      "95 % CI: the mean, and below and above it t SD / sqrt n, with Student's t of n - 1 degrees of freedom."};
  AddSymbols(families, sentences);
  const bool hasFurther =
      std::any_of(families.begin(), families.end(), [](const auto& family) { return family.Further != nullptr; });
  if (hasFurther) {
    std::string stems;
    for (const ReportFamily& family : families) {
      if (family.Further != nullptr) stems.append(stems.empty() ? "" : ", ").append(family.Stem);
    }
    sentences.push_back(stems +
                        ": repeats after an item's first entry, blanks and lures are left out, unless the definition "
                        "says otherwise.");
  }
  AddRule(families, FurtherFamily::Breaks,
          "an intrusion or a lure stands between its neighbours; the list closes up over repeats.", sentences);
  AddRule(families, FurtherFamily::Transitions,
          "a transition from or to a repeat, an intrusion or a lure does not count.", sentences);
  AddRule(families, FurtherFamily::Serial, "study positions are ranks among the items that are no lures.", sentences);
  return sentences;
}

std::vector<std::string> GapTexts(const MasterTable& table, const std::vector<std::size_t>& measures) {
  struct Shared {
    std::vector<GapCount> Gaps;
    std::string Names;
    std::size_t Count = 0;
  };
  std::vector<Shared> all;
  for (const std::size_t measure : measures) {
    std::vector<GapCount> gaps = CountGaps(table, measure);
    if (gaps.empty()) continue;
    auto known = std::find_if(all.begin(), all.end(), [&](const Shared& shared) { return shared.Gaps == gaps; });
    if (known == all.end()) known = all.insert(all.end(), Shared{std::move(gaps), {}, 0});
    known->Names += (known->Names.empty() ? "" : ", ") + table.MeasureName(measure);
    ++known->Count;
  }
  std::vector<std::string> texts;
  texts.reserve(all.size());
  for (const Shared& shared : all) {
    std::string text = shared.Count > 1 && shared.Count == measures.size() ? "Each of these measures" : shared.Names;
    const char* between = ": ";
    for (const GapCount& gap : shared.Gaps) {
      text += between + std::to_string(gap.Count) + " not computed (" + std::string(gap.Reason) + ")";
      between = ", ";
    }
    texts.push_back(text + ".");
  }
  return texts;
}

}  // namespace zova
