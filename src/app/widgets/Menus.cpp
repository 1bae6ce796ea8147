// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/widgets/Menus.h"

#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace zova {

// Without a state the row begins a menu, without a name it is a separator, without a command it is always disabled.
struct MenuEntry {
  const char* Name;
  const char* Caption;
  bool MenuStates::*State = nullptr;
  SessionCommand Command = nullptr;
  bool Preferences::*Check = nullptr;
  const char* Shortcut = "";
};

namespace {

using States = MenuStates;
constexpr MenuEntry kSeparator = {nullptr, ""};
constexpr MenuEntry kEntries[] = {
    {"mnuFile", "&File"},
    {"mnuOpen", "&Open Existing Project", &States::Open, &Session::OpenExistingProject, nullptr, "Ctrl+O"},
    {"mnuCreate", "&Create New Project", &States::Create, &Session::CreateNewProject},
    kSeparator,
    {"mnuSave", "&Save Incomplete Subject", &States::SaveIncomplete, &Session::SaveIncompleteSubject},
    kSeparator,
    {"mnuExit", "E&xit", &States::Exit, &Session::Exit},

    {"mnuOptions", "&Options"},
    {"mnuEnter", "&Enter Subjects", &States::Enter, &Session::EnterSubjects},
    {"mnuMaster", "Create New &Master", &States::Master, &Session::CreateNewMaster},
    {"mnuExamine", "E&xamine Means", &States::Examine, &Session::ExamineMeans},
    {"mnuOld", "Read &Old Data", &States::ReadOld, &Session::ReadOldData},
    {"mnuUnfinished", "&Unfinished Business", &States::Unfinished, &Session::UnfinishedBusiness},
    kSeparator,
    {"mnuView", "&View Parameters", &States::View, &Session::ViewParameters},

    {"mnuPreferences", "&Preferences"},
    {"mnuSkip", "&Skip Minutes On <enter>", &States::SkipMinutes, &Session::ToggleSkipMinutes,
     &Preferences::SkipMinutes},
    {"mnuBlank", "&Next Blank Space On <enter>", &States::NextBlank, &Session::ToggleNextBlankSpace,
     &Preferences::NextBlankSpace},
    kSeparator,
    {"mnuautosave", "&Autosave", &States::Autosave, &Session::ToggleAutosave, &Preferences::Autosave},

    {"mnuTools", "&Tools"},
    {"mnubackup", "Create New &Backup", &States::Backup, &Session::CreateNewBackup},
    {"mnuRestore", "&Restore From Backup", &States::Restore, &Session::RestoreFromBackup},
    {"mnuMoveParam", "&Change 'Param' Folder Location", &States::MoveParam, &Session::ChangeParamLocation},

    {"mnuData", "D&ata"},
    {"mnuWords", "&Word List", &States::Words, &Session::EditWordList},
    {"mnuImport", "&Import Recalls", &States::Import, &Session::ImportRecalls},
    kSeparator,
    {"mnuSubjects", "&Subjects", &States::Subjects, &Session::ShowSubjects},
    {"mnuSecond", "Second &Entry", &States::SecondEntry, &Session::EnterSecond},

    {"mnuHelp", "&Help"},
    {"mnuTopics", "&Topics", &States::Topics, &Session::ShowTopics},
    kSeparator,
    {"mnuAbout", "&About ZOVA 2.0", &States::About, &Session::ShowAbout},
};

}  // namespace

Menus::Menus(QMenuBar& bar, const Session& session, const RunCommand& run) : m_session(session) {
  QMenu* menu = nullptr;
  for (const MenuEntry& entry : kEntries) {
    if (menu == nullptr || (entry.Name != nullptr && entry.State == nullptr)) {
      menu = bar.addMenu(entry.Caption);
      menu->setObjectName(entry.Name);
    } else if (entry.Name == nullptr) {
      menu->addSeparator();
    } else {
      AddEntry(*menu, entry, run);
    }
  }
}

void Menus::AddEntry(QMenu& menu, const MenuEntry& entry, const RunCommand& run) {
  QAction* action = menu.addAction(entry.Caption);
  action->setObjectName(entry.Name);
  action->setCheckable(entry.Check != nullptr);
  action->setShortcut(QKeySequence(entry.Shortcut));
  QObject::connect(action, &QAction::triggered, action, [run, command = entry.Command] { run(command); });
  m_items.push_back({&entry, action});
}

void Menus::Refresh() {
  const MenuStates states = m_session.Menus();
  for (const Item& item : m_items) {
    item.Action->setEnabled(states.*item.Entry->State && item.Entry->Command != nullptr);
    if (item.Entry->Check != nullptr) item.Action->setChecked(m_session.Chosen().*item.Entry->Check);
  }
}

}  // namespace zova
