// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/HelpTopics.h"

#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "support/Scratch.h"

namespace zova {
namespace {

using Purpose = SubjectIdentification::Purpose;
using Stage = MasterFlow::Stage;

std::string HelpText() { return testing::ReadFile(ZOVA_DATA "/ZOVA2.hlp"); }

std::set<std::string> MatchesOf(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::set<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    found.insert((*match)[1]);
  }
  return found;
}

TEST(HelpTopics, EveryLinkLeadsToAPageAndTheContentsNameAllPagesInTheirOrder) {
  const std::vector<HelpPage> pages = CutIntoPages(HelpText());
  ASSERT_GT(pages.size(), 60U);
  EXPECT_EQ(pages.front().Topic, "contents");
  std::set<std::string> topics;
  std::size_t place = 0;
  for (const HelpPage& page : pages) {
    EXPECT_TRUE(topics.insert(page.Topic).second) << page.Topic << " stands twice";
    if (&page == &pages.front()) continue;
    place = pages.front().Html.find("<li><a href=\"#" + page.Topic + "\">" + page.Heading + "</a>", place);
    EXPECT_NE(place, std::string::npos) << page.Topic << " is not in the contents, or not there";
  }
  EXPECT_EQ(MatchesOf(HelpText(), "name=\"([^\"]*)\""), topics) << "anchors that begin no page";
  for (const std::string& link : MatchesOf(HelpText(), "href=\"#?([^\"]*)\""))
    EXPECT_EQ(topics.count(link), 1U) << link;
}

TEST(HelpTopics, EveryPlaceHasAPageOfItsOwn) {
  std::vector<HelpPlace> places;
  for (int screen = 0; screen <= static_cast<int>(Screen::Means); ++screen) {
    places.push_back({.Shown = static_cast<Screen>(screen)});
  }
  for (int page = 2; page <= 8; ++page) places.push_back({.Shown = Screen::Wizard, .WizardPage = page});
  for (const auto form : {LocationFlow::Form::ChangeParam, LocationFlow::Form::BackupDestination}) {
    places.push_back({.Shown = Screen::Location, .Location = form});
  }
  for (const Purpose purpose : {Purpose::OldData, Purpose::Unfinished}) {
    places.push_back({.Shown = Screen::Identification, .Purpose = purpose});
  }
  for (int stage = 1; stage <= static_cast<int>(Stage::OrderOfGroups); ++stage) {
    places.push_back({.Shown = Screen::Masters, .Stage = static_cast<Stage>(stage)});
  }
  std::set<std::string> free;
  for (const HelpPage& page : CutIntoPages(HelpText())) free.insert(page.Topic);
  for (const HelpPlace& place : places) {
    const std::string topic = HelpTopicFor(place);
    EXPECT_EQ(free.erase(topic), 1U) << "'" << topic << "' is no page, or that of two places";
  }
}

}  // namespace
}  // namespace zova
