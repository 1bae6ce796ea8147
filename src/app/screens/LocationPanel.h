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
  explicit LocationPanel(LocationFlow& location);

 protected:
  void ShowState() override;

 private:
  QWidget* MakeResult();
  QWidget* MakeParentOffer();
  void Take(const std::string& path);

  LocationFlow& m_location;
  QLabel* m_title;
  QLabel* m_instruction;
  QLabel* m_note;
  QLineEdit* m_path;
  QLabel* m_willBe;
  QLabel* m_result;
  QLabel* m_native;
  QWidget* m_parentOffer;
  QLabel* m_insideParam;
  DriveDirectoryList* m_directories;
};

}  // namespace zova
