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

/// The user's place, as far as the help distinguishes it.
struct HelpPlace {
  Screen Shown = Screen::Main;
  int WizardPage = 1;
  LocationFlow::Form Location = LocationFlow::Form::SelectParam;
  SubjectIdentification::Purpose Purpose = SubjectIdentification::Purpose::NewSubject;
  MasterFlow::Stage Stage = MasterFlow::Stage::Closed;
};

/// The help topic (an anchor in the file) for the place.
std::string HelpTopicFor(const HelpPlace& place);

/// A page of the help file, from a line with a heading h1, h2 or h3 whose whole text is an anchor up to the next such
/// line.
struct HelpPage {
  std::string Topic;    ///< the name of the heading's anchor
  std::string Heading;  ///< HTML
  int Level = 1;        ///< 1 to 3; a page of level 3 belongs to the preceding one of level 2
  std::string Html;
};

/// The pages of a help file in order. A text without such a heading is one page, "contents".
std::vector<HelpPage> CutIntoPages(std::string_view html);

}  // namespace zova
