// SPDX-License-Identifier: GPL-3.0-or-later
//
// The answers of the pages in short, for the outline beside them.

#include "project/DirectoryRules.h"
#include "project/wizard/WizardPages.h"

namespace zova {

namespace {

constexpr const char* kNone = "none";

std::string Counted(const std::string& number, const std::string& what) {
  return number.empty() ? std::string() : number + " " + what + (number == "1" ? "" : "s");
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
      return Joined(Counted(entries.Text(WizardBox::Tests), "test"), Counted(entries.Text(WizardBox::Items), "item"));
    case 4: {
      if (!entries.Option(WizardOption::Categorized)) return kNone;
      const std::string& count = entries.Text(WizardBox::Categories);
      return Joined(count == "1" ? "1 category" : count + " categories",
                    entries.Option(WizardOption::FalseMemory) ? "with lures" : "");
    }
    case 5: {
      std::string names;
      for (const std::string& name : entries.Variables.Names()) names = Joined(names, name);
      return entries.Option(WizardOption::Variables) ? names : kNone;
    }
    case 6: return entries.Option(WizardOption::Minutes) ? Counted(entries.Text(WizardBox::Minutes), "minute") : kNone;
    case 7:
      if (!entries.Option(WizardOption::Ratings)) return kNone;
      return Joined("1 to " + entries.Text(WizardBox::MaxRating), RatedTests(entries));
    case 8: return entries.Text(WizardBox::Abbreviation);
    default: return {};
  }
}

}  // namespace zova
