// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <functional>
#include <vector>

#include "session/Session.h"

class QMenu;
class QMenuBar;

namespace zova {

using SessionCommand = void (Session::*)();
/// Runs a command of the session, or an act of several, and refreshes the window.
using RunCommand = std::function<void(const std::function<void(Session&)>&)>;

struct MenuEntry;

/// The menu bar, built from one table of entries with their state and command.
class Menus {
 public:
  Menus(QMenuBar& bar, const Session& session, const RunCommand& run);
  void Refresh();

 private:
  void AddEntry(QMenu& menu, const MenuEntry& entry, const RunCommand& run);

  struct Item {
    const MenuEntry* Entry;
    QAction* Action;
  };
  const Session& m_session;
  std::vector<Item> m_items;
};

}  // namespace zova
