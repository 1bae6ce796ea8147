// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <functional>
#include <string>

#include "app/widgets/Menus.h"

class QStackedWidget;

namespace zova {

class Panel;
class QtProgress;

/// The frame around the session: the menus and the panel of the current screen.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// `progress` receives the progress of the session's runs.
  MainWindow(Session& session, QtProgress& progress);
  /// To be called after the window is shown, so that the first messages appear in front of it. Opens a project at once
  /// when it is given one.
  void Start(const std::string& projectFile = {});
  /// A command runs, or a box is up.
  [[nodiscard]] bool IsBusy() const;
  /// No effect while another command runs.
  void Run(const std::function<void(Session&)>& act);
  /// Places the window as it was last left, and from now on stores how it is left. Without a place it keeps its first.
  void KeepPlace(SettingsStore& settings);
  /// Shows the session as it is now.
  void Refresh();

 signals:
  /// The program ends.
  void Ended();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void StorePlace();
  void ShowProject();
  Panel* Add(Panel* panel);
  [[nodiscard]] Panel* PanelOf(Screen screen) const;
  [[nodiscard]] Panel* PanelOf(MasterFlow::Stage stage) const;

  Session& m_session;
  SettingsStore* m_settings = nullptr;
  Menus m_menus;
  QStackedWidget* m_panels;
  Panel* m_main;
  Panel* m_wizard;
  Panel* m_location;
  Panel* m_identification;
  Panel* m_entry;
  Panel* m_masterOptions;
  Panel* m_measures;
  Panel* m_order;
  Panel* m_groups;
  Panel* m_blank;
  Panel* m_means;
  Panel* m_words;
  Panel* m_subjects;
  Panel* m_compare;
  Panel* m_import;
  bool m_running = false;
  std::string m_shownProject;  // in the headers of all panels
};

}  // namespace zova
