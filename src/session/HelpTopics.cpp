// SPDX-License-Identifier: GPL-3.0-or-later
//
// A page begins with a line of the form
//
//     <h2><a name="topic">Heading</a></h2>

#include "session/HelpTopics.h"

#include <optional>

namespace zova {

namespace {

std::string TopicOfStage(MasterFlow::Stage stage) {
  switch (stage) {
    case MasterFlow::Stage::Closed: break;
    case MasterFlow::Stage::Options: return "masterscreen";
    case MasterFlow::Stage::Measures: return "measures";
    case MasterFlow::Stage::OrderOfItems: return "itemorder";
    case MasterFlow::Stage::GroupDetails: return "groups";
    case MasterFlow::Stage::Writing:
    case MasterFlow::Stage::Finished: return "writing";
    case MasterFlow::Stage::OrderOfGroups: return "grouporder";
  }
  return "master";
}

std::string TopicOfForm(LocationFlow::Form form) {
  switch (form) {
    case LocationFlow::Form::SelectParam: break;
    case LocationFlow::Form::ChangeParam: return "moveparam";
    case LocationFlow::Form::BackupDestination: return "backup";
  }
  return "param";
}

std::string TopicOfPurpose(SubjectIdentification::Purpose purpose) {
  switch (purpose) {
    case SubjectIdentification::Purpose::NewSubject: break;
    case SubjectIdentification::Purpose::OldData: return "olddata";
    case SubjectIdentification::Purpose::Unfinished: return "unfinished";
    case SubjectIdentification::Purpose::SecondEntry: return "secondentry";
  }
  return "identification";
}

// Removes the text up to and including `mark` and returns what preceded the mark.
std::optional<std::string_view> CutAt(std::string_view& text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view before = text.substr(0, at);
  text.remove_prefix(at + mark.size());
  return before;
}

// The page that begins with this line, still without text.
std::optional<HelpPage> PageAt(std::string_view line) {
  if (!line.starts_with("<h") || line.size() < 3 || line[2] < '1' || line[2] > '3') return std::nullopt;
  const int level = line[2] - '0';
  line.remove_prefix(3);
  if (CutAt(line, "><a name=\"") != "") return std::nullopt;
  const auto topic = CutAt(line, "\">");
  const auto heading = CutAt(line, "</a></h");
  if (!topic || !heading) return std::nullopt;
  return HelpPage{std::string(*topic), std::string(*heading), level, {}};
}

}  // namespace

std::string HelpTopicFor(const HelpPlace& place) {
  switch (place.Shown) {
    case Screen::Main: break;
    case Screen::Wizard: return "wizard" + std::to_string(place.WizardPage);
    case Screen::Viewing: return "viewing";
    case Screen::Location: return TopicOfForm(place.Location);
    case Screen::Identification: return TopicOfPurpose(place.Purpose);
    case Screen::Entry: return "grid";
    case Screen::Masters: return TopicOfStage(place.Stage);
    case Screen::Means: return "means";
    case Screen::Words: return "words";
    case Screen::Subjects: return "subjectlist";
    case Screen::Compare: return "differences";
    case Screen::Import: return "import";
  }
  return "main";
}

std::vector<HelpPage> CutIntoPages(std::string_view html) {
  const std::string_view whole = html;
  std::vector<HelpPage> pages;
  while (!html.empty()) {
    std::size_t end = html.find('\n');
    end = end == std::string_view::npos ? html.size() : end + 1;
    const std::string_view line = html.substr(0, end);
    html.remove_prefix(end);
    if (auto page = PageAt(line)) pages.push_back(std::move(*page));
    if (!pages.empty()) pages.back().Html += line;
  }
  if (pages.empty()) pages.push_back({"contents", "Help", 1, std::string(whole)});
  return pages;
}

}  // namespace zova
