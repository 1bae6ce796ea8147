// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/widgets/Panel.h"

class QLabel;
class QLineEdit;

namespace zova {

class DriveDirectoryList;
class LocationFlow;

/// The screen that chooses a directory: the Param directory, in two forms, or a new backup destination.
class LocationPanel : public Panel {
  Q_OBJECT

 public:
  explicit LocationPanel(LocationFlow& location, QWidget* parent = nullptr);
  void Refresh() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Arrange();
  void UsePath(const std::string& path);
  void Accept();
  void Cancel();
  void Report();

  LocationFlow& m_location;
  QWidget* m_form;
  QLabel* m_title;
  QLabel* m_instruction;
  QLabel* m_note;
  QLineEdit* m_path;
  QLabel* m_result;
  DriveDirectoryList* m_directories;
};

}  // namespace zova
