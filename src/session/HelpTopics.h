// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/LocationFlow.h"
#include "session/MasterFlow.h"
#include "session/MenuStates.h"
#include "subjects/SubjectIdentification.h"

namespace zova {

/// Where the user is, as far as the help tells it apart.
struct HelpPlace {
  Screen Shown = Screen::Main;
  int WizardPage = 1;
  LocationFlow::Form Location = LocationFlow::Form::SelectParam;
  SubjectIdentification::Purpose Purpose = SubjectIdentification::Purpose::NewSubject;
  MasterFlow::Stage Stage = MasterFlow::Stage::Closed;
};

/// The topic of the help (an anchor in its file) about what the user sees.
std::string HelpTopicFor(const HelpPlace& place);

/// A page of the help file. It begins at a line with a heading h1, h2 or h3 whose whole text is an anchor, and ends
/// before the next one.
struct HelpPage {
  std::string Topic;    ///< the name of the heading's anchor
  std::string Heading;  ///< as it stands, HTML
  int Level = 1;        ///< 1 to 3; a page of level 3 belongs to the last one of level 2
  std::string Html;
};

/// The pages of a help file in their order. A text without such a heading is one page, "contents".
std::vector<HelpPage> CutIntoPages(std::string_view html);

}  // namespace zova
