// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/HelpTopics.h"
#include "session/ProgramDirectory.h"
#include "session/QuickHelp.h"
#include "session/Session.h"

namespace zova {

void Session::ShowTopics() {
  m_location.NoteOtherAct();
  m_platform.Help.ShowHelp(HelpFile(m_programDir), "");
}

void Session::ShowScreenHelp() {
  m_location.NoteOtherAct();
  m_platform.Help.ShowHelp(HelpFile(m_programDir),
                           HelpTopicFor({m_screen, m_wizard.Page(), m_location.CurrentForm(),
                                         m_subjects.Identification().CurrentPurpose(), m_masters.CurrentStage()}));
}

std::string_view Session::QuickHelpOf(std::string_view control) const {
  const bool asksDestination = m_location.CurrentForm() == LocationFlow::Form::BackupDestination;
  if (m_screen == Screen::Viewing) return QuickHelp(control, QuickHelpForm::Viewing);
  if (m_screen == Screen::Location && asksDestination) return QuickHelp(control, QuickHelpForm::NewBackup);
  return QuickHelp(control);
}

void Session::ShowMeasuresHelp() { m_platform.Help.ShowHelp(HelpFile(m_programDir), "measures"); }

void Session::ShowPlotHelp() { m_platform.Help.ShowHelp(HelpFile(m_programDir), "plotoptions"); }

void Session::ShowAbout() {
  m_location.NoteOtherAct();
  m_platform.Boxes.Show(
      {.Text = "ZOVA\nVersion 2.0",
       .Icon = BoxIcon::Information,
       .Title = "About ZOVA 2.0",
       .Details = "Keeps and scores the recall lists of memory experiments with repeated tests.\n\n"
                  "Free software under the GNU General Public License (GPL-3.0-or-later), without any warranty.\n\n"
                  "It uses Qt 6 (GNU Lesser General Public License, version 3), QCustomPlot (GNU General Public "
                  "License, version 3 or later), Boost (Boost Software License, version 1.0) and utf8proc (MIT).\n\n"
                  "Please report a fault where you got this program from. Say what you did last, and add the "
                  "project's parameter file.\n\n"
                  "F1 explains the screen that you are on.  Right click something for fast help about it."});
}

}  // namespace zova
