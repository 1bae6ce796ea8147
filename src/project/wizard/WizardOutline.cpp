// SPDX-License-Identifier: GPL-3.0-or-later
//
// The answers of the pages in short, for the outline beside them.

#include "project/DirectoryRules.h"
#include "project/wizard/WizardPages.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr const char* kNone = "none";

// "" for a box that is still empty.
std::string CountedIn(const WizardEntries& entries, WizardBox box, const char* one, const char* several) {
  const std::string& number = entries.Text(box);
  return number.empty() ? number : Counted(number, one, several);
}

std::string Joined(const std::string& left, const std::string& right) {
  return left + (left.empty() || right.empty() ? "" : ", ") + right;
}

std::string RatedTests(const WizardEntries& entries) {
  std::string tests;
  for (std::size_t test = 0; test < entries.RatedTests.size(); ++test) {
    if (entries.RatedTests[test]) tests = Joined(tests, std::to_string(test + 1));
  }
  return tests.empty() ? tests : "on test " + tests;
}

}  // namespace

std::string ShortAnswer(const WizardEntries& entries, int page) {
  switch (page) {
    case 1: return entries.Text(WizardBox::Title);
    case 2: {
      const std::string& backup = entries.Text(WizardBox::Backup);
      return Joined(entries.Text(WizardBox::Primary), backup == kNoDirectory ? "no backup" : backup);
    }
    case 3:
      return Joined(CountedIn(entries, WizardBox::Tests, "test", "tests"),
                    CountedIn(entries, WizardBox::Items, "item", "items"));
    case 4:
      if (!entries.Option(WizardOption::Categorized)) return kNone;
      return Joined(CountedIn(entries, WizardBox::Categories, "category", "categories"),
                    entries.Option(WizardOption::FalseMemory) ? "with lures" : "");
    case 5: {
      std::string names;
      for (const std::string& name : entries.Variables.Names()) names = Joined(names, name);
      return entries.Option(WizardOption::Variables) ? names : kNone;
    }
    case 6:
      if (!entries.Option(WizardOption::Minutes)) return kNone;
      return CountedIn(entries, WizardBox::Minutes, "minute", "minutes");
    case 7:
      if (!entries.Option(WizardOption::Ratings)) return kNone;
      return Joined("1 to " + entries.Text(WizardBox::MaxRating), RatedTests(entries));
    case 8: return entries.Text(WizardBox::Abbreviation);
    default: return {};
  }
}

}  // namespace zova
